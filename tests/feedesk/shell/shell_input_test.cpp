#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

class ShellInput : public testing::Test {
protected:
    /// Runs the lines, which `printf` writes, in one shell.
    Outcome shell(const std::string& text, const std::string& options = "") const {
        return runShell("unset FEEDESK_MARKET; printf '" + text + "' | COLUMNS=80 " FEEDESK_PROGRAM " --market " +
                        folder.path() + " " + options + " shell");
    }

    SampleFolder folder;
};

TEST_F(ShellInput, IsAnsweredLineByLineAsByTheProgram) {
    const Outcome outcome = shell("fee S100 600519\\nfees S100 --match 600519 --csv\\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out,
              ask(folder.path(), "fee S100 600519").out + ask(folder.path(), "fees S100 --match 600519 --csv").out);
}

TEST_F(ShellInput, ComparesOtherFoldersThanItsOwn) {
    const Outcome outcome = shell("diff " + folder.path() + " " + folder.path() + " --csv\\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
}

TEST_F(ShellInput, WithoutLinesIsAnswered) {
    const Outcome outcome = shell("\\n  \\n# nothing but a comment\\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out + outcome.err, "");
}

TEST_F(ShellInput, GoesOnBehindALineWithoutAnswerAndHasTheWorstStatus) {
    const Outcome outcome = shell("accounts X\\nbad\\naccounts S100 --csv\\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(lines(outcome.out), SizeIs(2));
    EXPECT_EQ(outcome.err,
              "feedesk: the market folder has no account like X\n"
              "feedesk: standard input:1: this line has no answer, or not all of it\n"
              "feedesk: there is no command bad; `feedesk --help` shows how to ask\n"
              "feedesk: standard input:2: this line is wrong\n");
    EXPECT_EQ(shell("accounts X\\naccounts S100\\n").status, 1);
}

TEST_F(ShellInput, EndsWithExit) {
    const Outcome outcome = shell("exit\\nbad\\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out + outcome.err, "");
}

TEST_F(ShellInput, MayBeginWithTheProgramsName) {
    EXPECT_EQ(shell("feedesk accounts S100 --csv\\n").out, ask(folder.path(), "accounts S100 --csv").out);
}

TEST_F(ShellInput, HasADayOfItsOwnOnEachLine) {
    folder.write("fees/stock.csv",
                 "account,market,code,commission,from,until\n"
                 "S100,SH,600519,0.0003,2024-01-01,\nS100,SH,600519,0.0005,,2023-12-31\n");
    const std::string later = "fee S100 600519 --csv --date 2024-02-02\\n";
    const std::string earlier = "fee S100 600519 --csv --date 2023-02-02\\n";
    const Outcome outcome = shell(later + earlier + later);
    ASSERT_THAT(lines(outcome.out), SizeIs(6)) << outcome.err;
    EXPECT_THAT(lines(outcome.out)[1], HasSubstr(",0.0003,"));
    EXPECT_THAT(lines(outcome.out)[3], HasSubstr(",0.0005,"));
    EXPECT_EQ(lines(outcome.out)[5], lines(outcome.out)[1]);
    // The day of the shell is that of each line without one.
    EXPECT_THAT(shell("fee S100 600519 --csv\\n", "--date 2023-02-02").out, HasSubstr(",0.0005,"));
}

TEST_F(ShellInput, FollowsAsAListBehindALineThatReadsOne) {
    const Outcome outcome = shell("fee S100 - --csv\\n600519\\n300750\\n");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(lines(outcome.out), SizeIs(3));
}

constexpr const char* kFeeLine = "fee S100 600519 --csv";

/// Runs a shell that asks, reloads a folder that the command `change` has changed meanwhile, and goes on with a line: a
/// fifo gives them one by one.
Outcome withChange(const SampleFolder& folder, const std::string& change, const std::string& line = kFeeLine) {
    const std::string pipe = folder.path() + ".pipe";
    const std::string answer = folder.path() + ".answer";
    const std::string script = ": >" + answer + "; mkfifo " + pipe +
                               "; (unset FEEDESK_MARKET; COLUMNS=80 " FEEDESK_PROGRAM " --market " + folder.path() +
                               " shell <" + pipe + " >" + answer + ") & exec 3>" + pipe + "; echo " + kFeeLine +
                               " >&3; while [ \"$(wc -l <" + answer + ")\" -lt 2 ]; do sleep 0.01; done; " + change +
                               "; echo reload >&3; echo " + line + " >&3; exec 3>&-; wait $!; status=$?; cat " +
                               answer + "; rm " + pipe + " " + answer + "; exit $status";
    return runShell(script);
}

/// Writes the table of stock fees.
std::string writing(const SampleFolder& folder, const std::string& lines) {
    return "printf 'account,market,code,commission\\n" + lines + "' >" + folder.path() + "/fees/stock.csv";
}

TEST_F(ShellInput, AnswersFromTheChangedFolderOnceItIsReloaded) {
    const Outcome outcome = withChange(folder, writing(folder, "S100,SH,600519,0.0007\\n"));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    ASSERT_THAT(lines(outcome.out), SizeIs(5));
    EXPECT_THAT(lines(outcome.out)[1], HasSubstr(",0.00025,"));
    EXPECT_THAT(lines(outcome.out)[4], HasSubstr(",0.0007,"));
}

TEST_F(ShellInput, KeepsTheOldFolderWhereTheNewOneIsBroken) {
    const Outcome outcome = withChange(folder, writing(folder, "S100,SH,600519,7%%\\n"));
    EXPECT_EQ(outcome.status, 2);
    ASSERT_THAT(lines(outcome.out), SizeIs(4)) << outcome.err;
    EXPECT_EQ(lines(outcome.out)[3], lines(outcome.out)[1]);
    EXPECT_THAT(outcome.err, HasSubstr("/fees/stock.csv:2: column commission holds \"7%\""));
    EXPECT_THAT(outcome.err,
                HasSubstr("feedesk: 1 error; nothing was loaded; what was loaded before goes on answering\n"
                          "feedesk: standard input:2: this line is wrong\n"));
}

TEST_F(ShellInput, KeepsTheOldLayoutsWhereTheFolderIsGone) {
    folder.write("layouts/broker.toml", "title = \"Broker\"\n");
    const Outcome outcome =
        withChange(folder, "mv " + folder.path() + " " + folder.path() + ".gone", "reconcile S100 - --layout brother");
    runShell("mv " + folder.path() + ".gone " + folder.path());
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("what was loaded before goes on answering"));
    EXPECT_THAT(outcome.err, HasSubstr("brother is no layout of " + folder.path() + "/layouts, which has broker"));
}

TEST_F(ShellInput, HelpListsTheCommandsOfAShell) {
    const Outcome outcome = shell("help\\n");
    EXPECT_THAT(outcome.out, HasSubstr("reload"));
    EXPECT_THAT(outcome.out, HasSubstr("exit"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("  completion")));
    EXPECT_THAT(outcome.out, Not(HasSubstr("--market DIR")));
}

TEST_F(ShellInput, OfABrokenFolderIsNotRead) {
    folder.write("accounts.csv", "account\n");
    const Outcome outcome = shell("help\\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
}

struct WrongLine {
    const char* what;
    const char* line;
    const char* sentence;
};

class WrongShellLine : public testing::TestWithParam<WrongLine> {};

TEST_P(WrongShellLine, IsBadInput) {
    const SampleFolder folder;
    const Outcome outcome = runShell("unset FEEDESK_MARKET; echo \"" + std::string(GetParam().line) +
                                     "\" | " FEEDESK_PROGRAM " --market " + folder.path() + " shell");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              std::string("feedesk: ") + GetParam().sentence + "\nfeedesk: standard input:1: this line is wrong\n");
}

constexpr WrongLine kWrong[] = {
    {"OpenQuote", "accounts 'S100", "the quote ' is not closed; close it, or write \\'"},
    {"EndingBackslash", "accounts S100\\\\", "the line ends with a backslash; write what follows it, or none"},
    {"AnotherFolder", "accounts --market x",
     "a shell keeps what it was started with; --market goes before `shell`: feedesk --market ... shell"},
    {"Threads", "accounts --threads 3",
     "a shell keeps what it was started with; --threads goes before `shell`: feedesk --threads ... shell"},
    {"ShellInside", "shell", "there is no command shell; did you mean help? `feedesk --help` shows how to ask"},
    {"ExitWithArgument", "exit 3", "the argument 3 was not expected; `feedesk exit --help` shows how to ask"},
    {"UnknownDay", "accounts --date x",
     "--date: x is not a day such as 2023-08-28; `feedesk accounts --help` shows how to ask"},
};

INSTANTIATE_TEST_SUITE_P(Lines, WrongShellLine, testing::ValuesIn(kWrong),
                         [](const auto& test) { return std::string(test.param.what); });

TEST(Reload, OutsideAShellIsNoCommand) {
    EXPECT_THAT(runProgram("reload").err, HasSubstr("there is no command reload"));
    EXPECT_THAT(runProgram("shell x").err, HasSubstr("the argument x was not expected"));
}

}  // namespace
}  // namespace feedesk::test
