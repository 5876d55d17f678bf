// The tables of families and account kinds agree with each other and with the boundary.

#include "standalone/families.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>

#include "host/account.h"
#include "host/catalogue.h"

namespace standalone {
namespace {

TEST(Families, EachIsFoundByItsName) {
    for (const RateFamily& each : rateFamilies()) {
        EXPECT_EQ(&rateFamily(each.name), &each);
    }
}

TEST(Families, UnknownNameIsRefused) { EXPECT_THROW(static_cast<void>(rateFamily("bond")), std::out_of_range); }

TEST(Families, TradesOfEachFamilyPayRates) {
    for (std::size_t i = 0; i < cost::kWords<cost::Family>.size(); ++i) {
        const auto charged = static_cast<cost::Family>(i);
        const std::string name = charged == cost::Family::kFutures ? "commission" : std::string(cost::wordFor(charged));
        EXPECT_EQ(rateFamilyOf(charged).name, name);
    }
    EXPECT_EQ(rateFamily("margin").charged, cost::Family::kFutures);
}

TEST(Families, KindWithoutANameIsNotFound) {
    EXPECT_EQ(findAccountKind(4), nullptr);
    EXPECT_EQ(findAccountKind(0), nullptr);
}

// Fee records come for the kinds that trade the family's instruments, and for no other.
TEST(Families, FeeTablesTakeTheKindsThatTradeTheFamily) {
    for (const AccountKindInfo& kind : accountKinds()) {
        for (const RateFamily& each : rateFamilies()) {
            if (each.feeAccounts.empty() || !kind.charged) {
                continue;
            }
            const bool isTaken = std::set<int>(each.feeAccounts.begin(), each.feeAccounts.end()).count(kind.kind) != 0;
            EXPECT_EQ(isTaken, std::string(rateFamilyOf(*kind.charged).instruments) == each.instruments)
                << kind.name << " " << each.name;
        }
    }
}

TEST(Families, SomeKindsTradeEverything) {
    std::set<int> everything;
    for (const AccountKindInfo& kind : accountKinds()) {
        if (!kind.charged) {
            everything.insert(kind.kind);
        }
    }
    EXPECT_EQ(everything, (std::set<int>{8, 12, 16}));
}

TEST(Families, KindWithoutANameIsCalledByItsNumber) {
    EXPECT_EQ(accountKindName(qmservice::kIncomeSwapAccount), "income_swap");
    EXPECT_EQ(accountKindName(4), "4");
}

TEST(Families, KindTradesOneFamilyOrEverything) {
    EXPECT_EQ(tradedFamily(qmservice::kFutures5Account), &rateFamily("commission"));
    EXPECT_EQ(tradedFamily(qmservice::kPrimeBrokerageAccount), nullptr);
    EXPECT_EQ(tradedFamily(4), nullptr);
}

TEST(Families, InstrumentBelongsToAFamilyByListOrByType) {
    ListedInstrument future;
    future.types = qmservice::kFuturesExtraType;
    EXPECT_TRUE(rateFamily("commission").lists.hold(future));
    EXPECT_FALSE(rateFamily("stock").lists.hold(future));
    ListedInstrument share;
    share.listMask = qmservice::kStockList | qmservice::kHgtList;
    EXPECT_TRUE(rateFamily("stock").lists.hold(share));
    EXPECT_TRUE(rateFamily("hgt").lists.hold(share));
    EXPECT_FALSE(rateFamily("sgt").lists.hold(share));
    EXPECT_FALSE(rateFamily("margin").lists.hold(share));
}

}  // namespace
}  // namespace standalone
