#include <gtest/gtest.h>

#include "feedesk/reconciling/table_edit.h"

namespace feedesk::test {
namespace {

const cost::DateRange kFromDay = {cost::Date::of(2021, 3, 4), std::nullopt};

TEST(TableEdit, EndsALineAndLetsItGoOnWithAnotherValue) {
    TableEdit edit("account,rate,from,until\nA,1,,\nB,2,2020-01-01,2022-01-01\nC,3,,\n");
    const auto lines = edit.succeed(3, {{"rate", "2.5"}}, kFromDay);
    ASSERT_TRUE(lines);
    EXPECT_EQ(lines->first, "B,2,2020-01-01,2022-01-01");
    EXPECT_EQ(lines->second, "B,2,2020-01-01,2021-03-03\nB,2.5,2021-03-04,2022-01-01");
    EXPECT_EQ(
        edit.patch("f.csv"),
        "--- a/f.csv\n+++ b/f.csv\n@@ -1,4 +1,5 @@\n account,rate,from,until\n A,1,,\n-B,2,2020-01-01,2022-01-01\n"
        "+B,2,2020-01-01,2021-03-03\n+B,2.5,2021-03-04,2022-01-01\n C,3,,\n");
}

TEST(TableEdit, ChangesALineInItsPlaceThatBeginsOnTheDay) {
    TableEdit edit("account,rate,from,until\nA,1,2021-03-04,\n");
    EXPECT_EQ(edit.succeed(2, {{"rate", "2"}}, kFromDay)->second, "A,2,2021-03-04,");
}

TEST(TableEdit, AddsTheColumnsOfDaysWhereTheTableHasNone) {
    TableEdit edit("account,rate\nA,1\nB,\"2\"\n");
    EXPECT_EQ(edit.succeed(3, {{"rate", "3"}}, kFromDay)->second, "B,2,,2021-03-03\nB,3,2021-03-04,");
    EXPECT_EQ(
        edit.patch("f.csv"),
        "--- a/f.csv\n+++ b/f.csv\n@@ -1,3 +1,4 @@\n-account,rate\n+account,rate,from,until\n-A,1\n+A,1,,\n-B,\"2\"\n"
        "+B,2,,2021-03-03\n+B,3,2021-03-04,\n");
}

TEST(TableEdit, KeepsLineEndsQuotesAndAMissingLastOne) {
    TableEdit edit("account,rate,from,until\r\n\"A,B\",1,,\r\nC,1,,");
    ASSERT_TRUE(edit.succeed(2, {{"rate", "2"}}, kFromDay));
    EXPECT_EQ(edit.patch("f.csv"),
              "--- a/f.csv\n+++ b/f.csv\n@@ -1,3 +1,4 @@\n "
              "account,rate,from,until\r\n-\"A,B\",1,,\r\n+\"A,B\",1,,2021-03-03\r\n"
              "+\"A,B\",2,2021-03-04,\r\n C,1,,\n\\ No newline at end of file\n");
}

TEST(TableEdit, WritesChangesFarFromEachOtherAsTwoHunks) {
    std::string text = "rate,from,until\n";
    for (int i = 0; i < 20; ++i) {
        text += std::to_string(i) + ",,\n";
    }
    TableEdit edit(text);
    edit.succeed(2, {{"rate", "50"}}, kFromDay);
    edit.succeed(20, {{"rate", "51"}}, kFromDay);
    const std::string patch = edit.patch("f.csv");
    EXPECT_NE(patch.find("@@ -1,5 +1,6 @@"), std::string::npos) << patch;
    EXPECT_NE(patch.find("@@ -17,5 +18,6 @@"), std::string::npos) << patch;
}

TEST(TableEdit, AddsALineOfOneInstrumentBehindTheLineOfMany) {
    TableEdit edit("market,code,product,rate,from,until\nSH,*,MAIN,1,2020-01-01,2022-01-01\nSZ,*,MAIN,2,,\n");
    EXPECT_EQ(edit.addLike(2, {{"code", "600519"}, {"product", ""}, {"rate", "3"}}, kFromDay)->second,
              "SH,*,MAIN,1,2020-01-01,2022-01-01\nSH,600519,,3,2021-03-04,2022-01-01");
    EXPECT_EQ(edit.patch("f.csv"),
              "--- a/f.csv\n+++ b/f.csv\n@@ -1,3 +1,4 @@\n market,code,product,rate,from,until\n "
              "SH,*,MAIN,1,2020-01-01,2022-01-01\n+SH,600519,,3,2021-03-04,2022-01-01\n SZ,*,MAIN,2,,\n");
    EXPECT_EQ(edit.text(),
              "market,code,product,rate,from,until\nSH,*,MAIN,1,2020-01-01,2022-01-01\n"
              "SH,600519,,3,2021-03-04,2022-01-01\nSZ,*,MAIN,2,,\n");
}

// With more lines ahead of a change than behind it, patch(1) looks for the end of the file.
TEST(TableEdit, HasAsManyLinesAheadOfALineThatIsAddedAsBehindIt) {
    std::string text = "market,code,rate,from,until\n";
    for (int i = 0; i < 20; ++i) {
        text += "SH,60" + std::to_string(i) + "*," + std::to_string(i) + ",,\n";
    }
    TableEdit edit(text);
    ASSERT_TRUE(edit.addLike(6, {{"code", "604000"}, {"rate", "50"}}, kFromDay));
    EXPECT_EQ(edit.patch("f.csv"),
              "--- a/f.csv\n+++ b/f.csv\n@@ -4,6 +4,7 @@\n SH,602*,2,,\n SH,603*,3,,\n SH,604*,4,,\n"
              "+SH,604000,50,2021-03-04,\n SH,605*,5,,\n SH,606*,6,,\n SH,607*,7,,\n");
}

TEST(TableEdit, AddsALineOfOneInstrumentBehindAChangedLine) {
    TableEdit edit("code,rate\n*,1");
    ASSERT_TRUE(edit.succeed(2, {{"rate", "2"}}, kFromDay));
    ASSERT_TRUE(edit.addLike(2, {{"code", "600519"}, {"rate", "3"}}, kFromDay));
    EXPECT_EQ(edit.text(), "code,rate,from,until\n*,1,,2021-03-03\n*,2,2021-03-04,\n600519,3,2021-03-04,");
}

TEST(TableEdit, LetsALineGoOnBehindADayUntilWhichItWasAnother) {
    const cost::DateRange days = {cost::Date::of(2021, 3, 4), cost::Date::of(2021, 3, 31)};
    TableEdit edit("rate,from,until\n1,,\n2,2021-03-10,2021-03-20\n3,2021-03-01,2021-06-30\n");
    EXPECT_EQ(edit.succeed(2, {{"rate", "9"}}, days)->second, "1,,2021-03-03\n9,2021-03-04,2021-03-31\n1,2021-04-01,");
    EXPECT_EQ(edit.succeed(3, {{"rate", "9"}}, days)->second, "9,2021-03-10,2021-03-20");
    EXPECT_EQ(edit.succeed(4, {{"rate", "9"}}, days)->second,
              "3,2021-03-01,2021-03-03\n9,2021-03-04,2021-03-31\n3,2021-04-01,2021-06-30");
}

TEST(TableEdit, ChangesALineOnSeveralDays) {
    TableEdit edit("rate,from,until\n1,,2021-12-31\n");
    ASSERT_TRUE(edit.succeed(2, {{"rate", "3"}}, {cost::Date::of(2021, 6, 1), std::nullopt}));
    EXPECT_EQ(edit.succeed(2, {{"rate", "2"}}, {cost::Date::of(2021, 3, 4), cost::Date::of(2021, 3, 31)})->second,
              "1,,2021-03-03\n2,2021-03-04,2021-03-31\n1,2021-04-01,2021-05-31\n3,2021-06-01,2021-12-31");
    EXPECT_FALSE(edit.succeed(2, {{"rate", "4"}}, {cost::Date::of(2021, 3, 31), cost::Date::of(2021, 4, 1)}));
}

TEST(TableEdit, ChangesNothingThatItDoesNotUnderstand) {
    TableEdit edit("account,rate,from,until\nA,1,,\n");
    EXPECT_FALSE(edit.succeed(2, {{"other", "2"}}, kFromDay));
    EXPECT_FALSE(edit.succeed(3, {{"rate", "2"}}, kFromDay));
    EXPECT_FALSE(edit.succeed(1, {{"rate", "2"}}, kFromDay));
    EXPECT_TRUE(edit.succeed(2, {{"rate", "2"}}, kFromDay));
    EXPECT_FALSE(edit.succeed(2, {{"rate", "3"}}, kFromDay));
    EXPECT_FALSE(TableEdit("rate,from\n1,\n").succeed(2, {{"rate", "2"}}, kFromDay));
    EXPECT_FALSE(
        TableEdit("category,rate,from,until\n1,1,,\n").addLike(2, {{"code", "600519"}, {"rate", "2"}}, kFromDay));
}

}  // namespace
}  // namespace feedesk::test
