#include <gtest/gtest.h>

#include <vector>

#include "support/future_builders.h"

namespace {

using namespace qmservice;
using test::makeCommission;
using test::makeFutureFee;
using test::makeMargin;
using Keys = std::vector<uint64>;

class FutureLoadTest : public test::FutureTest {};

TEST_F(FutureLoadTest, MarginKeysAreInListOrderWithoutSlots) {
    const auto rb = addFuture("rb2605");
    const auto third = makeMargin('3', 20);
    const auto first = makeMargin('1', 30);
    load({makeFutureFee(rb, nullptr, {third, first, third, third})});
    const uint64 key3 = center.getHashKey(third);
    EXPECT_EQ(marginKeys(*rb), (Keys{key3, center.getHashKey(first), key3, key3}));
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

TEST_F(FutureLoadTest, UnusableRecordsAreSkippedAndTheOthersStored) {
    const auto rb = addFuture("rb2605");
    load({nullptr, boost::make_shared<CAccountInfo>(), makeCommission(70),
          makeFutureFee(nullptr, makeCommission(80), {makeMargin('1', 90)}), makeFutureFee(rb, makeCommission(10))});
    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 11);
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

}  // namespace
