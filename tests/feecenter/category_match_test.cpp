#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "support/call_log.h"
#include "support/host_error.h"
#include "support/limit_family_fixture.h"

// The rule that every family but Shenzhen connect shares: which custom entry applies to an instrument.

namespace {

using namespace qmservice;

using Members = std::vector<std::string>;

/// A map of `size` entries with the numbers first, first + 1, ...
std::map<int, Members> mapOf(int size, int first = 0) {
    std::map<int, Members> entries;
    for (int i = 0; i < size; ++i) {
        entries.emplace_hint(entries.end(), first + i, Members());
    }
    return entries;
}

/// How a family takes custom limits. Stock options alone name their categories.
template <class LimitFamily>
struct Numbered : LimitFamily {
    static constexpr auto categoryOf = &LimitFamily::CustomLimit::category;
    static constexpr auto list = &LimitFamily::CustomRecord::rateLimits;

    static std::string category(test::FakeHost& /*host*/, int number) { return std::to_string(number); }
};

struct Futures {
    using CustomRecord = CCustomFutureInstrumentFee;
    static constexpr int kind = 1;
    static constexpr int listMask = 0;
    static constexpr auto update = &test::OpenFeeCenter::doUpdateFutureCustomFee;

    static std::string category(test::FakeHost& /*host*/, int number) { return std::to_string(number); }
};

struct Commission : Futures {
    using CustomLimit = CCustomCommissionRateDetail;
    static constexpr auto name = "Commission";
    static constexpr auto categoryOf = &CustomLimit::categoryId;
    static constexpr auto list = &CustomRecord::commissionDetails;
    static constexpr auto table = &test::OpenFeeCenter::futureCommissionKeys;
};

struct Margin : Futures {
    using CustomLimit = CCustomMarginRateDetail;
    static constexpr auto name = "Margin";
    static constexpr auto categoryOf = &CustomLimit::categoryId;
    static constexpr auto list = &CustomRecord::marginDetails;
    static constexpr auto table = &test::OpenFeeCenter::futureMarginKeys;
};

struct StkOption {
    using CustomLimit = CCustomStkExchangeRateLimit;
    using CustomRecord = CCustomStockInstrumentFee;
    static constexpr auto name = "StkOption";
    static constexpr auto categoryOf = &CustomLimit::category;
    static constexpr auto list = &CustomRecord::rateLimits;
    static constexpr int kind = 6;
    static constexpr int listMask = 32;
    static constexpr auto table = &test::OpenFeeCenter::stkOptionAccountTable;
    static constexpr auto update = &test::OpenFeeCenter::doUpdateStkOptionCustomFee;

    static std::string category(test::FakeHost& host, int number) {
        const std::string text = "category no. " + std::to_string(number);
        host.categoryNumbers[text] = number;
        return text;
    }
};

template <class Family>
class CategoryMatchTest : public test::FeeCenterTest {
protected:
    using CustomLimit = typename Family::CustomLimit;

    /// A custom limit with which every category test of its number can be asked.
    boost::shared_ptr<CustomLimit> limitOf(int number) {
        auto made = boost::make_shared<CustomLimit>();
        (*made).*Family::categoryOf = Family::category(host, number);
        setSlot(*made);
        made->customCategories = mapOf(number > 0 && number < 80005 ? number + 1 : 3);
        made->groupCategories = {boost::make_shared<CGroupCategorySubInfo>()};
        return made;
    }

    /// Whether the custom limit reaches the instrument; `calls` then holds the category tests asked.
    bool applies(const boost::shared_ptr<CustomLimit>& rates) {
        auto fee = boost::make_shared<typename Family::CustomRecord>();
        (*fee).*Family::list = {rates};
        const test::CallLog log(host);
        (center.*Family::update)(test::makeAccount(Family::kind, 7), fee);
        calls.clear();
        for (const auto& call : log.calls()) {
            if (call.compare(0, 9, "isStockIn") == 0) {
                calls.push_back(call);
            }
        }
        return (center.*Family::table).count(7) != 0;
    }

    static void setSlot(CCustomMarginRateDetail& margin) { margin.hedgeFlag = '1'; }
    static void setSlot(const qmservice::IData& /*limit*/) {}

    void answerEveryTestButTheSystemsWithYes() {
        host.inCustomCategory = [](const auto&, const auto&, const auto&) { return true; };
        host.inGroupCategory = [](const auto&, const auto&, const auto&, const auto&, const auto&) { return true; };
    }

    const boost::shared_ptr<CInstrument> instrument = [this] {
        auto listed = boost::make_shared<CInstrument>();
        listed->market = "MM";
        listed->code = "CC";
        listed->productId = "PP";
        return host.add(listed, Family::listMask, 2);
    }();
    const std::string system = "isStockInCategoryForTS";
    const std::string custom = "isStockInCustomCategory";
    const std::string group = "isStockInGroupCategory";
    std::vector<std::string> calls;
};

using MatchingFamilies = ::testing::Types<Numbered<test::Stock>, Numbered<test::Credit>, Numbered<test::Neeq>,
                                          Numbered<test::Hgt>, StkOption, Commission, Margin>;
TYPED_TEST_SUITE(CategoryMatchTest, MatchingFamilies, test::FamilyName);

TYPED_TEST(CategoryMatchTest, SystemCategoryMatchesAnyNumberAndNothingElseIsAsked) {
    for (const int number : {-1, 0, 5, 10001, 20001, 70001, 80001, 90000}) {
        this->host.systemMembers = {{number, {"MM", "CC"}}};
        (this->center.*TypeParam::table).clear();
        EXPECT_TRUE(this->applies(this->limitOf(number))) << "category " << number;
        EXPECT_EQ(this->calls, (std::vector<std::string>{this->system})) << "category " << number;
    }
}

TYPED_TEST(CategoryMatchTest, NumberOutsideBothRangesIsAskedOfTheSystemCategoryOnly) {
    this->answerEveryTestButTheSystemsWithYes();
    for (const int number : {-70001, -10001, -1, 0, 1, 10000, 20002, 70000, 80002}) {
        EXPECT_FALSE(this->applies(this->limitOf(number))) << "category " << number;
        EXPECT_EQ(this->calls, (std::vector<std::string>{this->system})) << "category " << number;
    }
}

TYPED_TEST(CategoryMatchTest, CustomCategoryIsAskedOnlyWhenTheMapHasMoreEntriesThanTheNumber) {
    this->answerEveryTestButTheSystemsWithYes();
    const auto limit = this->limitOf(10001);
    for (const int size : {0, 3, 10000, 10001}) {
        limit->customCategories = mapOf(size);
        EXPECT_FALSE(this->applies(limit)) << size << " entries";
        EXPECT_EQ(this->calls, (std::vector<std::string>{this->system})) << size << " entries";
    }
    limit->customCategories = mapOf(10002);
    EXPECT_TRUE(this->applies(limit));
}

TYPED_TEST(CategoryMatchTest, SmallMapThatHoldsTheNumberDoesNotMatch) {
    this->answerEveryTestButTheSystemsWithYes();
    const auto limit = this->limitOf(15000);
    limit->customCategories = {{1, {"CC"}}, {2, {"CC"}}, {15000, {"CC"}}};
    EXPECT_FALSE(this->applies(limit));
}

TYPED_TEST(CategoryMatchTest, CustomCategoryGetsMarketCodeAndTheMembersOfItsNumber) {
    std::vector<std::string> seen;
    this->host.inCustomCategory = [&](const auto& market, const auto& code, const Members& members) {
        seen = {market, code};
        seen.insert(seen.end(), members.begin(), members.end());
        return false;
    };
    const auto limit = this->limitOf(10001);
    limit->customCategories[10000] = {"wrong"};
    limit->customCategories[10001] = {"one", "two"};
    this->applies(limit);
    EXPECT_EQ(seen, (std::vector<std::string>{"MM", "CC", "one", "two"}));
}

TYPED_TEST(CategoryMatchTest, SmallestNumberOfTheMapIsAskedWithItsMembers) {
    Members seen;
    this->host.inCustomCategory = [&](const auto&, const auto&, const Members& members) {
        seen = members;
        return false;
    };
    const auto limit = this->limitOf(10001);
    limit->customCategories = mapOf(10002, 10001);
    limit->customCategories[10001] = {"one"};
    this->applies(limit);
    EXPECT_EQ(seen, Members{"one"});
}

TYPED_TEST(CategoryMatchTest, MissingNumberGetsAnEmptyListInTheCallersMapAndIsAskedWithIt) {
    Members seen = {"not asked"};
    const Members* seenList = nullptr;
    this->host.inCustomCategory = [&](const auto&, const auto&, const Members& members) {
        seen = members;
        seenList = &members;
        return true;
    };
    const auto limit = this->limitOf(10001);
    // What lies behind the map in the record must not be taken for the members.
    limit->groupCategories.push_back(boost::make_shared<CGroupCategorySubInfo>());
    limit->customCategories = mapOf(10002, -10002);
    auto expected = limit->customCategories;
    expected[10001] = {};
    EXPECT_TRUE(this->applies(limit));
    EXPECT_TRUE(seen.empty());
    EXPECT_EQ(limit->customCategories, expected);
    EXPECT_EQ(seenList, &limit->customCategories.at(10001));
}

TYPED_TEST(CategoryMatchTest, EmptyListStaysThoughTheTestSaysNoOrThrows) {
    const auto limit = this->limitOf(10001);
    limit->customCategories = mapOf(10002, -10002);
    this->host.inCustomCategory = [](const auto&, const auto&, const auto&) { return false; };
    EXPECT_FALSE(this->applies(limit));
    EXPECT_EQ(limit->customCategories.count(10001), 1U);

    const auto other = this->limitOf(20001);
    other->customCategories = mapOf(20002, -20002);
    this->host.inCustomCategory = [](const auto&, const auto&, const auto&) -> bool { throw test::HostError(0); };
    EXPECT_THROW(this->applies(other), test::HostError);
    EXPECT_EQ(other->customCategories.count(20001), 1U);
}

TYPED_TEST(CategoryMatchTest, MapIsNotWrittenWhereTheCustomCategoryIsNotAsked) {
    this->answerEveryTestButTheSystemsWithYes();
    struct Row {
        int number;
        int size;
        bool inSystem;
    };
    // Matched by the system, too few entries, outside the range, in the group's range.
    for (const Row& row : {Row{10001, 10002, true}, Row{10001, 10001, false}, Row{20001, 20001, false},
                           Row{10000, 10002, false}, Row{20002, 20004, false}, Row{70001, 3, false}}) {
        this->host.systemMembers.clear();
        if (row.inSystem) {
            this->host.systemMembers.insert({row.number, {"MM", "CC"}});
        }
        const auto limit = this->limitOf(row.number);
        limit->customCategories = mapOf(row.size, -row.size);
        this->applies(limit);
        EXPECT_EQ(limit->customCategories, mapOf(row.size, -row.size)) << "category " << row.number;
    }
}

TYPED_TEST(CategoryMatchTest, GroupWithoutPartsIsNeverAsked) {
    this->answerEveryTestButTheSystemsWithYes();
    const auto limit = this->limitOf(70001);
    limit->groupCategories.clear();
    EXPECT_FALSE(this->applies(limit));
    EXPECT_EQ(this->calls, (std::vector<std::string>{this->system}));
}

TYPED_TEST(CategoryMatchTest, GroupGetsInstrumentPartsAndACopyOfTheCustomCategories) {
    const auto limit = this->limitOf(70001);
    limit->customCategories = {{3, {"one"}}, {4, {}}};
    std::vector<std::string> seen;
    std::vector<boost::shared_ptr<CGroupCategorySubInfo>> seenParts;
    std::map<int, Members> seenCategories;
    const std::map<int, Members>* seenMap = nullptr;
    this->host.inGroupCategory = [&](const auto& market, const auto& code, const auto& product, const auto& parts,
                                     const auto& categories) {
        seen = {market, code, product};
        seenParts = parts;
        seenCategories = categories;
        seenMap = &categories;
        return false;
    };
    this->applies(limit);
    EXPECT_EQ(seen, (std::vector<std::string>{"MM", "CC", "PP"}));
    EXPECT_EQ(seenParts, limit->groupCategories);
    EXPECT_EQ(seenCategories, limit->customCategories);
    EXPECT_NE(seenMap, &limit->customCategories);
}

}  // namespace
