#include "feedesk/terminal/interruption.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "feedesk/reconciling/patched_folder.h"
#include "feedesk/rows/workbook.h"
#include "tests/feedesk/support/cost_folder.h"
#include "tests/feedesk/support/tmux.h"

namespace feedesk::test {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

/// Charges trades that never come, with a spreadsheet in the making, on a terminal that shows for how long already.
std::string waitingForTrades(const CostFolder& folder, const std::string& howRun) {
    return "unset FEEDESK_MARKET; mkfifo trades; exec 3<>trades; trap : INT; " FEEDESK_PROGRAM " --market " +
           folder.path() + " cost --trades trades --keep-going --xlsx charges.xlsx >/dev/null " + howRun +
           "; echo $? >status.new; echo it is over; mv status.new \"$STATUS\"; cat";
}

class LongAnswer : public testing::Test {
protected:
    /// Runs it until it shows its progress, with the spreadsheet begun.
    void expectBegun(const Tmux& terminal) {
        EXPECT_THAT(terminal.shownWith("charging trades ... "), HasSubstr("charging trades ... "));
        EXPECT_TRUE(fs::exists(terminal.home() + "/charges.xlsx.unfinished"));
    }

    /// Nothing is left but the status.
    void expectEnded(const Tmux& terminal, const std::string& status) {
        EXPECT_EQ(terminal.status(), status + "\n");
        EXPECT_THAT(terminal.shownWith("it is over"), AllOf(HasSubstr("it is over"), Not(HasSubstr("charging"))));
        EXPECT_FALSE(fs::exists(terminal.home() + "/charges.xlsx.unfinished"));
        EXPECT_FALSE(fs::exists(terminal.home() + "/charges.xlsx"));
    }

    CostFolder folder;
};

TEST_F(LongAnswer, EndsWithCtrlCAndLeavesNothingBehind) {
    const Tmux terminal(waitingForTrades(folder, ""));
    expectBegun(terminal);
    terminal.press("C-c");
    expectEnded(terminal, "130");
}

TEST_F(LongAnswer, EndsWhenItIsToldToAndLeavesNothingBehind) {
    const Tmux terminal(waitingForTrades(folder, "& echo $! >process; wait $!"));
    expectBegun(terminal);
    std::ifstream file(terminal.home() + "/process");
    pid_t process = 0;
    ASSERT_TRUE(file >> process);
    ASSERT_EQ(kill(process, SIGTERM), 0);
    expectEnded(terminal, "143");
}

/// An empty folder.
class Interruption : public testing::Test {
protected:
    Interruption() { fs::create_directory(place); }
    ~Interruption() override { fs::remove_all(place); }

    [[nodiscard]] std::string path(const std::string& name) const { return (place / name).string(); }

    const fs::path place = fs::temp_directory_path() / ("feedesk_interrupted_" + std::to_string(getpid()));
};

TEST_F(Interruption, RemovesASpreadsheetInTheMakingAndKeepsTheOlderOne) {
    std::ofstream(path("a.xlsx")) << "older";
    EXPECT_EXIT(
        {
            endCleanlyWhenInterrupted();
            Workbook book(path("a.xlsx"));
            book.addSheet("Sheet", {"Title"});
            std::raise(SIGHUP);
        },
        testing::KilledBySignal(SIGHUP), "");
    EXPECT_FALSE(fs::exists(path("a.xlsx.unfinished")));
    EXPECT_EQ(fs::file_size(path("a.xlsx")), 5U);
}

TEST_F(Interruption, RemovesAPatchedFolder) {
    const CostFolder market;
    EXPECT_EXIT(
        {
            setenv("TMPDIR", place.c_str(), 1);
            endCleanlyWhenInterrupted();
            const PatchedFolder patched(market.path(), {});
            std::raise(fs::is_empty(place) ? SIGABRT : SIGTERM);
        },
        testing::KilledBySignal(SIGTERM), "");
    EXPECT_TRUE(fs::is_empty(place));
    EXPECT_FALSE(fs::is_empty(market.path()));
}

TEST_F(Interruption, RemovesNothingThatIsFinishedBefore) {
    EXPECT_EXIT(
        {
            endCleanlyWhenInterrupted();
            const RemovedWhenInterrupted first(path("first"));
            {
                const RemovedWhenInterrupted kept(path("kept"));
                std::ofstream(path("kept")) << "whole";
            }
            const RemovedWhenInterrupted last(path("last"));
            std::ofstream(path("first")) << "half";
            std::ofstream(path("last")) << "half";
            std::raise(SIGTERM);
        },
        testing::KilledBySignal(SIGTERM), "");
    EXPECT_TRUE(fs::exists(path("kept")));
    EXPECT_FALSE(fs::exists(path("first")));
    EXPECT_FALSE(fs::exists(path("last")));
}

TEST_F(Interruption, WaitsWhileItIsHeld) {
    EXPECT_EXIT(
        {
            endCleanlyWhenInterrupted();
            const InterruptionHeld held;
            std::raise(SIGINT);
            std::ofstream(path("whole")) << "whole";
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
    EXPECT_TRUE(fs::exists(path("whole")));
}

TEST_F(Interruption, StaysIgnoredWhereItWas) {
    EXPECT_EXIT(
        {
            std::signal(SIGINT, SIG_IGN);
            endCleanlyWhenInterrupted();
            std::raise(SIGINT);
            std::_Exit(0);
        },
        testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace feedesk::test
