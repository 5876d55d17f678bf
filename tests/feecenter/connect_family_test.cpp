#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/call_log.h"
#include "support/limit_family_fixture.h"

// What the two connect channels share and the stock families do not, and how their matching differs.

namespace {

using namespace qmservice;
using test::customWith;
using test::limitWith;

template <class Family>
class ConnectFamilyTest : public test::LimitFamilyTest<Family> {
protected:
    /// A limit of which every field is set.
    static boost::shared_ptr<typename Family::Limit> fullLimit() {
        auto full = limitWith<typename Family::Limit>(1);
        full->category = "5";
        full->rate2 = 2;
        full->rate3 = 3;
        full->rate4 = 4;
        full->rate5 = 5;
        full->rate6 = 6;
        full->rate7 = 7;
        full->rate8 = 8;
        full->rate9 = 9;
        full->rate10 = 10;
        full->rate11 = 11;
        full->rate12 = 12;
        full->rate13 = 13;
        full->rate14 = 14;
        full->tradeMinUnit = 15;
        full->customCategories = {{16, {"XX|A"}}};
        full->groupCategories = {boost::make_shared<CGroupCategorySubInfo>()};
        return full;
    }
};
TYPED_TEST_SUITE(ConnectFamilyTest, test::ConnectFamilies, test::FamilyName);

TYPED_TEST(ConnectFamilyTest, LoadStoresTheFeesOwnLimitThoughOneIsConfigured) {
    const auto a = this->instrument("A");
    this->configured(*a) = this->limit(0.7);
    this->loadOne(a, this->limit(0.1));
    EXPECT_EQ(this->storedRate(*a), 0.1);
}

TYPED_TEST(ConnectFamilyTest, LoadPassesOverAFeeWithoutALimitThoughOneIsConfigured) {
    const auto a = this->instrument("A");
    this->configured(*a) = this->limit(0.7);
    this->loadOne(a, nullptr);
    EXPECT_EQ(this->storedRate(*a), -1);
    EXPECT_EQ(this->poolSize(), 0U);
}

TYPED_TEST(ConnectFamilyTest, LoadDoesNotAskTheConfiguration) {
    const auto a = this->instrument("A");
    const test::CallLog log(this->host);
    this->loadOne(a, this->limit(0.1));
    EXPECT_EQ(log.calls(), std::vector<std::string>{"getTradeMinUnit"});
}

TYPED_TEST(ConnectFamilyTest, UpdateCopiesTheWholeLimitAndStampsTheTradeUnit) {
    const auto a = this->instrument("A");
    this->host.tradeUnits[{"XX", "A"}] = 500;
    const auto full = this->fullLimit();
    this->applyToAll(full);
    auto expected = this->fullLimit();
    expected->tradeMinUnit = 500;
    EXPECT_TRUE(this->stored(*a)->isEqual(*expected));
    EXPECT_NE(this->stored(*a), full);
    EXPECT_TRUE(full->isEqual(*this->fullLimit()));
}

TYPED_TEST(ConnectFamilyTest, CustomAndLoadedLimitOfEqualRatesShareTheFirstRecord) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->custom("", 0.1));
    const auto loaded = this->stored(*a);
    this->applyToAll(this->custom("5", 0.1));
    EXPECT_EQ(this->poolSize(), 1U);
    EXPECT_EQ(this->stored(*a), loaded);
    EXPECT_EQ(loaded->category, "");
}

TYPED_TEST(ConnectFamilyTest, FallbackCarriesTheConfiguredRecordItselfWhateverItsTradeUnit) {
    const auto a = this->instrument("A");
    this->host.tradeUnits[{"XX", "A"}] = 500;
    const auto rates = this->limit(0.7);
    rates->tradeMinUnit = 3;
    this->configured(*a) = rates;
    EXPECT_EQ(this->limitOf(*a), rates);
    EXPECT_EQ(rates->tradeMinUnit, 3);
}

TYPED_TEST(ConnectFamilyTest, DefaultIsAnsweredWithoutATradeUnit) {
    const auto a = this->instrument("A");
    this->host.tradeUnits[{"XX", "A"}] = 500;
    EXPECT_EQ(this->limitOf(*a), this->fallback());
    EXPECT_EQ(this->limitOf(*a)->tradeMinUnit, 0);
    EXPECT_EQ(this->limitOf(*a)->rate3, 0.0013);
    EXPECT_EQ(this->limitOf(*a)->rate4, 0.0013);
}

/// Asked with limits for which every custom and group category test would say yes.
template <class Family>
class ConnectMatching : public test::LimitFamilyTest<Family> {
protected:
    /// The category tests that were asked for a custom limit of this number.
    std::vector<std::string> testsAsked(int number) {
        this->host.inCustomCategory = [](const auto&, const auto&, const auto&) { return true; };
        this->host.inGroupCategory = [](const auto&, const auto&, const auto&, const auto&, const auto&) {
            return true;
        };
        const auto entry = limitOf(number, 0);
        entry->groupCategories = {boost::make_shared<CGroupCategorySubInfo>()};
        const test::CallLog log(this->host);
        this->apply({entry});
        std::vector<std::string> tests;
        for (const auto& call : log.calls()) {
            if (call.compare(0, 9, "isStockIn") == 0) {
                tests.push_back(call);
            }
        }
        return tests;
    }

    /// A custom limit with one list more than its number, numbered from `first` on.
    static boost::shared_ptr<typename Family::Limit> limitOf(int number, int first) {
        auto entry = customWith<typename Family::Limit>(std::to_string(number), 0.5);
        for (int i = first; i <= first + number; ++i) {
            entry->customCategories.emplace_hint(entry->customCategories.end(), i, std::vector<std::string>{"A"});
        }
        return entry;
    }

    const boost::shared_ptr<CInstrument> a = this->instrument("A");
};

class HgtMatchingTest : public ConnectMatching<test::Hgt> {};
class SgtMatchingTest : public ConnectMatching<test::Sgt> {};

TEST_F(HgtMatchingTest, StoredCopyCarriesTheEmptyListThatTheLookupInserted) {
    host.inCustomCategory = [](const auto&, const auto&, const auto&) { return true; };
    const auto limit = limitOf(10001, 20000);
    auto expected = limit->customCategories;
    expected[10001] = {};
    apply({limit});
    EXPECT_EQ(stored(*a)->customCategories, expected);
    EXPECT_EQ(limit->customCategories, expected);
}

TEST_F(HgtMatchingTest, CopyStoredBeforeTheLookupIsNotWritten) {
    const auto b = instrument("B");
    host.systemMembers = {{10001, {"XX", "A"}}};
    host.inCustomCategory = [](const auto&, const auto&, const auto&) { return true; };
    const auto limit = limitOf(10001, 20000);
    apply({limit});
    EXPECT_EQ(limit->customCategories.count(10001), 1U);
    EXPECT_EQ(stored(*a)->customCategories.count(10001), 0U);
    EXPECT_EQ(stored(*b), stored(*a));
}

TEST_F(SgtMatchingTest, MapIsNeverWritten) {
    const auto limit = limitOf(10001, 20000);
    const auto before = limit->customCategories;
    apply({limit});
    EXPECT_EQ(limit->customCategories, before);
}

TEST_F(SgtMatchingTest, SystemCategoryAloneIsAskedAndDecides) {
    for (const int number : {5, 10001, 15000, 20001, 70001, 80001}) {
        EXPECT_EQ(testsAsked(number), std::vector<std::string>{"isStockInCategoryForTS"}) << "category " << number;
        EXPECT_EQ(storedRate(*a), -1) << "category " << number;
    }
}

TEST_F(SgtMatchingTest, NumberOfACustomOrGroupCategoryAppliesWhenTheSystemCategoryTakesItIn) {
    for (const int number : {15000, 70001}) {
        host.systemMembers = {{number, {"XX", "A"}}};
        center.sgtAccountTable.clear();
        testsAsked(number);
        EXPECT_EQ(storedRate(*a), 0.5) << "category " << number;
    }
}

}  // namespace
