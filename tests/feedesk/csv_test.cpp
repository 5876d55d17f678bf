#include "feedesk/csv.h"

#include <gtest/gtest.h>

namespace feedesk {
namespace {

TEST(CsvLine, LeavesPlainCellsAsTheyAre) { EXPECT_EQ(csvLine({"SH", "", "贵州 茅台"}), "SH,,贵州 茅台\n"); }

TEST(CsvLine, QuotesCommasQuotesAndLineBreaks) {
    EXPECT_EQ(csvLine({"a,b", "say \"x\"", "c\nd"}), "\"a,b\",\"say \"\"x\"\"\",\"c\nd\"\n");
}

}  // namespace
}  // namespace feedesk
