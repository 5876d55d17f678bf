#include <gtest/gtest.h>

#include <vector>

#include "support/future_builders.h"

namespace {

using namespace qmservice;
using test::kAccount;
using test::kUnsetSlot;
using test::makeCommission;
using test::makeFutureFee;
using test::makeMargin;
using test::ratesOf;
using Keys = std::vector<uint64>;
using Rates = std::vector<double>;

class FutureInstrumentUpdateTest : public test::FutureTest {
protected:
    void update(const boost::shared_ptr<CInstrumentFee>& fee) { center.doUpdateFutureInstrumentFee(account, fee); }
    void updateMargins(const test::Margins& margins) { update(makeFutureFee(rb, makeCommission(10), margins)); }

    boost::shared_ptr<CInstrument> rb = addFuture("rb2605");
};

TEST_F(FutureInstrumentUpdateTest, EmptyFeeChangesNothing) {
    update(nullptr);
    EXPECT_EQ(tableSizes(), emptyTables);
}

TEST_F(FutureInstrumentUpdateTest, FeeWithoutInstrumentChangesNothing) {
    update(makeFutureFee(nullptr, makeCommission(10), {makeMargin('1', 20)}));
    EXPECT_EQ(tableSizes(), emptyTables);
}

TEST_F(FutureInstrumentUpdateTest, EmptyMarginDetailsArePassedOver) {
    const auto detail = makeMargin('2', 20);
    updateMargins({nullptr, detail, nullptr});
    EXPECT_EQ(marginKeys(*rb), (Keys{kUnsetSlot, center.getHashKey(detail), kUnsetSlot}));
}

TEST_F(FutureInstrumentUpdateTest, CommissionWithoutInstrumentIdChangesNothing) {
    update(makeFutureFee(rb, makeCommission(10, ""), {makeMargin('1', 20)}));
    EXPECT_EQ(tableSizes(), emptyTables);
}

TEST_F(FutureInstrumentUpdateTest, NewCommissionRecordGetsTheEightValuesAndNoInstrumentId) {
    const auto detail = makeCommission(10, "rb2605");
    update(makeFutureFee(rb, detail));
    const auto stored = storedCommission(*rb);
    ASSERT_TRUE(stored);
    EXPECT_NE(stored, detail);
    EXPECT_EQ(stored->instrumentId, "");
    EXPECT_EQ(ratesOf(*stored), (Rates{11, 12, 13, 14, 15, 16, 17, 18}));
    EXPECT_EQ(center.futureCommissionKeys.at(kAccount).at(test::instrumentKey(*rb)), center.getHashKey(detail));
}

TEST_F(FutureInstrumentUpdateTest, NewMarginRecordGetsItsRatesButNotTheMarginModeInItsKey) {
    const auto detail = makeMargin('1', 20, 6);
    updateMargins({detail});
    ASSERT_TRUE(poolsMargin(center.getHashKey(detail)));
    const auto stored = center.futureMarginDetails.at(center.getHashKey(detail));
    EXPECT_NE(stored, detail);
    EXPECT_EQ(stored->hedgeFlag, '1');
    EXPECT_EQ(stored->marginMode, 0);
    EXPECT_EQ(ratesOf(*stored), (Rates{21, 22, 23, 24, 25, 26}));
}

TEST_F(FutureInstrumentUpdateTest, LoadedVectorIsWrittenAtTheSlotsIndexAndNotWidened) {
    const auto a = makeMargin('3', 20);
    const auto b = makeMargin('1', 30);
    load({makeFutureFee(rb, nullptr, {a, b})});
    const auto detail = makeMargin('2', 40);
    updateMargins({detail});
    EXPECT_EQ(marginKeys(*rb), (Keys{center.getHashKey(a), center.getHashKey(detail)}));
}

TEST_F(FutureInstrumentUpdateTest, LoadedVectorTooShortForTheSlotKeepsEverything) {
    const auto a = makeMargin('1', 20);
    const auto b = makeMargin('2', 30);
    load({makeFutureFee(rb, nullptr, {a, b})});
    updateMargins({makeMargin('3', 40)});
    EXPECT_EQ(marginKeys(*rb), (Keys{center.getHashKey(a), center.getHashKey(b)}));
    EXPECT_EQ(center.futureMarginDetails.size(), 2U);
}

TEST_F(FutureInstrumentUpdateTest, LoadedVectorTooShortForTheSlotTakesTheCommission) {
    load({makeFutureFee(rb, makeCommission(50), {makeMargin('1', 20)})});
    updateMargins({makeMargin('3', 40)});
    EXPECT_EQ(ratesOf(*storedCommission(*rb)), (Rates{11, 12, 13, 14, 15, 16, 17, 18}));
}

TEST_F(FutureInstrumentUpdateTest, EmptyVectorIsWidenedToThreeSlots) {
    center.futureMarginKeys[kAccount][test::instrumentKey(*rb)] = {};
    const auto detail = makeMargin('2', 20);
    updateMargins({detail});
    EXPECT_EQ(marginKeys(*rb), (Keys{kUnsetSlot, center.getHashKey(detail), kUnsetSlot}));
}

}  // namespace
