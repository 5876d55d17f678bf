#include "feedesk/terminal/terminal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "feedesk/text/text.h"
#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(Output, ThatCannotBeWrittenIsNoticed) {
    const SampleFolder folder;
    for (const std::string arguments : {"accounts", "fee S100 SH:600519", "--help"}) {
        const Outcome outcome = ask(folder.path(), arguments + " >/dev/full");
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.err, HasSubstr("feedesk: the answer could not be written: "));
    }
}

TEST(Output, OfErrorsThatCannotBeWrittenLeavesTheExitStatus) {
    const SampleFolder folder;
    EXPECT_EQ(ask(folder.path(), "fee S100 SH:600518 2>/dev/full").status, 1);
    EXPECT_EQ(ask(folder.path(), "fee S100 2>/dev/full").status, 2);
}

TEST(Output, MayBeReadInPart) {
    const SampleFolder folder;
    const Outcome outcome = ask(folder.path(), "fees S100 | head -n 1");
    EXPECT_EQ(outcome.out, "Account S100 (stock) 股票户\n");
    EXPECT_EQ(outcome.err, "");
}

TEST(Output, HasNoProgressWhereThereIsNoTerminal) {
    const SampleFolder folder;
    EXPECT_EQ(ask(folder.path(), "accounts").err, "");
}

TEST(Output, IsAsWideAsTheEnvironmentSays) {
    const SampleFolder folder;
    EXPECT_LE(widestLine(ask(folder.path(), "fee S100 600519", "COLUMNS=50").out), 50U);
    EXPECT_GT(widestLine(ask(folder.path(), "fee S100 600519", "COLUMNS=200").out), 50U);
}

TEST(Output, IsAsWideAsItNeedsWhereNothingSaysHowWide) {
    const SampleFolder folder;
    const std::string name(200, 'n');
    folder.write("instruments/more.csv", "market,code,name,lists\nSH,600001," + name + ",stock\n");
    const Outcome outcome = ask(folder.path(), "fee S100 600001", "COLUMNS=");
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\nSH:600001 +" + name + " .*  fees/stock.csv:2\n"));
    EXPECT_THAT(ask(folder.path(), "fee S100 HK:00700", "COLUMNS=").out,
                HasSubstr("HK:00700 is in no list of stock instruments; the fee center answers all the same, with "
                          "built-in default\n"));
}

TEST(Output, IsAsWideAsTheTerminal) {
    const SampleFolder folder;
    for (const int columns : {40, 120}) {
        const std::string output = onTerminal(folder.path(), "fee S100 600519 SZ:300750", columns);
        EXPECT_LE(widestLine(output), static_cast<std::size_t>(columns)) << output;
        EXPECT_GT(widestLine(output), columns > 80 ? 70U : 20U) << output;
    }
    EXPECT_LE(widestLine(onTerminal(folder.path(), "fee S100 600519 SZ:300750", 0)), 80U);
}

TEST(Output, IsColouredOnATerminalWhereItIsMarked) {
    const SampleFolder folder;
    const std::string output = onTerminal(folder.path(), "fee S100 SH:600519 SH:000001", 120);
    const std::vector<std::string> shown = lines(output);
    ASSERT_EQ(shown.size(), 9U) << output;
    EXPECT_THAT(shown[4], testing::MatchesRegex("SH:600519 .* own record +fees/stock.csv:2"));
    EXPECT_THAT(shown[5], testing::MatchesRegex("\x1B\\[1;31mSH:000001 .* BUILT-IN DEFAULT\x1B\\[0m"));
    EXPECT_EQ(shown[8], "\x1B[1;31m1 of 2 instruments answered with the built-in default\x1B[0m");
}

TEST(Output, IsColouredWhereATurnedTableIsMarked) {
    const SampleFolder folder;
    EXPECT_THAT(onTerminal(folder.path(), "fee S100 SH:600519 SH:000001", 30),
                HasSubstr("Level       \x1B[1;31mBUILT-IN DEFAULT\x1B[0m\n"));
}

TEST(Output, HasNoColourWhereNobodyWantsIt) {
    const SampleFolder folder;
    const auto fee = [&](const std::string& environment) {
        return onTerminal(folder.path(), "fee S100 SH:000001", 120, environment);
    };
    EXPECT_THAT(fee("NO_COLOR=1"), Not(HasSubstr("\x1B")));
    EXPECT_THAT(fee("TERM=dumb"), Not(HasSubstr("\x1B")));
    EXPECT_THAT(fee("NO_COLOR= TERM=xterm"), HasSubstr("\x1B["));
}

TEST(Output, LetsNoTextPaintItself) {
    EXPECT_EQ(painted(marked("a\x1B[1m\x9B\n"), true), "\x1B[1;31ma\\x1b[1m\\x9b\n\x1B[0m");
    EXPECT_EQ(painted(marked("a\x1B[1m"), false), "a\\x1b[1m");
}

TEST(Output, EscapesEveryArgumentThatItRepeats) {
    const SampleFolder folder;
    const std::string bad = "\"$(printf '\\233\\342\\200\\256\\302\\23331mx')\"";
    const std::string shown = R"(\x9b\xe2\x80\xae\xc2\x9b31mx)";
    for (const std::string& arguments :
         {"fee S100 " + bad, "fee S100 SH:" + bad, "fee " + bad + " SH:600519", "fees S100 --only-market " + bad,
          "fees S100 " + bad, "fees S100 --" + bad, bad, "--threads " + bad + " accounts", "--" + bad + " accounts",
          "--market ./" + bad + " accounts", "accounts --json=" + bad}) {
        const Outcome outcome = runProgram(arguments, "FEEDESK_MARKET=" + folder.path());
        EXPECT_NE(outcome.status, 0) << arguments;
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, HasSubstr(shown)) << arguments;
        EXPECT_TRUE(std::all_of(outcome.err.begin(), outcome.err.end(), [](char c) {
            return c == '\n' || (c >= ' ' && c <= '~');
        })) << outcome.err;
    }
}

TEST(Output, EscapesFileNames) {
    const SampleFolder folder;
    folder.write(
        "instruments/\x9B"
        "31m.csv",
        "market,code,name,lists,product,fee_type,open_fee\nSHFE,cu2612,c,futures,cu,per_lot,7\n");
    EXPECT_THAT(ask(folder.path(), "fee F200 cu2612").out, HasSubstr("  instruments/\\x9b31m.csv:2\n"));
    EXPECT_THAT(ask(folder.path(), "fee F200 cu2612 --json").out, HasSubstr(R"("instruments/\\x9b31m.csv:2")"));
    // A program gets the very name.
    EXPECT_THAT(ask(folder.path(), "fee F200 cu2612 --csv").out, HasSubstr(",instruments/\x9B"
                                                                           "31m.csv:2,"));
    EXPECT_THAT(onTerminal(folder.path(), "fee F200 cu2612 --csv", 80), HasSubstr(",instruments/\\x9b31m.csv:2,"));
    folder.write(
        "instruments/\x9B"
        "31m.csv",
        "market,code,name,lists\nSHFE,cu2612,c,nothing\n");
    EXPECT_THAT(ask(folder.path(), "accounts").err,
                testing::StartsWith(folder.path() + "/instruments/\\x9b31m.csv:2: "));
}

}  // namespace
}  // namespace feedesk::test
