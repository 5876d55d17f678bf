#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Fees : public testing::Test {
protected:
    Outcome fees(const std::string& arguments) const { return ask(folder.path(), "fees " + arguments); }

    /// "market,code" of each line of the list.
    std::vector<std::string> instruments(const std::string& arguments) const {
        std::vector<std::string> found;
        for (const std::string& line : lines(fees(arguments + " --csv").out)) {
            const std::size_t market = line.find(',', line.find(',') + 1) + 1;
            found.push_back(line.substr(market, line.find(',', line.find(',', market) + 1) - market));
        }
        found.erase(found.begin());  // the header
        return found;
    }

    SampleFolder folder;
};

TEST_F(Fees, AreTheAccountsEntriesByMarketAndCode) {
    EXPECT_THAT(instruments("S100"), ElementsAre("SH,600000", "SH,600519", "SZ,000001", "SZ,300750"));
}

TEST_F(Fees, KeepToTheMarketsAskedFor) {
    EXPECT_THAT(instruments("S100 --only-market SZ"), ElementsAre("SZ,000001", "SZ,300750"));
    EXPECT_THAT(instruments("S100 --only-market SZ --only-market SH"),
                ElementsAre("SH,600000", "SH,600519", "SZ,000001", "SZ,300750"));
}

TEST_F(Fees, KeepToThePatternOfCodesOrNames) {
    EXPECT_THAT(instruments("S100 --match '*000*'"), ElementsAre("SH,600000", "SZ,000001"));
    EXPECT_THAT(instruments("S100 --match '*茅*'"), ElementsAre("SH,600519"));
}

TEST_F(Fees, TakeAMarketInSmallLetters) {
    EXPECT_THAT(instruments("S100 --only-market sz"), ElementsAre("SZ,000001", "SZ,300750"));
}

TEST_F(Fees, NameThePatternThatFindsTheTextInside) {
    const Outcome outcome = fees("S100 --match 0051");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("by the filters; --match '*0051*' finds the text inside codes and names\n"));
    EXPECT_THAT(fees("S100 --match '0051*'").err, HasSubstr("--match '*0051*' finds"));
}

TEST_F(Fees, KeepToTheMarketThatAPatternNames) {
    for (const char* pattern : {"'SH:6005*'", "'6005*.SH'", "'sh:6005*'", "'S*:6005*'", "SH:600519"}) {
        EXPECT_THAT(instruments("S100 --match " + std::string(pattern)), ElementsAre("SH,600519")) << pattern;
    }
    EXPECT_THAT(instruments("S100 --match 'SZ:*' --match 600519"), ElementsAre("SH,600519", "SZ,000001", "SZ,300750"));
    EXPECT_THAT(instruments("S100 --only-market SZ --match '*:*0*' --all"), ElementsAre("SZ,000001", "SZ,300750"));
    EXPECT_THAT(instruments("H100 --match 'HGT:00*'"), ElementsAre("HK,00700"));
    EXPECT_EQ(fees("S100 --match 'SZ:6005*'").status, 1);
}

TEST_F(Fees, NameThePatternThatFindsTheTextInsideTheMarket) {
    EXPECT_THAT(fees("S100 --match SH:0051").err,
                HasSubstr("--match 'SH:*0051*' finds the text inside codes and names\n"));
}

TEST_F(Fees, NameTheMarketOfAPatternThatNobodyKnows) {
    EXPECT_EQ(fees("S100 --match 'XX:6*'").err,
              "feedesk: none of the 4 instruments in the list of account S100 is wanted by the filters; the market "
              "folder has no market XX\n");
    EXPECT_THAT(fees("--accounts 'S*' --match 'XX:6*'").err, HasSubstr("; the market folder has no market XX\n"));
}

TEST_F(Fees, ThatNoFilterWantsAreNoAnswer) {
    const Outcome outcome = fees("S100 --match 8*");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "feedesk: none of the 4 instruments in the list of account S100 is wanted by the filters\n");
}

TEST_F(Fees, OfAnUnknownMarketAreNoAnswer) {
    const Outcome outcome = fees("S100 --only-market XX");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "feedesk: the market folder has no market XX; it has SH, SZ, HK, SHO, SHFE\n");
}

TEST_F(Fees, KindsWithoutListSaySo) {
    for (const std::string account : {"P100", "W100"}) {
        const Outcome outcome = fees(account);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err,
                    HasSubstr(" have no list of fees; `feedesk fee " + account + " INSTRUMENT` answers\n"));
    }
}

TEST_F(Fees, AccountWithoutEntriesSaysSo) {
    const Outcome outcome = fees("S200");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("account S200 has no list of fees: no fee record and no custom fee covers"));
}

TEST_F(Fees, OfEveryFamilyAreAnswered) {
    for (const std::string account : {"S100", "F100", "O100", "H100"}) {
        const Outcome outcome = fees(account);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_LE(widestLine(outcome.out), 80U) << outcome.out;
    }
}

}  // namespace
}  // namespace feedesk::test
