#include "cost/trade.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cost/support/tariffs.h"

namespace {

using namespace cost;       // NOLINT(google-build-using-namespace): what is tested
using namespace cost_test;  // NOLINT(google-build-using-namespace): what it is tested with

struct NoTrade {
    const char* name;
    Trade trade;
    Tariff tariff;
    const char* sentence;
};

Trade flagged(char flag) {
    Trade made = trade("open_long 2@3457");
    made.hedgeFlag = flag;
    return made;
}

class Refusal : public testing::TestWithParam<NoTrade> {};

TEST_P(Refusal, IsOneSentence) {
    EXPECT_EQ(refusal([] { costOf(GetParam().trade, GetParam().tariff); }), GetParam().sentence);
}

INSTANTIATE_TEST_SUITE_P(
    , Refusal,
    testing::Values(
        NoTrade{"QuantityZero", trade("buy 0@10"), allIn(), "the quantity is 0, and a trade has one above 0"},
        NoTrade{"QuantityNegative", trade("sell -100@10"), allIn(),
                "the quantity is -100, and a trade has one above 0"},
        NoTrade{"QuantityNotWhole", trade("sell 0.5@10"), allIn(),
                "the quantity is 0.5, and a whole number was expected"},
        NoTrade{"PriceZero", trade("buy 100"), allIn(), "the price is 0, and a trade has one above 0"},
        NoTrade{"PriceNegative", trade("sell 100@-1"), allIn(), "the price is -1, and a trade has one above 0"},
        NoTrade{"NoUnit", trade("buy 150@10"), allInLots("100", "100"),
                "the quantity is 150, and SH:600519 is bought or opened in multiples of 100"},
        NoTrade{"LessThanAUnit", trade("buy 50@10"), allInLots("100", "100"),
                "the quantity is 50, and the least that SH:600519 is bought or opened in is 100"},
        NoTrade{"LessThanTheMinimum", trade("buy 199@10"), allInLots("200", "1"),
                "the quantity is 199, and the least that SH:600519 is bought or opened in is 200"},
        NoTrade{"NoStepAboveTheMinimum", trade("buy 205@10"), allInLots("200", "10"),
                "the quantity is 205, and SH:600519 is bought or opened in 200 and steps of 10 above that"},
        NoTrade{"HedgeFlag", flagged('4'), futures(),
                "the hedge flag is \"4\", and 1 (speculation), 2 (arbitrage) or 3 (hedging) was expected"},
        NoTrade{"FuturesMultiplier", trade("open_long 2@3457"), futures(Contract()),
                "the multiplier of SHFE:rb2510 is not known, so its turnover cannot be calculated"},
        NoTrade{"OptionMultiplier", trade("close_long 2@0.05"), options(Contract()),
                "the multiplier of SHO:10001313 is not known, so its turnover cannot be calculated"},
        NoTrade{"SideOfAnotherFamily", trade("buy 2@3457"), futures(),
                "the side is buy, and SHFE:rb2510 is charged as futures, which has open_long, open_short, close_long, "
                "close_short, close_today_long, close_today_short"},
        NoTrade{"TooLarge", trade("buy 999999999999999999@999999999999999999.999999999999999999"),
                tariff({levy("999999999999999999.999999999999999999", "turnover fill")}, {}),
                "the numbers of the trade are too large to calculate with"}),
    [](const auto& row) { return row.param.name; });

TEST(Turnover, OfSharesHasNoMultiplier) {
    const Tariff made = allIn();
    const Tariff tenfold(made.place(), contractOf("10"), made.rates(), made.terms());
    EXPECT_EQ(turnoverOf(trade("buy 300@1488.50"), tenfold).text(), "446550");
}

TEST(TradableQuantity, IsAskedOfPurchasesThatAreOrdersOfTheirOwn) {
    EXPECT_EQ(refusal([] { costOf(trade("buy 300@10"), allInLots("100", "100")); }), "");
    EXPECT_EQ(refusal([] { costOf(trade("buy 201@10"), allInLots("200", "1")); }), "");
    EXPECT_EQ(refusal([] { costOf(trade("sell 37@10"), allInLots("100", "100")); }), "");
    Trade fill = trade("buy 37@10");
    fill.order = "A1";
    EXPECT_EQ(refusal([&] { costOf(fill, allInLots("100", "100")); }), "");
}

// 3 at an average of 10.33 were traded for 31.00, and not for 30.99.
TEST(Turnover, IsTheTradesOwnWhereItHasOne) {
    Trade average = trade("sell 3@10.33");
    EXPECT_EQ(turnoverOf(average, allIn()).text(), "30.99");
    average.turnover = cost_test::number("31");
    EXPECT_EQ(turnoverOf(average, allIn()).text(), "31");
    EXPECT_EQ(costOf(average, allIn()).turnover.text(), "31");
}

}  // namespace
