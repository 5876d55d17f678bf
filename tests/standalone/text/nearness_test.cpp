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

TEST(Nearness, NearNamesAreNearestFirst) {
    EXPECT_EQ(nearNames("1000002", {"1000013", "1000002x", "1000001"}),
              (std::vector<std::string>{"1000001", "1000002x", "1000013"}));
}

TEST(Nearness, NearNamesAreAtMostThree) {
    EXPECT_EQ(nearNames("S10", {"S11", "S12", "S13", "S14"}), (std::vector<std::string>{"S11", "S12", "S13"}));
}

TEST(Nearness, LongerNameMayHaveMoreWrong) {
    EXPECT_EQ(nearNames("S100", {"F100", "F200"}), (std::vector<std::string>{"F100"}));
    EXPECT_EQ(nearNames("S1000", {"F2000", "F2100"}), (std::vector<std::string>{"F2000"}));
    EXPECT_EQ(nearNames("贵州茅酒", {"贵州茅台"}), (std::vector<std::string>{"贵州茅台"}));
    EXPECT_EQ(nearNames("close_volume", {"close_by_volume", "close_today_by_volume"}),
              (std::vector<std::string>{"close_by_volume"}));
}

TEST(Nearness, WhatSharesNothingIsNotNear) { EXPECT_EQ(nearNames("X", {"Y", "XY"}), std::vector<std::string>{"XY"}); }

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
