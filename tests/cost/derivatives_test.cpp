#include "cost/bill.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cost/support/tariffs.h"

namespace {

using namespace cost;       // NOLINT(google-build-using-namespace): what is tested
using namespace cost_test;  // NOLINT(google-build-using-namespace): what it is tested with

// Futures.

struct FuturesCost {
    const char* trade;
    const char* items;
    const char* net;
};

class FuturesBill : public testing::TestWithParam<FuturesCost> {};

// 2 lots of 10 tons at 3457: 69140.
TEST_P(FuturesBill, MovesItsCostsAlone) {
    const Bill bill = costOf(trade(GetParam().trade), futures());
    EXPECT_EQ(bill.turnover.text(), "69140");
    EXPECT_EQ(itemsOf(bill), GetParam().items);
    EXPECT_EQ(bill.net.text(2), GetParam().net);
}

INSTANTIATE_TEST_SUITE_P(
    , FuturesBill,
    testing::Values(FuturesCost{"open_long 2@3457", "open_by_money 6.91, open_by_volume 0.02", "-6.93"},
                    FuturesCost{"open_short 2@3457", "open_by_money 6.91, open_by_volume 0.02", "-6.93"},
                    FuturesCost{"close_long 2@3457", "close_by_money 13.83", "-13.83"},
                    FuturesCost{"close_short 2@3457", "close_by_money 13.83", "-13.83"},
                    FuturesCost{"close_today_long 2@3457", "close_today_by_volume 6.00", "-6.00"},
                    FuturesCost{"close_today_short 2@3457", "close_today_by_volume 6.00", "-6.00"}));

TEST(FuturesMargin, IsByMoneyAndByVolumeOfTheSide) {
    const Bill bought = costOf(trade("open_long 2@3457"), futures());
    ASSERT_TRUE(bought.margin);
    EXPECT_EQ(bought.margin->amount.text(), "4841.8");
    EXPECT_EQ(bought.margin->byMoney.text(), "0.07");
    EXPECT_EQ(bought.margin->byVolume.text(), "1");
    EXPECT_EQ(bought.margin->rate->source, "custom/margin.csv:2");
    const Bill sold = costOf(trade("open_short 2@3457"), futures());
    ASSERT_TRUE(sold.margin);
    EXPECT_EQ(sold.margin->amount.text(), "5535.2");
}

TEST(FuturesMargin, IsOfTheHedgeFlagAndOfOpeningAlone) {
    EXPECT_FALSE(costOf(trade("close_long 2@3457"), futures()).margin);
    Trade hedging = trade("open_long 2@3457");
    hedging.hedgeFlag = '3';
    EXPECT_FALSE(costOf(hedging, futures()).margin);
}

TEST(FuturesMargin, IsConvertedToo) {
    EXPECT_EQ(converted(costOf(trade("open_long 2@3457"), futures()), number("2"), "USD").margin->amount.text(),
              "9683.6");
}

// Options.

struct OptionCost {
    const char* trade;
    const char* items;
    const char* net;
};

class OptionBill : public testing::TestWithParam<OptionCost> {};

TEST_P(OptionBill, MovesThePremiumToo) {
    const Bill bill = costOf(trade(GetParam().trade), options());
    EXPECT_EQ(itemsOf(bill), GetParam().items);
    EXPECT_EQ(bill.net.text(2), GetParam().net);
}

// 3 contracts of 10000 at 0.0521: 1563.
INSTANTIATE_TEST_SUITE_P(, OptionBill,
                         testing::Values(OptionCost{"open_long 3@0.0521", "handling_fee 3.90", "-1566.90"},
                                         OptionCost{"open_short 3@0.0521", "", "1563.00"},
                                         OptionCost{"close_long 3@0.0521", "handling_fee 3.90", "1559.10"},
                                         OptionCost{"close_short 3@0.0521", "handling_fee 3.90", "-1566.90"},
                                         OptionCost{"exercise 3", "exercise_fee 1.80", "-1.80"},
                                         OptionCost{"exercise 3@2.5", "exercise_fee 1.80", "-1.80"}));

TEST(Exercise, ChargedOnTurnoverNeedsAPrice) {
    Term exercise = term("option", "exercise_fee", "exercise", "turnover fill");
    exercise.rate = number("0.0001");
    const Tariff made = tariff({exercise}, {}, options().place(), contractOf("10000"));
    EXPECT_EQ(refusal([&] { costOf(trade("exercise 3"), made); }),
              "charges.csv:2 charges exercise_fee on turnover, and the exercise has no price");
    EXPECT_EQ(costOf(trade("exercise 3@2.5"), made).costs.text(), "7.5");
}

}  // namespace
