#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class Explain : public testing::Test {
protected:
    Outcome explain(const std::string& arguments, const std::string& environment = "") const {
        return ask(folder.path(), "explain " + arguments, environment);
    }

    /// "part,item,turn,level,source,verdict,beaten_by" of each row, and its first rate.
    std::vector<std::string> rows(const std::string& arguments) const {
        const Outcome outcome = explain(arguments + " --csv");
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        std::vector<std::string> found;
        for (const std::string& line : lines(outcome.out)) {
            if (line.rfind("account,", 0) != 0) {
                found.push_back(cells(line, 5, 7) + "," + cells(line, 15, 1));
            }
        }
        return found;
    }

    SampleFolder folder;

private:
    /// Those of the cells from the one of this place on that are wanted; none is quoted.
    static std::string cells(const std::string& line, std::size_t first, std::size_t count) {
        std::size_t begin = 0;
        for (std::size_t i = 0; i < first; ++i) {
            begin = line.find(',', begin) + 1;
        }
        std::size_t end = begin;
        for (std::size_t i = 0; i < count; ++i) {
            end = line.find(',', end) + 1;
        }
        return line.substr(begin, end - 1 - begin);
    }
};

TEST_F(Explain, NamesTheWinnerAndWhatWouldAnswerWithoutIt) {
    EXPECT_THAT(rows("S100 SZ:000001"),
                ElementsAre("stock,,1,configured limit,configured/stock.csv:2,answers,,0.0002",
                            "stock,,2,own record,fees/stock.csv:3,outranked,configured/stock.csv:2,0.0000341",
                            "stock,,3,built-in default,,last,,0.00015",
                            "stock,,,custom fee,custom/stock.csv:2,other_category,,0.0001"));
}

TEST_F(Explain, CustomFeeGoesBeforeARecord) {
    EXPECT_THAT(rows("S100 SH:600000"),
                ElementsAre("stock,,1,custom fee,custom/stock.csv:2,answers,,0.0001",
                            "stock,,2,own record,fees/stock.csv:2,outranked,custom/stock.csv:2,0.00025",
                            "stock,,3,built-in default,,last,,0.00015"));
}

TEST_F(Explain, RecordGoesBeforeTheConfiguredLimitOfAConnectStock) {
    EXPECT_THAT(rows("H100 HK:00700"),
                ElementsAre("hgt,,1,own record,fees/hgt.csv:2,answers,,0.0003",
                            "hgt,,2,configured limit,configured/hgt.csv:2,outranked,fees/hgt.csv:2,0.0004",
                            "hgt,,3,built-in default,,last,,0"));
}

TEST_F(Explain, LaterLinesAndUpdatesOverrideAndEntriesOfOneUpdateMatchInTheirOrder) {
    folder.write("fees/stock.csv",
                 "account,market,code,commission\n"
                 "S100,SH,*,0.0001\n"
                 "S100,SH,600519,0.0002\n"
                 "S100,SH,6*,0.0003\n");
    folder.write("categories.csv", "category,name,market,code\n1,Shanghai,SH,\n2,Six,SH,6*\n");
    folder.write("custom/stock.csv",
                 "account,update,category,commission\n"
                 "S100,2,1,0.0004\n"
                 "S100,1,2,0.0005\n"
                 "S100,2,2,0.0006\n");
    for (const std::string name : {"option", "margin", "commission"}) {
        folder.write("custom/" + name + ".csv", "account,update,category\n");
    }
    folder.write("custom/option.csv", "account,update,category,item\n");
    folder.write("custom/margin.csv", "account,update,category,hedge_flag\n");
    EXPECT_THAT(rows("S100 SH:600519"),
                ElementsAre("stock,,1,custom fee,custom/stock.csv:2,answers,,0.0004",
                            "stock,,2,custom fee,custom/stock.csv:4,earlier_entry,custom/stock.csv:2,0.0006",
                            "stock,,3,custom fee,custom/stock.csv:3,overridden,custom/stock.csv:4,0.0005",
                            "stock,,4,own record,fees/stock.csv:4,outranked,custom/stock.csv:3,0.0003",
                            "stock,,5,own record,fees/stock.csv:3,overridden,fees/stock.csv:4,0.0002",
                            "stock,,6,own record,fees/stock.csv:2,overridden,fees/stock.csv:3,0.0001",
                            "stock,,7,built-in default,,last,,0.00015"));
}

TEST_F(Explain, LineOfOtherDaysShowsThem) {
    folder.write("fees/hgt.csv",
                 "account,market,code,commission,from,until\n"
                 "H100,HK,*,0.0003,,2024-06-30\n"
                 "H100,HK,*,0.0002,2024-07-01,\n");
    EXPECT_THAT(
        rows("H100 HK:00700 --date 2024-07-01"),
        ElementsAre("hgt,,1,own record,fees/hgt.csv:3,answers,,0.0002",
                    "hgt,,2,configured limit,configured/hgt.csv:2,outranked,fees/hgt.csv:3,0.0004",
                    "hgt,,3,built-in default,,last,,0", "hgt,,,own record,fees/hgt.csv:2,not_in_force,,0.0003"));
    EXPECT_THAT(explain("H100 HK:00700 --date 2024-07-01", "COLUMNS=200").out,
                HasSubstr("  in force until 2024-06-30  "));
}

TEST_F(Explain, CommissionAndEachMarginTakeTurnsOfTheirOwn) {
    EXPECT_THAT(
        rows("F400 SHFE:rb2610"),
        ElementsAre("commission,,1,custom fee,custom/commission.csv:2,answers,,0",
                    "commission,,2,built-in default,,last,,0",
                    "commission,,,exchange fee,instruments/all.csv:9,no_simulation,,0", "margin,1,1,not set,,answers,,",
                    "margin,1,2,built-in default,,last,,", "margin,2,1,not set,,answers,,",
                    "margin,2,2,built-in default,,last,,", "margin,3,1,custom fee,custom/margin.csv:3,answers,,",
                    "margin,3,2,built-in default,,last,,"));
}

TEST_F(Explain, ExchangeFeeIsChargedOnASimulationPlatformAlone) {
    EXPECT_THAT(rows("F200 SHFE:rb2610"),
                testing::IsSupersetOf({StartsWith("commission,,1,exchange fee,instruments/all.csv:9,answers,"),
                                       StartsWith("commission,,2,built-in default,,last,")}));
    EXPECT_THAT(rows("F100 SHFE:rb2610"),
                testing::Contains(StartsWith("commission,,,exchange fee,instruments/all.csv:9,no_simulation,")));
}

TEST_F(Explain, WhatIsNotTakenIsSaidSo) {
    // Prime brokerage answers Hong Kong stocks with the defaults alone.
    EXPECT_THAT(rows("P100 HK:00700"),
                testing::Contains(StartsWith("hgt,,,configured limit,configured/hgt.csv:2,not_taken,")));
}

TEST_F(Explain, EachItemOfAnOptionHasItsInputs) {
    EXPECT_THAT(rows("O100 SHO:10001"),
                testing::IsSupersetOf({"option,000,1,custom fee,custom/option.csv:2,answers,,1.3",
                                       "option,000,2,built-in default,,last,,1.3",
                                       "option,0D,1,custom fee,custom/option.csv:3,answers,,0"}));
}

// Custom margins of the second flag are written at the second place of the margins that were loaded, whatever is there.
TEST_F(Explain, MarginInWhosePlaceAnotherFlagWasWrittenNamesThatOne) {
    folder.write("custom/margin.csv",
                 "account,update,category,hedge_flag,long_by_money\n"
                 "F400,1,2,2,0.12\n");
    const std::vector<std::string> found = rows("F400 SHFE:au2612");
    EXPECT_THAT(found, testing::IsSupersetOf(
                           {StartsWith("margin,1,1,own record,fees/margin.csv:3,answers,"),
                            StartsWith("margin,2,1,custom fee,custom/margin.csv:2,answers,"),
                            StartsWith("margin,3,2,own record,fees/margin.csv:4,outranked,custom/margin.csv:2")}));
}

TEST_F(Explain, IsATable) {
    EXPECT_EQ(explain("S100 SZ:000001", "COLUMNS=130").out,
              "Account S100 (stock) 股票户: SZ:000001 平安银行\n"
              "\n"
              "Stock rates\n"
              "Turn  Level                 What becomes of it                       Commission  Stamp duty  Trade "
              "unit\n"
              "   1  configured limit [1]  answers                                       0.02%           0         "
              "100\n"
              "   2  own record [2]        the configured limit goes before it [3]    0.00341%       0.05%         "
              "100\n"
              "   3  built-in default      answers where no line does                   0.015%        0.1%         "
              "100\n"
              "[1] Source configured/stock.csv:2\n"
              "[2] Source fees/stock.csv:3\n"
              "[3] By configured/stock.csv:2\n"
              "Rates not shown are 0: Transfer fee.\n"
              "\n"
              "Stock rates, lines that do not apply\n"
              "Level       Source              What becomes of it\n"
              "custom fee  custom/stock.csv:2  category 1 does not hold the instrument\n");
}

TEST_F(Explain, FitsTheWidth) {
    EXPECT_LE(widestLine(explain("S100 SZ:000001").out), 80U);
    EXPECT_LE(widestLine(explain("F400 SHFE:rb2610", "COLUMNS=60").out), 60U);
}

TEST_F(Explain, IsObjectsInJson) {
    const Outcome outcome = explain("S100 SH:600000 --json");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(
        lines(outcome.out).at(2),
        R"({"account":"S100","kind":"stock","instrument":{"market":"SH","code":"600000","name":"浦发银行"},)"
        R"("part":"stock","item":"","turn":2,"level":"own record","source":"fees/stock.csv:2","verdict":"outranked",)"
        R"("beaten_by":"custom/stock.csv:2","from":null,"until":null,"category":null,"rates":{"commission":0.00025,"transfer_fee":0,"rate3":0,"rate4":0,)"
        R"("rate5":0,"stamp_duty":0.0005,"trade_unit":100}},)");
}

TEST_F(Explain, TellsProgramsTheDaysAndTheCategoryOfALine) {
    folder.write("fees/stock.csv",
                 "account,market,code,commission,from,until\n"
                 "S100,SH,600*,0.0003,2022-04-29,2023-08-27\n"
                 "S100,SH,600*,0.00025,2023-08-28,\n");
    const Outcome outcome = explain("S100 SH:600519 --date 2024-01-02 --json");
    const auto hasLine = [&](const std::string& source, const std::string& verdict, const std::string& days) {
        const std::vector<std::string> all = lines(outcome.out);
        return std::any_of(all.begin(), all.end(), [&](const std::string& line) {
            return line.find("\"source\":" + source) != std::string::npos &&
                   line.find("\"verdict\":\"" + verdict + "\"") != std::string::npos &&
                   line.find(days) != std::string::npos;
        });
    };
    EXPECT_TRUE(
        hasLine("\"fees/stock.csv:2\"", "not_in_force", R"("from":"2022-04-29","until":"2023-08-27","category":null)"))
        << outcome.out;
    EXPECT_TRUE(hasLine("\"fees/stock.csv:3\"", "answers", R"("from":"2023-08-28","until":null)")) << outcome.out;
    EXPECT_TRUE(hasLine("\"custom/stock.csv:2\"", "other_category", R"("from":null,"until":null,"category":"1")"))
        << outcome.out;
    EXPECT_TRUE(hasLine("null", "last", R"("from":null,"until":null,"category":null)")) << outcome.out;
}

TEST_F(Explain, InstrumentOutsideTheListsIsNoted) {
    EXPECT_THAT(explain("S100 SHFE:rb2610").out, HasSubstr("SHFE:rb2610 is in no list of stock instruments;"));
}

TEST_F(Explain, WhatHasNoAnswerSaysSo) {
    struct Case {
        const char* arguments;
        int status;
        const char* reported;
    };
    for (const Case& wrong :
         {Case{"S999 SH:600519", 1, "feedesk: the market folder has no account S999"},
          Case{"S100 SH:600518", 1, "feedesk: the market folder has no instrument SH:600518"},
          Case{"S100 000001", 1, "feedesk: several markets have the code 000001: write SH:000001 or SZ:000001"},
          Case{"S100 'SH:*'", 1,
               "feedesk: SH:* stands for 3 instruments, and one is explained at a time; name one of them, such as "
               "SH:000001\n"},
          Case{"S100", 2, "feedesk: INSTRUMENT is required"}, Case{"", 2, "feedesk: ACCOUNT is required"},
          Case{"S100 SH:600519 SH:600000", 2, "feedesk: the argument SH:600000 was not expected"},
          Case{"S100 SH:600519 --csv --json", 2, "{\"error\":\"--json and --csv exclude each other"},
          Case{"S100 SH:600519 --date x", 2, "feedesk: --date: x is not a day such as 2023-08-28"}}) {
        const Outcome outcome = explain(wrong.arguments);
        EXPECT_EQ(outcome.status, wrong.status) << wrong.arguments;
        EXPECT_THAT(outcome.err, StartsWith(wrong.reported)) << wrong.arguments;
    }
}

}  // namespace
}  // namespace feedesk::test
