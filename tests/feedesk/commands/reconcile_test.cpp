#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/feedesk/support/statement_folder.h"

namespace feedesk::test {
namespace {

// 600519 on 2024-01-02: commission 0.025 %, at least 5, the transfer fee of 0.001 % inside it; sales 0.05 % stamp duty.
const char* const kAgreeing =
    "20240102,600519,买,100,1000,25.00,0,0,,1,-100025.00\n"
    "20240103,600519,卖,100,1000,25.00,50.00,0,,1,99925.00\n";

class Reconcile : public testing::Test {
protected:
    StatementFolder folder;
};

TEST_F(Reconcile, ShowsLineByLineWhatAgrees) {
    const Outcome outcome = folder.reconcileLines(kAgreeing);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out,
              "Account S100 (stock) 股票户, plain\n"
              "\n"
              "Line  Date        Instrument  Side  Quantity  Statement  Folder  Result\n"
              "   2  2024-01-02  SH:600519   buy        100      25.00   25.00  agrees\n"
              "   3  2024-01-03  SH:600519   sell       100      75.00   75.00  agrees\n"
              "\n"
              "2 trades: 2 agree to the fen\n");
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(Reconcile, ShowsWhatDiffersAndWhy) {
    const Outcome outcome = folder.reconcileLines(
        "20240102,600519,买,100,1000,25.00,0,0,,1,-100025.00\n"
        "20240103,600519,卖,100,1000,25.00,100.00,0,,1,99875.00\n"
        "合计,,,,,50.00,100.00,0,,,\n");
    EXPECT_EQ(outcome.out,
              "Account S100 (stock) 股票户, plain\n"
              "\n"
              "Line  Date        Instrument  Side  Quantity  Statement  Folder  Result\n"
              "   2  2024-01-02  SH:600519   buy        100      25.00   25.00  agrees\n"
              "   3  2024-01-03  SH:600519   sell       100     125.00   75.00  +50.00\n"
              "\n"
              "What differs\n"
              "Line  Figure      Statement    Folder  Difference\n"
              "   3  net          99875.00  99925.00      -50.00\n"
              "   3  stamp_duty     100.00     50.00      +50.00\n"
              "\n"
              "2 trades: 1 agrees to the fen, 1 differs\n"
              "Line 3: the schedule from 2021-01-01 until 2023-08-27; also fits: the stamp_duty\n"
              "(charges.csv:4) charged twice\n"
              "\n"
              "1 line of " +
                  folder.statementFile() +
                  " is no trade and was passed over: 4 (a sum\n"
                  "or remark)\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST_F(Reconcile, AnswersProgramsWithEveryFigure) {
    const Outcome outcome = folder.reconcileLines("20240103,600519,卖,100,1000,25.00,0,0,,1,99975.00\n", "--json");
    EXPECT_EQ(outcome.out,
              "[\n"
              R"({"row":"order","line":2,"lines":["2"],"date":"2024-01-03","market":"SH","code":"600519","name":null,)"
              R"("side":"sell","quantity":100,"order":null,"stated":25.00,"charged":75.00,"difference":-50.00,)"
              R"("currency":"CNY","result":"differs","cause":"left_out",)"
              R"("explanation":"the stamp_duty (charges.csv:4) left out","also_fits":["other_side"],)"
              R"("alternatives":["charged as buy and not as sell"],"charge":null,)"
              R"("rate":null,"rate_low":null,"rate_high":null,"rate_from":null,"rate_until":null,"folder_rate":null,)"
              R"("source":null},)"
              "\n"
              R"({"row":"figure","line":2,"figure":"net","stated":99975.00,"charged":99925.00,"difference":50.00},)"
              "\n"
              R"({"row":"figure","line":2,"figure":"stamp_duty","stated":0.00,"charged":50.00,"difference":-50.00})"
              "\n]\n");
    EXPECT_EQ(outcome.status, 1);
    const Outcome csv = folder.reconcileLines(kAgreeing, "--csv");
    EXPECT_EQ(lines(csv.out).at(1),
              "order,2,2,2024-01-02,SH,600519,,buy,100,,25.00,25.00,0.00,CNY,agrees,,,,,,,,,,,,,,,");
    EXPECT_NE(folder.reconcileLines(kAgreeing, "--json").out.find(R"("also_fits":[],"alternatives":[],)"),
              std::string::npos);
    EXPECT_EQ(csv.status, 0);
}

// What explains the very same amounts is shown everywhere, and the first in the order of causes is the cause.
TEST_F(Reconcile, TellsEqualCausesInEveryForm) {
    const std::string sale = "20240103,600519,卖,100,1000,25.00,0,0,,1,99975.00\n";
    EXPECT_NE(unfolded(folder.reconcileLines(sale).out)
                  .find("Line 2: the stamp_duty (charges.csv:4) left out; also fits: charged as buy and not as sell"),
              std::string::npos);
    EXPECT_NE(
        folder.reconcileLines(sale, "--csv")
            .out.find(",left_out,the stamp_duty (charges.csv:4) left out,other_side,charged as buy and not as sell,"),
        std::string::npos);
    EXPECT_NE(folder.reconcileLines(sale, "--json")
                  .out.find(R"("also_fits":["other_side"],"alternatives":["charged as buy and not as sell"])"),
              std::string::npos);
}

TEST_F(Reconcile, ShowsOnlyWhatDiffersWhereThatIsAskedFor) {
    EXPECT_EQ(folder.reconcileLines(kAgreeing, "--differing").out,
              "Account S100 (stock) 股票户, plain\n\n2 trades: 2 agree to the fen\n");
}

// 3 x 100 shares at 10: 1000 x 0.00025 = 0.25 each, 0.75 together, at least 5.
TEST_F(Reconcile, TakesTheLinesOfAnOrderTogether) {
    const std::string fills =
        "20240102,600519,买,100,10,5.00,0,0,A1,1,-1005.00\n"
        "20240102,600519,买,100,10,0,0,0,A1,1,-1000.00\n"
        "20240102,600519,买,100,10,0,0,0,A1,1,-1000.00\n";
    EXPECT_EQ(folder.reconcileLines(fills).status, 0);
    const Outcome each = folder.reconcileLines(
        "20240102,600519,买,100,10,5.00,0,0,A1,1,-1005.00\n"
        "20240102,600519,买,100,10,5.00,0,0,A1,1,-1005.00\n");
    EXPECT_NE(
        unfolded(each.out).find("Lines 2, 3: the least commission of 5 charged for each fill and not for each order"),
        std::string::npos)
        << each.out;
}

// 20.004 and 20.004 thousand: 5.001 each is 5.00, and 10.002 together 10.00; 20.02: 5.005 is 5.01, twice 10.02 and
// not 10.01.
TEST_F(Reconcile, RoundsKnownFillsOneByOne) {
    const Outcome outcome = folder.reconcileLines(
        "20240102,600519,买,2002,10,5.01,0,0,A1,1,-20025.01\n"
        "20240102,600519,买,2002,10,5.01,0,0,A1,1,-20025.01\n");
    EXPECT_NE(unfolded(outcome.out).find("Lines 2, 3: each fill rounded by itself and not the order as a whole"),
              std::string::npos)
        << outcome.out;
}

TEST_F(Reconcile, CallsARangeARange) {
    const Outcome outcome = folder.reconcileLines("20240102,600519,买,4004,10,10.02,0,0,,2,-40050.02\n");
    EXPECT_NE(unfolded(outcome.out).find("each of 2 fills rounded by itself, a range of half a step for each"),
              std::string::npos)
        << outcome.out;
}

// The transfer fee, 1.00, is inside the commission of 25.00: in its column, or as 24.00 and 1.00.
TEST_F(Reconcile, TakesAnAllInCommissionAndItsPartsForTheSame) {
    EXPECT_EQ(folder.reconcileLines("20240102,600519,买,100,1000,24.00,0,1.00,,1,-100025.00\n").status, 0);
    EXPECT_EQ(folder.reconcileLines("20240102,600519,买,100,1000,23.00,0,1.00,,1,-100024.00\n").status, 1);
}

TEST_F(Reconcile, ReadsWhatBrokersExport) {
    const std::string tabs =
        "客户：某人\n"
        "日期\t代码\t买卖\t数量\t价格\t佣金\t印花税\t过户费\t单号\t笔数\t发生\n"
        "2024/1/2\t=\"600519\"\t买\t100\t1,000.000\t25.00\t.00\t\t\t1\t-100,025.00\n";
    folder.writeStatement(tabs);
    EXPECT_EQ(folder.reconcile().status, 0);
    const std::string convert =
        "iconv -f UTF-8 -t GB18030 -o '" + folder.statementFile() + "' '" + folder.tradesFile() + "'";
    folder.writeTrades(tabs);
    ASSERT_EQ(std::system(convert.c_str()), 0);
    EXPECT_EQ(folder.reconcile().status, 0);
    EXPECT_EQ(folder.reconcile("--encoding gb18030").status, 0);
    EXPECT_EQ(folder.reconcile("--encoding utf-8").err,
              "feedesk: " + folder.statementFile() +
                  ":1: the line is not UTF-8, which --encoding names; leave --encoding out, or name "
                  "gb18030\n");
}

TEST_F(Reconcile, ReadsTheLineEndsOfOldSpreadsheets) {
    std::string statement = "日期,代码,买卖,数量,价格,佣金,印花税,过户费,单号,笔数,发生\n" + std::string(kAgreeing);
    std::replace(statement.begin(), statement.end(), '\n', '\r');
    folder.writeStatement(statement);
    const Outcome outcome = folder.reconcile();
    EXPECT_NE(outcome.out.find("2 trades: 2 agree to the fen"), std::string::npos) << outcome.out << outcome.err;
    EXPECT_NE(outcome.out.find("   3  2024-01-03  SH:600519   sell"), std::string::npos);
}

TEST_F(Reconcile, NamesWhatIsNoTrade) {
    const Outcome outcome = folder.reconcileLines(std::string(kAgreeing) +
                                                  "20240104,600519,派息,0,0,0,0,0,,1,12.50\n"
                                                  ",,,200,,50.00,50.00,0,,,-99.50\n"
                                                  "20240105,,利息,0,0,0,0,0,,1,1.50\n"
                                                  "20240106,600519,派息,0,0,0,0,0,,1,12.50\n");
    EXPECT_NE(unfolded(outcome.out)
                  .find("4 lines of " + folder.statementFile() +
                        " are no trade and were passed over: 4, 7 (派息), 5 (a sum or remark), 6 (利息)"),
              std::string::npos)
        << outcome.out << outcome.err;
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(folder.reconcile("--json").err.find("{\"note\":\"4 lines of"), std::string::npos);
}

TEST_F(Reconcile, SaysThatATradeMayBeThereTwice) {
    const std::string line = "20240102,600519,买,100,1000,25.00,0,0,,1,-100025.00\n";
    const Outcome outcome = folder.reconcileLines(line + line);
    EXPECT_NE(unfolded(outcome.out)
                  .find("1 line of " + folder.statementFile() +
                        " is the same as an earlier one to the letter, and the trade may be there twice: 3 (as 2)"),
              std::string::npos)
        << outcome.out;
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(Reconcile, SaysThatWhatMovedHasNoSigns) {
    const Outcome outcome = folder.reconcileLines(
        "20240102,600519,买,100,1000,25.00,0,0,,1,\"¥100,025.00\"\n"
        "20240103,600519,卖,100,1000,25.00,50.00,0,,1,99 925.00\n");
    EXPECT_EQ(outcome.status, 0) << outcome.out;
    EXPECT_NE(unfolded(outcome.out)
                  .find(folder.statementFile() + " writes what moved on the account without a sign; "
                                                 "what its purchases cost was taken as paid"),
              std::string::npos)
        << outcome.out;
}

// 50000.00 of Hong Kong dollars: commission 0.03 % 15.00, stamp duty 0.1 % 50.00, trading fee 0.00565 % 2.83, levies
// 0.0027 % 1.35 and 0.00015 % 0.08, settlement 0.0042 % 2.10. A spreadsheet took the zeros of the codes away.
TEST_F(Reconcile, ReadsTheLinesOfHongKongConnect) {
    folder.writeStatement(
        "成交日期,交易市场,证券代码,操作,成交数量,成交均价,手续费,印花税,过户费,其他费,发生金额\n"
        "20250702,,=\"00003\",证券买入,100,500,15.00,50.00,0,6.36,-50071.36\n"
        "20250702,沪港通,3,证券买入,100,500,15.00,50.00,0,6.36,-50071.36\n"
        "20250703,,3,证券卖出,100,500,15.00,50.00,0,6.36,49928.64\n");
    const Outcome outcome = ask(BUNDLED_MARKET, "reconcile 5000001 " + folder.statementFile());
    EXPECT_NE(outcome.out.find("   3  2025-07-02  HK:00003    buy        100      71.36   71.36  agrees"),
              std::string::npos)
        << outcome.out << outcome.err;
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(Reconcile, ReportsWhatHasNoAnswer) {
    const Outcome outcome = folder.reconcileLines(
        "20240102,600519,买,100,1000,25.00,0,0,,1,-100025.00\n"
        "20240102,999999,买,100,1000,25.00,0,0,,1,-100025.00\n"
        "20300102,600519,买,100,1000,25.00,0,0,,1,-100025.00\n");
    EXPECT_NE(unfolded(outcome.out).find("3 trades: 1 agrees to the fen, 2 have no answer"), std::string::npos)
        << outcome.out;
    EXPECT_NE(unfolded(outcome.out).find("Line 3: the market folder has no instrument 999999 that the account trades"),
              std::string::npos);
    EXPECT_NE(unfolded(outcome.out).find("Line 4: the folder's schedules are known from 2021-01-01"),
              std::string::npos);
    EXPECT_EQ(outcome.status, 1);
}

// Sentences of 100 groups are shown, and the others counted by what they are.
TEST_F(Reconcile, CountsByCauseWhatItLeavesOut) {
    std::string text = "日期,代码,买卖,数量,价格,佣金\n";
    for (int i = 0; i < 105; ++i) {
        text += "20240102," + std::to_string(900000 + i) + ",买,100,10,5\n";
    }
    text += "20240102,600519,买,100,1000,31\n20240103,600519,买,100,1000,32\n";
    folder.writeStatement(text);
    const std::string reported = unfolded(folder.reconcile().out);
    EXPECT_NE(reported.find("7 trades more by cause: 5 no answer, 2 other_rate; --json and --csv have them all"),
              std::string::npos)
        << reported;
}

TEST_F(Reconcile, SaysWhatItCannotExplain) {
    const Outcome outcome = folder.reconcileLines("20240103,600519,卖,100,1000,25.13,50.29,0,,1,99924.58\n");
    EXPECT_NE(unfolded(outcome.out).find("Line 2: nothing that is known explains it"), std::string::npos)
        << outcome.out;
}

// 100 x 10 is 1000 and not 1200; the fees are those of 1200.
TEST_F(Reconcile, NamesAnAmountThatIsNotQuantityTimesPriceAndNoOtherCause) {
    folder.writeStatement(
        "日期,代码,买卖,数量,价格,成交金额,佣金,发生\n20240102,600519,买,100,10.00,1200.00,5.00,-1205.00\n");
    const Outcome outcome = folder.reconcile();
    EXPECT_NE(unfolded(outcome.out)
                  .find("Line 2: nothing that is known explains it; the amount 1200.00 is not quantity x price"),
              std::string::npos)
        << outcome.out;
    EXPECT_EQ(outcome.status, 1);
}

// 3 x 10.333 is 30.999, and 31.00 as an average.
TEST_F(Reconcile, TakesTheAmountWhereThePriceIsAnAverage) {
    folder.writeStatement(
        "日期,代码,买卖,数量,价格,成交金额,佣金,发生\n20240102,600519,卖,30000,10.333,310000.00,77.50,309767.50\n");
    EXPECT_EQ(folder.reconcile().status, 0) << folder.reconcile().out;
}

TEST_F(Reconcile, SaysWhereTheColumnsOfALineDoNotAddUp) {
    const Outcome outcome = folder.reconcileLines("20240102,600519,买,100,1000,25.00,0,0,,1,-100031.17\n");
    EXPECT_NE(unfolded(outcome.out).find("its columns add up to 25.00, and by its net it cost 31.17"),
              std::string::npos)
        << outcome.out;
}

// At 0.025 % two purchases of 1000 cost 0.50 a day together, at least 5; the broker shows it on the first.
TEST_F(Reconcile, TakesTheTradesOfADayTogetherWhereADayIsCharged) {
    folder.write("charges.csv",
                 "family,charge,side,basis,minimum,per,rounding,currency,source,checked\n"
                 "stock,commission,both,turnover,5,day,0.01 half_up,CNY,test,2024-01-02\n"
                 "stock,transfer_fee,both,turnover,,fill,0.01 half_up,CNY,test,2024-01-02\n"
                 "stock,stamp_duty,sell,turnover,,fill,0.01 half_up,CNY,test,2024-01-02\n");
    const Outcome outcome = folder.reconcileLines(
        "20240102,600519,买,100,10,5.00,0,.01,A1,1,-1005.01\n"
        "20240102,600519,买,100,10,0,0,.01,A2,1,-1000.01\n");
    EXPECT_NE(outcome.out.find("1 trade: 1 agrees to the fen"), std::string::npos) << outcome.out << outcome.err;
}

// 31.00 of 100000 is 0.031 %; the next purchase pays 0.025 % again.
TEST_F(Reconcile, ProposesNoRateThatLaterTradesDoNotPay) {
    const std::string patch = folder.tradesFile();
    const Outcome outcome = folder.reconcileLines(
        "20240102,600519,买,100,1000,31.00,0,0,,1,-100031.00\n"
        "20240103,600519,买,100,1000,25.00,0,0,,1,-100025.00\n",
        "--patch " + patch);
    EXPECT_NE(
        unfolded(outcome.out)
            .find("Line 2: the commission 0.00031 (any from 0.00030995 to 0.000310049999) fits this trade, and not "
                  "line 3 of 2024-01-03; the folder has 0.00025, fees/stock.csv:2"),
        std::string::npos)
        << outcome.out;
    EXPECT_NE(unfolded(outcome.out).find("there is no change to propose; " + patch + " is not written"),
              std::string::npos)
        << outcome.out;
    EXPECT_FALSE(std::filesystem::exists(patch));
}

/// A purchase of 100000 that pays 0.031 %; the folder has 0.025 %.
constexpr const char* kDearPurchase = "20240102,600519,买,100,1000,31.00,0,0,,1,-100031.00\n";

TEST_F(Reconcile, QuotesTheFilesOfItsCommandForTheShell) {
    const std::string patch = folder.path() + " z.patch";
    const Outcome outcome = folder.reconcileLines(kDearPurchase, "--patch '" + patch + "'");
    EXPECT_NE(unfolded(outcome.out).find("patch -p1 -d " + folder.path() + " <'" + patch + "'"), std::string::npos)
        << outcome.out;
    std::filesystem::remove(patch);
}

TEST_F(Reconcile, SaysThatAPatchOfBeforeIsNotOfThisStatement) {
    const std::string patch = folder.path() + ".patch";
    std::ofstream(patch) << "older";
    const Outcome outcome =
        folder.reconcileLines("20240102,600519,买,100,1000,25.00,0,0,,1,-100025.00\n", "--patch " + patch);
    EXPECT_NE(unfolded(outcome.out)
                  .find(patch + " is not written, and what the file holds is of before and not of "
                                "this statement"),
              std::string::npos)
        << outcome.out;
    std::filesystem::remove(patch);
}

// 0.031 % on the first day and 0.022 % from then on; the sale of the second day is charged by nothing that is known.
TEST_F(Reconcile, FindsTheRateOfTheLastDaysAmongOtherDifferences) {
    const Outcome outcome = folder.reconcileLines(
        "20240102,600519,买,100,1000,31.00,0,0,,1,-100031.00\n"
        "20240103,600519,买,100,1000,22.00,0,0,,1,-100022.00\n"
        "20240103,600519,卖,100,1000,29.17,61.23,0,,1,99909.60\n"
        "20240104,600519,卖,100,1000,22.00,50.00,0,,1,99928.00\n");
    const std::string reported = unfolded(outcome.out);
    EXPECT_NE(reported.find("Line 2: the commission 0.00031 (any from"), std::string::npos) << reported;
    EXPECT_NE(reported.find("Line 4: nothing that is known explains it"), std::string::npos) << reported;
    EXPECT_NE(reported.find(
                  "Lines 3, 5: the commission 0.00022 (any from 0.00021995 to 0.000220049999) fits 2 of 3 lines from "
                  "2024-01-03 on (the others differ in other ways)"),
              std::string::npos)
        << reported;
}

// Without its least amount of 5 the commission of 1000 is 0.25.
TEST_F(Reconcile, FindsAMinimumThatIsNotCharged) {
    const Outcome none = folder.reconcileLines("20240102,600519,买,100,10,.25,0,0,,1,-1000.25\n", "--json");
    EXPECT_NE(none.out.find("no least commission and not 5 (charges.csv:2)"), std::string::npos) << none.out;
    EXPECT_NE(none.out.find("other_minimum"), std::string::npos);
    const Outcome other = folder.reconcileLines("20240102,600519,买,100,10,1.00,0,0,,1,-1001.00\n", "--json");
    EXPECT_NE(other.out.find("a least commission of 1 and not 5 (charges.csv:2)"), std::string::npos) << other.out;
}

struct Wrong {
    const char* arguments;
    const char* reported;  ///< behind "feedesk: "
};

TEST_F(Reconcile, RefusesWrongQuestionsInOneSentence) {
    folder.writeStatement("日期,代码,买卖,数量,价格,佣金\n20240102,600519,买,100,1000,25\n");
    const std::string file = folder.statementFile();
    for (const Wrong& each : std::vector<Wrong>{
             {"reconcile", "ACCOUNT is required; `feedesk reconcile --help` shows how to ask"},
             {"reconcile S100", "STATEMENT is required; `feedesk reconcile --help` shows how to ask"},
             {"reconcile S999 F", "the market folder has no account S999; `feedesk accounts` lists the accounts"},
             {"reconcile S100 F --layout no",
              "no is no layout of M/layouts, which has plain, and no file that ends in .toml"},
             {"reconcile S100 F --encoding latin1",
              "--encoding: latin1 is neither utf-8 nor gb18030; `feedesk reconcile --help` shows how to ask"},
             {"reconcile S100 F --date 2024-01-02",
              "--date does not go with reconcile, as each line of a statement has its date"},
             {"reconcile S100 /nowhere", "/nowhere cannot be opened: No such file or directory"},
             {"reconcile S100 F --json --csv",
              "--csv and --json exclude each other; use one of them; `feedesk reconcile --help` shows how to ask"}}) {
        std::string arguments = each.arguments;
        if (const std::size_t place = arguments.find(" F"); place != std::string::npos) {
            arguments.replace(place + 1, 1, file);
        }
        std::string reported = "feedesk: " + std::string(each.reported) + "\n";
        if (const std::size_t place = reported.find(" M/"); place != std::string::npos) {
            reported.replace(place + 1, 1, folder.path());
        }
        const Outcome outcome = ask(folder.path(), arguments);
        if (arguments.find("--json") == std::string::npos) {
            EXPECT_EQ(outcome.err, reported) << arguments;
        }
        EXPECT_NE(outcome.status, 0) << arguments;
    }
}

// Every line would differ, and nothing would explain it.
TEST_F(Reconcile, RefusesALayoutWithAChargeThatTheFolderDoesNotHave) {
    for (const auto& [key, lines] : std::vector<std::pair<std::string, std::string>>{
             {"charges", "charges = \"comission\"\n"},
             {"all_in", "charges = \"commission\"\nall_in = \"comission\"\n"}}) {
        folder.write(
            "layouts/other.toml",
            "format = 1\ntitle = \"other\"\n[columns]\ndate = \"日期\"\ncode = \"代码\"\noperation = \"买卖\"\n"
            "quantity = \"数量\"\nprice = \"价格\"\n[operations]\nbuy = \"买\"\nsell = \"卖\"\n"
            "[charges.commission]\ncolumn = \"佣金\"\n" +
                lines);
        folder.writeStatement("日期,代码,买卖,数量,价格,佣金\n20240102,600519,买,100,1000,31\n");
        const Outcome outcome = folder.reconcile("--layout other");
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, "feedesk: the layout other: " + key +
                                   " of [charges.commission] holds comission, which is neither a charge of "
                                   "charges.csv nor a rate; correct it; did you mean \"commission\"?\n");
    }
}

TEST_F(Reconcile, WritesOverNothingThatItReads) {
    folder.writeStatement("日期,代码,买卖,数量,价格,佣金\n20240102,600519,买,100,1000,31\n");
    const std::string file = folder.statementFile();
    const std::string table = folder.path() + "/fees/stock.csv";
    for (const auto& [options, reported] : std::vector<std::pair<std::string, std::string>>{
             {"--patch " + file, file + " is the statement and would be written over; name another file"},
             {"--xlsx " + file, file + " is the statement and would be written over; name another file"},
             {"--patch " + table, table + " is in the market folder, which is not written to; name another file"},
             {"--patch -", "a patch does not go to standard output, where the answer is; name a file"},
             {"--patch /tmp/none --xlsx /tmp/../tmp/none", "--patch and --xlsx name the same file; name two"}}) {
        const Outcome outcome = ask(folder.path(), "reconcile S100 " + file + " " + options);
        EXPECT_EQ(outcome.status, 2) << options;
        EXPECT_EQ(outcome.err, "feedesk: " + reported + "\n") << options;
    }
}

struct BrokenFile {
    const char* name;
    std::string content;
    const char* reported;  ///< behind "feedesk: FILE"
};

TEST_F(Reconcile, RefusesBrokenFilesWithTheirPlace) {
    const std::string header = "日期,代码,买卖,数量,价格,佣金\n";
    for (const BrokenFile& each : std::vector<BrokenFile>{
             {"a workbook", "\xD0\xCF\x11\xE0\xA1\xB1",
              ":1: the file is a workbook, and a text of cells was expected; save it "
              "as CSV or as text with tabs\n"},
             {"a web page", "<html><table>",
              ":1: the file is a web page, and a text of cells was expected; save it as CSV or "
              "as text with tabs\n"},
             {"bytes", header + "\xFF\xFF\n",
              ":2: the line is neither UTF-8 nor GB18030; save the statement in one of them\n"},
             {"a NUL", header + std::string("a\0b\n", 4),
              ":2: there is a NUL byte here, so that the file is no text; save it "
              "as CSV\n"},
             {"nothing", "", ": no line is a header that the layout knows; --layout FILE.toml describes another one\n"},
             {"no trade", header, " has no trade below its header\n"},
             {"a word", header + "20240102,600519,买,many,1000,25\n",
              ":2: column 数量 holds many, and a plain number such as "
              "1488.50 was expected, of at most 18 digits before and "
              "behind its point\n"}}) {
        folder.writeStatement(each.content);
        const Outcome outcome = folder.reconcile();
        EXPECT_EQ(outcome.status, 2) << each.name;
        EXPECT_EQ(outcome.out, "") << each.name;
        const std::string reported = outcome.err.substr(0, outcome.err.find('\n') + 1);
        EXPECT_EQ(reported.substr(reported.find(".xls") + 4), each.reported) << each.name;
    }
}

}  // namespace
}  // namespace feedesk::test
