#include "cost/tariff.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cost/support/builders.h"

namespace {

using namespace cost;  // NOLINT(google-build-using-namespace): what is tested
using cost_test::commission;
using cost_test::date;
using cost_test::moutai;
using cost_test::NamedRate;
using cost_test::number;
using cost_test::rates;
using cost_test::refusal;
using cost_test::schedule;
using cost_test::term;

const Place kOption{Family::kOption, "4000001", "SHO", "10001313", "510050"};

Tariff tariffOf(const std::vector<Term>& terms, const std::vector<NamedRate>& answered, const Place& place = moutai()) {
    return {place, {}, rates(answered), schedule(terms).termsFor(place, date("2024-01-02"))};
}

/// "commission 0.00025, (handling_fee 0.0000341)" or why there is no plan.
std::string plan(const Tariff& tariff, Side side = Side::kBuy) {
    std::string text;
    const std::string refused = refusal([&] {
        for (const ChargeLine& line : tariff.planOf(side, date("2024-01-02")).lines) {
            const std::string charged = line.term->charge + ' ' + line.value.text();
            text += text.empty() ? "" : ", ";
            text += line.inside == nullptr ? charged : '(' + charged + ')';
        }
    });
    return refused.empty() ? text : refused;
}

Term inside(const std::string& charge, const std::string& container) {
    Term made = term("stock", charge, "both", "turnover fill");
    made.inside = container;
    return made;
}

Term optionTerm(const std::string& charge, const std::string& side, const std::string& item) {
    Term made = term("option", charge, side, "quantity fill");
    made.item = item;
    return made;
}

TEST(Plan, IsInTheOrderOfTheRatesThenOfTheSchedule) {
    Term levy = term("stock", "levy", "both", "order order");
    levy.rate = number("1");
    const Tariff made = tariffOf({levy, term("stock", "stamp_duty", "sell", "turnover fill"), commission()},
                                 {{"commission", "0.00025", ""}, {"stamp_duty", "0.0005", ""}});
    EXPECT_EQ(plan(made, Side::kSell), "commission 0.00025, stamp_duty 0.0005, levy 1");
    EXPECT_EQ(plan(made, Side::kBuy), "commission 0.00025, levy 1");
}

TEST(Plan, NamesTheRateUnlessTheTermHasOne) {
    Term own = term("stock", "transfer_fee", "both", "turnover fill");
    own.rate = number("0.00002");
    const Tariff made = tariffOf({commission(), own}, {{"commission", "0.00025", ""}, {"transfer_fee", "0.00001", ""}});
    const Plan& buys = made.planOf(Side::kBuy, date("2024-01-02"));
    ASSERT_EQ(buys.lines.size(), 2U);
    EXPECT_EQ(buys.lines[0].rate, &made.rates().charges[0]);
    EXPECT_EQ(buys.lines[1].rate, nullptr);
    EXPECT_EQ(buys.lines[1].value, number("0.00002"));
}

TEST(Plan, LeavesOutWhatCostsNothing) {
    Term waived = term("stock", "transfer_fee", "both", "turnover fill");
    waived.rate = number("0");
    EXPECT_EQ(plan(tariffOf({commission(), waived, term("stock", "stamp_duty", "both", "turnover fill")},
                            {{"commission", "0.00025", ""}, {"transfer_fee", "0.00001", ""}, {"stamp_duty", "0", ""}})),
              "commission 0.00025");
}

TEST(Plan, NeedsNoTermForARateOfZero) {
    EXPECT_EQ(plan(tariffOf({commission()}, {{"commission", "0.00025", ""}, {"rate5", "0", ""}})),
              "commission 0.00025");
}

TEST(Plan, IsRefusedWithoutATermForARate) {
    EXPECT_EQ(
        plan(tariffOf({commission()}, {{"commission", "0.00025", ""}, {"handling_fee", "0.00002", ""}})),
        "the rate handling_fee 0.00002 of SH:600519 has no charging term on 2024-01-02; add a line to charges.csv");
}

TEST(Plan, DoesNotChargeARateWhoseTermIsForAnotherSide) {
    const Tariff made = tariffOf({commission(), term("stock", "stamp_duty", "sell", "turnover fill")},
                                 {{"commission", "0.00025", ""}, {"stamp_duty", "0.0005", ""}});
    EXPECT_EQ(plan(made, Side::kBuy), "commission 0.00025");
}

TEST(Plan, IsRefusedWithoutAnyTermOfTheSide) {
    EXPECT_EQ(plan(tariffOf({}, {{"commission", "0", ""}})),
              "buy of SH:600519 has no charging term on 2024-01-02; add a line to charges.csv");
    const Tariff sells =
        tariffOf({term("stock", "stamp_duty", "sell", "turnover fill")}, {{"stamp_duty", "0.0005", ""}});
    EXPECT_EQ(plan(sells, Side::kSell), "stamp_duty 0.0005");
    EXPECT_EQ(plan(sells, Side::kBuy),
              "buy of SH:600519 has no charging term on 2024-01-02; add a line to charges.csv");
}

TEST(Plan, IsRefusedForATermWhoseRateTheAnswerLacks) {
    EXPECT_EQ(
        plan(tariffOf({term("stock", "comission", "both", "turnover fill")}, {{"commission", "0", ""}})),
        "charges.csv:2 charges comission, which the rates of SH:600519 do not hold on 2024-01-02; give the line a "
        "rate, or correct its charge or item");
}

TEST(Plan, IsRefusedForARateBelowZero) {
    EXPECT_EQ(plan(tariffOf({commission()}, {{"commission", "-0.0001", ""}})),
              "the rate commission -0.0001 of SH:600519 is below 0 on 2024-01-02");
}

TEST(Plan, IsRefusedForASideOfAnotherFamily) {
    const Tariff made = tariffOf({commission()}, {{"commission", "0.00025", ""}});
    EXPECT_EQ(plan(made, Side::kOpenLong),
              "the side is open_long, and SH:600519 is charged as stock, which has buy, sell");
}

TEST(Plan, IsRefusedForTwoCurrencies) {
    Term dollars = term("stock", "levy", "both", "order order");
    dollars.rate = number("1");
    dollars.currency = "HKD";
    EXPECT_EQ(plan(tariffOf({commission(), dollars}, {{"commission", "0.00025", ""}})),
              "charges.csv:2 charges CNY and charges.csv:3 HKD for the same trade of SH:600519 on 2024-01-02");
}

TEST(Plan, IsRefusedOutsideTheDaysOfItsTerms) {
    Term until = commission();
    until.dates.until = date("2024-06-30");
    const Tariff made = tariffOf({until}, {{"commission", "0.00025", ""}});
    EXPECT_EQ(refusal([&] { static_cast<void>(made.planOf(Side::kBuy, date("2024-06-30"))); }), "");
    EXPECT_EQ(refusal([&] { static_cast<void>(made.planOf(Side::kBuy, date("2024-07-01"))); }),
              "the trade is of 2024-07-01, and the charging terms at hand are those until 2024-06-30");
}

TEST(InsidePlan, NamesTheChargeThatContains) {
    EXPECT_EQ(plan(tariffOf({inside("handling_fee", "commission"), commission()},
                            {{"handling_fee", "0.0000341", ""}, {"commission", "0.00025", ""}})),
              "(handling_fee 0.0000341), commission 0.00025");
}

TEST(InsidePlan, IsRefusedWhenTheContainingChargeIsNotPaid) {
    const std::string sentence =
        "charges.csv:3 says that handling_fee of SH:600519 is inside commission, which is not charged on 2024-01-02; "
        "charge it by itself where that is so";
    Term sells = commission();
    sells.side = TermSide::kSell;
    const Tariff sold = tariffOf({sells, inside("handling_fee", "commission")},
                                 {{"commission", "0.00025", ""}, {"handling_fee", "0.0000341", ""}});
    EXPECT_EQ(plan(sold, Side::kSell), "commission 0.00025, (handling_fee 0.0000341)");
    EXPECT_EQ(plan(sold, Side::kBuy), sentence);
    EXPECT_EQ(plan(tariffOf({commission(), inside("handling_fee", "commission")},
                            {{"commission", "0", ""}, {"handling_fee", "0.0000341", ""}})),
              sentence);
}

TEST(InsidePlan, IsRefusedForACycle) {
    const std::vector<NamedRate> answered = {
        {"commission", "0.1", ""}, {"handling_fee", "0.1", ""}, {"levy", "0.1", ""}, {"stamp_duty", "0.1", ""}};
    EXPECT_EQ(plan(tariffOf({inside("levy", "handling_fee"), inside("handling_fee", "stamp_duty"),
                             inside("stamp_duty", "handling_fee"), commission()},
                            answered)),
              "charges.csv:3 says that handling_fee is inside stamp_duty, which is inside it in turn on 2024-01-02");
}

TEST(OptionPlan, LooksAtTheFeeItemsOfItsSideAlone) {
    const Tariff made =
        tariffOf({optionTerm("handling_fee", "open", "000"), optionTerm("exercise_fee", "exercise", "001")},
                 {{"handling_fee", "1.3", "000"}, {"exercise_fee", "0.6", "001"}, {"fee4", "9", "777"}}, kOption);
    EXPECT_EQ(plan(made, Side::kOpenLong), "handling_fee 1.3");
    EXPECT_EQ(plan(made, Side::kExercise), "exercise_fee 0.6");
    EXPECT_EQ(plan(made, Side::kCloseLong),
              "close_long of SHO:10001313 has no charging term on 2024-01-02; add a line to charges.csv");
}

TEST(OptionPlan, IsRefusedForAFeeOfTheItemWithoutATerm) {
    EXPECT_EQ(
        plan(tariffOf({optionTerm("handling_fee", "open", "000")},
                      {{"handling_fee", "1.3", "000"}, {"settlement_fee", "0.3", "000"}}, kOption),
             Side::kOpenLong),
        "the rate settlement_fee (fee item 000) 0.3 of SHO:10001313 has no charging term on 2024-01-02; add a line "
        "to charges.csv");
}

TEST(OptionPlan, IsRefusedForAnItemThatTheAnswerLacks) {
    EXPECT_EQ(plan(tariffOf({optionTerm("handling_fee", "open", "001")}, {{"handling_fee", "1.3", "000"}}, kOption),
                   Side::kOpenLong),
              "charges.csv:2 charges handling_fee (fee item 001), which the rates of SHO:10001313 do not hold on "
              "2024-01-02; give the line a rate, or correct its charge or item");
}

TEST(OptionPlan, WaivesAChargeForTheNarrowerSide) {
    Term waiver = optionTerm("handling_fee", "open_short", "000");
    waiver.rate = number("0");
    const Tariff made =
        tariffOf({optionTerm("handling_fee", "open", "000"), waiver}, {{"handling_fee", "1.3", "000"}}, kOption);
    EXPECT_EQ(plan(made, Side::kOpenLong), "handling_fee 1.3");
    EXPECT_EQ(plan(made, Side::kOpenShort), "");
    EXPECT_EQ(made.planOf(Side::kOpenShort, date("2024-01-02")).currency, "CNY");
}

}  // namespace
