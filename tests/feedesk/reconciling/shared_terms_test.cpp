#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/statement_folder.h"

// Changes of charging terms that explain several trades: named once, and proposed for the account alone.

namespace feedesk::test {
namespace {

struct TermsCase {
    const char* name;
    const char* lines;
    const char* reported;
    std::vector<const char*> added;  ///< the lines that the patch adds
};

/// 600519 pays 0.03 % commission, at least 5, and on top of it 0.001 % transfer fee, 0.005 % of a third charge and, of
/// sales, 0.05 % stamp duty.
class OtherTerms : public testing::TestWithParam<TermsCase> {
protected:
    OtherTerms() {
        folder.write("charges.csv",
                     "family,account,charge,side,basis,minimum,per,rounding,inside,currency,from,until,source,checked\n"
                     "stock,,commission,both,turnover,5,order,0.01 half_up,,CNY,,,test,2024-01-02\n"
                     "stock,,transfer_fee,both,turnover,,order,0.01 half_up,,CNY,,,test,2024-01-02\n"
                     "stock,,rate3,both,turnover,,order,0.01 half_up,,CNY,,,test,2024-01-02\n"
                     "stock,,stamp_duty,sell,turnover,,order,0.01 half_up,,CNY,,,test,2024-01-02\n");
        folder.write("fees/stock.csv",
                     "account,market,code,commission,transfer_fee,rate3,stamp_duty\n"
                     "S100,SH,60*,0.0003,0.00001,0.00005,0.0005\n");
    }

    StatementFolder folder;
};

TEST_P(OtherTerms, AreNamedOnceAndTheirPatchMakesTheFolderAgree) {
    const Outcome outcome = folder.reconcileLines(GetParam().lines, "--patch " + folder.patchFile());
    EXPECT_NE(unfolded(outcome.out).find(GetParam().reported), std::string::npos) << GetParam().reported << '\n'
                                                                                  << outcome.out << outcome.err;
    EXPECT_EQ(folder.addedByPatch(), std::vector<std::string>(GetParam().added.begin(), GetParam().added.end()));
    ASSERT_TRUE(folder.applyPatch());
    const Outcome after = folder.reconcile();
    EXPECT_EQ(after.status, 0) << after.out << after.err;
}

// The cells: day, code, side, quantity, price, commission, stamp duty, transfer fee, order, fills, net.
INSTANTIATE_TEST_SUITE_P(
    Of, OtherTerms,
    testing::Values(
        // 100000 bought and 200000 sold: 30.00 and 60.00, and on top of it 1.00 and 5.00, 2.00 and 10.00.
        TermsCase{"ACommissionThatContainsTheFees",
                  "20240102,600519,买,100,1000,30.00,0,0,,1,-100030.00\n"
                  "20240103,600519,卖,100,2000,60.00,100.00,0,,1,199840.00\n",
                  "Lines 2, 3: the transfer_fee (charges.csv:3) and the rate3 (charges.csv:4) inside the "
                  "commission and not on top of it",
                  {"stock,S100,transfer_fee,both,turnover,,order,0.01 half_up,commission,CNY,2024-01-02,,a broker "
                   "statement of 2024,2024-01-03",
                   "stock,S100,rate3,both,turnover,,order,0.01 half_up,commission,CNY,2024-01-02,,a broker "
                   "statement of 2024,2024-01-03"}},
        // 1000 and 2000: 0.30 and 0.60, with 0.01 and 0.05, 0.02 and 0.10.
        TermsCase{"AnotherMinimum",
                  "20240102,600519,买,100,10,1.00,0,.01,,1,-1001.06\n"
                  "20240103,600519,买,100,20,1.00,0,.02,,1,-2001.12\n",
                  "Lines 2, 3: a least commission of 1 and not 5 (charges.csv:2)",
                  {"stock,S100,commission,both,turnover,1,order,0.01 half_up,,CNY,2024-01-02,,a broker statement of "
                   "2024,2024-01-03"}},
        // Each fill of 2050 pays 5.00, 0.0205 and 0.1025; together the third charge would be 0.205, so 0.21.
        TermsCase{"FillsThatAreOrdersOfTheirOwn",
                  "20240102,600519,买,100,20.5,5.00,0,.02,A1,1,-2055.12\n"
                  "20240102,600519,买,100,20.5,5.00,0,.02,A1,1,-2055.12\n"
                  "20240103,600519,买,100,20.5,5.00,0,.02,A2,1,-2055.12\n"
                  "20240103,600519,买,100,20.5,5.00,0,.02,A2,1,-2055.12\n",
                  "Lines 2, 3, 4, 5: each fill charged as an order of its own, with its minimum and rounding",
                  {"stock,S100,commission,both,turnover,5,fill,0.01 half_up,,CNY,2024-01-02,,a broker statement of "
                   "2024,2024-01-03",
                   "stock,S100,transfer_fee,both,turnover,,fill,0.01 half_up,,CNY,2024-01-02,,a broker statement of "
                   "2024,2024-01-03",
                   "stock,S100,rate3,both,turnover,,fill,0.01 half_up,,CNY,2024-01-02,,a broker statement of "
                   "2024,2024-01-03"}}),
    [](const auto& param) { return std::string(param.param.name); });

// The commission alone says nothing of what is in it where the statement has no more than its net.
TEST_F(OtherTerms, AreFoundInANet) {
    folder.writeStatement(
        "日期,代码,买卖,数量,价格,笔数,发生\n"
        "20240102,600519,买,100,1000,1,-100030.00\n"
        "20240103,600519,卖,100,2000,1,199840.00\n");
    EXPECT_NE(unfolded(folder.reconcile().out).find("Lines 2, 3: the transfer_fee (charges.csv:3) and the rate3"),
              std::string::npos);
}

TEST_F(OtherTerms, AreNotProposedWhereALaterTradeHasTheFoldersOwn) {
    const Outcome outcome = folder.reconcileLines(
        "20240102,600519,买,100,10,1.00,0,.01,,1,-1001.06\n"
        "20240103,600519,买,100,20,1.00,0,.02,,1,-2001.12\n"
        "20240104,600519,买,100,10,5.00,0,.01,,1,-1005.06\n",
        "--patch " + folder.patchFile());
    EXPECT_FALSE(std::filesystem::exists(folder.patchFile()));
    EXPECT_NE(unfolded(outcome.out)
                  .find("no line is proposed for a least commission of 1 and not 5 (charges.csv:2), as line 4, which "
                        "agrees, would differ with it; where that was agreed, change charges.csv:2 by hand"),
              std::string::npos)
        << outcome.out;
}

/// A commission of 0.024 %, and on top of it the fees of 0.006 %, which cost what 0.03 % with them in it does.
class LowerCommission : public OtherTerms {
protected:
    [[nodiscard]] std::string causesOf(const std::string& lines) {
        folder.writeStatement("日期,代码,买卖,数量,价格,笔数,发生\n" + lines);
        return unfolded(folder.reconcile().out);
    }
};

TEST_F(LowerCommission, IsARateWhereALaterTradePaysTheFeesOnTop) {
    const std::string text = causesOf(
        "20240102,600519,买,100,1000,1,-100030.00\n"
        "20240103,600519,买,100,2000,1,-200060.00\n"
        "20240104,600519,买,100,1000,1,-100036.00\n");
    EXPECT_EQ(text.find("inside the commission"), std::string::npos) << text;
    EXPECT_NE(text.find("Lines 2, 3: the commission 0.00024 "), std::string::npos) << text;
}

TEST_F(LowerCommission, OfOneTradeAmongOthersIsARateBeforeAnAllInOne) {
    const std::string text = causesOf(
        "20240102,600519,买,100,2000,1,-200072.00\n"
        "20240103,600519,买,100,1000,1,-100030.00\n"
        "20240104,600519,买,100,2000,1,-200072.00\n");
    EXPECT_NE(text.find("Line 3: the commission 0.00024 (any from 0.00023995 to 0.000240049999) fits this trade, and "
                        "not line 4 of 2024-01-04; the folder has 0.0003, fees/stock.csv:2; also fits: the "
                        "transfer_fee (charges.csv:3) and the rate3"),
              std::string::npos)
        << text;
}

// 100000 sold: 30.00 less 6.00 and no fees beside it, which neither a rate of the commission nor of the fees explains.
TEST_F(OtherTerms, OfOneTradeAmongOthersAreNamedWhereNoRateFits) {
    const Outcome outcome = folder.reconcileLines(
        "20240102,600519,买,100,2000,60.00,0,2.00,,1,-200072.00\n"
        "20240103,600519,卖,100,1000,30.00,50.00,0,,1,99920.00\n"
        "20240104,600519,买,100,2000,60.00,0,2.00,,1,-200072.00\n");
    EXPECT_NE(unfolded(outcome.out)
                  .find("Line 3: the transfer_fee (charges.csv:3) and the rate3 (charges.csv:4) inside "
                        "the commission"),
              std::string::npos)
        << outcome.out;
}

// An agreeing trade before the first that differs says nothing of the days from then on.
TEST_F(LowerCommission, MayBeAnAllInOneFromADayOn) {
    const std::string text = causesOf(
        "20240102,600519,买,100,1000,1,-100036.00\n"
        "20240103,600519,买,100,1000,1,-100030.00\n"
        "20240104,600519,买,100,2000,1,-200060.00\n");
    EXPECT_NE(text.find("Lines 3, 4: the transfer_fee (charges.csv:3) and the rate3 (charges.csv:4) inside the "
                        "commission"),
              std::string::npos)
        << text;
}

TEST_F(LowerCommission, IsThatOfAnotherAccountBeforeAnAllInOne) {
    folder.write("fees/stock.csv",
                 "account,market,code,commission,transfer_fee,rate3,stamp_duty\n"
                 "S100,SH,60*,0.0003,0.00001,0.00005,0.0005\n"
                 "S200,SH,60*,0.00024,0.00001,0.00005,0.0005\n");
    const std::string text = causesOf(
        "20240102,600519,买,100,1000,1,-100030.00\n"
        "20240103,600519,买,100,2000,1,-200060.00\n");
    EXPECT_NE(text.find("Lines 2, 3: the rates and terms of account S200; also fits: the transfer_fee"),
              std::string::npos)
        << text;
}

TEST_F(OtherTerms, AreToBeChangedByHandWhereTheTableHasNoAccounts) {
    folder.write("charges.csv",
                 "family,charge,side,basis,minimum,per,rounding,currency,source,checked\n"
                 "stock,commission,both,turnover,5,order,0.01 half_up,CNY,test,2024-01-02\n");
    folder.write("fees/stock.csv", "account,market,code,commission\nS100,SH,60*,0.0003\n");
    const Outcome outcome = folder.reconcileLines(
        "20240102,600519,买,100,10,1.00,0,0,,1,-1001.00\n"
        "20240103,600519,买,100,20,1.00,0,0,,1,-2001.00\n");
    EXPECT_NE(
        unfolded(outcome.out)
            .find("no line is proposed for a least commission of 1 and not 5 (charges.csv:2), as charges.csv:2 is "
                  "of several accounts and its table has no column for one; where that was agreed, change "
                  "charges.csv:2 by hand"),
        std::string::npos)
        << outcome.out;
}

}  // namespace
}  // namespace feedesk::test
