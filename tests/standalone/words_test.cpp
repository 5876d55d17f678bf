// Texts in messages.

#include "standalone/loader/words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone::loader {
namespace {

TEST(Words, EmptyTextIsQuotedAsItIs) { EXPECT_EQ(inQuotes(""), "\"\""); }

TEST(Words, TextWithoutTheBeginningOfACharacterIsShortenedToNothing) {
    EXPECT_EQ(inQuotes(std::string(41, '\x80')), "\"...\"");
}

TEST(Words, EmptyTextHasNothingThatDoesNotPrint) { EXPECT_EQ(unprintable(""), 0U); }

TEST(Words, ListOfWordsIsJoinedByCommasAndOr) {
    EXPECT_EQ(oneOf({}), "");
    EXPECT_EQ(oneOf({"a"}), "a");
    EXPECT_EQ(oneOf({"a", "b"}), "a or b");
    EXPECT_EQ(oneOf({"a", "b", "c"}), "a, b or c");
}

TEST(Words, WordsPastTheMostAreCounted) {
    EXPECT_EQ(oneOf({"a", "b", "c"}, 3), "a, b or c");
    EXPECT_EQ(oneOf({"a", "b", "c", "d", "e"}, 2), "a, b and 3 more");
}

TEST(Words, NothingIsNearAnEmptyText) { EXPECT_EQ(nearest("", {"a"}), ""); }

TEST(Words, NothingIsNearATextOfMoreThan64Bytes) {
    const std::string longest(64, 'a');
    EXPECT_EQ(nearest(longest, {longest + "b"}), longest + "b");
    EXPECT_EQ(nearest(longest + "a", {longest + "b"}), "");
}

TEST(Words, NothingIsNearAmongMoreThan2000Candidates) {
    std::vector<std::string> candidates(2000, "stock");
    EXPECT_EQ(nearest("stcok", candidates), "stock");
    candidates.emplace_back("stock");
    EXPECT_EQ(nearest("stcok", candidates), "");
}

TEST(Words, NearestOfSeveralIsTheOneWithTheFewestChanges) {
    EXPECT_EQ(nearest("stock", {"stack2", "sto", "Stick"}), "Stick");
}

}  // namespace
}  // namespace standalone::loader
