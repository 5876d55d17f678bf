#include <gtest/gtest.h>

#include <string>

#include "cost/support/builders.h"
#include "cost/support/published.h"

namespace {

using cost::Bill;
using cost_test::itemsOf;
using cost_test::publishedBill;

struct Published {
    const char* name;
    const char* place;
    const char* trade;
    const char* day;
    const char* items;
    const char* net;
    const char* multiplier = "";
};

class PublishedSchedule : public testing::TestWithParam<Published> {};

TEST_P(PublishedSchedule, IsChargedToTheFen) {
    const Bill bill = publishedBill(GetParam().place, GetParam().trade, GetParam().day, GetParam().multiplier);
    EXPECT_EQ(itemsOf(bill), GetParam().items);
    EXPECT_EQ(bill.net.text(2), GetParam().net);
}

std::string named(const testing::TestParamInfo<Published>& row) { return row.param.name; }

const char* const kMoutai = "stock SH:600519 MAIN";
const char* const kVanke = "stock SZ:000002 MAIN";
const char* const kCreditMoutai = "credit SH:600519 MAIN";
const char* const kCreditVanke = "credit SZ:000002 MAIN";
const char* const kBeijing = "stock BJ:920001 BSE";
const char* const kNeeq = "neeq NEEQ:430005 ";

// Every amount is worked out by hand: 300 x 1488.50 = 446550, 200 x 8.37 = 1674, 1234 x 23.45 = 28937.30, times the
// rate of the day, to the fen. Each row of days is both sides of a change.
INSTANTIATE_TEST_SUITE_P(
    Shares, PublishedSchedule,
    testing::Values(
        Published{"ShanghaiBuyBeforeTransferFee", kMoutai, "buy 300@1488.50", "2022-04-28",
                  "commission 111.64, transfer_fee 8.93, handling_fee 21.75, regulatory_fee 8.93", "-446701.25"},
        Published{"ShanghaiBuyAfterTransferFee", kMoutai, "buy 300@1488.50", "2022-04-29",
                  "commission 111.64, transfer_fee 4.47, handling_fee 21.75, regulatory_fee 8.93", "-446696.79"},
        Published{"ShanghaiBuyBeforeHandlingFee", kMoutai, "buy 300@1488.50", "2023-08-27",
                  "commission 111.64, transfer_fee 4.47, handling_fee 21.75, regulatory_fee 8.93", "-446696.79"},
        Published{"ShanghaiBuyAfterHandlingFee", kMoutai, "buy 300@1488.50", "2023-08-28",
                  "commission 111.64, transfer_fee 4.47, handling_fee 15.23, regulatory_fee 8.93", "-446690.27"},
        Published{"ShanghaiSellBeforeStampDuty", kMoutai, "sell 300@1488.50", "2023-08-27",
                  "commission 111.64, stamp_duty 446.55, transfer_fee 4.47, handling_fee 21.75, regulatory_fee 8.93",
                  "445956.66"},
        Published{"ShanghaiSellAfterStampDuty", kMoutai, "sell 300@1488.50", "2023-08-28",
                  "commission 111.64, stamp_duty 223.28, transfer_fee 4.47, handling_fee 15.23, regulatory_fee 8.93",
                  "446186.45"},
        Published{"ShenzhenBuyBeforeTransferFee", kVanke, "buy 200@8.37", "2022-04-28",
                  "commission 5.00, transfer_fee 0.03, handling_fee 0.08, regulatory_fee 0.03", "-1679.14"},
        Published{"ShenzhenBuyAfterTransferFee", kVanke, "buy 200@8.37", "2022-04-29",
                  "commission 5.00, transfer_fee 0.02, handling_fee 0.08, regulatory_fee 0.03", "-1679.13"},
        Published{"ShenzhenSellBeforeStampDuty", kVanke, "sell 200@8.37", "2023-08-27",
                  "commission 5.00, stamp_duty 1.67, transfer_fee 0.02, handling_fee 0.08, regulatory_fee 0.03",
                  "1667.20"},
        Published{"ShenzhenSellAfterStampDuty", kVanke, "sell 200@8.37", "2023-08-28",
                  "commission 5.00, stamp_duty 0.84, transfer_fee 0.02, handling_fee 0.06, regulatory_fee 0.03",
                  "1668.05"},
        Published{"BeijingBuyBeforeTransferFee", kBeijing, "buy 1234@23.45", "2022-04-28",
                  "commission 7.23, regulatory_fee 0.58, transfer_fee 0.72, handling_fee 14.47", "-28960.30"},
        Published{"BeijingBuyAfterTransferFee", kBeijing, "buy 1234@23.45", "2022-04-29",
                  "commission 7.23, regulatory_fee 0.58, transfer_fee 0.29, handling_fee 14.47", "-28959.87"},
        Published{"BeijingBuyBeforeFirstCut", kBeijing, "buy 1234@23.45", "2022-11-30",
                  "commission 7.23, regulatory_fee 0.58, transfer_fee 0.29, handling_fee 14.47", "-28959.87"},
        Published{"BeijingBuyAfterFirstCut", kBeijing, "buy 1234@23.45", "2022-12-01",
                  "commission 7.23, regulatory_fee 0.58, transfer_fee 0.29, handling_fee 7.23", "-28952.63"},
        Published{"BeijingSellBeforeSecondCut", kBeijing, "sell 1234@23.45", "2023-08-27",
                  "commission 7.23, regulatory_fee 0.58, stamp_duty 28.94, transfer_fee 0.29, handling_fee 7.23",
                  "28893.03"},
        Published{"BeijingSellAfterSecondCut", kBeijing, "sell 1234@23.45", "2023-08-28",
                  "commission 7.23, regulatory_fee 0.58, stamp_duty 14.47, transfer_fee 0.29, handling_fee 3.62",
                  "28911.11"},
        Published{"CreditShanghaiBuyBeforeTransferFee", kCreditMoutai, "buy 300@1488.50", "2022-04-28",
                  "commission 111.64, transfer_fee 8.93, handling_fee 21.75, regulatory_fee 8.93", "-446701.25"},
        Published{"CreditShanghaiBuyAfterTransferFee", kCreditMoutai, "buy 300@1488.50", "2022-04-29",
                  "commission 111.64, transfer_fee 4.47, handling_fee 21.75, regulatory_fee 8.93", "-446696.79"},
        Published{"CreditShanghaiBuyBeforeHandlingFee", kCreditMoutai, "buy 300@1488.50", "2023-08-27",
                  "commission 111.64, transfer_fee 4.47, handling_fee 21.75, regulatory_fee 8.93", "-446696.79"},
        Published{"CreditShanghaiBuyAfterHandlingFee", kCreditMoutai, "buy 300@1488.50", "2023-08-28",
                  "commission 111.64, transfer_fee 4.47, handling_fee 15.23, regulatory_fee 8.93", "-446690.27"},
        Published{"CreditShanghaiSellBeforeStampDuty", kCreditMoutai, "sell 300@1488.50", "2023-08-27",
                  "commission 111.64, stamp_duty 446.55, transfer_fee 4.47, handling_fee 21.75, regulatory_fee 8.93",
                  "445956.66"},
        Published{"CreditShanghaiSellAfterStampDuty", kCreditMoutai, "sell 300@1488.50", "2023-08-28",
                  "commission 111.64, stamp_duty 223.28, transfer_fee 4.47, handling_fee 15.23, regulatory_fee 8.93",
                  "446186.45"},
        Published{"CreditShenzhenBuyBeforeTransferFee", kCreditVanke, "buy 200@8.37", "2022-04-28",
                  "commission 5.00, transfer_fee 0.03, handling_fee 0.08, regulatory_fee 0.03", "-1679.14"},
        Published{"CreditShenzhenBuyAfterTransferFee", kCreditVanke, "buy 200@8.37", "2022-04-29",
                  "commission 5.00, transfer_fee 0.02, handling_fee 0.08, regulatory_fee 0.03", "-1679.13"},
        Published{"CreditShenzhenSellBeforeStampDuty", kCreditVanke, "sell 200@8.37", "2023-08-27",
                  "commission 5.00, stamp_duty 1.67, transfer_fee 0.02, handling_fee 0.08, regulatory_fee 0.03",
                  "1667.20"},
        Published{"CreditShenzhenSellAfterStampDuty", kCreditVanke, "sell 200@8.37", "2023-08-28",
                  "commission 5.00, stamp_duty 0.84, transfer_fee 0.02, handling_fee 0.06, regulatory_fee 0.03",
                  "1668.05"},
        Published{"NeeqBuyBeforeTransferFee", kNeeq, "buy 1000@6.66", "2022-04-28",
                  "commission 5.33, transfer_fee 0.17, handling_fee 3.33", "-6668.83"},
        Published{"NeeqBuyAfterTransferFee", kNeeq, "buy 1000@6.66", "2022-04-29",
                  "commission 5.33, transfer_fee 0.07, handling_fee 3.33", "-6668.73"},
        Published{"NeeqSellBeforeStampDuty", kNeeq, "sell 1000@6.66", "2023-08-27",
                  "commission 5.33, transfer_fee 0.07, handling_fee 3.33, stamp_duty 6.66", "6644.61"},
        Published{"NeeqSellAfterStampDuty", kNeeq, "sell 1000@6.66", "2023-08-28",
                  "commission 5.33, transfer_fee 0.07, handling_fee 3.33, stamp_duty 3.33", "6647.94"}),
    named);

const char* const kTencent = "hgt HK:00700 ";

// 500 x 123.45 = 61725 dollars; 100000 x 70.05 = 7005000, whose settlement fee of 140.10 is above the maximum of 100,
// as the 1.23 of 61725 is below the minimum of 2.
INSTANTIATE_TEST_SUITE_P(
    HongKong, PublishedSchedule,
    testing::Values(
        Published{
            "BuyBeforeStampDuty", kTencent, "buy 500@123.45", "2023-11-16",
            "commission 18.52, trading_fee 3.49, stamp_duty 81.00, sfc_levy 1.67, afrc_levy 0.09, settlement_fee 2.00",
            "-61831.77"},
        Published{
            "BuyAfterStampDuty", kTencent, "buy 500@123.45", "2023-11-17",
            "commission 18.52, trading_fee 3.49, stamp_duty 62.00, sfc_levy 1.67, afrc_levy 0.09, settlement_fee 2.00",
            "-61812.77"},
        Published{
            "SellBeforeStampDuty", kTencent, "sell 500@123.45", "2023-11-16",
            "commission 18.52, trading_fee 3.49, stamp_duty 81.00, sfc_levy 1.67, afrc_levy 0.09, settlement_fee 2.00",
            "61618.23"},
        Published{
            "SellAfterStampDuty", kTencent, "sell 500@123.45", "2023-11-17",
            "commission 18.52, trading_fee 3.49, stamp_duty 62.00, sfc_levy 1.67, afrc_levy 0.09, settlement_fee 2.00",
            "61637.23"},
        Published{
            "BuyBeforeSettlementFee", kTencent, "buy 500@123.45", "2025-06-29",
            "commission 18.52, trading_fee 3.49, stamp_duty 62.00, sfc_levy 1.67, afrc_levy 0.09, settlement_fee 2.00",
            "-61812.77"},
        Published{
            "BuyAfterSettlementFee", kTencent, "buy 500@123.45", "2025-06-30",
            "commission 18.52, trading_fee 3.49, stamp_duty 62.00, sfc_levy 1.67, afrc_levy 0.09, settlement_fee 2.59",
            "-61813.36"},
        Published{
            "SellBeforeSettlementFee", kTencent, "sell 500@123.45", "2025-06-29",
            "commission 18.52, trading_fee 3.49, stamp_duty 62.00, sfc_levy 1.67, afrc_levy 0.09, settlement_fee 2.00",
            "61637.23"},
        Published{
            "SellAfterSettlementFee", kTencent, "sell 500@123.45", "2025-06-30",
            "commission 18.52, trading_fee 3.49, stamp_duty 62.00, sfc_levy 1.67, afrc_levy 0.09, settlement_fee 2.59",
            "61636.64"},
        Published{"LargeBuyBeforeStampDuty", "sgt HK:00939 ", "buy 100000@70.05", "2023-11-16",
                  "commission 2101.50, trading_fee 395.78, stamp_duty 9107.00, sfc_levy 189.14, afrc_levy 10.51, "
                  "settlement_fee 100.00",
                  "-7016903.93"},
        Published{"LargeSellBeforeStampDuty", "sgt HK:00939 ", "sell 100000@70.05", "2023-11-16",
                  "commission 2101.50, trading_fee 395.78, stamp_duty 9107.00, sfc_levy 189.14, afrc_levy 10.51, "
                  "settlement_fee 100.00",
                  "6993096.07"},
        Published{"LargeBuyAfterStampDuty", "sgt HK:00939 ", "buy 100000@70.05", "2023-11-17",
                  "commission 2101.50, trading_fee 395.78, stamp_duty 7005.00, sfc_levy 189.14, afrc_levy 10.51, "
                  "settlement_fee 100.00",
                  "-7014801.93"},
        Published{"LargeSellBeforeSettlementFee", "sgt HK:00939 ", "sell 100000@70.05", "2025-06-29",
                  "commission 2101.50, trading_fee 395.78, stamp_duty 7005.00, sfc_levy 189.14, afrc_levy 10.51, "
                  "settlement_fee 100.00",
                  "6995198.07"},
        Published{"LargeSellAfterSettlementFee", "sgt HK:00939 ", "sell 100000@70.05", "2025-06-30",
                  "commission 2101.50, trading_fee 395.78, stamp_duty 7005.00, sfc_levy 189.14, afrc_levy 10.51, "
                  "settlement_fee 294.21",
                  "6995003.86"},
        Published{"LargeBuyBeforeSettlementFee", "sgt HK:00939 ", "buy 100000@70.05", "2025-06-29",
                  "commission 2101.50, trading_fee 395.78, stamp_duty 7005.00, sfc_levy 189.14, afrc_levy 10.51, "
                  "settlement_fee 100.00",
                  "-7014801.93"},
        Published{"LargeBuyAfterSettlementFee", "sgt HK:00939 ", "buy 100000@70.05", "2025-06-30",
                  "commission 2101.50, trading_fee 395.78, stamp_duty 7005.00, sfc_levy 189.14, afrc_levy 10.51, "
                  "settlement_fee 294.21",
                  "-7014996.14"},
        Published{"LargeSellAfterStampDuty", "sgt HK:00939 ", "sell 100000@70.05", "2023-11-17",
                  "commission 2101.50, trading_fee 395.78, stamp_duty 7005.00, sfc_levy 189.14, afrc_levy 10.51, "
                  "settlement_fee 100.00",
                  "6995198.07"}),
    named);

const char* const kOption = "option SHO:10001313 510050";
const char* const kBond = "futures CFFEX:T2603 T";
const char* const kBenzene = "futures DCE:bz2603 bz";

// Options: 10 x 0.0521 x 10000 = 5210. Benzene: 2 x 5123 x 30 = 307380.
INSTANTIATE_TEST_SUITE_P(
    Contracts, PublishedSchedule,
    testing::Values(
        Published{"OptionOpenLong", kOption, "open_long 10@0.0521", "2024-01-02",
                  "handling_fee 13.00, settlement_fee 3.00", "-5226.00", "10000"},
        Published{"OptionSoldToOpenIsFree", kOption, "open_short 10@0.0521", "2024-01-02", "", "5210.00", "10000"},
        Published{"OptionCloseLong", kOption, "close_long 10@0.0521", "2024-01-02",
                  "handling_fee 13.00, settlement_fee 3.00", "5194.00", "10000"},
        Published{"ShenzhenOptionCloseShort", "option SZO:90000661 159919", "close_short 10@0.0521", "2024-01-02",
                  "handling_fee 13.00, settlement_fee 3.00", "-5226.00", "10000"},
        Published{"OptionExercise", kOption, "exercise 10", "2024-01-02", "exercise_fee 6.00", "-6.00", "10000"},
        Published{"BondOpen", kBond, "open_long 5@105.32", "2024-07-01", "open_by_volume 15.00", "-15.00", "10000"},
        Published{"BondClose", kBond, "close_short 5@105.32", "2024-07-01", "close_by_volume 15.00", "-15.00", "10000"},
        Published{"BondCloseTodayIsFree", kBond, "close_today_long 5@105.32", "2024-07-01", "", "0.00", "10000"},
        Published{"BenzeneOpen", kBenzene, "open_short 2@5123", "2025-07-08", "open_by_money 30.74", "-30.74", "30"},
        Published{"BenzeneCloseToday", kBenzene, "close_today_short 2@5123", "2025-07-08", "close_today_by_money 30.74",
                  "-30.74", "30"}),
    named);

TEST(PublishedScheduleOf, ADayBeforeItBeginsIsRefused) {
    EXPECT_EQ(cost_test::refusal([] { publishedBill(kBenzene, "open_short 2@5123", "2025-07-07", "30"); }),
              "open_short of DCE:bz2603 has no charging term on 2025-07-07; add a line to charges.csv");
}

}  // namespace
