#include "cost/schedule.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "cost/support/builders.h"

namespace {

using namespace cost;  // NOLINT(google-build-using-namespace): what is tested
using cost_test::commission;
using cost_test::date;
using cost_test::moutai;
using cost_test::refusal;
using cost_test::schedule;
using cost_test::term;

Term changed(const std::function<void(Term&)>& change) {
    Term made = commission();
    change(made);
    return made;
}

/// "charges.csv:2 charges.csv:4": where the terms of a side are.
std::string placesOf(const TermSet& terms, Side side) {
    std::string places;
    for (const Term* found : terms.termsOf(side)) {
        places += (places.empty() ? "" : " ") + found->where;
    }
    return places;
}

std::string winner(const std::vector<Term>& terms, Side side = Side::kBuy, const Place& place = moutai()) {
    return placesOf(schedule(terms).termsFor(place, date("2024-01-02")), side);
}

struct Rivals {
    const char* name;
    std::function<void(Term&)> stronger;
    std::function<void(Term&)> weaker;
};

class MoreSpecificTerm : public testing::TestWithParam<Rivals> {};

TEST_P(MoreSpecificTerm, WinsWhereverItIs) {
    const Term stronger = changed(GetParam().stronger);
    const Term weaker = changed(GetParam().weaker);
    EXPECT_EQ(winner({stronger, weaker}), "charges.csv:2");
    EXPECT_EQ(winner({weaker, stronger}), "charges.csv:3");
}

INSTANTIATE_TEST_SUITE_P(
    , MoreSpecificTerm,
    testing::Values(
        Rivals{"ExactAboveEmpty", [](Term& x) { x.code = "600519"; }, [](Term&) {}},
        Rivals{"ExactAbovePattern", [](Term& x) { x.code = "600519"; }, [](Term& x) { x.code = "60051*"; }},
        Rivals{"LongPatternAboveShort", [](Term& x) { x.code = "6005*"; }, [](Term& x) { x.code = "*60*"; }},
        Rivals{"PatternAboveEmpty", [](Term& x) { x.code = "6*"; }, [](Term&) {}},
        Rivals{"PatternAboveStar", [](Term& x) { x.code = "6*"; }, [](Term& x) { x.code = "*"; }},
        Rivals{"AccountAboveCode", [](Term& x) { x.account = "1*"; }, [](Term& x) { x.code = "600519"; }},
        Rivals{"CodeAboveProduct", [](Term& x) { x.code = "6*"; }, [](Term& x) { x.product = "MAIN"; }},
        Rivals{"ProductAboveMarket", [](Term& x) { x.product = "M*"; }, [](Term& x) { x.market = "SH"; }},
        Rivals{"MarketAboveSide", [](Term& x) { x.market = "S*"; }, [](Term& x) { x.side = TermSide::kBuy; }},
        Rivals{"OneSideAboveBoth", [](Term& x) { x.side = TermSide::kBuy; }, [](Term&) {}},
        Rivals{"LaterTextsCountWhenEarlierAreEqual",
               [](Term& x) {
                   x.account = "1*";
                   x.market = "SH";
               },
               [](Term& x) { x.account = "1*"; }}),
    [](const auto& row) { return row.param.name; });

TEST(TermsOfAPlace, AreThoseWhoseFourTextsMatchIt) {
    const std::vector<std::function<void(Term&)>> misses = {[](Term& x) { x.family = Family::kCredit; },
                                                            [](Term& x) { x.account = "2*"; },
                                                            [](Term& x) { x.market = "SZ"; },
                                                            [](Term& x) { x.code = "*520"; },
                                                            [](Term& x) { x.product = "ETF"; },
                                                            [](Term& x) { x.code = "60051"; }};
    for (const auto& miss : misses) {
        EXPECT_EQ(winner({changed(miss)}), "");
    }
}

TEST(TermsOfAPlace, AreAskedForEachSide) {
    const std::vector<Term> terms = {commission(), changed([](Term& x) { x.side = TermSide::kSell; }),
                                     term("stock", "stamp_duty", "sell", "turnover fill")};
    EXPECT_EQ(winner(terms, Side::kBuy), "charges.csv:2");
    EXPECT_EQ(winner(terms, Side::kSell), "charges.csv:3 charges.csv:4");
    EXPECT_EQ(winner(terms, Side::kOpenLong), "");
}

TEST(TermsOfAPlace, KnowWhatIsChargedOnAnySide) {
    Term option = term("option", "handling_fee", "close_short", "quantity fill");
    option.item = "000";
    const TermSet terms =
        schedule({option}).termsFor({Family::kOption, "4", "SHO", "10001313", ""}, date("2024-01-02"));
    EXPECT_TRUE(terms.charges("handling_fee", "000"));
    EXPECT_FALSE(terms.charges("handling_fee", "001"));
    EXPECT_FALSE(terms.charges("settlement_fee", "000"));
}

TEST(TermsOfAPlace, OutliveTheirSchedule) {
    TermSet terms;
    {
        const Schedule gone = schedule({commission()});
        terms = gone.termsFor(moutai(), date("2024-01-02"));
    }
    EXPECT_EQ(placesOf(terms, Side::kBuy), "charges.csv:2");
}

TEST(EquallySpecificPatterns, AreRefusedWhereBothMatch) {
    const std::vector<Term> terms = {changed([](Term& x) { x.code = "60*"; }),
                                     changed([](Term& x) { x.code = "*19"; })};
    EXPECT_EQ(refusal([&] { winner(terms); }),
              "charges.csv:2 and charges.csv:3 both charge commission of SH:600519 on 2024-01-02 and neither is more "
              "specific; make one of them so");
    Place other = moutai();
    other.code = "600520";
    EXPECT_EQ(winner(terms, Side::kBuy, other), "charges.csv:2");
}

TEST(EquallySpecificPatterns, AreNotRefusedBelowAMoreSpecificTerm) {
    EXPECT_EQ(winner({changed([](Term& x) { x.code = "60*"; }), changed([](Term& x) { x.code = "*19"; }),
                      changed([](Term& x) { x.code = "600519"; })}),
              "charges.csv:4");
    EXPECT_EQ(winner({changed([](Term& x) { x.code = "600519"; }), changed([](Term& x) { x.code = "60*"; }),
                      changed([](Term& x) { x.code = "*19"; })}),
              "charges.csv:2");
}

TEST(Schedule, OfFaultyTermsIsRefusedWithTheLine) {
    EXPECT_EQ(refusal([] {
                  schedule({commission(), term("stock", "", "both", "turnover fill")});
              }),
              "charges.csv:3: the line names no charge; name one");
}

/// The terms of stamp duty as they changed, with an unrelated term.
Schedule stampDuty() {
    Term early = term("stock", "stamp_duty", "sell", "turnover fill");
    early.dates.until = date("2023-08-27");
    Term late = early;
    late.dates = {date("2023-08-28"), date("2024-12-31")};
    Term elsewhere = early;
    elsewhere.market = "SZ";
    elsewhere.dates = {date("2023-10-01"), date("2023-10-31")};
    Term transfer = term("stock", "transfer_fee", "both", "turnover fill");
    transfer.dates = {date("2022-04-29"), {}};
    return schedule({early, late, elsewhere, transfer});
}

TEST(TermsOfADay, AreThoseInForce) {
    EXPECT_EQ(placesOf(stampDuty().termsFor(moutai(), date("2022-04-28")), Side::kSell), "charges.csv:2");
    EXPECT_EQ(placesOf(stampDuty().termsFor(moutai(), date("2022-04-29")), Side::kSell), "charges.csv:2 charges.csv:5");
    EXPECT_EQ(placesOf(stampDuty().termsFor(moutai(), date("2023-08-27")), Side::kSell), "charges.csv:2 charges.csv:5");
    EXPECT_EQ(placesOf(stampDuty().termsFor(moutai(), date("2023-08-28")), Side::kSell), "charges.csv:3 charges.csv:5");
    EXPECT_EQ(placesOf(stampDuty().termsFor(moutai(), date("2024-12-31")), Side::kSell), "charges.csv:3 charges.csv:5");
    EXPECT_EQ(placesOf(stampDuty().termsFor(moutai(), date("2025-01-01")), Side::kSell), "charges.csv:5");
}

TEST(TermsOfADay, SayBetweenWhichDaysTheyStayTheSame) {
    const struct {
        const char* day;
        const char* dates;
    } rows[] = {{"2020-01-01", "until 2022-04-28"},
                {"2022-04-29", "from 2022-04-29 until 2023-08-27"},
                {"2023-08-27", "from 2022-04-29 until 2023-08-27"},
                {"2023-10-15", "from 2023-08-28 until 2024-12-31"},
                {"2030-01-01", "from 2025-01-01 on"}};
    for (const auto& row : rows) {
        EXPECT_EQ(stampDuty().termsFor(moutai(), date(row.day)).dates().text(), row.dates) << row.day;
    }
    EXPECT_EQ(Schedule().termsFor(moutai(), date("2024-01-02")).dates().text(), "of every day");
}

}  // namespace
