#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/feedesk/support/cost_folder.h"

namespace feedesk::test {
namespace {

using testing::HasSubstr;

constexpr const char* kHeader = "account,date,market,code,side,quantity,price,order\n";

class CostFile : public testing::Test {
protected:
    /// `lines` follow the header with all columns but hedge and offset.
    [[nodiscard]] Outcome cost(const std::string& trades, const std::string& arguments = "") const {
        return folder.costOf(kHeader + trades, arguments);
    }

    CostFolder folder;
};

/// The cells of some columns of a CSV answer, a text for each line behind the header.
std::vector<std::string> cellsOf(const std::string& csv, const std::vector<std::string>& columns) {
    const auto split = [](const std::string& line) {
        std::vector<std::string> cells(1);
        for (const char c : line) {
            c == ',' ? cells.emplace_back() : cells.back() += c;
        }
        return cells;
    };
    std::vector<std::string> found;
    std::vector<std::string> header;
    for (const std::string& line : lines(csv)) {
        const std::vector<std::string> cells = split(line);
        if (header.empty()) {
            header = cells;
            continue;
        }
        std::string text;
        for (const std::string& column : columns) {
            for (std::size_t i = 0; i < cells.size(); ++i) {
                text += header[i] == column ? cells.at(i) + " " : "";
            }
        }
        found.push_back(text.substr(0, text.size() - 1));
    }
    return found;
}

std::vector<std::string> amounts(const std::string& csv) { return cellsOf(csv, {"trade", "charge", "amount"}); }

TEST_F(CostFile, EachItemIsALineOfCommaSeparatedValues) {
    const Outcome outcome = cost(
        "S100,2024-01-02,SH,600519,buy,100,5.02,\n"
        "S100,2024-01-03,SH,600519,sell,100,5.02,\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(amounts(outcome.out),
              (std::vector<std::string>{"1 commission 5.00", "1 transfer_fee 0.01", "2 commission 5.00",
                                        "2 transfer_fee 0.01", "2 stamp_duty 0.25"}));
}

TEST_F(CostFile, AccountMayBeAnArgument) {
    const Outcome outcome =
        folder.costOf("date,market,code,side,quantity,price\n20240102,SH,600519,buy,100,5.02\n", "S100");
    EXPECT_EQ(cellsOf(outcome.out, {"account", "date", "net"}).front(), "S100 2024-01-02 -507.00");
}

TEST_F(CostFile, AccountOfALineMayNotDifferFromTheArgument) {
    const Outcome outcome = folder.costOf(std::string(kHeader) + "S200,2024-01-02,SH,600519,buy,100,5.02,\n", "S100");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr(":2: the account is S200, but the command names S100; leave the argument out"));
}

// 300 x 100 = 30000.00 for the order; 0.00025 of it is 7.50.
TEST_F(CostFile, FillsShareTheOrdersCommissionInWhateverOrderTheyCome) {
    const std::string first = "S100,2024-01-02,SH,600519,buy,200,100,A\n";
    const std::string other = "S100,2024-01-02,SH,600519,buy,100,5.02,B\n";
    const std::string second = "S100,2024-01-02,SH,600519,buy,100,100,A\n";
    const auto totals = [&](const std::string& trades) {
        return cellsOf(cost(trades, "--totals order --csv").out, {"order", "trades", "costs", "net"});
    };
    EXPECT_EQ(totals(first + other + second), (std::vector<std::string>{"A 2 7.50 -30007.50", "B 1 5.00 -507.00"}));
    EXPECT_EQ(totals(second + first + other), (std::vector<std::string>{"A 2 7.50 -30007.50", "B 1 5.00 -507.00"}));
    EXPECT_EQ(totals(other + second + first), (std::vector<std::string>{"B 1 5.00 -507.00", "A 2 7.50 -30007.50"}));
}

TEST_F(CostFile, OrdersOfTheSameNumberOnAnotherDayAreOthers) {
    const Outcome outcome = cost(
        "S100,2024-01-02,SH,600519,buy,100,5.02,A\n"
        "S100,2024-01-03,SH,600519,buy,100,5.02,A\n",
        "--totals order --csv");
    EXPECT_EQ(cellsOf(outcome.out, {"date", "costs"}),
              (std::vector<std::string>{"2024-01-02 5.00", "2024-01-03 5.00"}));
}

// The stamp duty of 0.1% was halved on 2023-08-28.
TEST_F(CostFile, EachDayHasItsOwnSchedule) {
    const Outcome outcome = cost(
        "S100,2023-08-27,SH,600519,sell,1000,10,\n"
        "S100,2023-08-28,SH,600519,sell,1000,10,\n");
    EXPECT_EQ(cellsOf(outcome.out, {"trade", "charge", "rate", "amount", "source"})[2],
              "1 stamp_duty 0.001 10.00 fees/stock.csv:3");
    EXPECT_EQ(cellsOf(outcome.out, {"trade", "charge", "rate", "amount", "source"})[5],
              "2 stamp_duty 0.0005 5.00 fees/stock.csv:2");
}

TEST_F(CostFile, SideAndOffsetMayBeInTwoColumns) {
    const std::string header = "account,date,market,code,side,offset,hedge,quantity,price\n";
    const Outcome outcome = folder.costOf(header +
                                          "F100,2024-01-02,SHFE,rb2610,buy,open,1,1,3450\n"
                                          "F100,2024-01-02,SHFE,rb2610,sell,open,speculation,1,3450\n"
                                          "F100,2024-01-02,SHFE,rb2610,buy,close,,1,3450\n"
                                          "F100,2024-01-02,SHFE,rb2610,,close-long,,1,3450\n");
    EXPECT_EQ(cellsOf(outcome.out, {"trade", "side", "amount"}),
              (std::vector<std::string>{"1 open_long 3.45", "1 open_long 0.01", "2 open_short 3.45",
                                        "2 open_short 0.01", "3 close_short 2.50", "4 close_long 2.50"}));
}

// SH:600000 has a custom fee, 0.0001 and no other: the least commission of 5.
TEST_F(CostFile, TotalsAddUpByOneOrSeveral) {
    const std::string trades =
        "S100,2024-01-02,SH,600519,buy,100,5.02,\n"
        "H100,2024-01-02,HK,00700,buy,200,350,\n"
        "S100,2024-01-03,SH,600519,sell,100,5.02,\n"
        "S100,2024-01-03,SH,600000,buy,100,5.02,\n";
    const auto totals = [&](const std::string& by, const std::vector<std::string>& columns) {
        return cellsOf(cost(trades, "--csv --totals " + by).out, columns);
    };
    EXPECT_EQ(totals("account", {"account", "trades", "turnover", "costs", "net", "currency"}),
              (std::vector<std::string>{"S100 3 1506.00 15.25 -517.25 CNY", "H100 1 70000.00 21.50 -70021.50 HKD"}));
    EXPECT_EQ(totals("day", {"date", "trades", "costs", "currency"}),
              (std::vector<std::string>{"2024-01-02 1 5.00 CNY", "2024-01-02 1 21.50 HKD", "2024-01-03 2 10.25 CNY"}));
    EXPECT_EQ(totals("instrument", {"market", "code", "trades", "costs"}),
              (std::vector<std::string>{"SH 600519 2 10.25", "HK 00700 1 21.50", "SH 600000 1 5.00"}));
    EXPECT_EQ(totals("account,day", {"account", "date", "trades"}),
              (std::vector<std::string>{"S100 2024-01-02 1", "H100 2024-01-02 1", "S100 2024-01-03 2"}));
}

TEST_F(CostFile, TotalsHaveATable) {
    EXPECT_EQ(cost("S100,2024-01-02,SH,600519,buy,100,5.02,\n", "--totals account").out,
              "Account  Trades  Turnover  Costs      Net  Currency\n"
              "S100          1    502.00   5.00  -507.00  CNY\n");
}

TEST_F(CostFile, JsonLinesGoInAndOut) {
    const Outcome outcome = folder.costOf(
        "\n{\"account\": \"S100\", \"date\": \"2024-01-02\", \"market\": \"SH\", \"code\": \"600519\", \"side\": "
        "\"buy\", \"quantity\": 100, \"price\": 5.02, \"order\": null}\n",
        "--json");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(
        outcome.out,
        "{\"trade\":1,\"account\":\"S100\",\"date\":\"2024-01-02\",\"market\":\"SH\",\"code\":\"600519\","
        "\"side\":\"buy\",\"hedge\":null,\"quantity\":100,\"price\":5.02,\"order\":null,\"charge\":\"commission\","
        "\"item\":null,\"basis_of\":\"turnover\",\"fills\":1,\"basis\":502.00,\"rate\":0.00025,\"amount\":5.00,"
        "\"inside\":null,\"currency\":\"CNY\",\"level\":\"own record\",\"source\":\"fees/stock.csv:2\","
        "\"term\":\"charges.csv:2\",\"turnover\":502.00,\"costs\":5.00,\"net\":-507.00,\"margin\":null,\"charged_"
        "with\":null}\n"
        "{\"trade\":1,\"account\":\"S100\",\"date\":\"2024-01-02\",\"market\":\"SH\",\"code\":\"600519\","
        "\"side\":\"buy\",\"hedge\":null,\"quantity\":100,\"price\":5.02,\"order\":null,\"charge\":"
        "\"transfer_fee\",\"item\":null,\"basis_of\":\"turnover\",\"fills\":1,\"basis\":502.00,\"rate\":0.00001,"
        "\"amount\":0.01,\"inside\":\"commission\",\"currency\":\"CNY\",\"level\":\"own record\",\"source\":"
        "\"fees/stock.csv:2\",\"term\":\"charges.csv:3\",\"turnover\":502.00,\"costs\":5.00,\"net\":-507.00,"
        "\"margin\":null,\"charged_with\":null}\n");
}

TEST_F(CostFile, WrongJsonLinesAreRefusedWithTheirLine) {
    const std::vector<std::pair<std::string, std::string>> wrong = {
        {"{\"acount\": 1}", "the member acount is unknown; known are account, date"},
        {"{\"date\": 1, \"date\": 2}", "the member date is there twice"},
        {"{\"date\": [1]}", "the member date holds a value that is neither a text nor a number"},
        {"{\"date\": {}}", "the member date holds an object"},
        {"{\"date\": \"2024-01-02\"", "the line is no JSON object"},
        {"[]", "one JSON object with the members of a trade was expected"},
        {"{}", "the date is empty"},
    };
    for (const auto& [line, sentence] : wrong) {
        SCOPED_TRACE(line);
        const Outcome outcome = folder.costOf("{\"account\": \"S100\", \"date\": \"x\"}\n" + line + "\n");
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, HasSubstr("feedesk: " + folder.tradesFile() + ":2: " + sentence));
    }
}

constexpr const char* kGood = "S100,2024-01-02,SH,600519,buy,100,5.02,A\n";

TEST_F(CostFile, WrongLinesAreRefusedWithTheirLine) {
    const std::vector<std::pair<std::string, std::string>> wrong = {
        {"S100,2024-01-02,SH,600519,open_long,100,5.02,", "the side is open_long, and SH:600519 is charged as stock"},
        {"S100,2024-01-02,SH,600519,hold,100,5.02,", "the side is hold, and one of buy, sell, open_long"},
        {"S100,2024-01-02,SH,600519,buy,0,5.02,", "the quantity is 0, and a trade has one above 0"},
        {"S100,2024-01-02,SH,600519,buy,-100,5.02,", "the quantity is -100, and a trade has one above 0"},
        {"S100,2024-01-02,SH,600519,sell,1.5,5.02,", "the quantity is 1.5, and a whole number was expected"},
        {"S100,2024-01-02,SH,600519,buy,150,5.02,", "the quantity is 150, and SH:600519 is bought or opened in "},
        {"S100,2024-01-02,SH,600519,buy,1 00,5.02,", "the quantity is 1 00, and a plain number such as 300"},
        {"S100,2024-01-02,SH,600519,buy,,5.02,", "the quantity is empty"},
        {"S100,2024-01-02,SH,600519,buy,100,0,", "the price is 0, and a trade has one above 0"},
        {"S100,2024-01-02,SH,600519,buy,100,,", "the price is empty"},
        {"S100,2020-12-31,SH,600519,buy,100,5.02,", "the folder's schedules are known from 2021-01-01"},
        {"H100,2022-12-31,HK,00700,buy,200,5.02,", "the folder's schedules of family hgt are known from 2023-01-01"},
        {"S100,2024-01-01,SH,600519,buy,100,5.02,", "the date is 2024-01-01, and a trade before it is of 2024-01-02"},
        {"S100,2023-02-29,SH,600519,buy,100,5.02,", "the date is 2023-02-29, and a day such as 2023-08-28"},
        {"S101,2024-01-02,SH,600519,buy,100,5.02,", "the market folder has no account S101; did you mean S100"},
        {",2024-01-02,SH,600519,buy,100,5.02,", "the account is empty"},
        {"S100,2024-01-02,HK,00700,buy,100,5.02,",
         "HK:00700 is in no list of stock instruments, and S100 is answered with their rates"},
        {"S100,2024-01-02,SH,600518,buy,100,5.02,", "the market folder has no instrument SH:600518"},
        {"S100,2024-01-02,SH,600*,buy,100,5.02,", "SH:600* stands for 2 instruments, and a trade is of one"},
        {"S100,2024-01-02,SH,600000,buy,100,5.02,A",
         "the instrument is SH:600000, and another fill of order A has SH:600519"},
        {"S100,2024-01-02,SH,600519,sell,100,5.02,A", "the side is sell, and another fill of order A has buy"},
        {"S100,2024-01-02,SH,600519,buy,100,5.02", "the line has 7 cells, and the header has 8 columns"},
        {"S100,2024-01-02,SH,600519,buy,100,5.02,\"A", "the quoted cell that begins here is never closed"},
    };
    for (const auto& [line, sentence] : wrong) {
        SCOPED_TRACE(line);
        const std::string trades = line[7] == '2' && line[8] == '2' ? line + "\n" : kGood + line + "\n";
        const Outcome outcome = cost(trades);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        const std::string place = folder.tradesFile() + (trades.size() > line.size() + 1 ? ":3: " : ":2: ");
        EXPECT_THAT(outcome.err, HasSubstr("feedesk: " + place + sentence));
        EXPECT_THAT(outcome.err, HasSubstr("1 wrong line; nothing was answered: --keep-going answers the others\n"));
        EXPECT_EQ(lines(outcome.err).size(), 2U);
    }
}

TEST_F(CostFile, FillsOfAnOrderHaveOneCurrency) {
    folder.write("charges.csv",
                 "family,charge,side,market,code,basis,per,rounding,inside,currency,source,checked\n"
                 "stock,commission,both,,,turnover,order,0.01 half_up,,CNY,test,2024-01-02\n"
                 "stock,transfer_fee,both,,,turnover,order,0.01 half_up,,CNY,test,2024-01-02\n"
                 "stock,stamp_duty,sell,,,turnover,order,0.01 half_up,,HKD,test,2024-01-02\n");
    const Outcome outcome = cost("S100,2024-01-02,SH,600519,sell,100,5.02,A\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr(":2: charges.csv:2 charges CNY and charges.csv:4 HKD for the same trade"));
}

TEST_F(CostFile, KeepGoingAnswersTheGoodLinesAndCountsTheOthers) {
    const Outcome outcome = cost(
        std::string("S100,2024-01-02,SH,600518,buy,100,5.02,\n") + kGood + "S100,2024-01-02,SH,600519,buy,0,5.02,\n",
        "--keep-going");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(amounts(outcome.out), (std::vector<std::string>{"2 commission 5.00", "2 transfer_fee 0.01"}));
    EXPECT_THAT(outcome.err, HasSubstr(":2: the market folder has no instrument SH:600518"));
    EXPECT_THAT(outcome.err, HasSubstr(":4: the quantity is 0"));
    EXPECT_THAT(outcome.err, HasSubstr("feedesk: 2 of 3 trades are not answered\n"));
}

constexpr const char* kLongLevy =
    "family,charge,side,basis,rate,per,rounding,currency,source,checked\n"
    "hgt,commission,both,turnover,,order,0.01 half_up,HKD,test,2024-01-02\n"
    "hgt,levy,both,turnover,0.123456789012345678,order,,HKD,test,2024-01-02\n";

// 18 digits and 18 decimals of price, quantity, levy and rate of exchange are more than 77 digits together.
TEST_F(CostFile, DayThatIsTooLargeToConvertIsNamedAndNotLost) {
    folder.write("charges.csv", kLongLevy);
    const std::string trades =
        "H100,2024-01-02,HK,00700,sell,999999999999999999,999999999999999999.999999999999999999,\n"
        "H100,2024-01-03,HK,00700,sell,200,350,\n";
    EXPECT_EQ(cost(trades).status, 0);
    const std::string sentence = ": 1 trade of 2024-01-02 cannot be charged: the numbers of the trade are too large";
    const Outcome refused = cost(trades, "--exchange-rate 0.9123456789");
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.out, "");
    EXPECT_THAT(refused.err, HasSubstr(folder.tradesFile() + sentence));
    EXPECT_THAT(refused.err, HasSubstr("1 wrong line; nothing was answered"));
    const Outcome goesOn = cost(trades, "--exchange-rate 0.9123456789 --keep-going");
    EXPECT_EQ(goesOn.status, 1);
    EXPECT_EQ(cellsOf(goesOn.out, {"trade", "charge"}), (std::vector<std::string>{"2 commission", "2 levy"}));
    EXPECT_THAT(goesOn.err, HasSubstr(folder.tradesFile() + sentence));
    EXPECT_THAT(goesOn.err, HasSubstr("1 of 2 trades is not answered"));
}

TEST_F(CostFile, ExchangeRateIsOfOneCurrency) {
    folder.write("charges.csv",
                 "family,charge,side,basis,rate,per,rounding,currency,source,checked\n"
                 "hgt,commission,both,turnover,,order,0.01 half_up,HKD,test,2024-01-02\n"
                 "stock,commission,both,turnover,,order,0.01 half_up,USD,test,2024-01-02\n");
    const std::string trades = "H100,2024-01-02,HK,00700,buy,200,350,\nS100,2024-01-03,SZ,000001,buy,100,5,\n";
    EXPECT_EQ(cost(trades).status, 0);
    const Outcome refused = cost(trades, "--exchange-rate 0.9");
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.err, HasSubstr("1 trade of 2024-01-03 cannot be charged: trades are charged in HKD and in USD, "
                                       "and --exchange-rate is of one currency"));
}

TEST_F(CostFile, TotalsThatAreTooLargeAreRefused) {
    folder.write("charges.csv", kLongLevy);
    const Outcome outcome = cost(
        "H100,2024-01-02,HK,00700,sell,999999999999999999,999999999999999999,\n"
        "H100,2024-01-02,HK,00700,sell,1,0.000000000000000001,\n",
        "--totals account --exchange-rate 999999.9999999999");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("with trade 2 of 2024-01-02 the totals are too large to calculate with"));
}

TEST_F(CostFile, HedgeFlagOfWhatIsNoFutureIsRefused) {
    const std::string header = "account,date,market,code,side,hedge,quantity,price\n";
    const Outcome usual = folder.costOf(header + "S100,2024-01-02,SH,600519,buy,1,100,5.02\n", "--hedge hedging");
    EXPECT_EQ(usual.status, 0);
    const Outcome wrong = folder.costOf(header + "S100,2024-01-02,SH,600519,buy,3,100,5.02\n");
    EXPECT_EQ(wrong.status, 2);
    EXPECT_THAT(wrong.err,
                HasSubstr(":2: the hedge flag is hedging, and SH:600519 is charged as stock, which has none"));
}

// S200 has no records, and F300's margins are built in, too.
TEST_F(CostFile, TradesAtTheBuiltInDefaultAreCounted) {
    const std::string trades =
        "S100,2024-01-02,SH,600519,buy,100,5.02,\n"
        "S200,2024-01-02,SH,600519,buy,100,5.02,\n";
    const Outcome outcome = cost(trades);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "feedesk: 1 of 2 trades charged at the built-in default\n");
    EXPECT_EQ(cost(trades, "--strict").status, 1);
    EXPECT_EQ(cost("S100,2024-01-02,SH,600519,buy,100,5.02,\n", "--strict").status, 0);
    EXPECT_THAT(cost(trades, "--totals account").out, HasSubstr("1 of 2 trades charged at the built-in default\n"));
}

TEST_F(CostFile, LaterFillsSayWithWhichTradeTheyAreCharged) {
    const Outcome outcome = cost(
        "S100,2024-01-02,SH,600000,buy,100,5.02,\n"
        "S100,2024-01-02,SH,600000,buy,100,5.02,A\n"
        "S100,2024-01-02,SH,600000,buy,100,5.02,A\n");
    EXPECT_EQ(cellsOf(outcome.out, {"trade", "charge", "charged_with"}),
              (std::vector<std::string>{"1 commission ", "2 commission ", "3  2"}));
}

TEST_F(CostFile, WrongLinesOfSortedTradesAreReportedInTheOrderOfTheFile) {
    std::string trades = "S100,2024-01-03,SH,600519,buy,0,5.02,\n";
    for (int i = 0; i < 101; ++i) {
        trades += "S100,2024-01-02,SH,600519,buy,0,5.02,\n";
    }
    const std::vector<std::string> wrong = lines(cost(trades, "--unsorted").err);
    ASSERT_EQ(wrong.size(), 101U);
    EXPECT_THAT(wrong.front(), HasSubstr(":2: the quantity is 0"));
    EXPECT_THAT(wrong[99], HasSubstr(":101: the quantity is 0"));
    EXPECT_THAT(wrong.back(), HasSubstr("102 wrong lines, of which 100 are named"));
}

TEST_F(CostFile, ManyWrongLinesAreCounted) {
    std::string trades;
    for (int i = 0; i < 101; ++i) {
        trades += "S100,2024-01-02,SH,600519,buy,0,5.02,\n";
    }
    const Outcome outcome = cost(trades);
    EXPECT_EQ(lines(outcome.err).size(), 101U);
    EXPECT_THAT(outcome.err, HasSubstr("101 wrong lines, of which 100 are named; nothing was answered"));
}

TEST_F(CostFile, UnsortedTradesAreSortedByDay) {
    const Outcome outcome = cost(
        "S100,2024-01-03,SH,600519,buy,100,5.02,\n"
        "S100,2023-08-27,SH,600519,sell,1000,10,\n"
        "S100,2024-01-03,SH,600519,buy,200,5.02,\n",
        "--unsorted --totals order --csv");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(cellsOf(outcome.out, {"date", "turnover"}),
              (std::vector<std::string>{"2023-08-27 10000.00", "2024-01-03 502.00", "2024-01-03 1004.00"}));
}

TEST_F(CostFile, UnsortedTradesKeepTheNumbersAndLinesOfTheFile) {
    const Outcome outcome = cost(
        "S100,2024-01-03,SH,600519,buy,100,5.02,\n"
        "S100,2023-08-27,SH,600519,buy,1000,10,\n"
        "S100,2023-08-26,SH,600519,buy,0,10,\n",
        "--unsorted --keep-going");
    EXPECT_EQ(amounts(outcome.out), (std::vector<std::string>{"2 commission 5.00", "2 transfer_fee 0.10",
                                                              "1 commission 5.00", "1 transfer_fee 0.01"}));
    EXPECT_THAT(outcome.err, HasSubstr(":4: the quantity is 0"));
}

TEST_F(CostFile, StandardInputIsAFileToo) {
    folder.writeTrades(std::string(kHeader) + kGood);
    for (const char* const more : {"", " --keep-going", " --unsorted"}) {
        const Outcome outcome = folder.cost("--trades - <" + folder.tradesFile() + more);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(amounts(outcome.out), (std::vector<std::string>{"1 commission 5.00", "1 transfer_fee 0.01"}));
    }
    folder.writeTrades(std::string(kHeader) + "S100,2024-01-02,SH,600519,buy,0,5.02,A\n");
    EXPECT_THAT(folder.cost("--trades - <" + folder.tradesFile()).err, HasSubstr("feedesk: standard input:2: the qu"));
}

TEST_F(CostFile, ReadsWhatASpreadsheetWrites) {
    const Outcome outcome = folder.costOf(
        "\xEF\xBB\xBF"
        "account,date,market,code,side,quantity,price\r\n"
        "\r\n"
        "S100,2024-01-02,SH,\"600519\",buy,100,5.02\r\n");
    EXPECT_EQ(amounts(outcome.out), (std::vector<std::string>{"1 commission 5.00", "1 transfer_fee 0.01"}));
}

TEST_F(CostFile, WrongFilesAreRefusedAsAWhole) {
    const std::string line = "S100,2024-01-02,SH,600519,buy,100,5.02\n";
    const std::vector<std::pair<std::string, std::string>> wrong = {
        {"", " is empty; a header line with the columns of trades was expected"},
        {line, ":1: the column S100 is unknown; known are account, date, market"},
        {"account,date,market,code,side,quantity,prize\n" + line, ":1: the column prize is unknown"},
        {"account,date,market,code,side,quantity,quantity\n" + line, ":1: the column quantity is twice"},
        {"account,date,market,code,side,quantity\n" + line, ":1: the header has no column price; it needs"},
        {"account,date,market,code,quantity,price\n" + line, ":1: the header has no column side or offset"},
        {"date,market,code,side,quantity,price\n" + line, ":1: the header has no column account"},
        {"[{}]\n", ":1: a JSON array begins here; write one object a line"},
        {"account;date\n", ":1: the column account;date is unknown"},
        {"\xD5\xCB\xBB\xA7,\xC8\xD5\xC6\xDA\n",  // 账户,日期
         ":1: the file looks like GB18030 (GBK), but UTF-8 was expected; convert it: iconv -f GB18030 -t UTF-8 FILE"},
    };
    for (const auto& [file, sentence] : wrong) {
        SCOPED_TRACE(file);
        const Outcome outcome = folder.costOf(file, "--keep-going");
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.err, HasSubstr(folder.tradesFile() + sentence));
    }
    EXPECT_THAT(folder.cost("--trades nowhere").err, HasSubstr("nowhere cannot be opened: No such file or directory"));
}

TEST_F(CostFile, HeaderAloneIsNoTrades) {
    const Outcome outcome = cost("");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(lines(outcome.out).size(), 1U);
}

TEST_F(CostFile, FileGoesWithoutInstrumentsDatesAndQuestionsBackwards) {
    folder.writeTrades(std::string(kHeader) + kGood);
    const std::string file = "--trades " + folder.tradesFile();
    const std::vector<std::pair<std::string, std::string>> wrong = {
        {"S100 600519 " + file, "--trades goes with an account or none"},
        {file + " --date 2024-01-02", "--date does not go with --trades"},
        {file + " --cash 100", "--cash and --break-even do not go with --trades"},
        {file + " --totals week", "week is none of account, day, instrument, order"},
    };
    for (const auto& [arguments, sentence] : wrong) {
        SCOPED_TRACE(arguments);
        const Outcome outcome = folder.cost(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.err, HasSubstr(sentence));
    }
}

}  // namespace
}  // namespace feedesk::test
