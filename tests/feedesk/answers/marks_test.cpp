// Rates that must not be taken for agreed ones.
#include "feedesk/answers/marks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk {
namespace {

using test::lines;
using test::Outcome;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TitledRates side(const std::string& name, double byMoney, double byVolume) {
    return {name, {{name + "_by_money", Unit::kFraction, byMoney}, {name + "_by_volume", Unit::kYuan, byVolume}}};
}

FeeLine line(const std::string& part, Level level, const std::vector<TitledRates>& rates) {
    FeeLine made;
    made.part = part;
    made.origin.level = level;
    made.rates = rates;
    return made;
}

FeeLine margin(const std::vector<TitledRates>& rates) { return line("margin", Level::kOwnRecord, rates); }

Answer answer(const std::vector<FeeLine>& lines) {
    Answer made;
    made.lines = lines;
    return made;
}

TEST(Marks, AreForLevelsWithoutInput) {
    EXPECT_THAT(marksOf(line("stock", Level::kBuiltInDefault, {})), ElementsAre(Mark::kBuiltInDefault));
    EXPECT_THAT(marksOf(line("stock", Level::kNotSet, {})), ElementsAre(Mark::kNotSet));
    for (const Level level : {Level::kOwnRecord, Level::kCustomFee, Level::kConfiguredLimit, Level::kExchangeFee}) {
        EXPECT_THAT(marksOf(line("stock", level, {side("a", 0, 0)})), IsEmpty());
    }
}

TEST(Marks, AreForAMarginThatIsZeroOnOneSide) {
    const TitledRates mode{"Mode", {{"margin_mode", Unit::kCount, 0}}};
    EXPECT_THAT(marksOf(margin({side("long", 0.1, 0), side("short", 0, 0)})), ElementsAre(Mark::kZeroMargin));
    EXPECT_THAT(marksOf(margin({side("long", 0, 0), side("short", 0.1, 0)})), ElementsAre(Mark::kZeroMargin));
    EXPECT_THAT(marksOf(margin({side("long", 0.1, 0), side("short", 0, 500), mode})), IsEmpty());
    EXPECT_THAT(marksOf(line("commission", Level::kOwnRecord, {side("open", 0, 0)})), IsEmpty());
}

TEST(Marks, AreInCapitalsBehindTheLevel) {
    EXPECT_THAT(levelPieces(margin({side("long", 0.1, 0)})), ElementsAre("own record"));
    EXPECT_THAT(levelPieces(margin({side("long", 0, 0)})), ElementsAre("own record,", "ZERO MARGIN"));
    EXPECT_THAT(levelPieces(line("margin", Level::kBuiltInDefault, {side("long", 0, 0)})),
                ElementsAre("BUILT-IN DEFAULT,", "ZERO MARGIN"));
    EXPECT_THAT(levelPieces(line("margin", Level::kNotSet, {})), ElementsAre("NOT SET"));
}

TEST(Marks, AreCountedByInstrument) {
    const FeeLine agreed = line("commission", Level::kOwnRecord, {side("open", 0, 0)});
    const FeeLine zero = margin({side("long", 0, 0)});
    const FeeLine builtIn = line("margin", Level::kBuiltInDefault, {side("long", 0, 0)});
    EXPECT_EQ(markedSentence({answer({agreed}), answer({agreed, agreed})}), "");
    EXPECT_EQ(markedSentence({answer({agreed, builtIn, builtIn}), answer({agreed, zero}), answer({agreed})}),
              "1 of 3 instruments answered with the built-in default; 2 of 3 with a margin of 0");
    EXPECT_EQ(markedSentence(std::vector<Answer>(1234, answer({zero}))),
              "1,234 of 1,234 instruments with a margin of 0");
}

TEST(Marks, CountAnAnswerWithoutLinesAsNotSet) {
    EXPECT_EQ(markedSentence({answer({})}), "1 of 1 instrument with a rate that is not set");
}

/// The built program on a market folder.
class MarkedAnswers : public testing::Test {
protected:
    Outcome ask(const std::string& arguments) const { return test::ask(folder.path(), arguments); }

    test::SampleFolder folder;
};

TEST_F(MarkedAnswers, AreReportedInTheTableAndCountedBelowIt) {
    const Outcome outcome = ask("fee S100 SH:600519 SH:000001");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, HasSubstr("100  BUILT-IN DEFAULT\n"));
    EXPECT_THAT(outcome.out, HasSubstr("100  own record"));
    EXPECT_THAT(outcome.out, EndsWith("\n\n1 of 2 instruments answered with the built-in default\n"));
}

TEST_F(MarkedAnswers, AreCountedBelowTheNotes) {
    EXPECT_THAT(ask("fee S100 HK:00700").out,
                EndsWith("same, with built-in default\n1 of 1 instrument answered with the built-in default\n"));
}

TEST_F(MarkedAnswers, AreMarkedInJsonAndCountedInAMessage) {
    const Outcome outcome = ask("fee S100 SH:600519 SH:000001 --json");
    EXPECT_EQ(outcome.status, 0);
    ASSERT_EQ(lines(outcome.out).size(), 4U);
    EXPECT_THAT(lines(outcome.out)[1], HasSubstr(R"("source":"fees/stock.csv:2","marks":[],"rates")"));
    EXPECT_THAT(lines(outcome.out)[2], HasSubstr(R"("source":null,"marks":["built_in_default"],"rates")"));
    EXPECT_EQ(outcome.err, "{\"note\":\"1 of 2 instruments answered with the built-in default\"}\n");
}

TEST_F(MarkedAnswers, AreMarkedInCsvAndCountedInAMessage) {
    const Outcome outcome = ask("fee F200 rb2610 --csv");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr(",level,source,marks,open_by_money,"));
    EXPECT_THAT(outcome.out, HasSubstr(",commission,,exchange fee,instruments/all.csv:9,,"));
    EXPECT_THAT(outcome.out, HasSubstr(",margin,1,built-in default,,built_in_default zero_margin,"));
    EXPECT_EQ(outcome.err,
              "feedesk: 1 of 1 instrument answered with the built-in default; 1 of 1 with a margin of 0\n");
}

TEST_F(MarkedAnswers, OfTheRecordsOwnMarginAreMarkedToo) {
    folder.write("fees/margin.csv",
                 "account,market,code,hedge_flag,long_by_money,short_by_money\n"
                 "F100,SHFE,rb*,1,0.07,0\nF400,SHFE,au*,1,0.17,0.17\n");
    EXPECT_THAT(ask("fee F100 rb2610").out, HasSubstr("own record, ZERO MARGIN  fees/margin.csv:2\n"));
    EXPECT_THAT(ask("fees F100 --csv").out, HasSubstr(",own record,fees/margin.csv:2,zero_margin,"));
}

TEST_F(MarkedAnswers, AreNoAnswersWhereAnswersMustBeStrict) {
    for (const std::string form : {"", " --json", " --csv"}) {
        EXPECT_EQ(ask("fee S100 SH:600519 SH:000001 --strict" + form).status, 1);
        EXPECT_EQ(ask("fee S100 SH:600519 --strict" + form).status, 0);
        EXPECT_EQ(ask("fees S100 --strict" + form).status, 0);
        EXPECT_EQ(ask("fees F400 --strict" + form).status, 1);
        EXPECT_EQ(ask("fees F400" + form).status, 0);
    }
    EXPECT_THAT(ask("fees F400 --strict").out, HasSubstr("NOT SET"));
}

TEST_F(MarkedAnswers, AreNotColouredWithoutATerminal) {
    EXPECT_THAT(ask("fee S100 SH:000001").out, Not(HasSubstr("\x1B")));
}

}  // namespace
}  // namespace feedesk
