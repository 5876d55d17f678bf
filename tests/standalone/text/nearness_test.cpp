// Which text a misspelt one was meant to be.

#include "standalone/text/nearness.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

TEST(Nearness, NothingIsNearAnEmptyText) { EXPECT_EQ(nearest("", {"a"}), ""); }

TEST(Nearness, NothingIsNearATextOfMoreThan64Bytes) {
    const std::string longest(64, 'a');
    EXPECT_EQ(nearest(longest, {longest + "b"}), longest + "b");
    EXPECT_EQ(nearest(longest + "a", {longest + "b"}), "");
}

TEST(Nearness, NothingIsNearAmongMoreThan2000Candidates) {
    std::vector<std::string> candidates(2000, "stock");
    EXPECT_EQ(nearest("stcok", candidates), "stock");
    candidates.emplace_back("stock");
    EXPECT_EQ(nearest("stcok", candidates), "");
}

TEST(Nearness, NearestOfSeveralIsTheOneWithTheFewestChanges) {
    EXPECT_EQ(nearest("stock", {"stack2", "sto", "Stick"}), "Stick");
}

TEST(Nearness, EditDistanceCountsInsertedRemovedAndReplacedBytes) {
    EXPECT_EQ(editDistance("stock", "stock", 2), 0U);
    EXPECT_EQ(editDistance("stock", "stocks", 2), 1U);
    EXPECT_EQ(editDistance("stock", "stcok", 2), 2U);
    EXPECT_EQ(editDistance("Stock", "stock", 2), 1U);
}

TEST(Nearness, EditDistanceOfTextsThatDifferMoreInLengthIsMoreThanTheMost) {
    EXPECT_GT(editDistance("a", "abcd", 2), 2U);
    EXPECT_EQ(editDistance("", "ab", 2), 2U);
}

}  // namespace
}  // namespace standalone
