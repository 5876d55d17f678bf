#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class FeesOfAccounts : public testing::Test {
protected:
    Outcome run(const std::string& arguments) const { return ask(folder.path(), arguments); }

    /// "account,market,code" of each row.
    std::vector<std::string> rows(const std::string& arguments) const {
        std::vector<std::string> found;
        for (const std::string& line : lines(run(arguments + " --csv").out)) {
            std::vector<std::string> cells;
            for (std::size_t at = 0; cells.size() < 4; at = line.find(',', at) + 1) {
                cells.push_back(line.substr(at, line.find(',', at) - at));
            }
            found.push_back(cells[0] + "," + cells[2] + "," + cells[3]);
        }
        found.erase(found.begin());  // the header
        return found;
    }

    SampleFolder folder;
};

TEST_F(FeesOfAccounts, AreTheListsOneAfterTheOther) {
    EXPECT_THAT(rows("fees --accounts 'S*' --accounts H100 --match '*000*' --match 00700"),
                ElementsAre("S100,SH,600000", "S100,SZ,000001", "H100,HK,00700"));
}

TEST_F(FeesOfAccounts, HaveTheAccountInTables) {
    const Outcome outcome = run("fees --accounts S100 --match 600519");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out,
              "1 account\n"
              "\n"
              "Stock rates\n"
              "                                           Stamp\n"
              "Account  Instrument  Name      Commission   duty  Trade unit  Level\n"
              "S100     SH:600519   贵州茅台      0.025%  0.05%         100  own record [1]\n"
              "[1] fees/stock.csv:2\n"
              "Rates not shown are 0: Transfer fee.\n");
}

TEST_F(FeesOfAccounts, NameAccountsWithoutAListInANote) {
    const Outcome good = run("fees --accounts 'S*' --accounts 'P*' --json");
    EXPECT_EQ(good.status, 0);
    EXPECT_THAT(good.err, HasSubstr(R"({"note":"without a list of fees, and not shown: 2 accounts (S200, P100); --all )"
                                    R"(asks for every instrument that an account trades"})"));
}

TEST_F(FeesOfAccounts, OfAllInstrumentsAreThoseOfTheKindsLists) {
    EXPECT_THAT(rows("fees S200 --all"),
                ElementsAre("S200,SH,000001", "S200,SH,600000", "S200,SH,600519", "S200,SZ,000001", "S200,SZ,300750"));
    EXPECT_THAT(rows("fees --all --accounts 'O1*'"), ElementsAre("O100,SHO,10001", "O100,SHO,10001"));
    EXPECT_THAT(rows("fees S200 --all --only-market sz --match '*0001'"), ElementsAre("S200,SZ,000001"));
}

TEST_F(FeesOfAccounts, OfAllInstrumentsThatNoFilterWantsAreNoAnswer) {
    const Outcome outcome = run("fees S200 --all --match 51");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "feedesk: none of the 5 instruments for account S200 is wanted by the filters; --match '*51*' finds the "
              "text inside codes and names\n");
}

TEST_F(FeesOfAccounts, WithoutAnyAnswerSayWhy) {
    const Outcome noList = run("fees --accounts 'P*' --accounts S200 --json");
    EXPECT_EQ(noList.status, 1);
    EXPECT_EQ(noList.out, "[]\n");
    EXPECT_THAT(noList.err, HasSubstr("none of the 2 accounts has a list of fees; --all asks for every instrument"));
    EXPECT_EQ(run("fees --accounts 'S*' --match 9").err, "feedesk: the filters want no instrument of the 2 accounts\n");
    EXPECT_EQ(run("fees --accounts X").err, "feedesk: the market folder has no account like X\n");
}

TEST_F(FeesOfAccounts, CountTheMarksOfAll) {
    const Outcome outcome = run("fees --accounts 'S*' --all --strict --csv");
    EXPECT_EQ(outcome.status, 1);
    // S100 has no entry for the index, S200 none for anything but what the configuration has.
    EXPECT_EQ(outcome.err, "feedesk: 5 of 10 fees answered with the built-in default\n");
}

TEST_F(FeesOfAccounts, OfOneInstrumentAreAskedWithFee) {
    EXPECT_THAT(rows("fee --accounts 'S*' 600519 300750"),
                ElementsAre("S100,SH,600519", "S100,SZ,300750", "S200,SH,600519", "S200,SZ,300750"));
    EXPECT_EQ(run("fee --accounts 'S*' 600519").status, 0);
}

TEST_F(FeesOfAccounts, OfAChannelAreThoseOfItsAccounts) {
    EXPECT_THAT(rows("fee --accounts '*100' HGT:00700"), ElementsAre("H100,HK,00700"));
    EXPECT_THAT(run("fee --accounts 'S*' HGT:00700").err, HasSubstr("no instrument HGT:00700"));
}

TEST_F(FeesOfAccounts, ReportUnknownInstrumentsOnce) {
    const Outcome outcome = run("fee --accounts 'S*' 600519 XYZ --csv");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(lines(outcome.out).size(), 3U);
    EXPECT_EQ(outcome.err,
              "feedesk: the market folder has no instrument XYZ\n"
              "feedesk: 1 of 2 fees answered with the built-in default\n");
}

TEST_F(FeesOfAccounts, GiveANoteForSeveralOnce) {
    const Outcome twice = run("fee --accounts 'S*' 00700 --csv");
    EXPECT_EQ(twice.status, 0);
    EXPECT_EQ(
        twice.err,
        "feedesk: HK:00700 is in no list of stock instruments; the fee center answers all the same, with built-in "
        "default\n"
        "feedesk: 2 of 2 fees answered with the built-in default\n");
}

struct Refused {
    const char* what;
    const char* arguments;
    const char* sentence;
};

class RefusedAccounts : public testing::TestWithParam<Refused> {};

TEST_P(RefusedAccounts, AreBadInput) {
    const SampleFolder folder;
    const Outcome outcome = ask(folder.path(), GetParam().arguments);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, std::string("feedesk: ") + GetParam().sentence + "\n");
}

constexpr Refused kRefused[] = {
    {"FeesTwice", "fees S100 --accounts 'S*'",
     "the account S100 does not go with --accounts; name accounts in one of the two ways"},
    {"FeeTwice", "fee S100 600519 --accounts 'S*'",
     "the account S100 does not go with --accounts; name accounts in one of the two ways"},
    {"FeeWithoutInstrument", "fee --accounts 'S*'", "INSTRUMENT is required; `feedesk fee --help` shows how to ask"},
    {"FeesWithoutAccount", "fees", "ACCOUNT is required; `feedesk fees --help` shows how to ask"},
    {"FeeWithoutAccount", "fee", "ACCOUNT is required; `feedesk fee --help` shows how to ask"},
    {"FeeWithoutItsInstrument", "fee S100", "INSTRUMENT is required; `feedesk fee --help` shows how to ask"},
    {"WithoutPattern", "fees --accounts",
     "--accounts needs a value behind it: PATTERN; `feedesk fees --help` shows how to ask"},
};

INSTANTIATE_TEST_SUITE_P(Arguments, RefusedAccounts, testing::ValuesIn(kRefused),
                         [](const auto& test) { return std::string(test.param.what); });

}  // namespace
}  // namespace feedesk::test
