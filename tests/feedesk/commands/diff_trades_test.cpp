// What trades cost by two folders, and the terms by which they do. Amounts are worked out by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/feedesk/support/cost_folder.h"
#include "tests/feedesk/support/program.h"

namespace feedesk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class DiffTrades : public testing::Test {
protected:
    static constexpr const char* kHeaderOfTrades = "account,date,market,code,side,quantity,price,order\n";

    Outcome diff(const std::string& arguments, const std::string& environment = "") const {
        return runProgram("diff " + before.path() + " " + after.path() + " " + arguments, environment);
    }

    Outcome diffOf(const std::string& trades, const std::string& arguments = "") const {
        before.writeTrades(kHeaderOfTrades + trades);
        return diff("--trades " + before.tradesFile() + " " + arguments);
    }

    /// The lines of JSON that are about what trades cost.
    std::vector<std::string> costs(const std::string& trades, const std::string& arguments = "") const {
        const Outcome outcome = diffOf(trades, "--json " + arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        std::vector<std::string> found;
        for (const std::string& line : lines(outcome.out)) {
            if (line.find("\"costs\"") != std::string::npos) {
                found.push_back(line);
            }
        }
        return found;
    }

    void replaceInCharges(const std::string& text, const std::string& with) const {
        std::string charges = contentOf(after.path() + "/charges.csv");
        charges.replace(charges.find(text), text.size(), with);
        after.write("charges.csv", charges);
    }

    /// Each line of the folder after gets two empty cells at its end.
    void addDaysToCharges() const {
        std::ifstream stream(after.path() + "/charges.csv");
        std::string charges;
        for (std::string line; std::getline(stream, line);) {
            charges += line + (charges.empty() ? ",from,until\n" : ",,\n");
        }
        after.write("charges.csv", charges);
    }

    CostFolder before;
    CostFolder after;
};

// 150,000 yuan: a commission of 0.00025 is 37.50 each way, of 0.0002 it is 30.00; the stamp duty of the sale is 75.00.
TEST_F(DiffTrades, CostEachAccountByBothFolders) {
    after.write("fees/stock.csv",
                "account,market,code,commission,transfer_fee,stamp_duty\nS100,SH,600*,0.0002,0.00001,0.0005\n");
    EXPECT_THAT(costs("S100,2024-01-02,SH,600519,buy,100,1500,\nS100,2024-01-03,SH,600519,sell,100,1500,\n"
                      "F100,2024-01-03,SHFE,rb2610,open_long,1,3000,\n"),
                ElementsAre(StartsWith(R"({"change":"costs","account":"S100","trades":2,"old":150.00,"new":135.00,)"
                                       R"("difference":-15.00,"currency":"CNY"})"),
                            // 30,000 yuan at 0.0001 and 0.01 a lot, by both.
                            StartsWith(R"({"change":"costs","account":"F100","trades":1,"old":3.01,"new":3.01,)"
                                       R"("difference":0.00,"currency":"CNY"})")));
}

TEST_F(DiffTrades, MayComeInAnyOrderAndThroughStandardInput) {
    before.writeTrades(std::string(kHeaderOfTrades) +
                       "S100,2024-01-03,SH,600519,sell,100,1500,\nS100,2024-01-02,SH,600519,buy,100,1500,\n");
    const Outcome outcome = diff("--trades - --csv <" + before.tradesFile());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(
        lines(outcome.out),
        ElementsAre(testing::EndsWith("side,column,names,names_count,names_short,account,trades,difference,currency"),
                    "costs,,,,,,,,150.00,150.00,,,,,,,,,,,,,,,S100,2,0.00,CNY"));
}

// The stamp duty was 0.001 until 2023-08-27: a sale of that time pays 150.00 and 37.50, and 75.00 on a later day.
TEST_F(DiffTrades, AreChargedAsOfTheirDaysOrAsOfTheOneThatIsNamed) {
    const std::string sale = "S100,2023-08-25,SH,600519,sell,100,1500,a\n";
    EXPECT_THAT(costs(sale), ElementsAre(HasSubstr(R"("old":187.50,"new":187.50,)")));
    EXPECT_THAT(costs(sale, "--date 2024-01-02"), ElementsAre(HasSubstr(R"("old":112.50,"new":112.50,)")));
}

TEST_F(DiffTrades, AreATableWithSums) {
    const Outcome outcome = diffOf("S100,2024-01-02,SH,600519,buy,100,1500,\n");
    EXPECT_THAT(outcome.out, HasSubstr("Costs of the trades\n"
                                       "Account  Trades  Old costs  New costs  Difference  Currency\n"
                                       "S100          1      37.50      37.50        0.00  CNY\n"
                                       "\n"
                                       "1 trade: 37.50 CNY by the old folder, 37.50 by the new, a difference of "));
}

TEST_F(DiffTrades, ThatCannotBeChargedAreNamedAndNothingIsAnswered) {
    const Outcome outcome = diffOf(
        "S100,2024-01-02,SH,600519,buy,100,1500,\nS100,2020-01-02,SH,600519,buy,100,1500,\n"
        "S999,2024-01-02,SH,600519,buy,100,1500,\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    const std::vector<std::string> reported = lines(outcome.err);
    ASSERT_EQ(reported.size(), 3U) << outcome.err;
    EXPECT_THAT(reported[0], HasSubstr(".trades:3: by /tmp/"));
    EXPECT_THAT(reported[1], HasSubstr("the market folder has no account S999"));
    EXPECT_THAT(reported[2], StartsWith("feedesk: 2 trades cannot be charged by /tmp/"));
    EXPECT_EQ(diff("--trades /nonexistent.csv").status, 2);
    EXPECT_EQ(diff("--trades").status, 2);
}

// No answer of the fee center has a minimum.
TEST_F(DiffTrades, ChargingTermThatChangesIsADifferenceToo) {
    replaceInCharges("turnover,,5,order", "turnover,,6,order");
    const Outcome outcome = diff("--csv --expect-none");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(lines(outcome.out), ElementsAre(StartsWith("change,"),
                                                "term,,,2024-01-02,2026-12-31,stock,,commission,5,6,,charges.csv:2,,"
                                                "charges.csv:2,no,,,,,both,minimum,,,"));
    EXPECT_EQ(outcome.err, "feedesk: not expected: 1 charging term changed\n");
    EXPECT_THAT(costs("S100,2024-01-02,SH,600000,buy,100,10,\n"), ElementsAre(HasSubstr(R"("old":5.00,"new":6.00,)")));
}

TEST_F(DiffTrades, ChargingTermIsShownWithWhatWasAndWhatIs) {
    replaceInCharges("stamp_duty,sell,turnover,,,fill,0.01 half_up", "stamp_duty,sell,turnover,,1,order,1 up");
    EXPECT_THAT(diff("", "COLUMNS=80").out,
                testing::EndsWith("\n\n"
                                  "Charging terms\n"
                                  "Column               Old    New  Old source     New source\n"
                                  "stock stamp_duty, sell\n"
                                  "  minimum              -      1  charges.csv:4  charges.csv:4\n"
                                  "  per               fill  order  charges.csv:4  charges.csv:4\n"
                                  "  rounding  0.01 half_up   1 up  charges.csv:4  charges.csv:4\n"));
}

TEST_F(DiffTrades, ChargingTermOfNewDaysChangesOnThoseDays) {
    // The term ends, and one with another minimum begins on the next day.
    addDaysToCharges();
    replaceInCharges("stock,,,,commission,both,turnover,,5,order,0.01 half_up,,CNY,test,2024-01-02,,\n",
                     "stock,,,,commission,both,turnover,,5,order,0.01 half_up,,CNY,test,2024-01-02,,2024-06-30\n"
                     "stock,,,,commission,both,turnover,,3,order,0.01 half_up,,CNY,test,2024-01-02,2024-07-01,\n");
    EXPECT_THAT(lines(diff("--csv").out), ElementsAre(StartsWith("change,"),
                                                      "term,,,2024-07-01,2026-12-31,stock,,commission,5,3,,"
                                                      "charges.csv:2,,charges.csv:3,,,,,,both,minimum,,,"));
    EXPECT_EQ(diff("--from 2024-01-02 --until 2024-06-30 --expect-none").status, 0);
}

TEST_F(DiffTrades, ChargingTermThatEndsEarlierIsOfOneFolderAlone) {
    addDaysToCharges();
    replaceInCharges("commission,CNY,test,2024-01-02,,\n", "commission,CNY,test,2024-01-02,,2024-06-30\n");
    EXPECT_THAT(lines(diff("--csv").out),
                ElementsAre(StartsWith("change,"), "terms_removed,,,,,,,,,,,,,,,,,,,,,charges.csv:3,1,charges.csv:3"));
    EXPECT_THAT(diff("", "COLUMNS=120").out, HasSubstr("of the old folder alone  stock transfer_fee (charges.csv:3)"));
    EXPECT_EQ(diff("--from 2024-01-02 --until 2024-06-30 --expect-none").status, 0);
}

TEST_F(DiffTrades, MayWriteTheirDaysInBothWays) {
    EXPECT_THAT(costs("S100,20240103,SH,600519,buy,100,1500,\nS100,2024-01-02,SH,600519,buy,100,1500,\n"
                      "S100,20240102,SH,600519,buy,100,1500,\n"),
                ElementsAre(StartsWith(R"({"change":"costs","account":"S100","trades":3,)")));
}

TEST_F(DiffTrades, FileThatCannotBeReadIsToldBeforeAnythingElse) {
    const Outcome outcome = runProgram("diff /nowhere /nowhere --trades /nonexistent.csv");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "feedesk: /nonexistent.csv cannot be opened: No such file or directory\n");
}

TEST_F(DiffTrades, TitleOrSourceOfATermThatChangesIsNone) {
    replaceInCharges("CNY,test,2024-01-02", "CNY,another source,2025-01-02");
    EXPECT_EQ(diff("--expect-none").status, 0);
}

TEST_F(DiffTrades, TermOfAnAccountIsThatAccountsChange) {
    replaceInCharges("stock,,,,stamp_duty,sell",
                     "stock,S100,,,commission,both,turnover,,7,order,0.01 half_up,,CNY,test,2024-01-02\n"
                     "stock,,,,stamp_duty,sell");
    EXPECT_EQ(diff("--expect-only S100").status, 0);
    EXPECT_EQ(diff("--expect-only S200").status, 1);
}

}  // namespace
}  // namespace feedesk::test
