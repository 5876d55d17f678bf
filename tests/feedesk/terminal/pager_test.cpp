#include "feedesk/terminal/pager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kMarking = "FEEDESK_PAGER='sed s/^/paged:/' ";

/// What 80 columns and `lines` lines of a terminal show of the accounts, fifteen lines.
std::string accounts(int lines, const std::string& environment, const std::string& options = "") {
    const SampleFolder folder;
    return onTerminal(folder.path(), "accounts " + options, 80, "LINES=" + std::to_string(lines) + " " + environment);
}

TEST(Pager, ShowsWhatIsLongerThanTheTerminal) {
    const std::string shown = accounts(5, kMarking);
    EXPECT_THAT(shown, HasSubstr("paged:S100"));
    EXPECT_THAT(shown, HasSubstr("paged:F400"));
}

TEST(Pager, IsNotUsedForWhatFits) { EXPECT_THAT(accounts(50, kMarking), Not(HasSubstr("paged:"))); }

TEST(Pager, IsNotUsedWhereTheTerminalDoesNotSayHowTallItIs) {
    EXPECT_THAT(accounts(0, kMarking), Not(HasSubstr("paged:")));
}

TEST(Pager, IsNotUsedWhereNobodyWantsOne) {
    EXPECT_THAT(accounts(5, kMarking, "--no-pager"), Not(HasSubstr("paged:")));
    for (const std::string none : {"FEEDESK_PAGER= PAGER='sed s/^/paged:/' ", "FEEDESK_PAGER=cat "}) {
        const std::string shown = accounts(5, none);
        EXPECT_THAT(shown, Not(HasSubstr("paged:"))) << none;
        EXPECT_THAT(shown, HasSubstr("S100")) << none;
    }
}

TEST(Pager, IsTheUsualOneWhereNoneIsNamedForFeedesk) {
    EXPECT_THAT(accounts(5, "PAGER='sed s/^/usual:/'"), HasSubstr("usual:S100"));
}

TEST(Pager, ThatCannotBeStartedIsDoneWithout) {
    EXPECT_THAT(accounts(5, "FEEDESK_PAGER=/none/pager 2>/dev/null"), HasSubstr("\nS100"));
}

TEST(Pager, MayEndBeforeItHasReadEverything) {
    const std::string shown = accounts(5, "FEEDESK_PAGER='head -n 2' ");
    EXPECT_THAT(shown, HasSubstr("S100"));
    EXPECT_THAT(shown, Not(HasSubstr("F400")));
}

TEST(Pager, ShowsNothingForPrograms) { EXPECT_THAT(accounts(5, kMarking, "--csv"), Not(HasSubstr("paged:"))); }

}  // namespace
}  // namespace feedesk::test
