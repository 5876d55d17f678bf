#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <vector>

#include "tests/feedesk/support/cost_folder.h"

namespace feedesk::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class Cost : public testing::Test {
protected:
    [[nodiscard]] Outcome cost(const std::string& arguments) const { return folder.cost(arguments); }

    CostFolder folder;
};

// 100 x 5.02 = 502.00; 0.00025 of it is less than the least commission of 5; 0.00001 of it is 0.00502.
TEST_F(Cost, TableHasTheItemsAndWhatTheAccountPays) {
    const Outcome outcome = folder.cost("S100 600519 buy 100@5.02", "COLUMNS=110");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "Account S100 (stock) 股票户\n"
              "\n"
              "buy 100 SH:600519 贵州茅台 at 5.02 on 2024-01-02\n"
              "Charge         Basis    Rate  Amount  Inside      Level       Rate from         Term\n"
              "Commission    502.00  0.025%    5.00              own record  fees/stock.csv:2  charges.csv:2\n"
              "Transfer fee  502.00  0.001%    0.01  Commission  own record  fees/stock.csv:2  charges.csv:3\n"
              "\n"
              "Turnover 502.00, costs 5.00 CNY; the account pays 507.00 CNY\n");
}

TEST_F(Cost, TableFitsIntoEightyColumns) {
    EXPECT_LE(widestLine(cost("S100 600519 buy 100@5.02 sell 100@6").out), 80U);
}

// 300 x 1488.50 = 446550; commission 111.6375, transfer fee 4.4655, stamp duty 223.275.
TEST_F(Cost, SaleIsReceivedWithoutItsCosts) {
    EXPECT_THAT(cost("S100 600519 sell 300@1488.50").out,
                HasSubstr("Turnover 446550.00, costs 334.92 CNY; the account receives 446215.08 CNY\n"));
}

TEST_F(Cost, EachTradeIsAnOrderOfItsOwn) {
    const Outcome outcome = cost("S100 600519 buy 100@5.02 sell 100@5.02");
    EXPECT_THAT(outcome.out, HasSubstr("Trade 1: turnover 502.00, costs 5.00 CNY; the account pays 507.00 CNY\n"));
    EXPECT_THAT(outcome.out, HasSubstr("Trade 2: turnover 502.00, costs 5.25 CNY; the account receives 496.75 CNY\n"));
}

// The fee of 3 for the day's purchases is paid once, with the first of them; the sale is of another side.
TEST_F(Cost, TradesOfADayShareWhatIsChargedForTheDay) {
    folder.write("charges.csv",
                 "family,charge,side,basis,rate,per,rounding,currency,source,checked\n"
                 "stock,commission,both,turnover,,order,0.01 half_up,CNY,test,2024-01-02\n"
                 "stock,transfer_fee,both,turnover,,order,0.01 half_up,CNY,test,2024-01-02\n"
                 "stock,stamp_duty,sell,turnover,,order,0.01 half_up,CNY,test,2024-01-02\n"
                 "stock,day_fee,buy,day,3,day,0.01 half_up,CNY,test,2024-01-02\n");
    // 50200 x 0.00025 = 12.55, x 0.00001 = 0.50, x 0.0005 = 25.10.
    const std::string out = cost("S100 600519 buy 10000@5.02 buy 10000@5.02 sell 10000@5.02").out;
    EXPECT_THAT(out, HasSubstr("Trade 1: turnover 50200.00, costs 16.05 CNY; the account pays 50216.05 CNY\n"));
    EXPECT_THAT(out, HasSubstr("Trade 2: turnover 50200.00, costs 13.05 CNY; the account pays 50213.05 CNY\n"));
    EXPECT_THAT(out, HasSubstr("Trade 3: turnover 50200.00, costs 38.15 CNY; the account receives 50161.85 CNY\n"));
}

TEST_F(Cost, DateAsksForTheScheduleOfThatDay) {
    EXPECT_THAT(cost("S100 600519 sell 100@5.02 --date 2023-08-27").out, HasSubstr("costs 5.50 CNY"));
    EXPECT_THAT(cost("S100 600519 sell 100@5.02 --date 2023-08-28").out, HasSubstr("costs 5.25 CNY"));
}

TEST_F(Cost, ProgramsGetEachItemWithItsTrade) {
    const Outcome outcome = cost("S100 600519 buy 100@5.02 --csv");
    EXPECT_EQ(outcome.out,
              "trade,account,date,market,code,side,hedge,quantity,price,order,charge,item,basis_of,fills,basis,rate,"
              "amount,inside,currency,level,source,term,turnover,costs,net,margin,charged_with\n"
              "1,S100,2024-01-02,SH,600519,buy,,100,5.02,,commission,,turnover,1,502.00,0.00025,5.00,,CNY,own record,"
              "fees/stock.csv:2,charges.csv:2,502.00,5.00,-507.00,,\n"
              "1,S100,2024-01-02,SH,600519,buy,,100,5.02,,transfer_fee,,turnover,1,502.00,0.00001,0.01,commission,CNY,"
              "own record,fees/stock.csv:2,charges.csv:3,502.00,5.00,-507.00,,\n");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(Cost, JsonIsAnArrayOfItems) {
    rapidjson::Document json;
    const Outcome outcome = cost("S100 600519 buy 100@5.02 --json");
    json.Parse(outcome.out.c_str());
    ASSERT_TRUE(json.IsArray());
    ASSERT_EQ(json.Size(), 2U);
    EXPECT_EQ(json[1]["amount"].GetDouble(), 0.01);
    EXPECT_STREQ(json[1]["inside"].GetString(), "commission");
    EXPECT_TRUE(json[0]["inside"].IsNull());
    EXPECT_EQ(json[0]["net"].GetDouble(), -507);
}

TEST_F(Cost, TradeThatCostsNothingIsShown) {
    folder.write("configured/stock.csv", "market,code,commission\nSZ,000001,0\n");
    const Outcome outcome = cost("S100 SZ:000001 buy 100@10 --csv");
    EXPECT_THAT(outcome.out, HasSubstr("1,S100,2024-01-02,SZ,000001,buy,,100,10,,,,,,,,0.00,,CNY,,,,1000.00,0.00,"
                                       "-1000.00,,\n"));
}

// 2 x 3450 x 10 = 69000; 0.0001 of it, and 2 x 0.01. The margin is 0.07 of it, for short positions 0.08.
TEST_F(Cost, FuturesPayByMoneyAndByLotAndOpeningAsksForMargin) {
    const Outcome outcome = cost("F100 rb2610 open-long 2@3450");
    EXPECT_THAT(outcome.out, HasSubstr("Open by money"));
    EXPECT_THAT(outcome.out, HasSubstr("Open by volume"));
    EXPECT_THAT(outcome.out,
                HasSubstr("Turnover 69000.00, costs 6.92 CNY; the account pays 6.92 CNY; margin 4830.00 CNY\n(rate of "
                          "this contract, not the account's requirement; own record\nfees/margin.csv:2)\n"));
    EXPECT_THAT(cost("F100 rb2610 open-short 2@3450 --csv").out, HasSubstr(",5520.00,\n"));
    EXPECT_THAT(cost("F100 rb2610 close-long 2@3450 --csv").out, HasSubstr(",5.00,,CNY,"));
}

// The account has margins of hedging, not of arbitrage.
TEST_F(Cost, HedgeFlagChoosesTheMargin) {
    folder.write("charges.csv",
                 "family,charge,side,basis,per,rounding,currency,source,checked\n"
                 "futures,open_by_volume,open,quantity,order,0.01 half_up,CNY,test,2024-01-02\n");
    EXPECT_THAT(cost("F400 rb2610 open-long 1@4000 --hedge hedging --csv").out, HasSubstr(",5600.00,\n"));
}

TEST_F(Cost, OptionsPayByContractAndAnExerciseNeedsNoPrice) {
    EXPECT_THAT(cost("O100 10001 open-long 3@0.05").out,
                HasSubstr("Turnover 1500.00, costs 3.90 CNY; the account pays 1503.90 CNY\n"));
    EXPECT_THAT(cost("O100 10001 exercise 3").out, HasSubstr("Turnover 0.00, costs 0.00 CNY"));
}

// 200 x 350 = 70000; 0.0003 of it is 21.00, and 0.5 for the order.
TEST_F(Cost, ExchangeRateConvertsAtTheEnd) {
    EXPECT_THAT(cost("H100 00700 buy 200@350").out,
                HasSubstr("Turnover 70000.00, costs 21.50 HKD; the account pays 70021.50 HKD\n"));
    EXPECT_THAT(cost("H100 00700 buy 200@350 --exchange-rate 0.91").out,
                HasSubstr("Turnover 63700.00, costs 19.565 CNY; the account pays 63719.565 CNY\n"));
    EXPECT_THAT(cost("H100 00700 buy 200@350 --csv").out, HasSubstr(",system_fee,,order,1,1,0.5,0.50,,HKD,charging "
                                                                    "term,charges.csv:6,charges.csv:6,"));
}

// 400 cost 4 x 502 + 5.00 = 2013.00; 500 cost 2515.00.
TEST_F(Cost, CashBuysTheLargestQuantityInTradeUnits) {
    EXPECT_THAT(cost("S100 600519 buy @5.02 --cash 2013").out, HasSubstr("2013 CNY pay for 400 at most; 0.00 CNY"));
    EXPECT_THAT(cost("S100 600519 buy @5.02 --cash 2012.99").out, HasSubstr("pay for 300 at most"));
    const Outcome nothing = cost("S100 600519 buy @5.02 --cash 506.99");
    EXPECT_EQ(nothing.status, 1);
    EXPECT_THAT(nothing.err, HasSubstr("506.99 CNY do not pay for 100 of SH:600519 at 5.02 with all costs"));
}

// 70021.50 HKD are 63719.565 CNY.
TEST_F(Cost, PurchasesGrowByTheFoldersQuantityStep) {
    folder.write(
        "instruments/more.csv",
        "market,code,name,lists,trade_unit,quantity_step\nSH,600001,科创,stock,200,1\nSH,600002,主板,stock,200,\n");
    EXPECT_EQ(cost("S100 600001 buy 201@5").status, 0);
    EXPECT_THAT(cost("S100 600001 buy 199@5").err, HasSubstr("the least that SH:600001 is bought or opened in is 200"));
    EXPECT_THAT(cost("S100 600002 buy 201@5").err, HasSubstr("in multiples of 200"));
    // 299 shares are 1495 yuan, and 5 yuan of commission.
    EXPECT_THAT(cost("S100 600001 buy @5 --cash 1500").out, HasSubstr("1500 CNY pay for 299 at most"));
}

TEST_F(Cost, CashIsYuanWhereAnExchangeRateIsGiven) {
    EXPECT_THAT(cost("H100 00700 buy @350 --exchange-rate 0.91 --cash 63719.565").out, HasSubstr("pay for 200 at"));
    EXPECT_EQ(cost("H100 00700 buy @350 --exchange-rate 0.91 --cash 63719.564").status, 1);
}

// The purchase takes 507.00. A sale at 5.12 gives 512 - 5 - 0.26 = 506.74, at 5.13 513 - 5 - 0.26 = 507.74.
TEST_F(Cost, BreakEvenPriceSellsForWhatBothSidesTake) {
    const std::string out = cost("S100 600519 buy 100@5.02 --break-even").out;
    EXPECT_THAT(out, HasSubstr("Break-even: sell at 5.13 or higher (tick 0.01, assumed)\n"));
    EXPECT_THAT(out, HasSubstr("Trade 2: turnover 513.00, costs 5.26 CNY; the account receives 507.74 CNY\n"));
    EXPECT_THAT(cost("S100 600519 buy 100@5.020 --break-even").out,
                HasSubstr("Break-even: sell at 5.123 or higher (tick 0.001, by the price's decimals)\n"));
}

// Opening short gives 69000 - 6.92; closing takes 5 and 20 for each yuan: 3449 is 68980 + 5.
TEST_F(Cost, BreakEvenOfAShortPositionIsLower) {
    EXPECT_THAT(cost("F100 rb2610 open-short 2@3450 --break-even").out,
                HasSubstr("Break-even: close_short at 3449 or lower (tick 1, the instrument's tick);\nclosing on the "
                          "day of opening may be "
                          "charged otherwise\n"));
}

TEST_F(Cost, WordsMayHaveCapitals) {
    EXPECT_EQ(cost("S100 600519 BUY 100@5.02").out, cost("S100 600519 buy 100@5.02").out);
    EXPECT_EQ(cost("F100 rb2610 Open-Long 2@3450 --hedge Speculation").out, cost("F100 rb2610 open_long 2@3450").out);
}

TEST_F(Cost, OpeningSaysThatTheAnswerHasNoMargin) {
    folder.write("charges.csv",
                 "family,charge,side,basis,per,rounding,currency,source,checked\n"
                 "futures,open_by_volume,open,quantity,order,0.01 half_up,CNY,test,2024-01-02\n"
                 "futures,close_by_volume,close,quantity,order,0.01 half_up,CNY,test,2024-01-02\n");
    const std::string unknown = "margin not known:\nthe answer has no rate for arbitrage";
    EXPECT_THAT(cost("F400 rb2610 open-long 1@4000 --hedge arbitrage").out, HasSubstr(unknown));
    EXPECT_THAT(cost("F400 rb2610 close-long 1@4000 --hedge arbitrage").out, Not(HasSubstr("margin not known")));
}

TEST_F(Cost, TradeWithoutItemsSaysWhy) {
    EXPECT_THAT(cost("O100 10001 exercise 3").out, HasSubstr("nothing moves on the account"));
    folder.write("configured/stock.csv", "market,code,commission\nSZ,000001,0\n");
    EXPECT_THAT(cost("S100 SZ:000001 sell 100@10").out, HasSubstr("none: its rates are 0"));
    folder.write("charges.csv",
                 "family,charge,side,basis,rate,per,rounding,currency,source,checked\n"
                 "stock,day_fee,both,day,3,day,0.01 half_up,CNY,test,2024-01-02\n");
    const std::string shared = "S100 SZ:000001 buy 100@10 sell 100@10 buy 200@10";
    EXPECT_THAT(cost(shared).out, HasSubstr("none: charged with trade 1"));
    EXPECT_THAT(cost(shared + " --csv").out, HasSubstr("3,S100,2024-01-02,SZ,000001,buy,,200,10,,,,,,,,0.00,,CNY,,,,"
                                                       "2000.00,0.00,-2000.00,,1\n"));
}

// The notes of sources below the table distinguish rates and terms.
TEST_F(Cost, SourcesBelowTheTableSayWhatTheyAreOf) {
    const std::string out = cost("S100 600519 buy 100@5.02").out;
    EXPECT_THAT(out, HasSubstr("[1] Rate from fees/stock.csv:2\n[2] Term charges.csv:2\n[3] Term charges.csv:3\n"));
}

TEST_F(Cost, StrictIsNoAnswerWhereARateIsBuiltIn) {
    EXPECT_EQ(cost("S200 600519 buy 100@5.02 --strict").status, 1);
    EXPECT_EQ(cost("S200 600519 buy 100@5.02").status, 0);
    EXPECT_EQ(cost("S100 600519 buy 100@5.02 --strict").status, 0);
}

TEST_F(Cost, BuiltInDefaultIsMarked) {
    const Outcome outcome = cost("S200 600519 buy 100@5.02");
    EXPECT_THAT(outcome.out, HasSubstr("1 of 1 instrument answered with the built-in default\n"));
}

TEST_F(Cost, RateWithoutATermIsNoAnswer) {
    folder.write("charges.csv",
                 "family,charge,side,basis,per,rounding,currency,source,checked\n"
                 "stock,commission,both,turnover,order,0.01 half_up,CNY,test,2024-01-02\n");
    const Outcome outcome = cost("S100 600519 buy 100@5.02");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err,
                HasSubstr("the rate transfer_fee 0.00001 of SH:600519 has no charging term on 2024-01-02; add a line "
                          "to " +
                          folder.path() + "/charges.csv"));
}

struct RefusedCost {
    const char* arguments;
    int status;
    const char* sentence;
};

TEST_F(Cost, WhatCannotBeAnsweredIsOneSentence) {
    const std::vector<RefusedCost> refusals = {
        {"", 2, "an account, an instrument and a trade are needed; ask as in: feedesk cost ACCOUNT"},
        {"S100 600519", 2, "a trade is two words, its side and its quantity and price"},
        {"S100 600519 buy", 2, "a trade is two words"},
        {"S100 600519 hold 100@5", 2, "the side is hold, and one of buy, sell, open_long"},
        {"S100 600519 buy x@5", 2, "the quantity is x, and a plain number such as 300 was expected"},
        {"S100 600519 buy 100@1e3", 2, "the price is 1e3, and a plain number such as 1488.50 was expected"},
        {"S100 600519 buy 100@5 --hedge some", 2, "the hedge flag is some, and speculation or arbitrage or hedging"},
        {"S100 600519 open-long 100@5", 2, "the side is open_long, and SH:600519 is charged as stock, which has buy"},
        {"S100 600519 buy 150@5", 2, "the quantity is 150, and SH:600519 is bought or opened in multiples of 100"},
        {"S100 600519 buy 0@5", 2, "the quantity is 0, and a trade has one above 0"},
        {"S100 600519 buy 100", 2, "100 has no price; write it behind @, as in 300@1488.50"},
        {"S100 600519 buy 100@", 2, "100@ has no price"},
        {"S100 600519 buy @15", 2, "@15 has no quantity; write it in front, as in 300@15"},
        {"S100 600519 buy 100@0", 2, "the price is 0, and a trade has one above 0"},
        {"S100 600519 bui 100@5", 2, "exercise was expected; did you mean \"buy\"?"},
        {"S100 600519 buy 100@5 --hedge hedging", 2,
         "--hedge is for futures, and SH:600519 is charged as stock; leave it out"},
        {"O100 10001 exercise 3 --hedge hedging", 2, "--hedge is for futures, and SHO:10001 is charged as option"},
        {"S101 600519 buy 100@5", 1, "the market folder has no account S101; did you mean S100"},
        {"S100 600518 buy 100@5", 1, "the market folder has no instrument 600518"},
        {"S100 '600*' buy 100@5", 1, "600* stands for 2 instruments, and a trade is of one"},
        {"S100 600519 buy 100@5 --date 2020-12-31", 2, "the folder's schedules are known from 2021-01-01"},
        {"H100 00700 buy 200@5 --date 2022-12-31", 2, "schedules of family hgt are known from 2023-01-01"},
        {"S100 600519 buy @5 --cash 0", 2, "0 is not a plain number above 0"},
        {"S100 600519 buy 100@5 --cash 1000", 2, "--cash asks for the quantity; leave it out"},
        {"S100 600519 sell @5 --cash 1000", 2, "cash limits a purchase"},
        {"S100 600519 buy 100@5 sell 100@6 --break-even", 2, "--cash and --break-even are asked of one trade"},
        {"S100 600519 sell 100@5 --break-even", 2, "--break-even is asked of what opens a position"},
        {"S100 600519 buy 100@5 --totals day", 2, "--totals, --keep-going and --unsorted go with --trades FILE"},
        {"S100 600519 buy 100@5 --exchange-rate x", 2, "x is not a plain number above 0"},
        {"S100 600519 buy 100@5 --exchange-rate 1000000", 2, "1000000 has more than 6 digits before the point or 10"},
        {"S100 600519 buy 100@5 --exchange-rate 0.12345678901", 2, "0.12345678901 has more than 6 digits before"},
    };
    for (const RefusedCost& refusal : refusals) {
        SCOPED_TRACE(refusal.arguments);
        const Outcome outcome = cost(refusal.arguments);
        EXPECT_EQ(outcome.status, refusal.status);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, HasSubstr(refusal.sentence));
        EXPECT_EQ(lines(outcome.err).size(), 1U);
    }
}

}  // namespace
}  // namespace feedesk::test
