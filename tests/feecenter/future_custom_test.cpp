#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "support/future_builders.h"

namespace {

using namespace qmservice;
using test::kUnsetSlot;
using test::makeCommission;
using test::makeCustomCommission;
using test::makeCustomFutureFee;
using test::makeCustomMargin;
using test::makeFutureFee;
using test::makeMargin;
using Keys = std::vector<uint64>;

class FutureCustomTest : public test::FutureTest {
protected:
    void update(const test::Commissions& commissions, const test::CustomMargins& margins) {
        center.doUpdateFutureCustomFee(account, makeCustomFutureFee(commissions, margins));
    }

    void putInCategory(int category, const CInstrument& instrument) {
        host.systemMembers.insert({category, {instrument.market, instrument.code}});
    }
};

TEST_F(FutureCustomTest, OnlyOneMarginDetailIsAppliedWhateverTheHedgeFlags) {
    const auto rb = addFuture("rb2605");
    putInCategory(5, *rb);
    const auto first = makeCustomMargin("5", '1', 20);
    update({}, {first, makeCustomMargin("5", '3', 30)});
    EXPECT_EQ(marginKeys(*rb), (Keys{center.getHashKey(first), kUnsetSlot, kUnsetSlot}));
    EXPECT_EQ(center.futureMarginDetails.size(), 1U);
}

TEST_F(FutureCustomTest, EmptyDetailsArePassedOver) {
    const auto rb = addFuture("rb2605");
    putInCategory(5, *rb);
    const auto margin = makeCustomMargin("5", '1', 50);
    update({nullptr, makeCustomCommission("5", 40)}, {nullptr, margin});
    EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 41);
    EXPECT_EQ(marginKeys(*rb).front(), center.getHashKey(margin));
}

TEST_F(FutureCustomTest, HedgeFlagWithoutASlotChangesNoMarginThoughTheCommissionApplies) {
    const auto rb = addFuture("rb2605");
    putInCategory(5, *rb);
    for (const int hedgeFlag : {INT_MIN, -1, 0, 3, int{'0'}, int{'4'}, INT_MAX}) {
        update({makeCustomCommission("5", 10)}, {makeCustomMargin("5", hedgeFlag, 20)});
        EXPECT_EQ(storedCommission(*rb)->openRatioByMoney, 11) << hedgeFlag;
        EXPECT_EQ(marginKeys(*rb), Keys()) << hedgeFlag;
    }
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

TEST_F(FutureCatalogueWalkTest, RecordOfTheFirstTypeIsKeptWhereBothHaveTheKey) {
    addFuture("rb2605", 1024)->productId = "other type";
    addFuture("rb2605", 2)->productId = "futures type";
    EXPECT_EQ(walked(), std::vector<std::string>{"SHFE/rb2605/futures type"});
}

TEST_F(FutureCatalogueWalkTest, InstrumentThatOneTypeHoldsEmptyIsTakenFromTheOther) {
    const auto rb = addFuture("rb2605");
    for (const int typeOfGap : {2, 1024}) {
        host.instruments = {{rb, 0, 2 + 1024 - typeOfGap, ""}, {{}, 0, typeOfGap, "SHFE|rb2605"}};
        EXPECT_EQ(walked(), std::vector<std::string>{"SHFE/rb2605/"}) << typeOfGap;
    }
}

}  // namespace
