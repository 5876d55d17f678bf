#include "standalone/market.h"

#include <gtest/gtest.h>

namespace {

TEST(Market, PlaceIsWrittenAsFileAndLine) {
    standalone::Market market;
    market.files = {"accounts.csv", "fees/stock.csv"};
    EXPECT_EQ(market.where({1, 12}), "fees/stock.csv:12");
}

TEST(Market, FileAsAWholeIsReportedWithoutALine) {
    standalone::Market market;
    market.files = {"accounts.csv"};
    EXPECT_EQ(market.where({0, 0}), "accounts.csv");
}

}  // namespace
