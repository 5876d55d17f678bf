#include "cost/backwards.h"

#include <gtest/gtest.h>

#include <string>

#include "cost/support/tariffs.h"

namespace {

using namespace cost;       // NOLINT(google-build-using-namespace): what is tested
using namespace cost_test;  // NOLINT(google-build-using-namespace): what it is tested with

std::string affordableText(const std::string& cash, const std::string& asked, const Tariff& tariff) {
    return affordable(number(cash), trade(asked), tariff).text();
}

// 100000 at 10: 9900 shares cost 99000 + 24.75; 10000 cost 100000 + 25.
TEST(Affordable, IsTheMostThatCashPaysForWithCosts) {
    EXPECT_EQ(affordableText("100000", "buy 1@10", allInLots("100", "100")), "9900");
    EXPECT_EQ(affordableText("100024.99", "buy 1@10", allInLots("100", "100")), "9900");
    EXPECT_EQ(affordableText("100025", "buy 1@10", allInLots("100", "100")), "10000");
}

TEST(Affordable, CountsTheMinimumCharge) {
    EXPECT_EQ(affordableText("1004.99", "buy 1@10", allInLots("100", "100")), "0");
    EXPECT_EQ(affordableText("1005", "buy 1@10", allInLots("100", "100")), "100");
}

TEST(Affordable, StepsAboveTheMinimum) {
    EXPECT_EQ(affordableText("2004.99", "buy 1@10", allInLots("200", "1")), "0");
    EXPECT_EQ(affordableText("2005", "buy 1@10", allInLots("200", "1")), "200");
    EXPECT_EQ(affordableText("2015", "buy 1@10", allInLots("200", "1")), "201");
}

TEST(Affordable, LooksNeitherAtTheQuantityNorAtTheOrder) {
    Trade asked = trade("buy 150@10");
    asked.order = "A";
    EXPECT_EQ(affordable(number("100000"), asked, allInLots("100", "100")).text(), "9900");
}

// A lot at 3457 asks for 0.07 x 34570 + 1 = 2420.90 and costs 3.46 + 0.01; four lots 9683.60 + 13.83 + 0.04.
TEST(Affordable, OfFuturesPaysMarginAndCosts) {
    EXPECT_EQ(affordableText("9697.46", "open_long 1@3457", futures()), "3");
    EXPECT_EQ(affordableText("9697.47", "open_long 1@3457", futures()), "4");
    EXPECT_EQ(affordableText("2424", "open_long 1@3457", futures()), "0");
}

TEST(Affordable, OfAnOptionPaysThePremium) {
    EXPECT_EQ(affordableText("1044.59", "open_long 1@0.0521", options()), "1");
    EXPECT_EQ(affordableText("1044.60", "open_long 1@0.0521", options()), "2");
}

// A lot asks for 0.0000001 x 0.01 and costs 0.0001 x 0.01, so the cash opens 1e24 of them.
TEST(Affordable, IsRefusedWhereNoQuantityIsTooMuch) {
    const Place place{Family::kFutures, "3000001", "SHFE", "rb2510", "rb"};
    cost::Rates answered = rates({{"open_by_money", "0.0001", ""}});
    answered.margins.push_back({'1', number("0.0000001"), {}, number("0.0000001"), {}, "", ""});
    const Tariff nearlyFree =
        tariff({term("futures", "open_by_money", "open", "turnover fill")}, answered, place, contractOf("1"));
    EXPECT_EQ(refusal([&] { affordable(number("999999999999999999"), trade("open_long 1@0.01"), nearlyFree); }),
              "no quantity of SHFE:rb2510 is too much for the cash");
    EXPECT_EQ(affordableText("0.0000101", "open_long 1@0.01", nearlyFree), "10");
}

TEST(Affordable, IsRefusedForASideThatCashDoesNotLimit) {
    const std::string sentence = "cash limits a purchase or the opening of futures, and the side is ";
    EXPECT_EQ(refusal([] { affordable(number("1"), trade("sell 1@10"), allIn()); }), sentence + "sell");
    EXPECT_EQ(refusal([] { affordable(number("1"), trade("open_short 1@10"), options()); }), sentence + "open_short");
    EXPECT_EQ(refusal([] { affordable(number("1"), trade("close_long 1@10"), futures()); }), sentence + "close_long");
    EXPECT_EQ(refusal([] { affordable(number("1"), trade("exercise 1@10"), options()); }), sentence + "exercise");
}

TEST(Affordable, IsRefusedForFuturesWithoutMarginRates) {
    Trade hedging = trade("open_short 1@3457");
    hedging.hedgeFlag = '2';
    EXPECT_EQ(
        refusal([&] { affordable(number("10000"), hedging, futures()); }),
        "the answer has no margin rates of hedge flag 2 for SHFE:rb2510, so cash does not tell how much can be opened");
}

TEST(Affordable, IsRefusedForAMarginRateOfZero) {
    Tariff rated = futures();
    Rates rates;
    rates.margins.push_back({'1', {}, {}, {}, {}, "", ""});
    Term nothing = term("futures", "open_by_money", "open", "turnover fill");
    nothing.rate = number("0");
    const Tariff made = tariff({nothing}, rates, rated.place(), rated.contract());
    EXPECT_EQ(
        refusal([&] { affordable(number("1"), trade("open_long 1@3457"), made); }),
        "the answer has a margin rate of 0 of hedge flag 1 for SHFE:rb2510, so cash does not tell how much can be "
        "opened");
}

std::string breakEven(const std::string& opening, Side closing, const std::string& tick, const Tariff& tariff) {
    return breakEvenPrice(trade(opening), closing, number(tick), tariff).text(2);
}

// The purchase takes 10005. A sale at 10.015 brings 10015 - 5 - 5.01, at 10.016 it brings 10016 - 5 - 5.01.
TEST(BreakEven, OfAPurchaseIsTheLowestSaleThatPaysForBoth) {
    EXPECT_EQ(breakEven("buy 1000@10", Side::kSell, "0.01", allIn()), "10.02");
    EXPECT_EQ(breakEven("buy 1000@10", Side::kSell, "0.005", allIn()), "10.02");
    EXPECT_EQ(breakEven("buy 1000@10", Side::kSell, "0.001", allIn()), "10.016");
}

TEST(BreakEven, IsThePriceItselfWhereNothingIsCharged) {
    const Tariff free = tariff({levy("0", "turnover fill")}, {});
    EXPECT_EQ(breakEven("buy 1000@10", Side::kSell, "0.01", free), "10.00");
    EXPECT_EQ(breakEven("buy 1000@10.005", Side::kSell, "0.01", free), "10.01");
}

// 10 shares at 100, one dollar of duty for each 1000 begun: the purchase takes 1001. A sale above 100 pays 2 dollars,
// so it must bring 1003.
TEST(BreakEven, CountsADutyRoundedUpToTheWhole) {
    const Tariff duty = tariff({levy("0.001", "turnover fill 1 up")}, {});
    EXPECT_EQ(breakEven("buy 10@100", Side::kSell, "0.01", duty), "100.30");
}

// 2 lots at 3457: 6.93 to open; 13.83 to close at 3458, when the gain is 20; 20.76 in all, which 3459 gains.
TEST(BreakEven, OfALongPositionIsAbove) {
    EXPECT_EQ(breakEven("open_long 2@3457", Side::kCloseLong, "1", futures()), "3459.00");
    EXPECT_EQ(breakEven("open_long 2@3457", Side::kCloseTodayLong, "1", futures()), "3458.00");
}

// The same below: closing at 3456 gains 20 and costs 13.82 behind 6.93, so 3455 it is; today 6 behind 6.93.
TEST(BreakEven, OfAShortPositionIsBelow) {
    EXPECT_EQ(breakEven("open_short 2@3457", Side::kCloseShort, "1", futures()), "3455.00");
    EXPECT_EQ(breakEven("open_short 2@3457", Side::kCloseTodayShort, "1", futures()), "3456.00");
}

// A contract bought at 0.0521 takes 522.30, so selling it must bring 523.60. One sold for 521 without a charge may be
// bought back for 519.70.
TEST(BreakEven, OfOptionsIsByThePremium) {
    EXPECT_EQ(breakEven("open_long 1@0.0521", Side::kCloseLong, "0.0001", options()), "0.0524");
    EXPECT_EQ(breakEven("open_short 1@0.0521", Side::kCloseShort, "0.0001", options()), "0.0519");
}

TEST(BreakEven, IsRefusedForSidesThatDoNotBelongTogether) {
    const auto refused = [](const char* opening, Side closing, const Tariff& tariff) {
        return refusal([&] { breakEvenPrice(trade(opening), closing, number("1"), tariff); });
    };
    EXPECT_EQ(refused("buy 1@10", Side::kBuy, allIn()), "buy does not close what buy opens");
    EXPECT_EQ(refused("buy 1@10", Side::kCloseLong, allIn()), "close_long does not close what buy opens");
    EXPECT_EQ(refused("sell 1@10", Side::kSell, allIn()), "sell does not close what sell opens");
    EXPECT_EQ(refused("open_long 1@10", Side::kCloseShort, futures()),
              "close_short does not close what open_long opens");
    EXPECT_EQ(refused("open_long 1@10", Side::kSell, futures()), "sell does not close what open_long opens");
    EXPECT_EQ(refused("open_long 1@10", Side::kExercise, options()), "exercise does not close what open_long opens");
    EXPECT_EQ(refused("close_long 1@10", Side::kCloseLong, futures()),
              "close_long does not close what close_long opens");
}

TEST(BreakEven, IsRefusedWhereNoPriceDoesIt) {
    const auto refused = [](const char* opening, Side closing, const char* tick, const Tariff& tariff) {
        return refusal([&] { breakEvenPrice(trade(opening), closing, number(tick), tariff); });
    };
    EXPECT_EQ(refused("buy 1@10", Side::kSell, "0", allIn()), "the tick is 0, and one above 0 was expected");
    EXPECT_EQ(refused("buy 1@10", Side::kSell, "0.01", tariff({levy("1", "turnover fill")}, {})),
              "no price pays for both sides: the charges take all that a higher price brings");
    EXPECT_EQ(refused("open_short 1@0.0001", Side::kCloseShort, "0.0001", options()),
              "no price above 0 pays for both sides");
}

}  // namespace
