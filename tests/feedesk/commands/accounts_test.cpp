#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(Accounts, AreListedWithWhatIsFedForThem) {
    const SampleFolder folder;
    const std::vector<std::string> csv = lines(ask(folder.path(), "accounts --csv").out);
    ASSERT_EQ(csv.size(), 13U);
    EXPECT_EQ(csv[0], "account,kind,name,platform,fee_records,custom_fees");
    EXPECT_EQ(csv[1], "S100,stock,股票户,0,4,1");
    EXPECT_EQ(csv[4], "F200,futures,模拟户,9001,0,0");
    EXPECT_EQ(csv[6], "O100,option,期权户,0,0,2");
    EXPECT_EQ(csv[10], "P100,prime_brokerage,主经纪商户,0,0,0");
}

TEST(Accounts, FitTheWidth) {
    const SampleFolder folder;
    const Outcome outcome = ask(folder.path(), "accounts");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("S100     stock            股票户"));
    EXPECT_LE(widestLine(outcome.out), 80U);
    EXPECT_LE(widestLine(ask(folder.path(), "accounts", "COLUMNS=40").out), 40U);
}

TEST(Accounts, AreObjectsInJson) {
    const SampleFolder folder;
    EXPECT_THAT(ask(folder.path(), "accounts --json").out,
                HasSubstr(R"({"account":"F200","kind":"futures","name":"模拟户","platform":9001,"fee_records":0,)"
                          R"("custom_fees":0})"));
}

TEST(Accounts, ShowHowManyInstrumentsAreAnsweredOnEachLevel) {
    const SampleFolder folder;
    const std::vector<std::string> csv = lines(ask(folder.path(), "accounts --levels --csv").out);
    ASSERT_EQ(csv.size(), 13U);
    EXPECT_EQ(csv[0],
              "account,kind,name,platform,fee_records,custom_fees,instruments,own_record,custom_fee,configured_limit,"
              "exchange_fee,built_in_default,not_set");
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"S100", "5,2,1,1,0,1,0"}, {"S200", "5,0,0,1,0,4,0"}, {"F100", "2,1,0,0,0,1,0"},
        {"F200", "2,0,0,0,0,2,0"},  // the exchange's commission, but the built-in margins
        {"F300", "2,0,0,0,0,0,2"},  // a custom margin, but no commission
        {"O100", "1,0,1,0,0,0,0"}, {"O200", "1,0,0,0,0,1,0"}, {"H100", "1,1,0,0,0,0,0"},
        {"H200", "1,0,0,1,0,0,0"}, {"P100", "9,0,0,0,0,9,0"},  // trades everything
        {"W100", "9,0,0,1,0,8,0"},                             // the same
        {"F400", "2,0,0,0,0,0,2"},
    };
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_THAT(csv[i + 1], testing::StartsWith(rows[i].first + ","));
        EXPECT_THAT(csv[i + 1], testing::EndsWith("," + rows[i].second));
    }
}

TEST(Accounts, ShowLevelsInJson) {
    const SampleFolder folder;
    EXPECT_THAT(ask(folder.path(), "accounts --levels --json").out,
                HasSubstr(R"("platform":0,"fee_records":4,"custom_fees":1,"instruments":5,"own_record":2,)"
                          R"("custom_fee":1,"configured_limit":1,"exchange_fee":0,"built_in_default":1,"not_set":0})"));
}

TEST(Accounts, ShowLevelsInATableOfOneLineEach) {
    const SampleFolder folder;
    const Outcome outcome = ask(folder.path(), "accounts --levels");
    EXPECT_LE(widestLine(outcome.out), 80U);
    EXPECT_EQ(lines(outcome.out).size(), 14U) << outcome.out;
    EXPECT_THAT(outcome.out, testing::ContainsRegex("\nS100     stock +5 +2 +1 +1 +0 +1 +0\n"));
}

/// The numbers of the accounts that are like the pattern.
std::vector<std::string> numbers(const SampleFolder& folder, const std::string& pattern) {
    std::vector<std::string> found;
    for (const std::string& line : lines(ask(folder.path(), "accounts --csv '" + pattern + "'").out)) {
        found.push_back(line.substr(0, line.find(',')));
    }
    return found;
}

TEST(Accounts, AreThoseLikeAPatternOfNumbersOrNames) {
    const SampleFolder folder;
    EXPECT_THAT(numbers(folder, "S*"), ElementsAre("account", "S100", "S200"));
    EXPECT_THAT(numbers(folder, "s1*"), ElementsAre("account", "S100"));
    EXPECT_THAT(numbers(folder, "没有费率的*"), ElementsAre("account", "S200", "H200"));
    EXPECT_THAT(numbers(folder, "O100"), ElementsAre("account", "O100"));
    EXPECT_THAT(numbers(folder, "模 拟户"), ElementsAre("account", "F200"));
}

TEST(Accounts, ThatNothingIsLikeAreNoAnswer) {
    const SampleFolder folder;
    const Outcome outcome = ask(folder.path(), "accounts 'Z*'");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "feedesk: the market folder has no account like Z*\n");
    EXPECT_EQ(
        ask(folder.path(), "accounts 期权").err,
        "feedesk: the market folder has no account like 期权; '*期权*' finds the text inside numbers and names\n");
    EXPECT_EQ(ask(folder.path(), "accounts S101").err,
              "feedesk: the market folder has no account like S101; did you mean S100?\n");
}

}  // namespace
}  // namespace feedesk::test
