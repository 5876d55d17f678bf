#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "support/future_builders.h"

// Which category a futures custom detail is matched by, seen from what the host is asked.

namespace {

using namespace qmservice;
using test::makeCustomCommission;
using test::makeCustomFutureFee;
using test::makeCustomMargin;
using Calls = std::vector<std::string>;

const std::string kSystem = "isStockInCategoryForTS";
const std::string kCustom = "isStockInCustomCategory";
const std::string kGroup = "isStockInGroupCategory";

class FutureCustomMatchTest : public test::FutureTest {
protected:
    FutureCustomMatchTest() { rb->productId = "rb"; }

    /// Lists numbered from 0, so that the numbers below `count` have one.
    static std::map<int, std::vector<std::string>> listsUpTo(int count) {
        std::map<int, std::vector<std::string>> lists;
        for (int number = 0; number < count; ++number) {
            lists[number] = {};
        }
        return lists;
    }

    static boost::shared_ptr<CCustomCommissionRateDetail> makeDetail(const std::string& category, int lists,
                                                                     int parts) {
        auto detail = makeCustomCommission(category, 10);
        detail->customCategories = listsUpTo(lists);
        detail->groupCategories.assign(static_cast<std::size_t>(parts), boost::make_shared<CGroupCategorySubInfo>());
        return detail;
    }

    bool matches(const boost::shared_ptr<CCustomCommissionRateDetail>& detail) {
        calls.clear();
        host.onCall = [this](const std::string& operation) { calls.push_back(operation); };
        center.doUpdateFutureCustomFee(account, makeCustomFutureFee({detail}, {}));
        host.onCall = nullptr;
        const Calls catalogue(2, "getInstrumentMap");
        EXPECT_TRUE(calls.size() >= 2 && std::equal(catalogue.begin(), catalogue.end(), calls.begin()));
        calls.erase(std::remove(calls.begin(), calls.end(), catalogue.front()), calls.end());
        return storedCommission(*rb) != nullptr;
    }

    /// What the host is asked when the system category does not match and every other one would.
    Calls callsFor(const boost::shared_ptr<CCustomCommissionRateDetail>& detail) {
        host.inCustomCategory = [](auto&&...) { return true; };
        host.inGroupCategory = [](auto&&...) { return true; };
        const bool matched = matches(detail);
        EXPECT_EQ(matched, calls.size() == 2);
        return calls;
    }

    Calls calls;
    boost::shared_ptr<CInstrument> rb = addFuture("rb2605");
};

/// The category number that the system test is asked with.
class FutureCategoryTextTest : public FutureCustomMatchTest,
                               public ::testing::WithParamInterface<std::pair<const char*, int>> {};

TEST_P(FutureCategoryTextTest, NumberAtTheStartOfTheTextIsAsked) {
    std::vector<int> asked;
    host.inSystemCategory = [&](const std::string& market, const std::string& code, const std::string& product,
                                int category) {
        EXPECT_EQ(market + "/" + code + "/" + product, "SHFE/rb2605/rb");
        asked.push_back(category);
        return false;
    };
    const std::string text = GetParam().first;
    center.doUpdateFutureCustomFee(
        account, makeCustomFutureFee({makeCustomCommission(text, 10)}, {makeCustomMargin(text, '1', 20)}));
    EXPECT_EQ(asked, std::vector<int>(2, GetParam().second));
}

INSTANTIATE_TEST_SUITE_P(Texts, FutureCategoryTextTest,
                         ::testing::Values(std::pair("7", 7), std::pair("", 0), std::pair("abc", 0),
                                           std::pair(" 12x3", 12), std::pair("-4", -4), std::pair("+10005", 10005),
                                           std::pair("4294967303", 7)));

TEST_F(FutureCustomMatchTest, SystemCategoryMatchesWhateverTheNumber) {
    host.inSystemCategory = [](auto&&...) { return true; };
    EXPECT_TRUE(matches(makeDetail("10005", 0, 0)));
    EXPECT_EQ(calls, Calls{kSystem});
    EXPECT_TRUE(matches(makeDetail("70001", 0, 1)));
    EXPECT_EQ(calls, Calls{kSystem});
}

TEST_F(FutureCustomMatchTest, NumberOutsideTheRangesMatchesNothingMore) {
    for (const char* category : {"0", "-1", "2", "10000", "20002", "70000", "80002"}) {
        EXPECT_EQ(callsFor(makeDetail(category, 20005, 1)), Calls{kSystem}) << category;
    }
}

TEST_F(FutureCustomMatchTest, CustomRangeRunsFrom10001To20001) {
    EXPECT_EQ(callsFor(makeDetail("10001", 20005, 0)), (Calls{kSystem, kCustom}));
    EXPECT_EQ(callsFor(makeDetail("20001", 20005, 0)), (Calls{kSystem, kCustom}));
}

TEST_F(FutureCustomMatchTest, CustomNumberIsComparedWithHowManyListsThereAre) {
    EXPECT_EQ(callsFor(makeDetail("10001", 10001, 0)), Calls{kSystem});
    EXPECT_EQ(callsFor(makeDetail("10001", 10002, 0)), (Calls{kSystem, kCustom}));
}

TEST_F(FutureCustomMatchTest, MapOfThreeListsNeverMatchesThoughOneHasTheNumber) {
    auto detail = makeCustomCommission("10005", 10);
    detail->customCategories = {{10004, {"rb2605"}}, {10005, {"rb2605"}}, {10006, {"rb2605"}}};
    EXPECT_FALSE(matches(detail));
    EXPECT_EQ(calls, Calls{kSystem});
}

TEST_F(FutureCustomMatchTest, CustomListOfTheNumberIsAsked) {
    auto detail = makeDetail("10001", 10002, 0);
    EXPECT_FALSE(matches(detail));
    detail->customCategories[10001] = {"cu2605", "rb2605"};
    EXPECT_TRUE(matches(detail));
}

TEST_F(FutureCustomMatchTest, NumberWithoutListGetsAnEmptyListAndIsAskedWithIt) {
    auto detail = makeDetail("10001", 10001, 0);
    detail->customCategories[30000] = {"rb2605"};
    auto expected = detail->customCategories;
    expected[10001] = {};
    std::vector<std::vector<std::string>> asked;
    host.inCustomCategory = [&](const std::string&, const std::string&, const std::vector<std::string>& members) {
        asked.push_back(members);
        return false;
    };
    EXPECT_FALSE(matches(detail));
    EXPECT_EQ(asked, std::vector<std::vector<std::string>>{{}});
    EXPECT_EQ(detail->customCategories, expected);
}

TEST_F(FutureCustomMatchTest, NumberInTheCustomRangeDoesNotAskForTheGroup) {
    EXPECT_EQ(callsFor(makeDetail("10005", 3, 1)), Calls{kSystem});
    host.inCustomCategory = [](auto&&...) { return false; };
    EXPECT_FALSE(matches(makeDetail("10005", 10006, 1)));
    EXPECT_EQ(calls, (Calls{kSystem, kCustom}));
}

TEST_F(FutureCustomMatchTest, GroupRangeRunsFrom70001To80001) {
    EXPECT_EQ(callsFor(makeDetail("70001", 0, 1)), (Calls{kSystem, kGroup}));
    EXPECT_EQ(callsFor(makeDetail("80001", 0, 1)), (Calls{kSystem, kGroup}));
}

TEST_F(FutureCustomMatchTest, GroupWithoutPartsIsNotAsked) {
    EXPECT_EQ(callsFor(makeDetail("70001", 0, 0)), Calls{kSystem});
}

TEST_F(FutureCustomMatchTest, GroupTestGetsThePartsAndTheLists) {
    auto detail = makeDetail("70001", 2, 1);
    detail->customCategories[1] = {"rb2605"};
    int asked = 0;
    host.inGroupCategory = [&](const std::string& market, const std::string& code, const std::string& product,
                               const std::vector<boost::shared_ptr<CGroupCategorySubInfo>>& parts,
                               const std::map<int, std::vector<std::string>>& lists) {
        ++asked;
        EXPECT_EQ(market + "/" + code + "/" + product, "SHFE/rb2605/rb");
        EXPECT_EQ(parts, detail->groupCategories);
        EXPECT_EQ(lists, detail->customCategories);
        return false;
    };
    EXPECT_FALSE(matches(detail));
    EXPECT_EQ(asked, 1);
}

TEST_F(FutureCustomMatchTest, MarginDetailIsMatchedByTheSameRule) {
    auto list = makeCustomMargin("10001", '1', 20);
    list->customCategories = listsUpTo(10002);
    list->customCategories[10001] = {"rb2605"};
    auto group = makeCustomMargin("70001", '2', 30);
    group->groupCategories = {boost::make_shared<CGroupCategorySubInfo>()};
    host.groupMembers.insert({"SHFE", "rb2605"});

    center.doUpdateFutureCustomFee(account, makeCustomFutureFee({}, {list}));
    center.doUpdateFutureCustomFee(account, makeCustomFutureFee({}, {group}));
    EXPECT_EQ(marginKeys(*rb),
              (std::vector<uint64>{center.getHashKey(list), center.getHashKey(group), test::kUnsetSlot}));
}

TEST_F(FutureCustomMatchTest, MarginDetailThatTheRuleRefusesChangesNothing) {
    // The number's own list is missing, and the empty list that it gets holds nothing.
    auto unlisted = makeCustomMargin("10001", '1', 20);
    unlisted->customCategories = listsUpTo(10001);
    unlisted->customCategories[30000] = {"rb2605"};
    auto refused = makeCustomMargin("70001", '1', 30);
    refused->groupCategories = {boost::make_shared<CGroupCategorySubInfo>()};
    const auto withoutParts = makeCustomMargin("70001", '1', 40);
    auto outside = makeCustomMargin("80002", '1', 50);
    outside->groupCategories = refused->groupCategories;

    center.doUpdateFutureCustomFee(account, makeCustomFutureFee({}, {unlisted, refused}));
    host.groupMembers.insert({"SHFE", "rb2605"});
    center.doUpdateFutureCustomFee(account, makeCustomFutureFee({}, {withoutParts, outside}));
    EXPECT_TRUE(marginKeys(*rb).empty());
    EXPECT_TRUE(center.futureMarginDetails.empty());
    EXPECT_EQ(unlisted->customCategories.count(10001), 1U);
    EXPECT_TRUE(outside->customCategories.empty());
}

TEST_F(FutureCustomMatchTest, EmptyInstrumentInTheCatalogueIsPassedOver) {
    host.instruments.push_back({nullptr, 0, 2});
    EXPECT_FALSE(matches(makeCustomCommission("3", 10)));
    EXPECT_EQ(calls, Calls{kSystem});
}

}  // namespace
