// Lists of words in messages.

#include "standalone/text/wording.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

TEST(Wording, ListOfWordsIsJoinedByCommasAndOr) {
    EXPECT_EQ(oneOf({}), "");
    EXPECT_EQ(oneOf({"a"}), "a");
    EXPECT_EQ(oneOf({"a", "b"}), "a or b");
    EXPECT_EQ(oneOf({"a", "b", "c"}), "a, b or c");
}

TEST(Wording, WordsPastTheMostAreCounted) {
    EXPECT_EQ(oneOf({"a", "b", "c"}, 3), "a, b or c");
    EXPECT_EQ(oneOf({"a", "b", "c", "d", "e"}, 2), "a, b and 3 more");
}

}  // namespace
}  // namespace standalone
