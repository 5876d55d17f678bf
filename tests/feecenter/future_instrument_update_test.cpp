#include <gtest/gtest.h>

#include <climits>
#include <string>
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
using Sizes = std::vector<std::size_t>;

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

TEST_F(FutureInstrumentUpdateTest, FeeWithoutCommissionChangesNothing) {
    update(makeFutureFee(rb, nullptr, {makeMargin('1', 20)}));
    EXPECT_EQ(tableSizes(), emptyTables);
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

TEST_F(FutureInstrumentUpdateTest, MarginModeAloneMakesAnotherRecord) {
    const auto mode0 = makeMargin('1', 20, 0);
    const auto mode6 = makeMargin('2', 20, 6);
    const auto other = makeMargin('2', 20, 7);
    updateMargins({mode0, mode6, other});
    EXPECT_EQ(marginKeys(*rb), (Keys{center.getHashKey(mode0), center.getHashKey(other), kUnsetSlot}));
    EXPECT_EQ(center.futureMarginDetails.size(), 3U);
}

TEST_F(FutureInstrumentUpdateTest, HedgeFlagOneFillsTheFirstSlot) {
    const auto detail = makeMargin('1', 20);
    updateMargins({detail});
    EXPECT_EQ(marginKeys(*rb), (Keys{center.getHashKey(detail), kUnsetSlot, kUnsetSlot}));
}

TEST_F(FutureInstrumentUpdateTest, HedgeFlagTwoFillsTheSecondSlot) {
    const auto detail = makeMargin('2', 20);
    updateMargins({detail});
    EXPECT_EQ(marginKeys(*rb), (Keys{kUnsetSlot, center.getHashKey(detail), kUnsetSlot}));
}

TEST_F(FutureInstrumentUpdateTest, HedgeFlagThreeFillsTheThirdSlot) {
    const auto detail = makeMargin('3', 20);
    updateMargins({detail});
    EXPECT_EQ(marginKeys(*rb), (Keys{kUnsetSlot, kUnsetSlot, center.getHashKey(detail)}));
}

TEST_F(FutureInstrumentUpdateTest, SlotIsReplacedAndTheOthersStay) {
    const auto first = makeMargin('1', 20);
    const auto third = makeMargin('3', 30);
    const auto newer = makeMargin('1', 40);
    updateMargins({third, first});
    updateMargins({newer});
    EXPECT_EQ(marginKeys(*rb), (Keys{center.getHashKey(newer), kUnsetSlot, center.getHashKey(third)}));
    EXPECT_TRUE(poolsMargin(center.getHashKey(first)));
}

TEST_F(FutureInstrumentUpdateTest, UpdateWithoutMarginsMakesNoMarginEntry) {
    updateMargins({});
    EXPECT_EQ(tableSizes(), (Sizes{1, 1, 1, 0, 0, 0}));
}

TEST_F(FutureInstrumentUpdateTest, EmptyMarginDetailsArePassedOver) {
    const auto detail = makeMargin('2', 20);
    updateMargins({nullptr, detail, nullptr});
    EXPECT_EQ(marginKeys(*rb), (Keys{kUnsetSlot, center.getHashKey(detail), kUnsetSlot}));
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

TEST_F(FutureInstrumentUpdateTest, DetailsBesideOneWithoutSlotInAShortVectorAreApplied) {
    load({makeFutureFee(rb, nullptr, {makeMargin('2', 20)})});
    const auto detail = makeMargin('1', 40);
    updateMargins({makeMargin('2', 50), detail, makeMargin('3', 60)});
    EXPECT_EQ(marginKeys(*rb), Keys{center.getHashKey(detail)});
    EXPECT_EQ(center.futureMarginDetails.size(), 2U);
}

TEST_F(FutureInstrumentUpdateTest, LoadedVectorLongerThanTheSlotsKeepsItsEnd) {
    const auto a = makeMargin('1', 20);
    load({makeFutureFee(rb, nullptr, {a, a, a, a})});
    const auto detail = makeMargin('3', 40);
    updateMargins({detail});
    const uint64 key = center.getHashKey(a);
    EXPECT_EQ(marginKeys(*rb), (Keys{key, key, center.getHashKey(detail), key}));
}

TEST_F(FutureInstrumentUpdateTest, EmptyVectorIsWidenedToThreeSlots) {
    center.futureMarginKeys[kAccount][test::instrumentKey(*rb)] = {};
    const auto detail = makeMargin('2', 20);
    updateMargins({detail});
    EXPECT_EQ(marginKeys(*rb), (Keys{kUnsetSlot, center.getHashKey(detail), kUnsetSlot}));
}

TEST_F(FutureInstrumentUpdateTest, LoadedRecordWithEqualRatesIsKept) {
    load({makeFutureFee(rb, makeCommission(10, "loaded"), {makeMargin('1', 20, 6)})});
    const auto commission = storedCommission(*rb);
    const auto margin = center.futureMarginDetails.at(center.getHashKey(makeMargin('1', 20, 6)));
    update(makeFutureFee(rb, makeCommission(10, "updated"), {makeMargin('1', 20, 6)}));
    EXPECT_EQ(storedCommission(*rb), commission);
    EXPECT_EQ(commission->instrumentId, "loaded");
    EXPECT_EQ(center.futureMarginDetails.at(center.getHashKey(makeMargin('1', 20, 6))), margin);
    EXPECT_EQ(margin->marginMode, 6);
}

TEST_F(FutureInstrumentUpdateTest, SparseRecordIsKeptByALaterLoadWithEqualRates) {
    update(makeFutureFee(rb, makeCommission(10, "updated"), {makeMargin('1', 20, 6)}));
    load({makeFutureFee(rb, makeCommission(10, "loaded"), {makeMargin('1', 20, 6)})});
    EXPECT_EQ(storedCommission(*rb)->instrumentId, "");
    EXPECT_EQ(center.futureMarginDetails.at(center.getHashKey(makeMargin('1', 20, 6)))->marginMode, 0);
}

TEST_F(FutureInstrumentUpdateTest, OtherInstrumentsAndAccountsStay) {
    const auto cu = addFuture("cu2605");
    load({makeFutureFee(rb, makeCommission(10)), makeFutureFee(cu, makeCommission(10))});
    center.doUpdateFutureInstrumentFee(test::makeAccount(5, 502), makeFutureFee(rb, makeCommission(40)));
    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 11);
    EXPECT_EQ(storedCommission(*cu)->openRatioByMoney, 11);
    EXPECT_EQ(storedCommission(*rb, 502)->openRatioByMoney, 41);
}

class HedgeFlagWithoutSlotTest : public FutureInstrumentUpdateTest, public ::testing::WithParamInterface<int> {};

TEST_P(HedgeFlagWithoutSlotTest, AloneMakesNoMarginEntry) {
    updateMargins({makeMargin(GetParam(), 20)});
    EXPECT_EQ(tableSizes(), (Sizes{1, 1, 1, 0, 0, 0}));
}

TEST_P(HedgeFlagWithoutSlotTest, DetailsBesideItAreApplied) {
    const auto first = makeMargin('1', 30);
    const auto third = makeMargin('3', 40);
    updateMargins({first, makeMargin(GetParam(), 20), third});
    EXPECT_EQ(marginKeys(*rb), (Keys{center.getHashKey(first), kUnsetSlot, center.getHashKey(third)}));
    EXPECT_EQ(center.futureMarginDetails.size(), 2U);
    EXPECT_TRUE(storedCommission(*rb));
}

TEST_P(HedgeFlagWithoutSlotTest, EntriesOfALongLoadedVectorAreNoSlots) {
    const auto loaded = makeMargin('1', 30);
    load({makeFutureFee(rb, nullptr, test::Margins(400, loaded))});
    updateMargins({makeMargin(GetParam(), 20)});
    EXPECT_EQ(marginKeys(*rb), Keys(400, center.getHashKey(loaded)));
    EXPECT_EQ(center.futureMarginDetails.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Flags, HedgeFlagWithoutSlotTest,
                         ::testing::Values('0', '4', 0, 1, 2, 3, -1, -'1', '1' + 256, INT_MIN, INT_MIN + '1', INT_MAX));

}  // namespace
