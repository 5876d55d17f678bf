#include "host/categories.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <map>
#include <string>
#include <vector>

#include "tests/standalone/sample.h"

namespace {

using qmservice::CGroupCategorySubInfo;
using sample::rule;
using Part = boost::shared_ptr<CGroupCategorySubInfo>;
using Members = std::map<int, std::vector<std::string>>;

constexpr int kMainBoard = 1001;
constexpr int kRebar = 1002;
constexpr int kEverything = 1003;
constexpr int kUnknown = 4711;

Part part(int category, int excluded) {
    const auto made = boost::make_shared<CGroupCategorySubInfo>();
    made->category = category;
    made->excluded = excluded;
    return made;
}

Part including(int category) { return part(category, 0); }
Part excluding(int category) { return part(category, 1); }

class CategoriesTest : public sample::ServicesTest {
protected:
    CategoriesTest() {
        market.categories = {rule(kMainBoard, "main board", "SH", "60*", ""),
                             rule(kMainBoard, "main board", "SZ", "000001", ""),
                             rule(kRebar, "rebar", "SHFE", "", "rb"), rule(kEverything, "everything", "", "", ""),
                             rule(1004, "1001", "SH", "", "")};
        install();
    }

    qmservice::CppCategory& categories = *utils::CSingletonT<qmservice::CppCategory>::instance();

    bool inGroup(const std::vector<Part>& parts, const Members& members = {}) {
        return categories.isStockInGroupCategory("SH", "600000", "main", parts, members);
    }
};

TEST_F(CategoriesTest, SystemCategoryIsTheUnionOfItsRules) {
    EXPECT_TRUE(categories.isStockInCategoryForTS("SH", "600000", "", kMainBoard));
    EXPECT_TRUE(categories.isStockInCategoryForTS("SZ", "000001", "", kMainBoard));
    EXPECT_FALSE(categories.isStockInCategoryForTS("SZ", "600000", "", kMainBoard));
    EXPECT_FALSE(categories.isStockInCategoryForTS("SH", "000001", "", kMainBoard));
}

TEST_F(CategoriesTest, RuleAsksForTheWholeMarketAndProduct) {
    EXPECT_TRUE(categories.isStockInCategoryForTS("SHFE", "rb2510", "rb", kRebar));
    EXPECT_FALSE(categories.isStockInCategoryForTS("SHFE", "rb2510", "rbx", kRebar));
    EXPECT_FALSE(categories.isStockInCategoryForTS("SHFE", "rb2510", "", kRebar));
    EXPECT_FALSE(categories.isStockInCategoryForTS("SHF", "rb2510", "rb", kRebar));
}

TEST_F(CategoriesTest, EmptyRuleTakesEverythingIn) {
    EXPECT_TRUE(categories.isStockInCategoryForTS("HK", "00700", "any", kEverything));
    EXPECT_TRUE(categories.isStockInCategoryForTS("", "", "", kEverything));
}

TEST_F(CategoriesTest, UnknownSystemCategoryHoldsNothing) {
    EXPECT_FALSE(categories.isStockInCategoryForTS("SH", "600000", "", kUnknown));
    EXPECT_FALSE(categories.isStockInCategoryForTS("SH", "600000", "", -1));
}

TEST_F(CategoriesTest, CustomCategoryHoldsItsMembersByJoinedKey) {
    const std::vector<std::string> members = {"SZ:000001", "SH:600000", "60*"};
    EXPECT_TRUE(categories.isStockInCustomCategory("SH", "600000", members));
    EXPECT_FALSE(categories.isStockInCustomCategory("SH", "000001", members));
    EXPECT_FALSE(categories.isStockInCustomCategory("SH", "600001", members));
    EXPECT_FALSE(categories.isStockInCustomCategory("SH", "60000", members));
    EXPECT_FALSE(categories.isStockInCustomCategory("SH", "600000", {}));
}

TEST_F(CategoriesTest, GroupTakesInWhatOneOfItsPartsHolds) {
    EXPECT_TRUE(inGroup({including(kRebar), including(kMainBoard)}));
    EXPECT_FALSE(inGroup({including(kRebar), including(kUnknown)}));
}

TEST_F(CategoriesTest, GroupHandsTheProductOn) {
    EXPECT_TRUE(categories.isStockInGroupCategory("SHFE", "rb2510", "rb", {including(kRebar)}, {}));
    EXPECT_FALSE(categories.isStockInGroupCategory("SHFE", "rb2510", "hc", {including(kRebar)}, {}));
}

TEST_F(CategoriesTest, GroupLeavesOutWhatAnExcludedPartHoldsInAnyOrder) {
    EXPECT_FALSE(inGroup({including(kEverything), excluding(kMainBoard)}));
    EXPECT_FALSE(inGroup({excluding(kMainBoard), including(kEverything)}));
    EXPECT_FALSE(inGroup({including(kEverything), part(kMainBoard, -2)}));
    EXPECT_TRUE(inGroup({including(kEverything), excluding(kRebar)}));
}

TEST_F(CategoriesTest, GroupWithoutAnIncludedPartIsEmpty) {
    EXPECT_FALSE(inGroup({}));
    EXPECT_FALSE(inGroup({excluding(kRebar)}));
    EXPECT_FALSE(inGroup({excluding(kMainBoard)}));
}

TEST_F(CategoriesTest, GroupReadsACustomCategoryBeforeASystemCategoryOfTheSameNumber) {
    EXPECT_TRUE(inGroup({including(50001)}, {{50001, {"SH:600000"}}}));
    EXPECT_TRUE(inGroup({including(kRebar)}, {{kRebar, {"SH:600000"}}}));
    EXPECT_FALSE(inGroup({including(kMainBoard)}, {{kMainBoard, {"SZ:000001"}}}));
    EXPECT_FALSE(inGroup({including(kEverything), excluding(50001)}, {{50001, {"SH:600000"}}}));
}

TEST_F(CategoriesTest, GroupPassesOverAnEmptyPart) {
    EXPECT_TRUE(inGroup({Part(), including(kMainBoard), Part()}));
    EXPECT_FALSE(inGroup({Part()}));
}

TEST_F(CategoriesTest, NumberIsFoundByName) {
    EXPECT_EQ(categories.getCategorId("main board"), kMainBoard);
    EXPECT_EQ(categories.getCategorId("rebar"), kRebar);
}

TEST_F(CategoriesTest, TextOfANumberIsThatNumber) {
    EXPECT_EQ(categories.getCategorId("1002"), kRebar);
    EXPECT_EQ(categories.getCategorId("70001"), 70001) << "groups have no name";
}

TEST_F(CategoriesTest, NameGoesBeforeTheNumberThatItSpells) { EXPECT_EQ(categories.getCategorId("1001"), 1004); }

TEST_F(CategoriesTest, UnknownNameHasNoNumber) {
    for (const std::string name : {"main", "", "1002x", " 1002", "1002 ", "+1002", "99999999999999999999"}) {
        EXPECT_EQ(categories.getCategorId(name), -1) << '"' << name << '"';
    }
}

}  // namespace
