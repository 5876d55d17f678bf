// Tables that are not needed by themselves, but by what others name.

#include "fixture.h"

namespace standalone {
namespace {

using LoaderMissingTable = LoaderTest;

TEST_F(LoaderMissingTable, CategoriesAreMissedOnceThoughManyLinesNameThem) {
    remove("categories.csv");
    expectError("categories.csv", 0, {"the file is missing, but group_categories.csv:2 names the category 10; add it"});
    remove("group_categories.csv");
    replace("custom/stock.csv", "S1,2,70001,0.8,,,,,\n", "");
    replace("custom/margin.csv", "70001", "20");
    expectError("categories.csv", 0, {"the file is missing, but custom/stock.csv:2 names the category 20; add it"});
}

TEST_F(LoaderMissingTable, GroupsAreMissedOnceThoughManyLinesNameThem) {
    remove("group_categories.csv");
    expectError("group_categories.csv", 0, {"the file is missing, but custom/stock.csv:4 names the category 70001"});
}

TEST_F(LoaderMissingTable, EachIsMissed) {
    remove("categories.csv");
    remove("group_categories.csv");
    expectPlaces({"categories.csv:0", "group_categories.csv:0"});
}

TEST_F(LoaderMissingTable, UnderAMisspeltNameIsReportedByThatNameAlone) {
    std::filesystem::rename(path("categories.csv"), path("categoris.csv"));
    expectError("categoris.csv", 0, {"did you mean \"categories.csv\"?"});
    std::filesystem::rename(path("categoris.csv"), path("categories.csv"));
    std::filesystem::rename(path("group_categories.csv"), path("group_categorys.csv"));
    expectError("group_categorys.csv", 0, {"did you mean \"group_categories.csv\"?"});
}

TEST_F(LoaderMissingTable, IsNotMissedWhereNothingNamesIt) {
    remove("categories.csv");
    remove("group_categories.csv");
    remove("custom");
    EXPECT_TRUE(load().ok());
}

// Shenzhen connect takes no groups: what is unknown there is a system category.
TEST_F(LoaderMissingTable, GroupIsNotMissedWhereNoGroupIsTaken) {
    remove("group_categories.csv");
    replace("custom/stock.csv", "S1,2,70001,0.8,,,,,\n", "");
    replace("custom/margin.csv", "70001", "20");
    append("custom/sgt.csv", "G1,2,70001,,\n");
    expectError("custom/sgt.csv", 3, {"\"70001\", but the number of a system category of the folder was expected"});
}

}  // namespace
}  // namespace standalone
