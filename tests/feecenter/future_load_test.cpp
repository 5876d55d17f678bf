#include <gtest/gtest.h>

#include <vector>

#include "support/future_builders.h"

namespace {

using namespace qmservice;
using test::kAccount;
using test::makeCommission;
using test::makeFutureFee;
using test::makeMargin;
using test::ratesOf;
using Keys = std::vector<uint64>;
using Rates = std::vector<double>;

class FutureLoadTest : public test::FutureTest {};

TEST_F(FutureLoadTest, CommissionIsStoredAsAFullCopy) {
    const auto rb = addFuture("rb2605");
    const auto detail = makeCommission(10, "rb2605");
    load({makeFutureFee(rb, detail)});

    const auto stored = storedCommission(*rb);
    ASSERT_TRUE(stored);
    EXPECT_NE(stored, detail);
    EXPECT_EQ(stored->instrumentId, "rb2605");
    EXPECT_EQ(ratesOf(*stored), (Rates{11, 12, 13, 14, 15, 16, 17, 18}));
    EXPECT_EQ(center.futureCommissionKeys.at(kAccount).at(test::instrumentKey(*rb)), center.getHashKey(detail));
}

TEST_F(FutureLoadTest, MarginIsStoredAsAFullCopy) {
    const auto rb = addFuture("rb2605");
    const auto detail = makeMargin('2', 20, 6);
    load({makeFutureFee(rb, nullptr, {detail})});

    const auto stored = center.futureMarginDetails.at(center.getHashKey(detail));
    EXPECT_NE(stored, detail);
    EXPECT_EQ(stored->hedgeFlag, '2');
    EXPECT_EQ(stored->marginMode, 6);
    EXPECT_EQ(ratesOf(*stored), (Rates{21, 22, 23, 24, 25, 26}));
}

TEST_F(FutureLoadTest, MarginKeysStandInListOrderWithoutSlots) {
    const auto rb = addFuture("rb2605");
    const auto third = makeMargin('3', 20);
    const auto first = makeMargin('1', 30);
    load({makeFutureFee(rb, nullptr, {third, first, third, third})});
    const uint64 key3 = center.getHashKey(third);
    EXPECT_EQ(marginKeys(*rb), (Keys{key3, center.getHashKey(first), key3, key3}));
}

TEST_F(FutureLoadTest, MarginWithoutAHedgeFlagOfASlotIsStoredLikeAnyOther) {
    const auto rb = addFuture("rb2605");
    const auto detail = makeMargin('7', 20);
    load({makeFutureFee(rb, nullptr, {detail})});
    EXPECT_EQ(marginKeys(*rb), Keys{center.getHashKey(detail)});
    EXPECT_TRUE(poolsMargin(center.getHashKey(detail)));
}

TEST_F(FutureLoadTest, EqualRatesOfTwoAccountsShareTheFirstRecord) {
    const auto rb = addFuture("rb2605");
    const auto cu = addFuture("cu2605");
    load({makeFutureFee(rb, makeCommission(10, "rb2605"), {makeMargin('1', 20)})});
    const auto first = storedCommission(*rb);
    center.doInitFutureFee(test::makeAccount(5, 502),
                           {makeFutureFee(cu, makeCommission(10, "cu2605"), {makeMargin('1', 20)})});

    EXPECT_EQ(storedCommission(*cu, 502), first);
    EXPECT_EQ(first->instrumentId, "rb2605");
    EXPECT_EQ(marginKeys(*cu, 502), marginKeys(*rb));
    EXPECT_EQ(tableSizes(), (std::vector<std::size_t>{1, 2, 2, 1, 2, 2}));
}

TEST_F(FutureLoadTest, ReloadWithEqualRatesKeepsTheFirstRecord) {
    const auto rb = addFuture("rb2605");
    load({makeFutureFee(rb, makeCommission(10, "first"))});
    load({makeFutureFee(rb, makeCommission(10, "second"))});
    EXPECT_EQ(storedCommission(*rb)->instrumentId, "first");
}

TEST_F(FutureLoadTest, ReloadOverwritesTheKeysAndRemovesNoRecord) {
    const auto rb = addFuture("rb2605");
    load({makeFutureFee(rb, makeCommission(10), {makeMargin('1', 20), makeMargin('2', 20), makeMargin('3', 20)})});
    const auto detail = makeMargin('2', 50);
    load({makeFutureFee(rb, makeCommission(40), {detail})});

    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 41);
    EXPECT_EQ(marginKeys(*rb), Keys{center.getHashKey(detail)});
    EXPECT_EQ(tableSizes(), (std::vector<std::size_t>{2, 1, 1, 4, 1, 1}));
}

TEST_F(FutureLoadTest, LaterRecordOfTheSameInstrumentWins) {
    const auto rb = addFuture("rb2605");
    load({makeFutureFee(rb, makeCommission(10)), makeFutureFee(rb, makeCommission(40))});
    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 41);
}

TEST_F(FutureLoadTest, FeeWithoutCommissionChangesOnlyMarginKeys) {
    const auto rb = addFuture("rb2605");
    load({makeFutureFee(rb, nullptr, {makeMargin('1', 20)})});
    EXPECT_EQ(tableSizes(), (std::vector<std::size_t>{0, 0, 0, 1, 1, 1}));
}

TEST_F(FutureLoadTest, FeeWithoutMarginsLeavesEarlierMarginKeysInPlace) {
    const auto rb = addFuture("rb2605");
    const auto margin = makeMargin('1', 20);
    load({makeFutureFee(rb, makeCommission(10), {margin})});
    load({makeFutureFee(rb, makeCommission(40))});
    EXPECT_EQ(marginKeys(*rb), Keys{center.getHashKey(margin)});
    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 41);
}

TEST_F(FutureLoadTest, FeeWithoutMarginsMakesNoMarginEntry) {
    load({makeFutureFee(addFuture("rb2605"), makeCommission(10))});
    EXPECT_EQ(tableSizes(), (std::vector<std::size_t>{1, 1, 1, 0, 0, 0}));
}

TEST_F(FutureLoadTest, EmptyMarginDetailsArePassedOver) {
    const auto rb = addFuture("rb2605");
    const auto first = makeMargin('1', 20);
    const auto second = makeMargin('2', 30);
    load({makeFutureFee(rb, nullptr, {nullptr, first, nullptr, second})});
    EXPECT_EQ(marginKeys(*rb), (Keys{center.getHashKey(first), center.getHashKey(second)}));
}

TEST_F(FutureLoadTest, NothingButEmptyMarginDetailsLeavesTheKeysAsTheyWere) {
    const auto rb = addFuture("rb2605");
    const auto cu = addFuture("cu2605");
    const auto margin = makeMargin('1', 20);
    load({makeFutureFee(rb, nullptr, {margin})});
    load({makeFutureFee(rb, nullptr, {nullptr}), makeFutureFee(cu, nullptr, {nullptr, nullptr})});
    EXPECT_EQ(marginKeys(*rb), Keys{center.getHashKey(margin)});
    EXPECT_EQ(tableSizes(), (std::vector<std::size_t>{0, 0, 0, 1, 1, 1}));
}

TEST_F(FutureLoadTest, UnusableRecordsAreSkippedAndTheOthersStored) {
    const auto rb = addFuture("rb2605");
    load({nullptr, boost::make_shared<CAccountInfo>(), makeCommission(70),
          makeFutureFee(nullptr, makeCommission(80), {makeMargin('1', 90)}), makeFutureFee(rb, makeCommission(10))});
    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 11);
    EXPECT_EQ(tableSizes(), (std::vector<std::size_t>{1, 1, 1, 0, 0, 0}));
}

TEST_F(FutureLoadTest, RecordOfADerivedClassIsAFee) {
    class HostsOwnFee : public CInstrumentFee {};
    const auto rb = addFuture("rb2605");
    const auto fee = boost::make_shared<HostsOwnFee>();
    fee->instrument = rb;
    fee->commissionDetail = makeCommission(10);
    load({fee});
    EXPECT_TRUE(storedCommission(*rb));
}

TEST_F(FutureLoadTest, EmptyListMakesNoAccount) {
    load({});
    EXPECT_EQ(tableSizes(), emptyTables);
}

TEST_F(FutureLoadTest, FeeWithNeitherRateMakesNoAccount) {
    load({makeFutureFee(addFuture("rb2605"), nullptr)});
    EXPECT_EQ(tableSizes(), emptyTables);
}

TEST_F(FutureLoadTest, CommissionWithoutInstrumentIdIsLoaded) {
    const auto rb = addFuture("rb2605");
    load({makeFutureFee(rb, makeCommission(10, ""))});
    EXPECT_TRUE(storedCommission(*rb));
}

TEST_F(FutureLoadTest, EntriesThatTheListDoesNotNameStay) {
    const auto rb = addFuture("rb2605");
    const auto cu = addFuture("cu2605");
    load({makeFutureFee(rb, makeCommission(10), {makeMargin('1', 20)})});
    load({makeFutureFee(cu, makeCommission(40), {makeMargin('1', 50)})});
    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 11);
    EXPECT_EQ(marginKeys(*rb).size(), 1U);
}

TEST_F(FutureLoadTest, CatalogueIsNotAskedForTheInstrument) {
    const auto instrument = boost::make_shared<CInstrument>();
    instrument->market = "DCE";
    instrument->code = "i2605";
    int calls = 0;
    host.onCall = [&](const std::string&) { ++calls; };
    load({makeFutureFee(instrument, makeCommission(10), {makeMargin('1', 20)})});
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(center.futureCommissionKeys.at(kAccount).count(test::instrumentKey("DCE", "i2605")), 1U);
}

}  // namespace
