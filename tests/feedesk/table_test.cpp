#include "feedesk/table.h"

#include <gtest/gtest.h>

namespace feedesk {
namespace {

/// 20 columns wide with its titles on one line, 15 with a title on two lines.
Table sample() {
    Table table;
    table.columns = {{{"Name"}, Align::kLeft, 5}, {{"Stamp", "duty"}, Align::kRight}};
    table.rows = {{{{"贵州茅台"}, {"0.05%"}}, ""}, {{{"rb"}, {"1%"}}, ""}};
    return table;
}

TEST(ColumnsSideBySide, AlignsByWidthOnTheTerminal) {
    EXPECT_EQ(columnsSideBySide(sample(), 20, Squeeze::kTexts),
              "Name      Stamp duty\n"
              "贵州茅台       0.05%\n"
              "rb                1%\n");
}

TEST(ColumnsSideBySide, PutsTitlesOnSeveralLinesWhereRoomIsShort) {
    EXPECT_EQ(columnsSideBySide(sample(), 15, Squeeze::kTexts),
              "          Stamp\n"
              "Name       duty\n"
              "贵州茅台  0.05%\n"
              "rb           1%\n");
}

TEST(ColumnsSideBySide, ShortensTextsThatMayBe) {
    EXPECT_EQ(columnsSideBySide(sample(), 12, Squeeze::kTexts),
              "       Stamp\n"
              "Name    duty\n"
              "贵州…  0.05%\n"
              "rb        1%\n");
}

TEST(ColumnsSideBySide, ShortensNothingWhereOnlyTitlesMayBeSqueezed) {
    EXPECT_EQ(columnsSideBySide(sample(), 14, Squeeze::kTitles), "");
}

TEST(ColumnsSideBySide, IsEmptyWhereItDoesNotFit) { EXPECT_EQ(columnsSideBySide(sample(), 11, Squeeze::kTexts), ""); }

TEST(ColumnsSideBySide, PutsTheSecondPieceOfACellOnANewLine) {
    Table table;
    table.columns = {{{"A"}}, {{"Open"}, Align::kRight}};
    table.rows = {{{{"rb"}, {"0.01%", "+ 3 yuan"}}, ""}, {{{"au"}, {"20 yuan"}}, ""}};
    EXPECT_EQ(columnsSideBySide(table, 12, Squeeze::kTexts),
              "A       Open\n"
              "rb     0.01%\n"
              "    + 3 yuan\n"
              "au   20 yuan\n");
}

TEST(ColumnsSideBySide, SaysAHeadingOnceForItsRows) {
    Table table;
    table.columns = {{{"Item"}}};
    table.rows = {{{{"000"}}, "one"}, {{{"001"}}, "one"}, {{{"000"}}, "other"}};
    EXPECT_EQ(columnsSideBySide(table, 80, Squeeze::kTexts), "Item\none\n000\n001\nother\n000\n");
}

TEST(RowsSideBySide, TurnsTheTable) {
    EXPECT_EQ(rowsSideBySide(sample(), 30),
              "Name        贵州茅台  rb\n"
              "Stamp duty  0.05%     1%\n");
}

TEST(RowsSideBySide, GoesOnBelowWhereRoomEnds) {
    EXPECT_EQ(rowsSideBySide(sample(), 20),
              "Name        贵州茅台\n"
              "Stamp duty  0.05%\n"
              "\n"
              "Name        rb\n"
              "Stamp duty  1%\n");
}

TEST(RowsSideBySide, PutsATextBelowItsTitleInTheLeastRoom) {
    Table table = sample();
    table.rows.pop_back();
    EXPECT_EQ(rowsSideBySide(table, 16), "Name\n  贵州茅台\nStamp duty\n  0.05%\n");
}

TEST(RowsSideBySide, LeavesOutTitlesWithoutTexts) {
    Table table = sample();
    table.rows = {{{{"rb"}, {}}, ""}};
    EXPECT_EQ(rowsSideBySide(table, 80), "Name        rb\n");
}

TEST(TableText, TurnsTheTableOnlyWhereItDoesNotFit) {
    EXPECT_EQ(tableText(sample(), 12), columnsSideBySide(sample(), 12, Squeeze::kTexts));
    EXPECT_EQ(tableText(sample(), 11), rowsSideBySide(sample(), 11));
}

}  // namespace
}  // namespace feedesk
