#include "feedesk/shell/line_words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace feedesk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(LineWords, AreCutAtBlanks) {
    EXPECT_THAT(lineWords("  fee\t1  SH:600519 ").words, ElementsAre("fee", "1", "SH:600519"));
    EXPECT_THAT(lineWords(" ").words, IsEmpty());
}

TEST(LineWords, KeepBlanksInQuotesAndBehindABackslash) {
    EXPECT_THAT(lineWords(R"('万  科Ａ' "b c" d\ e)").words, ElementsAre("万  科Ａ", "b c", "d e"));
    EXPECT_THAT(lineWords(R"(a'b c'"d e"f)").words, ElementsAre("ab cd ef"));
    EXPECT_THAT(lineWords("'' a").words, ElementsAre("", "a"));
}

TEST(LineWords, TakeABackslashForItselfInSingleQuotesAlone) {
    EXPECT_THAT(lineWords(R"('a\' "b\"c" \')").words, ElementsAre("a\\", "b\"c", "'"));
}

TEST(LineWords, EndWithAComment) { EXPECT_THAT(lineWords("a b#c '#' # d 'e").words, ElementsAre("a", "b#c", "#")); }

TEST(LineWords, NameTheQuoteThatIsOpen) {
    EXPECT_EQ(lineWords("a 'b c").openQuote, '\'');
    EXPECT_EQ(lineWords("a \"b").openQuote, '"');
    EXPECT_EQ(lineWords("a\\").openQuote, '\\');
    EXPECT_EQ(lineWords("a 'b'").openQuote, '\0');
    EXPECT_THAT(lineWords("a 'b c").words, ElementsAre("a", "b c"));
}

TEST(LineWords, SayWhereTheLastOneBegins) {
    EXPECT_EQ(lineWords("fee 'b c").lastBegin, 4U);
    EXPECT_FALSE(lineWords("fee 'b ").endsBetween);
    EXPECT_TRUE(lineWords("fee ").endsBetween);
    EXPECT_TRUE(lineWords("").endsBetween);
}

TEST(QuotedWord, IsCutBackIntoTheSameWord) {
    for (const std::string word : {"a", "", "a b", "it's", "\"", "#", "a\\b", "万  科Ａ"}) {
        EXPECT_THAT(lineWords(quotedWord(word)).words, ElementsAre(word)) << quotedWord(word);
    }
    EXPECT_EQ(quotedWord("SH:rb*"), "SH:rb*");
    EXPECT_EQ(quotedBeginning("a b"), "'a b");
}

}  // namespace
}  // namespace feedesk
