#include "feedesk/rows/layout.h"

#include <gtest/gtest.h>

#include "feedesk/text/text.h"

namespace feedesk {
namespace {

/// 20 columns wide with its titles on one line, 15 with a title on two lines.
TextTable sampleTable() {
    TextTable table;
    table.columns = {{{"Name"}, Align::kLeft, 5}, {{"Stamp", "duty"}, Align::kRight}};
    table.rows = {{{{"贵州茅台"}, {"0.05%"}}, ""}, {{{"rb"}, {"1%"}}, ""}};
    return table;
}

TEST(ColumnsSideBySide, AlignsByWidthOnTheTerminal) {
    EXPECT_EQ(columnsSideBySide(sampleTable(), 20, Squeeze::kTexts),
              "Name      Stamp duty\n"
              "贵州茅台       0.05%\n"
              "rb                1%\n");
}

TEST(ColumnsSideBySide, PutsTitlesOnSeveralLinesWhereRoomIsShort) {
    EXPECT_EQ(columnsSideBySide(sampleTable(), 15, Squeeze::kTexts),
              "          Stamp\n"
              "Name       duty\n"
              "贵州茅台  0.05%\n"
              "rb           1%\n");
}

TEST(ColumnsSideBySide, ShortensTextsThatMayBe) {
    EXPECT_EQ(columnsSideBySide(sampleTable(), 12, Squeeze::kTexts),
              "       Stamp\n"
              "Name    duty\n"
              "贵州…  0.05%\n"
              "rb        1%\n");
}

TEST(ColumnsSideBySide, ShortensNothingWhereOnlyTitlesMayBeSqueezed) {
    EXPECT_EQ(columnsSideBySide(sampleTable(), 14, Squeeze::kTitles), "");
}

TEST(ColumnsSideBySide, IsEmptyWhereItDoesNotFit) {
    EXPECT_EQ(columnsSideBySide(sampleTable(), 11, Squeeze::kTexts), "");
}

TEST(ColumnsSideBySide, PutsTheSecondPieceOfACellOnANewLine) {
    TextTable table;
    table.columns = {{{"A"}}, {{"Open"}, Align::kRight}};
    table.rows = {{{{"rb"}, {"0.01%", "+ 3 yuan"}}, ""}, {{{"au"}, {"20 yuan"}}, ""}};
    EXPECT_EQ(columnsSideBySide(table, 12, Squeeze::kTexts),
              "A       Open\n"
              "rb     0.01%\n"
              "    + 3 yuan\n"
              "au   20 yuan\n");
}

TEST(ColumnsSideBySide, BreaksAHeadingThatIsTooLong) {
    TextTable table;
    table.columns = {{{"A"}}, {{"B"}}};
    table.rows = {{{{"  1"}, {"2"}}, "F100, F200: SHFE:rb2610 and 11 more"}};
    EXPECT_EQ(columnsSideBySide(table, 20, Squeeze::kTexts),
              "A    B\n"
              "F100, F200:\n"
              "SHFE:rb2610 and 11\n"
              "more\n"
              "  1  2\n");
}

TEST(RowsSideBySide, PutAHeadingThatIsTooLongAboveItsRow) {
    TextTable table;
    table.columns = {{{"A"}}, {{"B"}}};
    table.rows = {{{{"1"}, {"2"}}, "short"}, {{{"3"}, {"4"}}, "F100, F200: SHFE:rb2610"}, {{{"5"}, {"6"}}, "short"}};
    EXPECT_EQ(rowsSideBySide(table, 15),
              "   short\n"
              "A  1\n"
              "B  2\n"
              "\n"
              "F100, F200:\n"
              "SHFE:rb2610\n"
              "A  3\n"
              "B  4\n"
              "\n"
              "   short\n"
              "A  5\n"
              "B  6\n");
}

TEST(ColumnsSideBySide, SaysAHeadingOnceForItsRows) {
    TextTable table;
    table.columns = {{{"Item"}}};
    table.rows = {{{{"000"}}, "one"}, {{{"001"}}, "one"}, {{{"000"}}, "other"}};
    EXPECT_EQ(columnsSideBySide(table, 80, Squeeze::kTexts), "Item\none\n000\n001\nother\n000\n");
}

TEST(RowsSideBySide, TurnsTheTable) {
    EXPECT_EQ(rowsSideBySide(sampleTable(), 30),
              "Name        贵州茅台  rb\n"
              "Stamp duty  0.05%     1%\n");
}

TEST(RowsSideBySide, GoesOnBelowWhereRoomEnds) {
    const std::string below =
        "Name        贵州茅台\n"
        "Stamp duty  0.05%\n"
        "\n"
        "Name        rb\n"
        "Stamp duty  1%\n";
    EXPECT_EQ(rowsSideBySide(sampleTable(), 20), below);
    EXPECT_EQ(rowsSideBySide(sampleTable(), 1), below) << "no text is cut where a row alone is too wide";
}

TEST(RowsSideBySide, LeavesOutTitlesWithoutTexts) {
    TextTable table = sampleTable();
    table.rows = {{{{"rb"}, {}}, ""}};
    EXPECT_EQ(rowsSideBySide(table, 80), "Name        rb\n");
}

TEST(RowsSideBySide, RepeatsTheHeadingAndMarksTheTexts) {
    TextTable table;
    table.columns = {{{"Item"}}, {{"Open"}}};
    table.rows = {{{{"  1"}, {"0.01%", "+ 3 yuan"}}, "one", true}, {{{"  2"}, {"-"}}, "one"}};
    EXPECT_EQ(rowsSideBySide(table, 80), "      " + marked("one") + "             one\nItem  " + marked("1") +
                                             "               2\nOpen  " + marked("0.01% + 3 yuan") + "  -\n");
}

}  // namespace
}  // namespace feedesk
