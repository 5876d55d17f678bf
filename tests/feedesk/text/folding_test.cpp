#include "feedesk/text/folding.h"

#include <gtest/gtest.h>

namespace feedesk {
namespace {

TEST(Narrowed, HasAsciiForFullWidthForms) {
    EXPECT_EQ(narrowed("！０９：？＠ＡＺ＿｀ａｚ～＊　"), "!09:?@AZ_`az~* ");
    EXPECT_EQ(narrowed("万科、。｟"), "万科、。｟");
}

TEST(Narrowed, KeepsBytesThatAreNoText) { EXPECT_EQ(narrowed("\xEF\xBC a\xEF\xBC"), "\xEF\xBC a\xEF\xBC"); }

TEST(Folded, HasSmallLettersAndNoMarksAndBlanks) {
    EXPECT_EQ(folded("SH:600519"), "sh600519");
    EXPECT_EQ(folded(" 600519 . ＳＨ\t"), "600519sh");
    EXPECT_EQ(folded("E-mini S&P 500"), "e-minis&p500");
    EXPECT_EQ(folded(": ."), "");
}

}  // namespace
}  // namespace feedesk
