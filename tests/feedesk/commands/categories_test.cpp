#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The sample folder with the futures as two lines of one category, a custom category and two groups.
class CategoriesCommand : public testing::Test {
protected:
    CategoriesCommand() {
        folder.write("categories.csv",
                     "category,name,market,code,product\n"
                     "2,Futures,SHFE,rb*,\n"
                     "2,Futures,,,au\n"
                     "1,Pufa,SH,600000,\n"
                     "3,Options,SHO,*,\n"
                     "4,Rebar,SHFE,rb2610,\n"
                     "9,Nothing,SH,9*,\n");
        folder.write("custom_categories.csv", "category,market,code\n10001,SH,600519\n10001,SZ,300750\n");
        folder.write("group_categories.csv",
                     "group,category,mode\n70001,2,include\n70001,4,exclude\n70002,10001,include\n");
    }

    Outcome categories(const std::string& arguments) const { return ask(folder.path(), "categories " + arguments); }

    SampleFolder folder;
};

TEST_F(CategoriesCommand, AreShownLineByLine) {
    const Outcome outcome = categories("");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out,
              "System categories\n"
              "Market  Code    Product  Instruments  Source\n"
              "1 Pufa, 1 instrument\n"
              "  SH    600000  any                1  categories.csv:4\n"
              "2 Futures, 2 instruments\n"
              "  SHFE  rb*     any                1  categories.csv:2\n"
              "  any   any     au                 1  categories.csv:3\n"
              "3 Options, 1 instrument\n"
              "  SHO   *       any                1  categories.csv:5\n"
              "4 Rebar, 1 instrument\n"
              "  SHFE  rb2610  any                1  categories.csv:6\n"
              "9 Nothing, 0 instruments\n"
              "  SH    9*      any                0  categories.csv:7\n"
              "\n"
              "Custom categories\n"
              "Market  Code    Instruments  Source\n"
              "10001, 2 instruments\n"
              "  SH    600519            1  custom_categories.csv:2\n"
              "  SZ    300750            1  custom_categories.csv:3\n"
              "\n"
              "Group categories\n"
              "Mode       Part   Name     Instruments  Source\n"
              "70001, 1 instrument\n"
              "  include  2      Futures            2  group_categories.csv:2\n"
              "  exclude  4      Rebar              1  group_categories.csv:3\n"
              "70002, 2 instruments\n"
              "  include  10001                     2  group_categories.csv:4\n"
              "\n"
              "the system category 9 Nothing holds no instrument\n");
}

TEST_F(CategoriesCommand, HaveMembersWithTheLineThatTakesThemIn) {
    EXPECT_EQ(categories("--members --csv").out,
              "kind,category,category_name,category_instruments,market,code,name,source\n"
              "system,1,Pufa,1,SH,600000,浦发银行,categories.csv:4\n"
              "system,2,Futures,2,SHFE,rb2610,螺纹钢2610,categories.csv:2\n"
              "system,2,Futures,2,SHFE,au2612,黄金2612,categories.csv:3\n"
              "system,3,Options,1,SHO,10001,50ETF购12月2500,categories.csv:5\n"
              "system,4,Rebar,1,SHFE,rb2610,螺纹钢2610,categories.csv:6\n"
              "custom,10001,,2,SH,600519,贵州茅台,custom_categories.csv:2\n"
              "custom,10001,,2,SZ,300750,宁德时代,custom_categories.csv:3\n"
              "group,70001,,1,SHFE,au2612,黄金2612,group_categories.csv:2\n"
              "group,70002,,2,SH,600519,贵州茅台,group_categories.csv:4\n"
              "group,70002,,2,SZ,300750,宁德时代,group_categories.csv:4\n");
}

TEST_F(CategoriesCommand, AreChosenByNumberOrName) {
    EXPECT_EQ(categories("reb* --json").out,
              "[\n"
              R"({"kind":"system","category":4,"category_name":"Rebar","category_instruments":1,"market":"SHFE",)"
              R"("code":"rb2610","product":"","instruments":1,"source":"categories.csv:6"})"
              "\n]\n");
    EXPECT_EQ(categories("70001 --json").out,
              "[\n"
              R"({"kind":"group","category":70001,"category_name":null,"category_instruments":1,"mode":"include",)"
              R"("part":"2","part_name":"Futures","instruments":2,"source":"group_categories.csv:2"})"
              ",\n"
              R"({"kind":"group","category":70001,"category_name":null,"category_instruments":1,"mode":"exclude",)"
              R"("part":"4","part_name":"Rebar","instruments":1,"source":"group_categories.csv:3"})"
              "\n]\n");
}

TEST_F(CategoriesCommand, ThatAreNotThereAreNoAnswer) {
    const Outcome outcome = categories("uf");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "feedesk: the market folder has no category like uf; '*uf*' finds the text inside numbers and names\n");
    EXPECT_THAT(categories("zz").err, HasSubstr("no category like zz; `feedesk categories` lists them\n"));
}

TEST_F(CategoriesCommand, WithASharedNumberMeanTheCustomOneInAGroup) {
    folder.write("custom_categories.csv", "category,market,code\n1,SZ,300750\n");
    folder.write("group_categories.csv", "group,category,mode\n70001,1,include\n");
    EXPECT_EQ(categories("70001 --members --csv").out,
              "kind,category,category_name,category_instruments,market,code,name,source\n"
              "group,70001,,1,SZ,300750,宁德时代,group_categories.csv:2\n");
}

}  // namespace
}  // namespace feedesk::test
