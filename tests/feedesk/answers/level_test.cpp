// Which input gave a rate: asked of the built program, as CSV.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

class Levels : public testing::Test {
protected:
    /// "level source" of the line of one part and item, without quotes.
    std::string level(const std::string& account, const std::string& instrument, const std::string& part,
                      const std::string& item = "") const {
        const Outcome outcome = ask(folder.path(), "fee " + account + " " + instrument + " --csv");
        EXPECT_EQ(outcome.status, 0);
        const std::string middle = "," + part + "," + item + ",";
        for (const std::string& line : lines(outcome.out)) {
            const std::size_t at = line.find(middle);
            if (at != std::string::npos) {
                return firstTwoCells(line.substr(at + middle.size()));
            }
        }
        return "no line of " + part + " " + item + " in\n" + outcome.out;
    }

    SampleFolder folder;

private:
    static std::string firstTwoCells(std::string text) {
        const std::size_t comma = text.find(',');
        text = text.substr(0, text.find(',', comma + 1));
        text[comma] = ' ';
        return text;
    }
};

TEST_F(Levels, OwnRecordNamesItsLine) {
    EXPECT_EQ(level("S100", "SH:600519", "stock"), "own record fees/stock.csv:2");
    EXPECT_EQ(level("S100", "SZ:300750", "stock"), "own record fees/stock.csv:3");
}

TEST_F(Levels, CustomFeeNamesItsLine) {
    EXPECT_EQ(level("S100", "SH:600000", "stock"), "custom fee custom/stock.csv:2");
}

TEST_F(Levels, ConfiguredLimitWinsOverTheOwnRecordOfAStock) {
    EXPECT_EQ(level("S100", "SZ:000001", "stock"), "configured limit configured/stock.csv:2");
}

TEST_F(Levels, OwnRecordWinsOverTheConfiguredLimitOfAConnectStock) {
    EXPECT_EQ(level("H100", "HK:00700", "hgt"), "own record fees/hgt.csv:2");
}

TEST_F(Levels, ConfiguredLimitAnswersForAnAccountWithoutRecords) {
    EXPECT_EQ(level("S200", "SZ:000001", "stock"), "configured limit configured/stock.csv:2");
    EXPECT_EQ(level("H200", "HK:00700", "hgt"), "configured limit configured/hgt.csv:2");
}

TEST_F(Levels, BuiltInDefaultHasNoSource) {
    EXPECT_EQ(level("S100", "SH:000001", "stock"), "built-in default ");
    EXPECT_EQ(level("S200", "SH:600519", "stock"), "built-in default ");
}

TEST_F(Levels, ConfiguredLimitThatTheAnswerPassesOverIsNotNamed) {
    // Prime brokerage answers Hong Kong stocks with the defaults alone.
    EXPECT_EQ(level("P100", "HK:00700", "hgt"), "built-in default ");
}

TEST_F(Levels, EachItemOfAnOptionHasItsOwn) {
    EXPECT_EQ(level("O100", "SHO:10001", "option", "000"), "custom fee custom/option.csv:2");
    EXPECT_EQ(level("O100", "SHO:10001", "option", "0D"), "custom fee custom/option.csv:3");
    EXPECT_EQ(level("O200", "SHO:10001", "option", "0D"), "built-in default ");
}

TEST_F(Levels, CommissionAndMarginHaveTheirOwn) {
    EXPECT_EQ(level("F100", "rb2610", "commission"), "own record fees/commission.csv:2");
    EXPECT_EQ(level("F100", "rb2610", "margin", "1"), "own record fees/margin.csv:2");
}

TEST_F(Levels, MarginOfOneHedgeFlagLeavesTheOthersUnset) {
    EXPECT_EQ(level("F300", "rb2610", "margin", "1"), "not set ");
    EXPECT_EQ(level("F300", "rb2610", "margin", "2"), "custom fee custom/margin.csv:2");
    EXPECT_EQ(level("F300", "rb2610", "margin", "3"), "not set ");
    EXPECT_EQ(level("F300", "rb2610", "commission"), "not set ");
}

TEST_F(Levels, CustomCommissionAndMarginOfOneFeeAreDistinguished) {
    EXPECT_EQ(level("F400", "rb2610", "commission"), "custom fee custom/commission.csv:2");
    EXPECT_EQ(level("F400", "rb2610", "margin", "3"), "custom fee custom/margin.csv:3");
}

TEST_F(Levels, EachMarginOfARecordNamesItsLine) {
    EXPECT_EQ(level("F400", "au2612", "margin", "1"), "own record fees/margin.csv:3");
    EXPECT_EQ(level("F400", "au2612", "margin", "3"), "own record fees/margin.csv:4");
    EXPECT_EQ(level("F400", "au2612", "commission"), "not set ");
}

TEST_F(Levels, SimulationPlatformChargesTheInstrumentsOwnFee) {
    EXPECT_EQ(level("F200", "rb2610", "commission"), "exchange fee instruments/all.csv:9");
    EXPECT_EQ(level("F200", "au2612", "commission"), "exchange fee instruments/all.csv:10");
    EXPECT_EQ(level("F200", "rb2610", "margin", "1"), "built-in default ");
}

TEST_F(Levels, FuturesWithoutRecordHaveTheDefault) {
    EXPECT_EQ(level("F100", "au2612", "commission"), "built-in default ");
    EXPECT_EQ(level("W100", "au2612", "margin", "3"), "built-in default ");
}

TEST_F(Levels, EqualRatesOfTwoLinesAreDistinguished) {
    folder.write("fees/stock.csv",
                 "account,market,code,commission\n"
                 "S100,SH,600519,0.0002\n"
                 "S100,SH,600000,0.0002\n");
    folder.write("custom/stock.csv", "account,update,category,commission\nS100,1,1,0.0002\n");
    EXPECT_EQ(level("S100", "SH:600519", "stock"), "own record fees/stock.csv:2");
    EXPECT_EQ(level("S100", "SH:600000", "stock"), "custom fee custom/stock.csv:2");
}

}  // namespace
}  // namespace feedesk::test
