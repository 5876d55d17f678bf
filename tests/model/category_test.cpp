#include "model/category.h"

#include "model/model_fixture.h"

namespace model {
namespace {

using namespace qmservice;

TEST(CategoryNumber, IsReadAsFarAsTheTextIsANumber) {
    EXPECT_EQ(categoryNumber(""), 0);
    EXPECT_EQ(categoryNumber("steel"), 0);
    EXPECT_EQ(categoryNumber(" 12x"), 12);
    EXPECT_EQ(categoryNumber("-3"), -3);
}

TEST(CategoryNumber, KeepsTheLowBitsOfALongAndOfTheNearestLong) {
    EXPECT_EQ(categoryNumber("4294977301"), 10005);  // 2^32 + 10005
    EXPECT_EQ(categoryNumber("99999999999999999999"), -1);
    EXPECT_EQ(categoryNumber("-99999999999999999999"), 0);
}

/// The rule that all families but Shenzhen connect share, on a stock account.
class Category : public ModelTest {
protected:
    /// Whether a limit of the category changes the instrument.
    bool takes(const Ptr<CCustomStkExchangeRateLimit>& limit) {
        Model fresh(facts);
        fresh.updateCustomFee(accountOf(2), customFee(limit));
        fresh.runJobs();
        return fresh.stock.table.size() == 1;
    }

    static Ptr<CCustomStkExchangeRateLimit> withMembers(const std::string& category, int count) {
        const auto limit = customLimit(category, 1);
        for (int i = 0; i < count; ++i) {
            limit->customCategories[i].push_back("A");
        }
        return limit;
    }

    static Ptr<CCustomStkExchangeRateLimit> withGroup(const std::string& category) {
        const auto limit = customLimit(category, 1);
        limit->groupCategories.push_back(boost::make_shared<CGroupCategorySubInfo>());
        return limit;
    }

    Instrument a = instrument("SH", "A", 1);
};

TEST_F(Category, OfTheSystemDecidesWhateverTheNumber) {
    for (const int number : {-1, 0, 5, 10001, 20001, 70001, 80001, 90000}) {
        facts.systemMembers = {{number, {"SH", "A"}}};
        EXPECT_TRUE(takes(customLimit(std::to_string(number), 1))) << number;
        EXPECT_FALSE(takes(customLimit(std::to_string(number + 1), 1))) << number;
    }
}

TEST_F(Category, OfACustomListNeedsMoreListsThanItsNumber) {
    facts.inCustomCategory = [](const auto&, const auto&, const auto&) { return true; };
    EXPECT_FALSE(takes(withMembers("15000", 3)));
    EXPECT_FALSE(takes(withMembers("10001", 10001)));
    EXPECT_TRUE(takes(withMembers("10001", 10002)));
    EXPECT_FALSE(takes(withMembers("10000", 10002)));
    EXPECT_TRUE(takes(withMembers("20001", 20002)));
    EXPECT_FALSE(takes(withMembers("20002", 20003)));
}

TEST_F(Category, OfACustomListHoldsTheMembersUnderItsNumber) {
    EXPECT_TRUE(takes(withMembers("10001", 10002)));
    const auto limit = withMembers("10001", 10002);
    limit->customCategories[10001] = {"B"};
    EXPECT_FALSE(takes(limit));
}

TEST_F(Category, OfACustomListThatIsAbsentIsAnEmptyOneFromThenOn) {
    std::vector<std::string> members{"not asked"};
    facts.inCustomCategory = [&](const auto&, const auto&, const auto& list) {
        members = list;
        return true;
    };
    const auto limit = withMembers("10001", 10001);
    limit->customCategories[-1];
    auto expected = limit->customCategories;
    expected[10001] = {};
    EXPECT_TRUE(takes(limit));
    EXPECT_TRUE(members.empty());
    EXPECT_EQ(limit->customCategories, expected);
}

TEST_F(Category, OfACustomListThatIsNotAskedForIsNotInserted) {
    for (const auto& [category, count] :
         std::map<std::string, int>{{"10001", 10001}, {"10000", 10002}, {"20002", 20003}, {"70001", 3}}) {
        const auto limit = withMembers(category, 0);
        for (int i = 0; i < count; ++i) {
            limit->customCategories[-1 - i];
        }
        const auto expected = limit->customCategories;
        EXPECT_FALSE(takes(limit)) << category;
        EXPECT_EQ(limit->customCategories, expected) << category;
    }
}

TEST_F(Category, OfAGroupNeedsPartsAndANumberOfItsRange) {
    facts.groupMembers.insert({"SH", "A"});
    for (const auto& [category, taken] : std::map<std::string, bool>{
             {"70000", false}, {"70001", true}, {"80001", true}, {"80002", false}, {"10001", false}}) {
        EXPECT_EQ(takes(withGroup(category)), taken) << category;
        EXPECT_FALSE(takes(customLimit(category, 1))) << category;
    }
    facts.groupMembers.clear();
    EXPECT_FALSE(takes(withGroup("70001")));
}

TEST_F(Category, IsAskedForInOrderUntilOneApplies) {
    instrument("SH", "B", 1);
    std::vector<std::string> asked;
    facts.inSystemCategory = [&](const auto&, const auto& code, const auto&, int number) {
        asked.push_back(code + std::to_string(number));
        return number == 2;
    };
    update(accountOf(2), customFee(customLimit("1", 1), customLimit("2", 1), customLimit("3", 1)));
    EXPECT_EQ(asked, (std::vector<std::string>{"A1", "A2", "B1", "B2"}));
}

TEST_F(Category, IsToldTheMarketCodeAndProduct) {
    a->productId = "board";
    std::vector<std::string> told;
    facts.inSystemCategory = [&](const auto& market, const auto& code, const auto& product, int) {
        told = {market, code, product};
        return false;
    };
    takes(customLimit("1", 1));
    EXPECT_EQ(told, (std::vector<std::string>{"SH", "A", "board"}));
}

}  // namespace
}  // namespace model
