#include "cost/term.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "cost/support/builders.h"

namespace {

using namespace cost;  // NOLINT(google-build-using-namespace): what is tested
using cost_test::commission;
using cost_test::date;
using cost_test::number;
using cost_test::term;

/// The sentences, one a line, each behind the index of its term.
std::string faults(const std::vector<Term>& terms) {
    std::string text;
    for (const TermFault& fault : faultsOf(terms)) {
        text += std::to_string(fault.term) + ' ' + fault.sentence + '\n';
    }
    return text;
}

TEST(TermFaults, OfSoundTermsAreNone) {
    Term handling = term("stock", "handling_fee", "both", "turnover fill");
    handling.inside = "commission";
    Term option = term("option", "handling_fee", "open_short", "quantity fill");
    option.item = "000";
    Term constant = term("option", "desk_fee", "exercise", "order order");
    constant.rate = number("2");
    EXPECT_EQ(faults({commission(), handling, option, constant}), "");
}

struct Spoiled {
    const char* name;
    std::function<void(Term&)> spoil;
    std::string sentence;
};

class BadTerm : public testing::TestWithParam<Spoiled> {};

TEST_P(BadTerm, IsSaidInASentence) {
    Term spoiled = commission();
    GetParam().spoil(spoiled);
    EXPECT_EQ(faults({spoiled}), "0 " + GetParam().sentence + '\n');
}

INSTANTIATE_TEST_SUITE_P(
    , BadTerm,
    testing::Values(
        Spoiled{"Charge", [](Term& x) { x.charge.clear(); }, "the line names no charge; name one"},
        Spoiled{"Currency", [](Term& x) { x.currency.clear(); }, "the line names no currency; name one, such as CNY"},
        Spoiled{"Side", [](Term& x) { x.side = TermSide::kOpen; },
                "the side is \"open\", and family stock has both, buy, sell; write one of them"},
        Spoiled{"ItemOfAStock", [](Term& x) { x.item = "000"; },
                "the line names the fee item \"000\", and only options have fee items; leave the item empty"},
        Spoiled{"NoItem",
                [](Term& x) {
                    x.family = Family::kOption;
                    x.side = TermSide::kOpen;
                },
                "the line takes its rate from the fee center but does not name the fee item that holds it; name it, or "
                "give "
                "the line a rate"},
        Spoiled{"Rate", [](Term& x) { x.rate = number("-0.1"); },
                "rate, minimum and maximum may not be below 0; correct them"},
        Spoiled{"Minimum", [](Term& x) { x.minimum = number("-5"); },
                "rate, minimum and maximum may not be below 0; correct them"},
        Spoiled{"Maximum", [](Term& x) { x.maximum = number("-5"); },
                "rate, minimum and maximum may not be below 0; correct them"},
        Spoiled{"MaximumBelowMinimum",
                [](Term& x) {
                    x.minimum = number("5");
                    x.maximum = number("4.99");
                },
                "the maximum 4.99 is below the minimum 5; correct one of them"},
        Spoiled{"BasisOrder",
                [](Term& x) {
                    x.basis = Basis::kOrder;
                    x.per = Per::kFill;
                },
                "the basis is \"order\", so per must be \"order\" too; correct one of them"},
        Spoiled{"BasisDay", [](Term& x) { x.basis = Basis::kDay; },
                "the basis is \"day\", so per must be \"day\" too; correct one of them"},
        Spoiled{"Step",
                [](Term& x) {
                    x.rounding = Rounding{Decimal(), RoundingMode::kUp};
                },
                "the rounding step must be above 0; correct it"},
        Spoiled{"InsideItself", [](Term& x) { x.inside = "commission"; },
                "the line is inside its own charge \"commission\"; name another charge, or leave it empty"},
        Spoiled{"InsideNothing", [](Term& x) { x.inside = "comission"; },
                "the line is inside \"comission\", which no line of family stock charges; correct it, or add a line "
                "for that "
                "charge"},
        Spoiled{"Dates",
                [](Term& x) {
                    x.dates = {date("2023-08-28"), date("2023-08-27")};
                },
                "the line ends on 2023-08-27, before it starts on 2023-08-28; correct one of them"}),
    [](const auto& row) { return row.param.name; });

TEST(TermFaults, OfOneTermAreAllSaid) {
    Term bad = commission();
    bad.charge.clear();
    bad.side = TermSide::kExercise;
    EXPECT_EQ(faults({commission(), bad}),
              "1 the line names no charge; name one\n"
              "1 the side is \"exercise\", and family stock has both, buy, sell; write one of them\n");
}

/// What is wrong with a second commission that `change` was made to.
std::string faultsOfSecond(const std::function<void(Term&)>& change) {
    Term second = commission();
    change(second);
    return faults({commission(), second});
}

TEST(EquallySpecificTerms, OnTheSameDaysAreAFault) {
    const std::string sentence =
        "1 the line charges \"commission\" in the same place, on the same side and days as charges.csv:1; remove one "
        "of "
        "them, or make one more specific\n";
    EXPECT_EQ(faultsOfSecond([](Term&) {}), sentence);
    EXPECT_EQ(faultsOfSecond([](Term& x) { x.dates.from = date("2023-08-28"); }), sentence);
    EXPECT_EQ(faultsOfSecond([](Term& x) { x.market = "*"; }), sentence);
}

TEST(EquallySpecificTerms, ThatDifferInAnythingAreNoFault) {
    const std::vector<std::function<void(Term&)>> changes = {[](Term& x) { x.family = Family::kCredit; },
                                                             [](Term& x) { x.account = "1000001"; },
                                                             [](Term& x) { x.market = "SH"; },
                                                             [](Term& x) { x.code = "60*"; },
                                                             [](Term& x) { x.product = "ETF"; },
                                                             [](Term& x) { x.charge = "stamp_duty"; },
                                                             [](Term& x) { x.side = TermSide::kSell; }};
    for (const auto& change : changes) {
        EXPECT_EQ(faultsOfSecond(change), "");
    }
}

TEST(EquallySpecificTerms, OfDifferentDaysAreNoFault) {
    Term early = commission();
    early.dates.until = date("2023-08-27");
    Term late = commission();
    late.dates.from = date("2023-08-28");
    EXPECT_EQ(faults({late, early}), "");
}

TEST(EquallySpecificTerms, OfDifferentFeeItemsAreNoFault) {
    Term first = term("option", "handling_fee", "open", "quantity fill");
    first.item = "000";
    Term second = first;
    second.item = "001";
    EXPECT_EQ(faults({first, second}), "");
}

}  // namespace
