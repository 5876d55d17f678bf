#include "feedesk/text/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace feedesk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(DisplayWidth, CountsChineseCharactersTwice) {
    EXPECT_EQ(displayWidth(""), 0U);
    EXPECT_EQ(displayWidth("rb2610"), 6U);
    EXPECT_EQ(displayWidth("贵州茅台"), 8U);
    EXPECT_EQ(displayWidth("50ETF购12月"), 11U);
}

TEST(DisplayWidth, CountsNoMark) { EXPECT_EQ(displayWidth(marked("贵州茅台")), 8U); }

TEST(Shortened, LeavesWhatFits) { EXPECT_EQ(shortened("贵州茅台", 8), "贵州茅台"); }

TEST(Shortened, EndsInAnEllipsisWithinTheWidth) {
    EXPECT_EQ(shortened("贵州茅台", 7), "贵州茅…");
    EXPECT_EQ(shortened("贵州茅台", 6), "贵州…");
    EXPECT_EQ(shortened("abcdef", 4), "abc…");
}

TEST(Shortened, TakesNoLongerForALongText) {
    // A search that measured the rest anew for each character would take minutes.
    EXPECT_EQ(shortened(std::string(10'000'000, 'x'), 4), "xxx…");
}

TEST(PrintableLines, KeepsLineEnds) { EXPECT_EQ(printableLines("a\tb\nc\xC2\x85\x9B"), "a\\tb\nc\\xc2\\x85\\x9b"); }

TEST(PathText, IsWholeHoweverLongThePathIs) {
    const std::string path = "/srv/" + std::string(90, 'x') + "/market";
    EXPECT_EQ(pathText(path), path);
    EXPECT_EQ(filledText("the folder " + path + " is asked", 80), "the folder\n" + path + "\nis asked\n");
}

TEST(PathText, IsAsAShellTakesItOrEscaped) {
    EXPECT_EQ(pathText("my market/fees"), "'my market/fees'");
    EXPECT_EQ(pathText("a\nb"), "\"a\\nb\"");
}

TEST(Echoed, IsPlainTextAsItIs) { EXPECT_EQ(echoed("SH:600519 茅台"), "SH:600519 茅台"); }

TEST(Echoed, IsQuotedWhereItCouldNotBeRead) {
    EXPECT_EQ(echoed(""), "\"\"");
    EXPECT_EQ(echoed("a\nb\x1B"), "\"a\\nb\\x1b\"");
    EXPECT_EQ(echoed("\x9B"
                     "31m"),
              "\"\\x9b31m\"");
    EXPECT_EQ(echoed(std::string(41, 'x')), "\"" + std::string(40, 'x') + "...\"");
}

TEST(Words, AreWhatIsBetweenSpaces) {
    EXPECT_THAT(words("  Stamp duty  (sale) "), ElementsAre("Stamp", "duty", "(sale)"));
    EXPECT_THAT(words(""), IsEmpty());
}

TEST(FillLines, FillsEachLineBeforeTheNext) {
    EXPECT_THAT(fillLines({"Stamp", "duty", "(sale)"}, 10), ElementsAre("Stamp duty", "(sale)"));
    EXPECT_THAT(fillLines({"Stamp", "duty", "(sale)"}, 9), ElementsAre("Stamp", "duty", "(sale)"));
}

TEST(FillLines, GivesAPieceThatIsTooWideALineOfItsOwn) {
    EXPECT_THAT(fillLines({"a", "settlement", "b"}, 4), ElementsAre("a", "settlement", "b"));
}

}  // namespace
}  // namespace feedesk
