#include "cost/day.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "cost/support/tariffs.h"

namespace {

using namespace cost;       // NOLINT(google-build-using-namespace): what is tested
using namespace cost_test;  // NOLINT(google-build-using-namespace): what it is tested with

const char* const kDay = "2024-01-02";

Trade fill(const std::string& order, std::string_view text) {
    Trade made = trade(text, kDay);
    made.order = order;
    return made;
}

/// The tariff of another account, or of another instrument.
Tariff placed(const Tariff& tariff, const std::string& account, const std::string& code) {
    Place place = tariff.place();
    place.account = account;
    place.code = code;
    return {place, tariff.contract(), tariff.rates(), tariff.terms()};
}

/// The items of each fill behind the other, with " | " between them.
std::string dayItems(const Day& day) {
    std::string text;
    for (const Bill& bill : day.bills()) {
        text += (text.empty() ? "" : " | ") + itemsOf(bill);
    }
    return text;
}

std::string dayItems(const std::vector<Trade>& trades, const Tariff& tariff) {
    Day day(date(kDay));
    for (const Trade& trade : trades) {
        day.add(trade, tariff);
    }
    return dayItems(day);
}

/// What adding the second is refused with.
std::string refusalOfSecond(const Trade& first, const Tariff& tariffOfFirst, const Trade& second,
                            const Tariff& tariffOfSecond) {
    Day day(date(kDay));
    day.add(first, tariffOfFirst);
    const std::string sentence = refusal([&] { day.add(second, tariffOfSecond); });
    EXPECT_EQ(day.size(), sentence.empty() ? 2U : 1U);
    return sentence;
}

// 37 x 10 + 63 x 10.10 = 1006.30: 0.00025 of it is below the minimum.
TEST(OrderOfFills, PaysItsMinimumOnce) {
    EXPECT_EQ(dayItems({fill("A", "buy 37@10"), fill("A", "buy 63@10.10")}, allIn()),
              "commission 5.00, (handling_fee 0.01) | (handling_fee 0.02)");
}

TEST(OrderOfFills, IsDistinguishedFromOthers) {
    EXPECT_EQ(dayItems({fill("A", "buy 100@10"), fill("B", "buy 100@10"), fill("A", "buy 100@10"),
                        fill("", "buy 100@10"), fill("", "buy 100@10")},
                       allIn()),
              "commission 5.00, (handling_fee 0.03) | commission 5.00, (handling_fee 0.03) | (handling_fee 0.03) | "
              "commission 5.00, (handling_fee 0.03) | commission 5.00, (handling_fee 0.03)");
}

TEST(OrderOfFills, IsOfOneAccount) {
    Day day(date(kDay));
    day.add(fill("A", "buy 100@10"), allIn());
    day.add(fill("A", "buy 100@10"), placed(allIn(), "1000002", "600519"));
    EXPECT_EQ(dayItems(day), "commission 5.00, (handling_fee 0.03) | commission 5.00, (handling_fee 0.03)");
}

TEST(OrderOfFills, SaysBasisAndCountOfTheWhole) {
    Day day(date(kDay));
    day.add(fill("A", "buy 100@10"), allIn());
    day.add(fill("B", "buy 100@10"), allIn());
    day.add(fill("A", "buy 200@20"), allIn());
    const std::vector<Bill> bills = day.bills();
    EXPECT_EQ(bills[0].items[0].basis.text(), "5000");
    EXPECT_EQ(bills[0].items[0].trades, 2U);
    EXPECT_EQ(bills[0].items[1].basis.text(), "1000");
    EXPECT_EQ(bills[0].items[1].trades, 1U);
    EXPECT_EQ(bills[0].turnover.text(), "1000");
    EXPECT_EQ(bills[0].net.text(), "-1005");
    EXPECT_EQ(bills[2].turnover.text(), "4000");
    EXPECT_EQ(bills[2].net.text(), "-4000");
}

TEST(OrderOfFills, HasItsRoundingOnce) {
    const Tariff made = tariff({levy("0.001", "turnover order 1 up")}, {});
    EXPECT_EQ(dayItems({fill("A", "buy 100@10.01"), fill("A", "buy 100@10.01")}, made), "levy 3.00 | ");
    EXPECT_EQ(dayItems({fill("A", "buy 100@10.01"), fill("B", "buy 100@10.01")}, made), "levy 2.00 | levy 2.00");
}

TEST(OrderOfFills, IsOneForABasisOfOrders) {
    const Tariff made = tariff({levy("0.5", "order order")}, {});
    EXPECT_EQ(dayItems({fill("A", "buy 1@10"), fill("A", "buy 1@10"), fill("", "buy 1@10")}, made),
              "levy 0.50 |  | levy 0.50");
}

TEST(DayOfFills, IsChargedByAccountInstrumentAndSide) {
    const Tariff made = tariff({levy("0.0001", "turnover day", "2")}, {});
    Day day(date(kDay));
    day.add(fill("A", "buy 1000@10"), made);
    day.add(fill("", "sell 1000@10"), made);
    day.add(fill("B", "buy 2000@10"), made);
    day.add(fill("", "buy 1000@10"), placed(made, "1000002", "600519"));
    day.add(fill("", "buy 1000@10"), placed(made, "1000001", "600520"));
    EXPECT_EQ(dayItems(day), "levy 3.00 | levy 2.00 |  | levy 2.00 | levy 2.00");
    EXPECT_EQ(day.bills()[0].items[0].trades, 2U);
}

TEST(DayOfFills, IsOneForABasisOfDays) {
    EXPECT_EQ(dayItems({fill("", "buy 1@10"), fill("", "buy 1@10"), fill("", "sell 1@10")},
                       tariff({levy("3", "day day")}, {})),
              "levy 3.00 |  | levy 3.00");
}

TEST(DayOfFills, AddsUpTheSameInAnyOrder) {
    std::vector<Trade> trades = {fill("A", "buy 37@10"), fill("B", "buy 100@2000.01"), fill("A", "buy 63@10.10")};
    std::vector<std::string> costs;
    std::sort(trades.begin(), trades.end(), [](const Trade& a, const Trade& b) { return a.quantity < b.quantity; });
    do {
        Day day(date(kDay));
        for (const Trade& trade : trades) {
            day.add(trade, allIn());
        }
        Decimal sum;
        for (const Bill& bill : day.bills()) {
            sum += bill.costs;
        }
        costs.push_back(sum.text(2));
    } while (std::next_permutation(trades.begin(), trades.end(),
                                   [](const Trade& a, const Trade& b) { return a.quantity < b.quantity; }));
    EXPECT_EQ(costs, std::vector<std::string>(6, "55.00"));
}

TEST(DayOfFills, OfFuturesHasAMarginForEach) {
    Day day(date(kDay));
    day.add(fill("A", "open_long 2@3457"), futures());
    day.add(fill("A", "open_long 1@3457"), futures());
    EXPECT_EQ(day.bills()[0].margin->amount.text(), "4841.8");
    EXPECT_EQ(day.bills()[1].margin->amount.text(), "2420.9");
}

TEST(DayOfFills, OfNoneHasNoBills) { EXPECT_TRUE(Day(date(kDay)).bills().empty()); }

TEST(ForeignFill, OfAnotherInstrumentIsRefused) {
    EXPECT_EQ(refusalOfSecond(fill("A", "buy 100@10"), allIn(), fill("A", "buy 100@10"),
                              placed(allIn(), "1000001", "600520")),
              "the instrument is SH:600520, and another fill of order A has SH:600519");
}

TEST(ForeignFill, OfAnotherSideIsRefused) {
    EXPECT_EQ(refusalOfSecond(fill("A", "buy 100@10"), allIn(), fill("A", "sell 100@10"), allIn()),
              "the side is sell, and another fill of order A has buy");
}

TEST(ForeignFill, OfAnotherCurrencyIsRefused) {
    Term dollars = levy("1", "order order");
    dollars.currency = "HKD";
    EXPECT_EQ(refusalOfSecond(fill("A", "buy 100@10"), allIn(), fill("A", "buy 100@10"), tariff({dollars}, {})),
              "the currency is HKD, and another fill of order A has CNY");
}

TEST(ForeignFill, OfAnotherDayIsRefused) {
    EXPECT_EQ(refusalOfSecond(fill("A", "buy 100@10"), allIn(), trade("buy 100@10", "2024-01-03"), allIn()),
              "the trade is of 2024-01-03 among those of 2024-01-02");
}

TEST(RefusedFill, LeavesTheDayAsItWas) {
    Day day(date(kDay));
    day.add(fill("A", "buy 100@10"), allIn());
    EXPECT_EQ(refusal([&] { day.add(fill("A", "buy 0@10"), allIn()); }),
              "the quantity is 0, and a trade has one above 0");
    EXPECT_EQ(refusal([&] { day.add(fill("A", "sell 100@10"), allIn()); }),
              "the side is sell, and another fill of order A has buy");
    day.add(fill("A", "buy 100@10"), allIn());
    EXPECT_EQ(dayItems(day), "commission 5.00, (handling_fee 0.03) | (handling_fee 0.03)");
}

TEST(RefusedFill, MayBeAnExerciseWithoutAPrice) {
    Term exercise = term("option", "exercise_fee", "exercise", "turnover fill");
    exercise.rate = number("0.0001");
    Day day(date(kDay));
    const Tariff made = tariff({exercise}, {}, options().place(), contractOf("10000"));
    EXPECT_EQ(refusal([&] { day.add(fill("A", "exercise 3"), made); }),
              "charges.csv:2 charges exercise_fee on turnover, and the exercise has no price");
}

}  // namespace
