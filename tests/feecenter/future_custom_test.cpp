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
using test::makeCustomCommission;
using test::makeCustomFutureFee;
using test::makeCustomMargin;
using test::makeFutureFee;
using test::makeMargin;
using test::ratesOf;
using Keys = std::vector<uint64>;
using Rates = std::vector<double>;
using Sizes = std::vector<std::size_t>;

class FutureCustomTest : public test::FutureTest {
protected:
    void update(const test::Commissions& commissions, const test::CustomMargins& margins) {
        center.doUpdateFutureCustomFee(account, makeCustomFutureFee(commissions, margins));
    }

    void putInCategory(int category, const CInstrument& instrument) {
        host.systemMembers.insert({category, {instrument.market, instrument.code}});
    }
};

TEST_F(FutureCustomTest, FeeWithoutDetailsDoesNotAskTheHost) {
    addFuture("rb2605");
    int calls = 0;
    host.onCall = [&](const std::string&) { ++calls; };
    update({}, {});
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(tableSizes(), emptyTables);
}

TEST_F(FutureCustomTest, NewCommissionRecordGetsTheEightValuesAndNoInstrumentId) {
    const auto rb = addFuture("rb2605");
    putInCategory(5, *rb);
    const auto detail = makeCustomCommission("5", 10);
    update({detail}, {});
    const auto stored = storedCommission(*rb);
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->instrumentId, "");
    EXPECT_EQ(ratesOf(*stored), (Rates{11, 12, 13, 14, 15, 16, 17, 18}));
    EXPECT_EQ(center.futureCommissionKeys.at(kAccount).at(test::instrumentKey(*rb)), center.getHashKey(detail));
    EXPECT_EQ(tableSizes(), (Sizes{1, 1, 1, 0, 0, 0}));
}

TEST_F(FutureCustomTest, NewMarginRecordGetsItsRatesButNotTheMarginModeInItsKey) {
    const auto rb = addFuture("rb2605");
    putInCategory(5, *rb);
    const auto detail = makeCustomMargin("5", '2', 20, 6);
    update({}, {detail});
    EXPECT_EQ(marginKeys(*rb), (Keys{kUnsetSlot, center.getHashKey(detail), kUnsetSlot}));
    const auto stored = center.futureMarginDetails.at(center.getHashKey(detail));
    EXPECT_EQ(stored->hedgeFlag, '2');
    EXPECT_EQ(stored->marginMode, 0);
    EXPECT_EQ(ratesOf(*stored), (Rates{21, 22, 23, 24, 25, 26}));
    EXPECT_EQ(tableSizes(), (Sizes{0, 0, 0, 1, 1, 1}));
}

TEST_F(FutureCustomTest, StoredRecordWithEqualRatesIsKept) {
    const auto rb = addFuture("rb2605");
    const auto cu = addFuture("cu2605");
    load({makeFutureFee(rb, makeCommission(10, "rb2605"), {makeMargin('1', 20, 6)})});
    putInCategory(5, *cu);
    update({makeCustomCommission("5", 10)}, {makeCustomMargin("5", '1', 20, 6)});
    EXPECT_EQ(storedCommission(*cu), storedCommission(*rb));
    EXPECT_EQ(storedCommission(*cu)->instrumentId, "rb2605");
    EXPECT_EQ(tableSizes(), (Sizes{1, 1, 2, 1, 1, 2}));
}

TEST_F(FutureCustomTest, FirstMatchingDetailWinsForCommissionAndMarginSeparately) {
    const auto rb = addFuture("rb2605");
    putInCategory(2, *rb);
    putInCategory(3, *rb);
    const auto margin = makeCustomMargin("3", '1', 50);
    update({makeCustomCommission("1", 10), makeCustomCommission("2", 20), makeCustomCommission("3", 30)},
           {makeCustomMargin("1", '1', 40), margin, makeCustomMargin("2", '1', 60)});
    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 21);
    EXPECT_EQ(marginKeys(*rb), (Keys{center.getHashKey(margin), kUnsetSlot, kUnsetSlot}));
    EXPECT_EQ(tableSizes(), (Sizes{1, 1, 1, 1, 1, 1}));
}

TEST_F(FutureCustomTest, OnlyOneMarginDetailIsAppliedWhateverTheHedgeFlags) {
    const auto rb = addFuture("rb2605");
    putInCategory(5, *rb);
    const auto first = makeCustomMargin("5", '1', 20);
    update({}, {first, makeCustomMargin("5", '3', 30)});
    EXPECT_EQ(marginKeys(*rb), (Keys{center.getHashKey(first), kUnsetSlot, kUnsetSlot}));
    EXPECT_EQ(center.futureMarginDetails.size(), 1U);
}

TEST_F(FutureCustomTest, SlotIsReplacedAndTheOthersStay) {
    const auto rb = addFuture("rb2605");
    putInCategory(5, *rb);
    const auto first = makeCustomMargin("5", '1', 20);
    const auto second = makeCustomMargin("5", '2', 30);
    const auto newer = makeCustomMargin("5", '1', 40);
    update({}, {first});
    update({}, {second});
    update({}, {newer});
    EXPECT_EQ(marginKeys(*rb), (Keys{center.getHashKey(newer), center.getHashKey(second), kUnsetSlot}));
}

TEST_F(FutureCustomTest, LoadedVectorTooShortForTheSlotKeepsEverything) {
    const auto rb = addFuture("rb2605");
    putInCategory(5, *rb);
    const auto a = makeMargin('1', 20);
    load({makeFutureFee(rb, nullptr, {a, a})});
    update({makeCustomCommission("5", 10)}, {makeCustomMargin("5", '3', 30)});
    EXPECT_EQ(marginKeys(*rb), (Keys{center.getHashKey(a), center.getHashKey(a)}));
    EXPECT_EQ(tableSizes(), (Sizes{1, 1, 1, 1, 1, 1}));
}

TEST_F(FutureCustomTest, UnmatchedInstrumentsKeepTheirKeys) {
    const auto rb = addFuture("rb2605");
    const auto cu = addFuture("cu2605");
    load({makeFutureFee(rb, makeCommission(10), {makeMargin('1', 20)})});
    putInCategory(5, *cu);
    update({makeCustomCommission("5", 40)}, {makeCustomMargin("5", '1', 50)});
    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 11);
    EXPECT_EQ(marginKeys(*rb).size(), 1U);
    EXPECT_EQ(storedCommission(*cu)->openRatioByMoney, 41);
}

TEST_F(FutureCustomTest, NoMatchMakesNoAccount) {
    addFuture("rb2605");
    update({makeCustomCommission("5", 40)}, {makeCustomMargin("5", '1', 50)});
    EXPECT_EQ(tableSizes(), emptyTables);
}

TEST_F(FutureCustomTest, EmptyDetailsArePassedOver) {
    const auto rb = addFuture("rb2605");
    putInCategory(5, *rb);
    const auto margin = makeCustomMargin("5", '1', 50);
    update({nullptr, makeCustomCommission("5", 40)}, {nullptr, margin});
    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 41);
    EXPECT_EQ(marginKeys(*rb).front(), center.getHashKey(margin));
}

class CustomHedgeFlagWithoutSlotTest : public FutureCustomTest, public ::testing::WithParamInterface<int> {};

TEST_P(CustomHedgeFlagWithoutSlotTest, ChangesNoMarginThoughTheCommissionApplies) {
    const auto rb = addFuture("rb2605");
    putInCategory(5, *rb);
    update({makeCustomCommission("5", 10)}, {makeCustomMargin("5", GetParam(), 20), makeCustomMargin("5", '1', 30)});
    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 11);
    EXPECT_EQ(tableSizes(), (Sizes{1, 1, 1, 0, 0, 0}));
}

TEST_P(CustomHedgeFlagWithoutSlotTest, EntriesOfALongLoadedVectorAreNoSlots) {
    const auto rb = addFuture("rb2605");
    putInCategory(5, *rb);
    const auto loaded = makeMargin('1', 30);
    load({makeFutureFee(rb, nullptr, test::Margins(400, loaded))});
    update({}, {makeCustomMargin("5", GetParam(), 20)});
    EXPECT_EQ(marginKeys(*rb), Keys(400, center.getHashKey(loaded)));
    EXPECT_EQ(center.futureMarginDetails.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Flags, CustomHedgeFlagWithoutSlotTest,
                         ::testing::Values('0', '4', 0, 3, -1, INT_MIN, INT_MAX));

// Which instruments are walked, and in which order.

class FutureCatalogueWalkTest : public FutureCustomTest {
protected:
    /// The instruments that a commission detail is tested against, in the order of the tests.
    std::vector<std::string> walked() {
        std::vector<std::string> names;
        host.inSystemCategory = [&](const std::string& market, const std::string& code, const std::string& product,
                                    int) {
            names.push_back(market + "/" + code + "/" + product);
            return false;
        };
        update({makeCustomCommission("5", 10)}, {});
        host.inSystemCategory = nullptr;
        return names;
    }
};

TEST_F(FutureCatalogueWalkTest, InstrumentsOfBothTypesAreWalkedByAscendingKey) {
    addFuture("zn2605", 2);
    addFuture("cu2605", 1024);
    addFuture("ag2605", 2);
    host.addInstrument("CZCE", "TA605", 0, 1024)->productId = "TA";
    host.addInstrument("ZZZ", "other", ~0, ~(2 | 1024));
    EXPECT_EQ(walked(), (std::vector<std::string>{"CZCE/TA605/TA", "SHFE/ag2605/", "SHFE/cu2605/", "SHFE/zn2605/"}));
}

TEST_F(FutureCatalogueWalkTest, InstrumentOfBothTypesIsWalkedOnce) {
    addFuture("rb2605", 2 | 1024);
    EXPECT_EQ(walked(), std::vector<std::string>{"SHFE/rb2605/"});
}

TEST_F(FutureCatalogueWalkTest, RecordOfTheFirstTypeIsKeptWhereBothHaveTheKey) {
    addFuture("rb2605", 1024)->productId = "other type";
    addFuture("rb2605", 2)->productId = "futures type";
    EXPECT_EQ(walked(), std::vector<std::string>{"SHFE/rb2605/futures type"});
}

TEST_F(FutureCatalogueWalkTest, CatalogueIsAskedForEachTypeOnce) {
    addFuture("rb2605");
    std::vector<std::string> calls;
    host.onCall = [&](const std::string& operation) { calls.push_back(operation); };
    update({makeCustomCommission("5", 10)}, {makeCustomMargin("6", '1', 20)});
    EXPECT_EQ(calls, (std::vector<std::string>{"getInstrumentMap", "getInstrumentMap", "isStockInCategoryForTS",
                                               "isStockInCategoryForTS"}));
}

TEST_F(FutureCatalogueWalkTest, SearchStopsAtTheFirstMatch) {
    const auto rb = addFuture("rb2605");
    std::vector<int> tested;
    host.inSystemCategory = [&](const std::string&, const std::string&, const std::string&, int category) {
        tested.push_back(category);
        return category == 2 || category == 6;
    };
    update({makeCustomCommission("1", 10), makeCustomCommission("2", 20), makeCustomCommission("3", 30)},
           {makeCustomMargin("6", '1', 40), makeCustomMargin("7", '2', 50)});
    EXPECT_EQ(tested, (std::vector<int>{1, 2, 6}));
    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 21);
}

}  // namespace
