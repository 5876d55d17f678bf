// Market folders that are broken, and where the program looks for one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/market_folder.h"
#include "tests/feedesk/support/program.h"

namespace feedesk::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Folder, ThatIsBrokenTellsEveryErrorAndAnswersNothing) {
    const MarketFolder folder;
    folder.write("fees/stock.csv", "account,market,code,commission\nS100,SH,600519,x\nS999,SH,600519,0\n");
    folder.write("custom/stock.csv", "account,update,category,commission\nS100,1,77,0.0001\n");
    const Outcome outcome = ask(folder.path(), "fee S100 SH:600519");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    const std::vector<std::string> errors = lines(outcome.err);
    ASSERT_EQ(errors.size(), 4U) << outcome.err;
    EXPECT_THAT(errors[0], StartsWith(folder.path() + "/custom/stock.csv:2: "));
    EXPECT_THAT(errors[1], StartsWith(folder.path() + "/fees/stock.csv:2: "));
    EXPECT_THAT(errors[2], StartsWith(folder.path() + "/fees/stock.csv:3: "));
    EXPECT_EQ(errors[3], "feedesk: 3 errors; nothing was loaded");
}

TEST(Folder, ThatIsMissingIsBadInput) {
    const Outcome outcome = ask("/nonexistent/market", "accounts");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr("feedesk: 1 error; nothing was loaded\n"));
}

TEST(Folder, IsTakenFromTheEnvironment) {
    const MarketFolder folder;
    const Outcome outcome = runProgram("accounts --csv", "FEEDESK_MARKET=" + folder.path());
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(lines(outcome.out).size(), 13U);
}

TEST(Folder, OfTheCommandLineWinsAndMayStandBehindTheCommand) {
    const MarketFolder folder;
    const Outcome outcome = runProgram("accounts --csv --market " + folder.path(), "FEEDESK_MARKET=/nonexistent");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
}

TEST(Folder, IsAnsweredByAnyNumberOfThreads) {
    const MarketFolder folder;
    const std::string one = ask(folder.path(), "fees S100 --csv --threads 1").out;
    EXPECT_EQ(lines(one).size(), 5U);
    EXPECT_EQ(one, ask(folder.path(), "fees S100 --csv --threads 8").out);
}

}  // namespace
}  // namespace feedesk::test
