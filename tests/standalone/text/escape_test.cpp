// Texts of any bytes as a person reads them.

#include "standalone/text/escape.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace standalone {
namespace {

TEST(Escape, EmptyTextIsQuotedAsItIs) { EXPECT_EQ(inQuotes(""), "\"\""); }

TEST(Escape, LongTextIsShortenedBetweenCharacters) {
    const std::string almost(38, 'a');
    EXPECT_EQ(inQuotes(almost + "茅茅"), '"' + almost + "...\"");
    EXPECT_EQ(inQuotes(almost + "x\xF0\x9F\x98\x80"), '"' + almost + "x...\"");
}

TEST(Escape, LongTextThatIsNotUtf8IsShortenedNearTheSamePlace) {
    std::string bytes;
    for (int i = 0; i < 36; ++i) {
        bytes += "\\x80";
    }
    EXPECT_EQ(inQuotes(std::string(41, '\x80')), '"' + bytes + "...\"");
}

TEST(Escape, QuotesHideNothingButAWideSpace) {
    EXPECT_EQ(inQuotes("600000\xE2\x80\x8B"), "\"600000\\xe2\\x80\\x8b\"");
    EXPECT_EQ(inQuotes("万\xE3\x80\x80科\xC2\xA0"), "\"万\xE3\x80\x80科\\xc2\\xa0\"");
}

TEST(Escape, TextIsEscapedWhereATerminalWouldObeyIt) {
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"a\tb\nc\rd\x1B[0m\x7F", "a\\tb\\nc\\x0dd\\x1b[0m\\x7f"},
        {"\xC2\x80\xC2\x9F", "\\xc2\\x80\\xc2\\x9f"},                                      // C1 control characters
        {"\xE2\x80\xAE\xE2\x81\xA6\xD8\x9C", "\\xe2\\x80\\xae\\xe2\\x81\\xa6\\xd8\\x9c"},  // of direction
        {"\xE2\x80\x8E\xE2\x81\xA9", "\\xe2\\x80\\x8e\\xe2\\x81\\xa9"},                    // the same
    };
    for (const auto& [text, shown] : rows) {
        EXPECT_EQ(printable(text), shown);
    }
}

TEST(Escape, ByteThatIsNotUtf8IsEscapedAndItsNeighboursStay) {
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"\x9B"
         "31m",
         "\\x9b31m"},
        {"茅\xFF"
         "台",
         "茅\\xff台"},
        {"\xB9\xF3", "\\xb9\\xf3"},                    // GB18030
        {"\xE8\x8C", "\\xe8\\x8c"},                    // a character that is cut off
        {"\xC0\x9B", "\\xc0\\x9b"},                    // a control character in too many bytes
        {"\xE0\x82\x9B", "\\xe0\\x82\\x9b"},           // the same
        {"\xF0\x80\x82\x9B", "\\xf0\\x80\\x82\\x9b"},  // the same
        {"\xED\xA0\x80", "\\xed\\xa0\\x80"},           // a surrogate
        {"\xF4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},  // past the last character
        {"\xF5\x80\x80\x80", "\\xf5\\x80\\x80\\x80"},  // the same
        {"\xF1\x80\x80"
         "a",
         "\\xf1\\x80\\x80"
         "a"},
    };
    for (const auto& [text, shown] : rows) {
        EXPECT_EQ(printable(text), shown);
    }
}

TEST(Escape, EveryOtherCharacterStays) {
    for (const std::string text :
         {"", "贵州茅台 a\\x9b", "\xC2\xA0", "\xE2\x80\x8D\xE2\x80\xA6\xE2\x81\xA5…", "\xDF\xBF", "\xE0\xA0\x80",
          "\xED\x9F\xBF", "\xEE\x80\x80", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_EQ(printable(text), text);
    }
}

TEST(Escape, BlankIsWhatDoesNotPrintAndASpace) {
    EXPECT_FALSE(hasBlank("贵州茅台"));
    EXPECT_TRUE(hasBlank("a b"));
    EXPECT_TRUE(hasBlank("茅\t台"));
    EXPECT_TRUE(hasBlank("茅\xE2\x80\x8E"));
}

}  // namespace
}  // namespace standalone
