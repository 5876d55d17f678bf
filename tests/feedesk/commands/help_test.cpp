#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/program.h"

namespace feedesk::test {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;

TEST(Help, FitsEightyColumns) {
    for (const std::string command : {"", "fee ", "fees ", "accounts ", "help "}) {
        const Outcome outcome = runProgram(command + "--help");
        EXPECT_EQ(outcome.status, 0);
        EXPECT_THAT(outcome.out, HasSubstr("Usage: feedesk " + command));
        EXPECT_LE(widestLine(outcome.out), 80U) << outcome.out;
    }
}

TEST(Help, ShowsExamplesAndExitStatuses) {
    const Outcome outcome = runProgram("--help");
    for (const std::string example : {"fee 1000001 SH:600519", "fee 3000001 'SHFE:rb*' --json", "fee 1000001 - <",
                                      "fees 1000001 --only-market SZ", "fees 1000001 --strict", "accounts --levels"}) {
        EXPECT_THAT(outcome.out, HasSubstr("  feedesk " + example));
    }
    EXPECT_THAT(outcome.out, HasSubstr("Exit status: 0 answered, 1 the question has no answer, 2 bad usage"));
}

TEST(Version, IsOneLine) {
    const Outcome outcome = runProgram("--version");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, MatchesRegex("feedesk [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(Version, HasALetter) { EXPECT_EQ(runProgram("-V").out, runProgram("--version").out); }

TEST(Help, IsACommandToo) {
    for (const std::string command : {"", "fee", "fees", "accounts", "help"}) {
        const Outcome outcome = runProgram("help " + command);
        EXPECT_EQ(outcome.status, 0) << command;
        EXPECT_EQ(outcome.out, runProgram(command + " --help").out);
        EXPECT_EQ(outcome.err, "");
    }
}

TEST(Help, OfAnUnknownCommandIsBadInput) {
    const Outcome outcome = runProgram("help fex");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "feedesk: there is no command fex; did you mean fee? `feedesk --help` shows how to ask\n");
}

TEST(Usage, ThatIsWrongNamesTheHelpOfItsCommand) {
    EXPECT_EQ(runProgram("diff").err, "feedesk: A is required; `feedesk diff --help` shows how to ask\n");
    EXPECT_EQ(runProgram("--wrong").err,
              "feedesk: the argument --wrong was not expected; `feedesk --help` shows how to ask\n");
}

TEST(Usage, ThatIsWrongIsBadInput) {
    for (const std::string arguments : {"", "nonsense", "help nonsense", "help fee fee", "fee", "fee S100", "fees",
                                        "--threads 0 accounts", "--threads 65 accounts", "accounts --wrong"}) {
        const Outcome outcome = runProgram(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_EQ(outcome.out, "") << arguments;
        EXPECT_THAT(outcome.err, MatchesRegex("feedesk: [^\n]+; `feedesk [a-z]* ?--help` shows how to ask\n"))
            << arguments;
    }
}

TEST(Usage, ThreadsThatAreNoNumberAreNamed) {
    EXPECT_THAT(runProgram("--threads x accounts").err, HasSubstr("--threads: x is not a whole number from 1 to 64;"));
}

TEST(Usage, UnknownCommandAndArgumentAreNamed) {
    EXPECT_THAT(runProgram("nonsense").err, HasSubstr("there is no command nonsense;"));
    EXPECT_THAT(runProgram("accounts --wrong").err, HasSubstr("the argument --wrong was not expected;"));
    EXPECT_THAT(runProgram("accounts 'S*' ''").err, HasSubstr("the argument \"\" was not expected;"));
    EXPECT_THAT(runProgram("acounts").err, HasSubstr("there is no command acounts; did you mean accounts?"));
}

TEST(Help, NamesTheKindsOfValuesOnly) {
    const std::string help = runProgram("--help").out;
    EXPECT_THAT(help, HasSubstr("--threads N  "));
    EXPECT_THAT(help, HasSubstr("--market DIR  "));
}

}  // namespace
}  // namespace feedesk::test
