// Market folders that are broken, and where the program looks for one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Folder, ThatIsBrokenTellsEveryErrorAndAnswersNothing) {
    const SampleFolder folder;
    folder.write("fees/stock.csv", "account,market,code,commission\nS100,SH,600519,x\nS999,SH,600519,0\n");
    folder.write("custom/stock.csv", "account,update,category,commission\nS100,1,77,0.0001\n");
    const Outcome outcome = ask(folder.path(), "fee S100 SH:600519");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    const std::vector<std::string> errors = lines(outcome.err);
    ASSERT_EQ(errors.size(), 4U) << outcome.err;
    EXPECT_THAT(errors[0], StartsWith(folder.path() + "/fees/stock.csv:2: "));
    EXPECT_THAT(errors[1], StartsWith(folder.path() + "/fees/stock.csv:3: "));
    EXPECT_THAT(errors[2], StartsWith(folder.path() + "/custom/stock.csv:2: "));
    EXPECT_EQ(errors[3], "feedesk: 3 errors; nothing was loaded");
}

TEST(Folder, ThatIsMissingIsReportedWithItsAbsolutePathAndTheWaysToNameOne) {
    const std::string sentence =
        ": there is no such folder; name the folder that holds market.toml: with --market DIR, with the environment's "
        "FEEDESK_MARKET, or put it at ./market\nfeedesk: 1 error; nothing was loaded\n";
    const std::string here = std::filesystem::current_path().string();
    Outcome outcome = ask("/nonexistent/market", "accounts");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "/nonexistent/market" + sentence);
    EXPECT_EQ(ask("nonexistent/market", "accounts").err, here + "/nonexistent/market" + sentence);
    outcome = runProgram("accounts", "FEEDESK_MARKET=nonexistent");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, here + "/nonexistent" + sentence);
}

TEST(Folder, ThatIsAFileIsReportedTheSameWay) {
    const SampleFolder folder;
    const std::string file = folder.path() + "/market.toml";
    EXPECT_THAT(ask(file, "accounts").err,
                StartsWith(file + ": this is not a folder; name the folder that holds market.toml: with --market DIR"));
}

TEST(Folder, OfManyErrorsReportsAHundredAndTheOthersByKind) {
    const SampleFolder folder;
    std::string table = "account,market,code,commission\n";
    for (int i = 0; i < 1234; ++i) {
        table += "S100,SH,600519,x\n";
    }
    folder.write("fees/stock.csv", table + "S999,SH,600519,0\n");
    const Outcome outcome = ask(folder.path(), "fee S100 SH:600519");
    EXPECT_EQ(outcome.status, 2);
    const std::vector<std::string> errors = lines(outcome.err);
    ASSERT_EQ(errors.size(), 103U) << outcome.err;
    EXPECT_THAT(errors[0], StartsWith(folder.path() + "/fees/stock.csv:2: column commission"));
    EXPECT_THAT(errors[99], StartsWith(folder.path() + "/fees/stock.csv:101: column commission"));
    EXPECT_THAT(errors[100], StartsWith(folder.path() + "/fees/stock.csv:102: from here on 1134 more of the kind"));
    EXPECT_THAT(errors[101], StartsWith(folder.path() + "/fees/stock.csv:1236: from here on 1 more of the kind"));
    EXPECT_EQ(errors[102], "feedesk: 1,235 errors; nothing was loaded");
}

TEST(Folder, WhoseMarketTomlNestsFortyThousandLevelsIsBadInput) {
    const SampleFolder folder;
    std::string key;
    for (int i = 0; i < 40000; ++i) {
        key += "a.";
    }
    folder.write("market.toml", "format = 1\n" + key + "a = 1\n");
    const Outcome outcome = ask(folder.path(), "accounts");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err,
                StartsWith(folder.path() + "/market.toml:2: keys, lists and inline tables lie in one another"));
    EXPECT_EQ(lines(outcome.err).size(), 2U);
}

TEST(Folder, IsTakenFromTheEnvironment) {
    const SampleFolder folder;
    const Outcome outcome = runProgram("accounts --csv", "FEEDESK_MARKET=" + folder.path());
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(lines(outcome.out).size(), 13U);
}

TEST(Folder, OfTheCommandLineWinsAndMayComeBehindTheCommand) {
    const SampleFolder folder;
    const Outcome outcome = runProgram("accounts --csv --market " + folder.path(), "FEEDESK_MARKET=/nonexistent");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
}

TEST(Folder, IsAnsweredByAnyNumberOfThreads) {
    const SampleFolder folder;
    const std::string one = ask(folder.path(), "fees S100 --csv --threads 1").out;
    EXPECT_EQ(lines(one).size(), 5U);
    EXPECT_EQ(one, ask(folder.path(), "fees S100 --csv --threads 8").out);
}

}  // namespace
}  // namespace feedesk::test
