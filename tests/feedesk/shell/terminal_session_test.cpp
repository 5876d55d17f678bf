#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/types.h>

#include <csignal>
#include <fstream>
#include <iterator>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"
#include "tests/feedesk/support/tmux.h"

namespace feedesk::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

/// A shell on the sample folder in a terminal, at its first prompt.
class TerminalSession : public testing::Test {
protected:
    TerminalSession()
        : terminal("unset FEEDESK_MARKET COLUMNS LINES XDG_STATE_HOME; " FEEDESK_PROGRAM " --market " + folder.path() +
                   " shell; echo $? >\"$STATUS\"; cat") {
        EXPECT_THAT(terminal.shownWithLineEnd("feedesk>"), HasSubstr("`help` lists the commands"));
    }

    SampleFolder folder;
    Tmux terminal;
};

TEST(NarrowTerminal, IsWelcomedWithoutABrokenWord) {
    const SampleFolder folder;
    const Tmux terminal("unset FEEDESK_MARKET LINES XDG_STATE_HOME; COLUMNS=60 " FEEDESK_PROGRAM " --market " +
                        folder.path() + " shell; echo $? >\"$STATUS\"; cat");
    const std::string shown = terminal.shownWithLineEnd("feedesk>");
    EXPECT_THAT(shown, HasSubstr("`exit` or Ctrl-D ends."));
    for (const std::string& line : lines(shown)) {
        EXPECT_LE(line.size(), 60U) << line;
    }
}

TEST_F(TerminalSession, AnswersLineByLineUntilCtrlD) {
    terminal.type("fee S100 600519");
    terminal.press("Enter");
    EXPECT_THAT(terminal.shownWith("Rates not shown"), HasSubstr("SH:600519"));
    terminal.type("fee S100 nothing");
    terminal.press("Enter");
    EXPECT_THAT(terminal.shownWith("no instrument nothing"), HasSubstr("feedesk: the market folder has no instrument"));
    terminal.press("C-d");
    EXPECT_EQ(terminal.status(), "0\n");
}

TEST_F(TerminalSession, EndsWithExit) {
    terminal.type("exit");
    terminal.press("Enter");
    EXPECT_EQ(terminal.status(), "0\n");
}

TEST_F(TerminalSession, CompletesCommandsAccountsAndInstruments) {
    terminal.type("acco");
    terminal.press("Tab");
    EXPECT_THAT(terminal.shownWithLineEnd("feedesk> accounts"), HasSubstr("feedesk> accounts"));
    terminal.press("C-c");
    terminal.type("fee S1");
    terminal.press("Tab");
    EXPECT_THAT(terminal.shownWith("fee S100"), HasSubstr("fee S100"));
    terminal.type("SH:6005");
    terminal.press("Tab");
    EXPECT_THAT(terminal.shownWith("fee S100 SH:600519"), HasSubstr("fee S100 SH:600519"));
    terminal.type("贵");
    terminal.press("Tab");
    EXPECT_THAT(terminal.shownWith("SH:600519 贵州茅台"), HasSubstr("SH:600519 贵州茅台"));
}

TEST_F(TerminalSession, QuotesANameWithBlanksThatItCompletes) {
    terminal.type("fee S100 上");
    terminal.press("Tab");
    EXPECT_THAT(terminal.shownWith("指数'"), HasSubstr(R"(fee S100 '上证 "A", 指数')"));
    terminal.press("Enter");
    EXPECT_THAT(terminal.shownWith("SH:000001"), HasSubstr("SH:000001"));
}

TEST_F(TerminalSession, ShowsWhatMayFollowWhereItIsNotClear) {
    terminal.type("fee F");
    terminal.press("Tab Tab");
    EXPECT_THAT(terminal.shownWith("F400"), HasSubstr("F100 F200 F300 F400"));
}

TEST_F(TerminalSession, ClearsTheLineAtCtrlC) {
    terminal.type("no such line");
    EXPECT_THAT(terminal.shownWith("no such line"), HasSubstr("no such line"));
    terminal.press("C-c");
    terminal.type("accounts S100");
    terminal.press("Enter");
    EXPECT_THAT(terminal.shownWith("Fee records"),
                AllOf(HasSubstr("Fee records"), HasSubstr("no such line"), Not(HasSubstr("there is no command"))));
}

TEST_F(TerminalSession, KeepsItsLinesForTheNextOne) {
    terminal.type("accounts S100");
    terminal.press("Enter");
    EXPECT_THAT(terminal.shownWith("Fee records"), HasSubstr("Fee records"));
    const std::string history = terminal.home() + "/.local/state/feedesk/history";
    std::ifstream file(history);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "accounts S100\n");
    struct stat about {};
    ASSERT_EQ(stat(history.c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 0777U, 0600U);
    terminal.press("Up");
    terminal.press("BSpace BSpace BSpace BSpace");
    terminal.type("F100");
    terminal.press("Enter");
    EXPECT_THAT(terminal.shownWith("期货户"), HasSubstr("accounts F100"));
}

TEST_F(TerminalSession, ReadsAListOfInstrumentsFromTheTerminal) {
    terminal.type("fee S100 -");
    terminal.press("Enter");
    EXPECT_THAT(terminal.shownWith("a line with Ctrl-D ends them"), HasSubstr("read from this terminal"));
    terminal.type("600519");
    terminal.press("Enter C-d");
    EXPECT_THAT(terminal.shownWith("Rates not shown"), HasSubstr("SH:600519"));
    terminal.type("accounts S200");
    terminal.press("Enter");
    EXPECT_THAT(terminal.shownWith("没有费率的股票户"), HasSubstr("没有费率的股票户"));
}

std::string textOfFile(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(EndedTerminalSession, LeavesTheTerminalAsItWas) {
    const SampleFolder folder;
    const Tmux terminal(
        "unset FEEDESK_MARKET XDG_STATE_HOME; stty -g >before; sh -c 'echo $$ >process; exec " FEEDESK_PROGRAM
        " --market " +
        folder.path() + " shell'; echo $? >ended; stty -g >after; mv ended \"$STATUS\"; cat");
    EXPECT_THAT(terminal.shownWithLineEnd("feedesk>"), HasSubstr("`help` lists the commands"));
    std::ifstream file(terminal.home() + "/process");
    pid_t process = 0;
    ASSERT_TRUE(file >> process);
    ASSERT_EQ(kill(process, SIGTERM), 0);
    EXPECT_EQ(terminal.status(), "143\n");
    EXPECT_NE(textOfFile(terminal.home() + "/before"), "");
    EXPECT_EQ(textOfFile(terminal.home() + "/after"), textOfFile(terminal.home() + "/before"));
}

}  // namespace
}  // namespace feedesk::test
