#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/statement_folder.h"

// One rate that explains trades of several lines of the folder, or of one instrument alone, and what is proposed for
// it.

namespace feedesk::test {
namespace {

struct RateCase {
    const char* name;
    std::string lines;
    std::vector<const char*> reported;
    std::vector<const char*> patched;  ///< lines that the patch adds; none: nothing is proposed
};

/// Shanghai pays 0.025 % commission, Shenzhen 0.02 %, and sales 0.05 % stamp duty; until 2023-08-27 they were 0.03 %,
/// 0.0287 % and 0.1 %. Of 600000 and 601398 the commission is 0.01 %, by a custom fee of their category. Account S200
/// pays 0.012 % in Shanghai.
class CommonRate : public testing::TestWithParam<RateCase> {
protected:
    CommonRate() {
        folder.write("charges.csv",
                     "family,charge,side,basis,per,rounding,currency,source,checked\n"
                     "stock,commission,both,turnover,order,0.01 half_up,CNY,test,2024-01-02\n"
                     "stock,stamp_duty,sell,turnover,order,0.01 half_up,CNY,test,2024-01-02\n"
                     "stock,transfer_fee,both,turnover,order,0.01 half_up,CNY,test,2024-01-02\n");
        folder.write("fees/stock.csv",
                     "account,market,code,commission,transfer_fee,stamp_duty,from,until\n"
                     "S100,SH,60*,0.00025,0,0.0005,2023-08-28,\n"
                     "S100,SZ,*,0.0002,0,0.0005,2023-08-28,\n"
                     "S100,SH,60*,0.0003,0,0.001,,2023-08-27\n"
                     "S100,SZ,*,0.000287,0,0.001,,2023-08-27\n"
                     "S200,SH,60*,0.00012,0,0.0005,,\n");
        folder.write(
            "instruments/more.csv",
            "market,code,name,lists\nSH,601398,工商银行,stock\nSH,601088,中国神华,stock\nSZ,300750,宁德时代,stock\n");
        folder.write("categories.csv",
                     "category,name,market,code\n1,Banks,SH,600000\n1,Banks,SH,601398\n2,Futures,SHFE,*\n3,Options,SHO,"
                     "*\n4,Rebar,SHFE,rb2610\n");
        folder.write("custom/stock.csv", "account,update,category,commission,stamp_duty\nS100,1,1,0.0001,0.0005\n");
    }

    StatementFolder folder;
};

TEST_P(CommonRate, IsReportedAndProposedAsFarAsItReaches) {
    const Outcome outcome = folder.reconcileLines(GetParam().lines, "--patch " + folder.patchFile());
    const std::string text = unfolded(outcome.out);
    for (const char* each : GetParam().reported) {
        EXPECT_NE(text.find(each), std::string::npos) << each << '\n' << outcome.out << outcome.err;
    }
    EXPECT_EQ(outcome.status, 1);
    ASSERT_EQ(std::filesystem::exists(folder.patchFile()), !GetParam().patched.empty()) << outcome.out;
    if (GetParam().patched.empty()) {
        return;
    }
    EXPECT_EQ(folder.addedByPatch(), std::vector<std::string>(GetParam().patched.begin(), GetParam().patched.end()));
    ASSERT_TRUE(folder.applyPatch());
    const Outcome after = folder.reconcile();
    EXPECT_EQ(after.status, 0) << after.out << after.err;
}

// The cells: day, code, side, quantity, price, commission, stamp duty, transfer fee, order, fills, net. Of 1010.00 the
// stamp duty is 0.505, so 0.51, and by the old rate 1.01, which is not twice as much.
INSTANTIATE_TEST_SUITE_P(
    Of, CommonRate,
    testing::Values(
        RateCase{"TwoLinesGoesBeforeACauseOfOne",
                 "20240102,600519,卖,100,1000,25.00,100.00,0,,1,99875.00\n"
                 "20240103,300750,卖,100,10.10,.20,1.01,0,,1,1008.79\n",
                 {"Lines 2, 3: the stamp_duty 0.001 (any from 0.00099995 to 0.001000049999), as by the schedule from "
                  "2021-01-01 until 2023-08-27, fits all 2 lines from 2024-01-02 on; the folder has 0.0005, "
                  "fees/stock.csv:2, fees/stock.csv:3; also fits line 2: the stamp_duty (charges.csv:3) charged twice"},
                 {"S100,SH,60*,0.00025,0,0.0005,2023-08-28,2024-01-01", "S100,SH,60*,0.00025,0,0.001,2024-01-02,",
                  "S100,SZ,*,0.0002,0,0.0005,2023-08-28,2024-01-01", "S100,SZ,*,0.0002,0,0.001,2024-01-02,"}},
        // 100000 and 200000.
        RateCase{"SeveralTradesIsNamedBesideTheirCause",
                 "20240102,600519,卖,100,1000,25.00,100.00,0,,1,99875.00\n"
                 "20240103,600519,卖,100,2000,50.00,200.00,0,,1,199750.00\n",
                 {"Lines 2, 3: the stamp_duty (charges.csv:3) charged twice; also fits: the stamp_duty 0.001 (any from "
                  "0.000999975 to 0.001000024999), as by the schedule from 2021-01-01 until 2023-08-27, fits all 2 "
                  "lines from 2024-01-02 on; the folder has 0.0005, fees/stock.csv:2"},
                 {}},
        // 1001 x 0.000287 = 0.29, as by 0.00029, which is simpler.
        RateCase{
            "AnotherDayIsNamedBeforeASimplerOne",
            "20240102,300750,卖,100,10.01,.29,.50,0,,1,1000.21\n",
            {"Line 2: the commission 0.000287 (any from 0.000284715285 to 0.000294705294), as by the schedule from "
             "2021-01-01 until 2023-08-27, fits the line from 2024-01-02 on"},
            {"S100,SZ,*,0.0002,0,0.0005,2023-08-28,2024-01-01", "S100,SZ,*,0.000287,0,0.0005,2024-01-02,"}},
        // 601088 pays the folder's 0.025 % in between.
        RateCase{"OneInstrumentHasALineOfItsOwn",
                 "20240102,600519,买,100,1000,40.00,0,0,,1,-100040.00\n"
                 "20240102,601088,买,100,1000,25.00,0,0,,1,-100025.00\n"
                 "20240103,600519,买,100,2000,80.00,0,0,,1,-200080.00\n",
                 {"Lines 2, 4: the commission 0.0004 (any from 0.000399975 to 0.000400024999) fits all 2 lines of "
                  "SH:600519 from 2024-01-02 on; the folder has 0.00025, fees/stock.csv:2"},
                 {"S100,SH,600519,0.0004,0,0.0005,2024-01-02,"}},
        // 600519 is not traded behind the day on which the rate ended, and 601088 had it too.
        RateCase{"ARateThatEndedIsNotOfTheInstrumentThatIsNotTradedLater",
                 "20240102,600519,买,100,1000,40.00,0,0,,1,-100040.00\n"
                 "20240103,601088,买,100,1000,40.00,0,0,,1,-100040.00\n"
                 "20240104,600519,买,100,2000,80.00,0,0,,1,-200080.00\n"
                 "20240108,601088,买,100,1000,25.00,0,0,,1,-100025.00\n",
                 {"Lines 2, 3, 4: the commission 0.0004 (any from 0.000399975 to 0.000400024999) fits all 3 lines from "
                  "2024-01-02 until 2024-01-04; the folder has 0.00025, fees/stock.csv:2"},
                 {"S100,SH,60*,0.00025,0,0.0005,2023-08-28,2024-01-01",
                  "S100,SH,60*,0.0004,0,0.0005,2024-01-02,2024-01-04", "S100,SH,60*,0.00025,0,0.0005,2024-01-05,"}},
        // In Shenzhen one trade alone has it.
        RateCase{
            "ARateThatEndedIsOfTheOtherLineToo",
            "20240102,600519,买,100,1000,40.00,0,0,,1,-100040.00\n"
            "20240103,300750,买,100,1000,40.00,0,0,,1,-100040.00\n"
            "20240104,600519,买,100,2000,80.00,0,0,,1,-200080.00\n"
            "20240108,300750,买,100,1000,20.00,0,0,,1,-100020.00\n"
            "20240108,600519,买,100,1000,25.00,0,0,,1,-100025.00\n",
            {"Lines 2, 3, 4: the commission 0.0004 (any from 0.000399975 to 0.000400024999) fits all 3 lines from "
             "2024-01-02 until 2024-01-04; the folder has 0.0002, fees/stock.csv:3; and 0.00025, fees/stock.csv:2"},
            {"S100,SH,60*,0.00025,0,0.0005,2023-08-28,2024-01-01", "S100,SH,60*,0.0004,0,0.0005,2024-01-02,2024-01-04",
             "S100,SH,60*,0.00025,0,0.0005,2024-01-05,", "S100,SZ,*,0.0002,0,0.0005,2023-08-28,2024-01-01",
             "S100,SZ,*,0.0004,0,0.0005,2024-01-02,2024-01-04", "S100,SZ,*,0.0002,0,0.0005,2024-01-05,"}},
        RateCase{
            "OneInstrumentOfACategoryHasNoLine",
            "20240102,600000,买,100,1000,40.00,0,0,,1,-100040.00\n"
            "20240102,601398,买,100,1000,10.00,0,0,,1,-100010.00\n"
            "20240103,600000,买,100,2000,80.00,0,0,,1,-200080.00\n",
            {"Lines 2, 4: the commission 0.0004 (any from 0.000399975 to 0.000400024999) fits all 2 lines of "
             "SH:600000 from 2024-01-02 on; the folder has 0.0001, custom/stock.csv:2",
             "no line is proposed for the commission of SH:600000 alone, as custom/stock.csv:2 is a line of several "
             "instruments and its table has no column for one"},
            {}},
        RateCase{
            "AnotherAccountsIsNamedBesideTheAccountAndProposedInCaseItWasAgreed",
            "20240102,600519,买,100,1000,12.00,0,0,,1,-100012.00\n"
            "20240103,600519,买,100,2000,24.00,0,0,,1,-200024.00\n",
            {"Lines 2, 3: the rates and terms of account S200; also fits: the commission 0.00012 (any from "
             "0.000119975 to 0.000120024999) fits all 2 lines from 2024-01-02 on; the folder has 0.00025, "
             "fees/stock.csv:2",
             "change fees/stock.csv:2 only where the commission 0.00012 was agreed on; where it was not, the broker "
             "made the mistake that the cause names"},
            {"S100,SH,60*,0.00025,0,0.0005,2023-08-28,2024-01-01", "S100,SH,60*,0.00012,0,0.0005,2024-01-02,"}},
        RateCase{
            "AnotherLevelsIsNamedBesideTheLevelAndProposedInCaseItWasAgreed",
            "20240102,600000,买,100,1000,25.00,0,0,,1,-100025.00\n"
            "20240103,601398,买,100,2000,50.00,0,0,,1,-200050.00\n",
            {"Lines 2, 3: the rates of the own record, fees/stock.csv:2, which custom fee, custom/stock.csv:2 goes "
             "before",
             "change custom/stock.csv:2 only where the commission 0.00025 was agreed on"},
            {"account,update,category,commission,stamp_duty,from,until", "S100,1,1,0.0001,0.0005,,2024-01-01",
             "S100,1,1,0.00025,0.0005,2024-01-02,"}},
        RateCase{"AnotherAccountsOfASingleTradeIsNotProposed",
                 "20240102,600519,买,100,1000,12.00,0,0,,1,-100012.00\n"
                 "20240103,600519,买,100,100,2.50,0,0,,1,-10002.50\n",
                 {"Line 2: the rates and terms of account S200"},
                 {}},
        RateCase{"AnotherAccountsBesidesATradeThatPaysTheFoldersIsNotProposed",
                 "20240102,600519,买,100,1000,12.00,0,0,,1,-100012.00\n"
                 "20240103,600519,买,100,2000,50.00,0,0,,1,-200050.00\n"
                 "20240104,600519,买,100,3000,36.00,0,0,,1,-300036.00\n"
                 "20240105,600519,买,100,2000,50.00,0,0,,1,-200050.00\n",
                 {"Lines 2, 4: the rates and terms of account S200"},
                 {}}),
    [](const auto& param) { return std::string(param.param.name); });

TEST_F(CommonRate, ThatEndedIsNotOfALineThatPaysAnother) {
    const Outcome outcome = folder.reconcileLines(
        "20240102,600519,买,100,1000,40.00,0,0,,1,-100040.00\n"
        "20240103,300750,买,100,1000,31.00,0,0,,1,-100031.00\n"
        "20240104,600519,买,100,2000,80.00,0,0,,1,-200080.00\n"
        "20240108,300750,买,100,1000,20.00,0,0,,1,-100020.00\n"
        "20240108,600519,买,100,1000,25.00,0,0,,1,-100025.00\n");
    const std::string text = unfolded(outcome.out);
    EXPECT_NE(text.find("Lines 2, 4: the commission 0.0004 (any from 0.000399975 to 0.000400024999) fits all 2 lines "
                        "from 2024-01-02 until 2024-01-04; the folder has 0.00025, fees/stock.csv:2"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("Line 3: the commission 0.00031 (any from 0.00030995 to 0.000310049999) fits this trade, and "
                        "not line 5 of 2024-01-08"),
              std::string::npos)
        << text;
}

// A net that is higher says nothing of the charge: the transfer fee 0.00015 would fit as well.
TEST_F(CommonRate, OfElsewhereIsNotProposedWhereAnotherChargesRateFitsToo) {
    folder.write("fees/stock.csv",
                 "account,market,code,commission,transfer_fee,stamp_duty\n"
                 "S100,SH,60*,0.00025,0.00001,0.0005\nS200,SH,60*,0.0004,0.00001,0.0005\n");
    folder.writeStatement(
        "日期,代码,买卖,数量,价格,笔数,发生\n"
        "20240102,600519,买,100,1000,1,-100041.00\n"
        "20240103,600519,买,100,2000,1,-200082.00\n");
    const Outcome outcome = folder.reconcile("--patch " + folder.patchFile());
    EXPECT_NE(unfolded(outcome.out).find("Lines 2, 3: the rates and terms of account S200"), std::string::npos)
        << outcome.out;
    EXPECT_FALSE(std::filesystem::exists(folder.patchFile())) << outcome.out;
}

/// Sums alone. Account S100 pays 0.01 % commission, at least 5, and 0.002 % transfer fee; S200 pays 0.008 % in 600519.
/// With 0.008 % an order costs as much as without the transfer fee where both commissions are above 5.
class RateOfLinesWithSeveralCauses : public CommonRate {
protected:
    Outcome reconciled(const std::string& lines) {
        folder.write("charges.csv",
                     "family,charge,side,basis,minimum,per,rounding,currency,source,checked\n"
                     "stock,commission,both,turnover,5,order,0.01 half_up,CNY,test,2024-01-02\n"
                     "stock,stamp_duty,sell,turnover,,order,0.01 half_up,CNY,test,2024-01-02\n"
                     "stock,transfer_fee,both,turnover,,order,0.01 half_up,CNY,test,2024-01-02\n");
        folder.write("fees/stock.csv",
                     "account,market,code,commission,transfer_fee,stamp_duty,from,until\n"
                     "S100,SH,60*,0.0001,0.00002,0.0005,,\nS200,SH,600519,0.00008,0.00002,0.0005,,\n");
        folder.writeStatement(
            "日期,代码,买卖,数量,价格,笔数,发生\n"
            "20240102,601088,买,100,1000,1,-100010.00\n"
            "20240103,601088,买,100,2000,1,-200020.00\n" +
            lines);
        return folder.reconcile("--patch " + folder.patchFile());
    }
};

// 55000 and 60000 pay the minimum of 5, and 1.10 and 1.20: with the transfer fee left out they would pay 5.50 and 6.00.
TEST_F(RateOfLinesWithSeveralCauses, GoesBeforeThemWhereItExplainsAll) {
    const Outcome outcome = reconciled(
        "20240104,600519,买,100,550,1,-55006.10\n"
        "20240105,600519,买,100,600,1,-60006.20\n");
    EXPECT_NE(unfolded(outcome.out)
                  .find("Lines 2, 3, 4, 5: the commission 0.00008 (any from 0.000079975 to 0.000080024999) fits all 4 "
                        "lines from 2024-01-02 on; the folder has 0.0001, fees/stock.csv:2; also fits"),
              std::string::npos)
        << outcome.out;
    EXPECT_EQ(folder.addedByPatch(), (std::vector<std::string>{"S100,SH,60*,0.0001,0.00002,0.0005,,2024-01-01",
                                                               "S100,SH,60*,0.00008,0.00002,0.0005,2024-01-02,"}));
}

TEST_F(RateOfLinesWithSeveralCauses, GoesBehindThemWhereOneTradeAloneHasAnother) {
    const Outcome outcome = reconciled("20240104,600519,买,100,550,1,-55006.10\n");
    const std::string text = unfolded(outcome.out);
    EXPECT_NE(text.find("Lines 2, 3: the transfer_fee (charges.csv:4) left out"), std::string::npos) << outcome.out;
    EXPECT_NE(text.find("Line 4: the rates and terms of account S200"), std::string::npos) << outcome.out;
}

// 110000 pay 13.20 in the folder, 11.00 without the transfer fee and 11.00 with 0.008 % commission.
TEST_F(RateOfLinesWithSeveralCauses, GoesBehindTheOneThatExplainsAll) {
    const Outcome outcome = reconciled("20240104,600519,买,100,1100,1,-110011.00\n");
    EXPECT_NE(unfolded(outcome.out).find("Lines 2, 3, 4: the transfer_fee (charges.csv:4) left out"), std::string::npos)
        << outcome.out;
}

}  // namespace
}  // namespace feedesk::test
