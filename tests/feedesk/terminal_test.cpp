#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/market_folder.h"
#include "tests/feedesk/support/program.h"

namespace feedesk::test {
namespace {

using testing::HasSubstr;

TEST(Output, ThatCannotBeWrittenIsNoticed) {
    const MarketFolder folder;
    for (const std::string arguments : {"accounts", "fee S100 SH:600519", "--help"}) {
        const Outcome outcome = ask(folder.path(), arguments + " >/dev/full");
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.err, HasSubstr("feedesk: the answer could not be written: "));
    }
}

TEST(Output, OfErrorsThatCannotBeWrittenLeavesTheExitStatus) {
    const MarketFolder folder;
    EXPECT_EQ(ask(folder.path(), "fee S100 SH:600518 2>/dev/full").status, 1);
    EXPECT_EQ(ask(folder.path(), "fee S100 2>/dev/full").status, 2);
}

TEST(Output, MayBeReadInPart) {
    const MarketFolder folder;
    const Outcome outcome = ask(folder.path(), "fees S100 | head -n 1");
    EXPECT_EQ(outcome.out, "Account S100 (stock) 股票户\n");
    EXPECT_EQ(outcome.err, "");
}

TEST(Output, HasNoProgressWhereThereIsNoTerminal) {
    const MarketFolder folder;
    EXPECT_EQ(ask(folder.path(), "accounts").err, "");
}

TEST(Output, IsAsWideAsTheEnvironmentSays) {
    const MarketFolder folder;
    EXPECT_LE(widestLine(ask(folder.path(), "fee S100 600519", "COLUMNS=50").out), 50U);
    EXPECT_GT(widestLine(ask(folder.path(), "fee S100 600519", "COLUMNS=200").out), 50U);
}

}  // namespace
}  // namespace feedesk::test
