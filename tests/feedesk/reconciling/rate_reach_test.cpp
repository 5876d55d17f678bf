#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/statement_folder.h"

// Which lines a rate that is solved for is said to fit, and where none may be named.

namespace feedesk::test {
namespace {

struct Reach {
    const char* name;
    std::string lines;
    std::vector<const char*> reported;
    const char* patched;  ///< part of the patch; empty: none is written
};

class RateReach : public testing::TestWithParam<Reach> {};

TEST_P(RateReach, IsReportedAsItIs) {
    const StatementFolder folder;
    const std::string patch = folder.tradesFile();
    const Outcome outcome = folder.reconcileLines(GetParam().lines, "--patch " + patch);
    const std::string text = unfolded(outcome.out);
    for (const char* each : GetParam().reported) {
        EXPECT_NE(text.find(each), std::string::npos) << each << "\n" << outcome.out << outcome.err;
    }
    EXPECT_EQ(outcome.status, 1);
    const std::string patched = GetParam().patched;
    ASSERT_EQ(std::filesystem::exists(patch), !patched.empty()) << outcome.out;
    EXPECT_TRUE(patched.empty() || contentOf(patch).find(patched) != std::string::npos) << contentOf(patch);
}

// 600519 from 2023-08-28: commission 0.025 %, at least 5, the transfer fee of 0.001 % inside it; sales pay 0.05 % stamp
// duty. The cells: day, code, side, quantity, price, commission, stamp duty, transfer fee, order, fills, net.
INSTANTIATE_TEST_SUITE_P(
    Of, RateReach,
    testing::Values(
        // A sale pays 0.07 % stamp duty; the purchases behind it, and those of its day, pay none at all.
        Reach{"AChargeOfSalesAmongSalesAlone",
              "20240103,600519,买,100,1000,25.00,0,0,,1,-100025.00\n"
              "20240103,600519,卖,100,1000,25.00,70.00,0,,1,99905.00\n"
              "20240104,600519,买,100,1000,25.00,0,0,,1,-100025.00\n"
              "20240105,600519,买,100,1000,25.00,0,0,,1,-100025.00\n",
              {"Line 3: the stamp_duty 0.0007 (any from 0.00069995 to 0.000700049999) fits the line from "
               "2024-01-03 on, which rests on a single trade; the folder has 0.0005"},
              "S100,SH,600*,0.00025,0.00001,0.0007,2024-01-03,"},
        // The next sale pays 0.05 % again.
        Reach{"AChargeOfSalesThatTheNextSaleDoesNotPay",
              "20240103,600519,卖,100,1000,25.00,70.00,0,,1,99905.00\n"
              "20240104,600519,买,100,1000,25.00,0,0,,1,-100025.00\n"
              "20240105,600519,卖,100,1000,25.00,50.00,0,,1,99925.00\n",
              {"Line 2: the stamp_duty 0.0007 (any from 0.00069995 to 0.000700049999) fits this trade, and not line "
               "4 of 2024-01-05"},
              ""},
        // 0.03 % on the afternoon of the first day and on all later days.
        Reach{"ARateThatBeginsInsideADay",
              "20240102,600519,买,100,1000,25.00,0,0,,1,-100025.00\n"
              "20240102,600519,买,100,1000,30.00,0,0,,1,-100030.00\n"
              "20240103,600519,买,100,2000,60.00,0,0,,1,-200060.00\n"
              "20240104,600519,买,100,3000,90.00,0,0,,1,-300090.00\n",
              {"Lines 4, 5: the commission 0.0003 (any from 0.000299983334 to 0.000300016666) fits all 2 lines from "
               "2024-01-03 on",
               "Line 3: the commission 0.0003 (any from 0.00029995 to 0.000300049999) fits this trade, and not line "
               "2 of the same day"},
              "S100,SH,600*,0.0003,0.00001,0.0005,2024-01-03,"},
        // The old rate comes after the new one of the same day.
        Reach{"ADayWhoseLinesDisagreeWhicheverComesFirst",
              "20240102,600519,买,100,1000,30.00,0,0,,1,-100030.00\n"
              "20240102,600519,买,100,1000,25.00,0,0,,1,-100025.00\n",
              {"Line 2: the commission 0.0003 (any from 0.00029995 to 0.000300049999) fits this trade, and not line "
               "3 of the same day"},
              ""},
        // 0.03 % until the second day, 0.025 % behind it.
        Reach{"ARateThatEndedBeforeTheLastLine",
              "20240102,600519,买,100,1000,30.00,0,0,,1,-100030.00\n"
              "20240103,600519,买,100,2000,60.00,0,0,,1,-200060.00\n"
              "20240105,600519,买,100,1000,25.00,0,0,,1,-100025.00\n",
              {"Lines 2, 3: the commission 0.0003 (any from 0.000299975 to 0.000300024999) fits all 2 lines from "
               "2024-01-02 until 2024-01-03; the folder has 0.00025, fees/stock.csv:2"},
              "S100,SH,600*,0.0003,0.00001,0.0005,2024-01-02,2024-01-03\n"
              "+S100,SH,600*,0.00025,0.00001,0.0005,2024-01-04,"},
        // Three rates, one after the other: 0.03 %, 0.025 % and 0.04 %.
        Reach{
            "ARateThatEndedBeforeAnother",
            "20240102,600519,买,100,1000,30.00,0,0,,1,-100030.00\n"
            "20240103,600519,买,100,2000,60.00,0,0,,1,-200060.00\n"
            "20240104,600519,买,100,1000,25.00,0,0,,1,-100025.00\n"
            "20240105,600519,买,100,1000,40.00,0,0,,1,-100040.00\n",
            {"Lines 2, 3: the commission 0.0003 (any from 0.000299975 to 0.000300024999) fits all 2 lines from "
             "2024-01-02 until 2024-01-03",
             "Line 5: the commission 0.0004 (any from 0.00039995 to 0.000400049999) fits the line from 2024-01-05 on"},
            "S100,SH,600*,0.0003,0.00001,0.0005,2024-01-02,2024-01-03\n"
            "+S100,SH,600*,0.00025,0.00001,0.0005,2024-01-04,2024-01-04\n"
            "+S100,SH,600*,0.0004,0.00001,0.0005,2024-01-05,"},
        Reach{
            "ARateOfTradesOfADayThatOthersOfItDoNotPay",
            "20240102,600519,买,100,1000,30.00,0,0,,1,-100030.00\n"
            "20240102,600519,买,100,1000,30.00,0,0,,1,-100030.00\n"
            "20240102,600519,买,100,1000,25.00,0,0,,1,-100025.00\n",
            {"Lines 2, 3: the commission 0.0003 (any from 0.00029995 to 0.000300049999) fits each of these trades, and "
             "not line 4 of the same day"},
            ""},
        // 10000000 x 0.000270003 = 2700.03, and 0.00027 of it 2700.00.
        Reach{"ARateThatNobodyHas",
              "20240102,600519,买,10000,1000,2700.03,0,0,,1,-10002700.03\n",
              {"Line 2: the commission 0.000270003 (any from 0.0002700025 to 0.000270003499), which nobody is known to "
               "have, fits the line from 2024-01-02 on",
               "no line is proposed for the commission 0.000270003, as neither the folder nor another line of the "
               "statement has it, and a rate of 6 digits is hardly one that was agreed on"},
              ""},
        // A line of the last day has a stamp duty that nothing explains, and the new commission.
        Reach{"ARateBesideALineThatDiffersInMoreThanIt",
              "20240102,600519,买,100,1000,30.00,0,0,,1,-100030.00\n"
              "20240103,600519,卖,100,1000,30.00,61.23,0,,1,99908.77\n"
              "20240104,600519,买,100,1000,30.00,0,0,,1,-100030.00\n",
              {"Lines 2, 4: the commission 0.0003 (any from 0.00029995 to 0.000300049999) fits 2 of 3 lines from "
               "2024-01-02 on (the others differ in other ways)",
               "Line 3: nothing that is known explains it"},
              "S100,SH,600*,0.0003,0.00001,0.0005,2024-01-02,"},
        // The last line has the old commission and twice the stamp duty: the new rate is not of all lines.
        Reach{"ALaterLineThatTheFolderExplains",
              "20240102,600519,买,100,1000,30.00,0,0,,1,-100030.00\n"
              "20240104,600519,卖,100,1000,25.00,100.00,0,,1,99875.00\n",
              {"Line 2: the commission 0.0003 (any from 0.00029995 to 0.000300049999) fits this trade, and not line "
               "3 of 2024-01-04",
               "Line 3: the schedule from 2021-01-01 until 2023-08-27"},
              ""},
        // The last line pays the minimum by both rates, and twice the stamp duty of 0.50.
        Reach{
            "ARateBesidesALineThatItDoesNotReach",
            "20240102,600519,买,100,1000,30.00,0,0,,1,-100030.00\n"
            "20240104,600519,卖,100,10,5.00,1.00,0,,1,994.00\n",
            {"Line 2: the commission 0.0003 (any from 0.00029995 to 0.000300049999) fits 1 of 2 lines from 2024-01-02 "
             "on (the others differ in other ways), which rests on a single trade",
             "Line 3: the schedule from 2021-01-01 until 2023-08-27"},
            "S100,SH,600*,0.0003,0.00001,0.0005,2024-01-02,"},
        // The first fits the second and the third, which do not fit each other.
        Reach{
            "ThreeLinesOfADayOfWhichNoRateFitsAll",
            "20240102,600519,买,200,104,6.24,0,0,,1,-20806.24\n"
            "20240102,600519,买,1000,1000,299.80,0,0,,1,-1000299.80\n"
            "20240102,600519,买,1000,1000,300.20,0,0,,1,-1000300.20\n",
            {"Line 2: the commission 0.0003 (any from 0.000299759616 to 0.000300240384) fits this trade, and no rate "
             "fits it and all those after it",
             "Line 3: the commission 0.0002998 (any from 0.000299795 to 0.000299804999) fits this trade, and not line "
             "4 of the same day",
             "Line 4: the commission 0.0003002 (any from 0.000300195 to 0.000300204999) fits this trade, and not line "
             "3 of the same day"},
            ""},
        // One rate of the first two days, another one on the third.
        Reach{"LinesOfWhichTheFirstFitTogether",
              "20240102,600519,买,200,104,6.24,0,0,,1,-20806.24\n"
              "20240103,600519,买,1000,1000,299.80,0,0,,1,-1000299.80\n"
              "20240104,600519,买,1000,1000,300.20,0,0,,1,-1000300.20\n",
              {"Lines 2, 3: the commission 0.0002998 (any from 0.000299795 to 0.000299804999) fits all 2 lines from "
               "2024-01-02 until 2024-01-03",
               "Line 4: the commission 0.0003002 (any from 0.000300195 to 0.000300204999) fits the line from "
               "2024-01-04 on"},
              "S100,SH,600*,0.0002998,0.00001,0.0005,2024-01-02,2024-01-03\n"
              "+S100,SH,600*,0.0003002,0.00001,0.0005,2024-01-04,"},
        // An order of no more than the minimum agrees with both rates.
        Reach{"TheFirstDayOfADifferenceAndNotTheMinimaBefore",
              "20240102,600519,买,100,10,5.00,0,0,,1,-1005.00\n"
              "20240103,600519,买,100,1000,30.00,0,0,,1,-100030.00\n"
              "20240104,600519,买,100,10,5.00,0,0,,1,-1005.00\n",
              {"Line 3: the commission 0.0003 (any from 0.00029995 to 0.000300049999) fits all 2 lines from "
               "2024-01-03 on, which rests on a single trade"},
              "S100,SH,600*,0.0003,0.00001,0.0005,2024-01-03,"}),
    [](const auto& param) { return std::string(param.param.name); });

/// A statement that has no more than what moved on the account.
Outcome reconcileNets(const StatementFolder& folder, const std::string& lines, const std::string& options = "") {
    folder.writeStatement("日期,代码,买卖,数量,价格,笔数,发生\n" + lines);
    return folder.reconcile(options);
}

// 100000 sold for 80.00 and not 75.00: 0.03 % commission or 0.055 % stamp duty.
TEST(RateOfANet, IsNotNamedWhereTwoChargesWouldExplainATrade) {
    const StatementFolder folder;
    const Outcome outcome = reconcileNets(folder, "20240103,600519,卖,100,1000,1,99920.00\n");
    EXPECT_NE(unfolded(outcome.out)
                  .find("Line 2: nothing that is known explains it; the commission 0.0003 or the stamp_duty 0.00055 "
                        "would fit, and the statement does not say which"),
              std::string::npos)
        << outcome.out;
}

// The same of three sales: a rate, but whose?
TEST(RateOfANet, IsReportedWithItsEqualsAndNotProposed) {
    const StatementFolder folder;
    const std::string sales =
        "20240103,600519,卖,100,1000,1,99920.00\n"
        "20240104,600519,卖,100,2000,1,199840.00\n"
        "20240105,600519,卖,100,3000,1,299760.00\n";
    const Outcome outcome = reconcileNets(folder, sales, "--patch " + folder.tradesFile());
    EXPECT_NE(
        unfolded(outcome.out)
            .find("Lines 2, 3, 4: the commission 0.0003 (any from 0.000299983334 to 0.000300016666) fits all 3 lines "
                  "from 2024-01-03 on; the folder has 0.00025, fees/stock.csv:2; also fits: the stamp_duty "
                  "0.00055 (any from 0.000549983334 to 0.000550016666) fits all 3 lines from 2024-01-03 on; the "
                  "folder has 0.0005, fees/stock.csv:2"),
        std::string::npos)
        << outcome.out;
    EXPECT_FALSE(std::filesystem::exists(folder.tradesFile()));
    const Outcome json = reconcileNets(folder, sales, "--json");
    EXPECT_NE(json.out.find(R"("cause":"other_rate")"), std::string::npos) << json.out;
    EXPECT_NE(json.out.find(R"("also_fits":["other_rate"],"alternatives":["the stamp_duty 0.00055)"),
              std::string::npos);
    EXPECT_EQ(json.out.find(R"("row":"proposal")"), std::string::npos);
}

// A purchase pays a smaller sum of it: it is the commission.
TEST(RateOfANet, IsOfTheChargeThatEveryLineOfItPays) {
    const StatementFolder folder;
    const Outcome outcome = reconcileNets(folder,
                                          "20240103,600519,卖,100,1000,1,99920.00\n"
                                          "20240104,600519,买,100,2000,1,-200060.00\n");
    EXPECT_NE(unfolded(outcome.out)
                  .find("Lines 2, 3: the commission 0.0003 (any from 0.000299975 to 0.000300024999) "
                        "fits all 2 lines from 2024-01-03 on"),
              std::string::npos)
        << outcome.out;
    EXPECT_EQ(outcome.out.find("also fits"), std::string::npos) << outcome.out;
}

/// A market folder that charges an order's transfer fee on top, and rounds it by order.
class FeesOnTop : public testing::Test {
protected:
    FeesOnTop() {
        folder.write("charges.csv",
                     "family,charge,side,basis,minimum,per,rounding,currency,source,checked\n"
                     "stock,commission,both,turnover,5,order,0.01 half_up,CNY,test,2024-01-02\n"
                     "stock,transfer_fee,both,turnover,,order,0.01 half_up,CNY,test,2024-01-02\n"
                     "stock,stamp_duty,sell,turnover,,order,0.01 half_up,CNY,test,2024-01-02\n");
    }

    StatementFolder folder;
};

// 2400 bought in three fills of 800: 3 x 5.00, and 3 x 0.008 = 3 x 0.01 and not 0.02 transfer fee.
TEST_F(FeesOnTop, ByFillAreARangeWhichIsTheCause) {
    const Outcome outcome = reconcileNets(folder, "20240102,600519,买,240,10,3,-2415.03\n");
    EXPECT_NE(unfolded(outcome.out)
                  .find("Line 2: each fill charged as an order of its own, with its minimum and rounding, a range: its "
                        "3 fills cost from 15.01 to 15.03"),
              std::string::npos)
        << outcome.out;
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(folder.reconcile("--csv").out.find(",differs,fill_by_fill,"), std::string::npos);
}

TEST_F(FeesOnTop, ByKnownFillAreOrdersOfTheirOwn) {
    folder.writeStatement(
        "日期,代码,买卖,数量,价格,单号,发生\n"
        "20240102,600519,买,80,10,A1,-805.01\n"
        "20240102,600519,买,80,10,A1,-805.01\n"
        "20240102,600519,买,80,10,A1,-805.01\n");
    const Outcome outcome = folder.reconcile();
    EXPECT_NE(unfolded(outcome.out)
                  .find("Lines 2, 3, 4: each fill charged as an order of its own, with its minimum and rounding"),
              std::string::npos)
        << outcome.out;
}

}  // namespace
}  // namespace feedesk::test
