// Lines that are in force on some days only.

#include "fixture.h"

namespace standalone {
namespace {

using namespace qmservice;  // NOLINT(google-build-using-namespace): records
using LoaderDays = LoaderTest;

/// The rates of line 1 of a table on the last day before a change and on the day of the change.
struct Change {
    const char* name;
    const char* file;
    const char* header;  ///< up to the rate
    const char* line;    ///< up to the rate
    double (*rate)(const Market& market);
};

std::ostream& operator<<(std::ostream& out, const Change& change) { return out << change.name; }

template <class Fee>
const Fee& customFee(const Market& market, const char* number) {
    return dynamic_cast<const Fee&>(*accountOf(market, number).customFees.at(0).record);
}

const CInstrumentFee& fee(const Market& market, const char* number) {
    return *accountOf(market, number).fees.at(0).record;
}

class LoaderChange : public LoaderTest, public ::testing::WithParamInterface<Change> {};

// The new rate is above the old one, so that the order of the file decides nothing.
TEST_P(LoaderChange, IsSeenFromItsDayOn) {
    const Change& change = GetParam();
    write(change.file, std::string(change.header) + ",from,until\n" + change.line + ",0.25,2023-08-28,\n" +
                           change.line + ",0.5,,2023-08-27\n");
    const MarketFolder days = loadGoodFolder();
    EXPECT_EQ(change.rate(days.marketOn(day("2023-08-27"))), 0.5);
    EXPECT_EQ(change.rate(days.marketOn(day("2023-08-28"))), 0.25);
}

INSTANTIATE_TEST_SUITE_P(
    Tables, LoaderChange,
    ::testing::Values(
        Change{"FeesStock", "fees/stock.csv", "account,market,code,commission", "S1,SH,600000",
               [](const Market& market) { return fee(market, "S1").stkRateLimit->rate1; }},
        Change{"FeesCredit", "fees/credit.csv", "account,market,code,rate6", "C1,SH,600000",
               [](const Market& market) { return fee(market, "C1").stkRateLimit->rate6; }},
        Change{"FeesNeeq", "fees/neeq.csv", "account,market,code,rate1", "N1,SH,*",
               [](const Market& market) { return fee(market, "N1").stkRateLimit->rate1; }},
        Change{"FeesHgt", "fees/hgt.csv", "account,market,code,rate14", "H1,HK,*",
               [](const Market& market) { return fee(market, "H1").hgtRateLimit->rate14; }},
        Change{"FeesSgt", "fees/sgt.csv", "account,market,code,rate1", "G1,HK,*",
               [](const Market& market) { return fee(market, "G1").sgtRateLimit->rate1; }},
        Change{"FeesCommission", "fees/commission.csv", "account,market,code,open_by_money", "F1,SHFE,*",
               [](const Market& market) { return fee(market, "F1").commissionDetail->openRatioByMoney; }},
        Change{"FeesMargin", "fees/margin.csv", "account,market,code,hedge_flag,long_by_money", "F1,SHFE,*,1",
               [](const Market& market) { return fee(market, "F1").marginDetails.at(0)->longMarginRatio; }},
        Change{"ConfiguredStock", "configured/stock.csv", "market,code,commission", "SH,600000",
               [](const Market& market) { return market.stockLimits.at(0).limit->rate1; }},
        Change{"ConfiguredHgt", "configured/hgt.csv", "market,code,rate1", "HK,00700",
               [](const Market& market) { return market.hgtLimits.at(0).limit->rate1; }},
        Change{"ConfiguredSgt", "configured/sgt.csv", "market,code,rate1", "HK,00700",
               [](const Market& market) { return market.sgtLimits.at(0).limit->rate1; }},
        Change{"CustomStock", "custom/stock.csv", "account,update,category,commission", "S1,1,20",
               [](const Market& market) {
                   return customFee<CCustomStockInstrumentFee>(market, "S1").rateLimits.at(0)->rate1;
               }},
        Change{"CustomOption", "custom/option.csv", "account,update,category,item,handling", "O1,1,20,000",
               [](const Market& market) {
                   return customFee<CCustomStockInstrumentFee>(market, "O1").rateLimits.at(0)->optionFee1;
               }},
        Change{"CustomHgt", "custom/hgt.csv", "account,update,category,rate1", "H1,1,20",
               [](const Market& market) {
                   return customFee<CCustomHGTInstrumentFee>(market, "H1").rateLimits.at(0)->rate1;
               }},
        Change{"CustomCommission", "custom/commission.csv", "account,update,category,open_by_money", "F5,4,20",
               [](const Market& market) {
                   return customFee<CCustomFutureInstrumentFee>(market, "F5").commissionDetails.at(0)->openRatioByMoney;
               }}),
    [](const auto& change) { return change.param.name; });

TEST_F(LoaderDays, AreInForceFromTheFirstToTheLastOfThem) {
    write("fees/credit.csv", "account,market,code,rate1,from,until\nC1,SH,600000,0.5,2023-01-02,2023-01-03\n");
    const MarketFolder days = loadGoodFolder();
    for (const auto& [text, records] : std::vector<std::pair<std::string, std::size_t>>{
             {"2023-01-01", 0}, {"2023-01-02", 1}, {"2023-01-03", 1}, {"2023-01-04", 0}}) {
        EXPECT_EQ(accountOf(days.marketOn(day(text)), "C1").fees.size(), records) << text;
    }
}

TEST_F(LoaderDays, OfTheOneAndOnlyDayAreTaken) {
    write("fees/credit.csv", "account,market,code,rate1,from,until\nC1,SH,600000,0.5,2023-01-02,2023-01-02\n");
    EXPECT_EQ(accountOf(loadGoodFolder().marketOn(day("2023-01-02")), "C1").fees.size(), 1U);
}

TEST_F(LoaderDays, LeaveTheLastLineInForceTheWinner) {
    write("fees/commission.csv",
          "account,market,code,open_by_money,from\nF1,SHFE,*,1,\nF1,SHFE,cu2601,2,2023-01-02\nF1,SHFE,cu2601,3,\n"
          "F1,SHFE,cu2601,4,2023-01-03\n");
    const MarketFolder days = loadGoodFolder();
    const auto rate = [&](const char* text) {
        return accountOf(days.marketOn(day(text)), "F1").fees.at(0).record->commissionDetail->openRatioByMoney;
    };
    EXPECT_EQ(rate("2023-01-02"), 3);
    EXPECT_EQ(rate("2023-01-03"), 4);
}

TEST_F(LoaderDays, LeaveTheOrderOfACustomFee) {
    write("custom/stock.csv",
          "account,update,category,commission,from,until\nS1,1,20,0.1,,2023-01-01\nS1,1,10,0.2,,\nS1,1,70001,0.3,,\n");
    const MarketFolder days = loadGoodFolder();
    const auto rates = [&](const char* text) {
        const Market market = days.marketOn(day(text));
        std::vector<double> found;
        for (const auto& limit : customFee<CCustomStockInstrumentFee>(market, "S1").rateLimits) {
            found.push_back(limit->rate1);
        }
        return found;
    };
    EXPECT_EQ(rates("2023-01-01"), (std::vector<double>{0.1, 0.2, 0.3}));
    EXPECT_EQ(rates("2023-01-02"), (std::vector<double>{0.2, 0.3}));
}

TEST_F(LoaderDays, WithoutALineLeaveACustomFeeOut) {
    write("custom/credit.csv", "account,update,category,rate1,until\nC1,1,20,0.1,2023-01-01\n");
    EXPECT_TRUE(accountOf(loadGoodFolder().marketOn(day("2023-01-02")), "C1").customFees.empty());
}

TEST_F(LoaderDays, ShareTheRecordsOfInstrumentsAndAccounts) {
    const MarketFolder days = loadGoodFolder();
    const Market early = days.marketOn(day("2001-01-01"));
    const Market late = days.marketOn(day("2031-01-01"));
    EXPECT_EQ(early.instruments.at(0).record, late.instruments.at(0).record);
    EXPECT_EQ(early.accounts.at(0).record, late.accounts.at(0).record);
    EXPECT_NE(early.accounts.at(0).fees.at(0).record, late.accounts.at(0).fees.at(0).record);
}

TEST_F(LoaderDays, AreThoseOfAsOfWhereNoneIsNamed) {
    write("fees/credit.csv", "account,market,code,rate1,from\nC1,SH,600000,0.5,2023-08-28\n");
    replace("market.toml", "title = \"Test market\"", "title = \"Test market\"\nas_of = 2023-08-27");
    EXPECT_EQ(loadGoodFolder().defaultDay(), day("2023-08-27"));
    EXPECT_TRUE(accountOf(loadGood(), "C1").fees.empty());
}

TEST_F(LoaderDays, OfALineThatMatchesNothingAreNoExcuse) {
    write("fees/credit.csv", "account,market,code,rate1,until\nC1,SH,9*,0.5,1999-01-01\n");
    expectError("fees/credit.csv", 2, {"matches no instrument"});
}

TEST_F(LoaderDays, ThatEndBeforeTheyBeginAreRefused) {
    write("custom/credit.csv", "account,update,category,rate1,from,until\nC1,1,20,0.1,2023-08-28,2023-08-27\n");
    expectError("custom/credit.csv", 2, {"column until", "2023-08-27", "before the 2023-08-28", "correct one"});
}

TEST_F(LoaderDays, OfNoCalendarAreRefused) {
    write("configured/hgt.csv", "market,code,rate1,from\nHK,00700,0.1,2023-02-29\n");
    expectError("configured/hgt.csv", 2, {"column from", "\"2023-02-29\"", "a day of the calendar", "correct it"});
}

TEST_F(LoaderDays, WithoutHyphensAreReportedWithThem) {
    write("configured/hgt.csv", "market,code,rate1,until\nHK,00700,0.1,20230228\n");
    expectError("configured/hgt.csv", 2, {"column until", "\"20230228\"", "write 2023-02-28"});
}

TEST_F(LoaderDays, AreNoNamesOfRates) {
    append("market.toml", "[rates.credit]\nrate1 = { column = \"until\" }\n");
    expectError("market.toml", 34, {"\"until\"", "use already"});
}

// --- two lines for one configured limit

struct TwoLines {
    const char* name;
    const char* first;
    const char* second;
    bool isError;
};

class LoaderConfiguredDays : public LoaderTest, public ::testing::WithParamInterface<TwoLines> {};

TEST_P(LoaderConfiguredDays, AreComparedOnlyWhereTheyOverlap) {
    write("configured/hgt.csv", std::string("market,code,rate1,from,until\nHK,00700,0.1,") + GetParam().first +
                                    "\nHK,00700,0.2," + GetParam().second + "\n");
    if (GetParam().isError) {
        expectError("configured/hgt.csv", 3,
                    {"HK \"00700\"", "a line already at configured/hgt.csv:2", "; remove one"});
    } else {
        EXPECT_TRUE(load().ok());
    }
}

INSTANTIATE_TEST_SUITE_P(Days, LoaderConfiguredDays,
                         ::testing::Values(TwoLines{"BothEveryDay", ",", ",", true},
                                           TwoLines{"OneEveryDay", ",", "2023-01-02,2023-01-02", true},
                                           TwoLines{"OtherEveryDay", "2023-01-02,2023-01-02", ",", true},
                                           TwoLines{"OneDayShared", ",2023-01-02", "2023-01-02,", true},
                                           TwoLines{"OneInTheOther", "2023-01-01,2023-12-31", "2023-03-01,2023-03-02",
                                                    true},
                                           TwoLines{"OneAroundTheOther", "2023-03-01,2023-03-02", "2023-01-01,", true},
                                           TwoLines{"Apart", ",2023-01-01", "2023-01-02,", false},
                                           TwoLines{"ApartTheOtherWay", "2023-01-02,", ",2023-01-01", false}),
                         [](const auto& pair) { return pair.param.name; });

TEST_F(LoaderDays, ThatOverlapAreNamed) {
    write("configured/hgt.csv",
          "market,code,rate1,from,until\nHK,00700,0.1,,2023-01-02\nHK,00700,0.2,2023-01-02,2023-06-30\n");
    expectError("configured/hgt.csv", 3,
                {"some of its days are from 2023-01-02 until 2023-06-30 too", "part their days"});
}

// --- intervals

std::vector<std::string> changesOf(const MarketFolder& folder) {
    std::vector<std::string> texts;
    for (const cost::Date change : folder.changeDates()) {
        texts.push_back(change.text());
    }
    return texts;
}

TEST_F(LoaderDays, AreOneIntervalWhereNothingChanges) {
    const MarketFolder days = loadGoodFolder();
    EXPECT_TRUE(days.changeDates().empty());
    EXPECT_EQ(days.intervalOf(cost::Date()), days.intervalOf(cost::Date::last()));
}

TEST_F(LoaderDays, ChangeWhereALineOfAnyTableBeginsOrHasEnded) {
    write("fees/credit.csv", "account,market,code,rate1,from,until\nC1,SH,600000,0.5,2023-08-28,2023-12-31\n");
    write("custom/credit.csv", "account,update,category,rate1,until\nC1,1,20,0.1,2022-02-28\n");
    write("configured/hgt.csv", "market,code,rate1,from\nHK,00700,0.1,2023-08-28\n");
    write("charges.csv",
          "family,charge,side,basis,per,currency,from\nstock,commission,both,turnover,fill,CNY,2020-02-03\n");
    const MarketFolder days = loadGoodFolder();
    EXPECT_EQ(changesOf(days), (std::vector<std::string>{"2020-02-03", "2022-03-01", "2023-08-28", "2024-01-01"}));
    EXPECT_EQ(days.intervalOf(day("2020-02-02")), 0U);
    EXPECT_EQ(days.intervalOf(day("2020-02-03")), 1U);
    EXPECT_EQ(days.intervalOf(day("2022-02-28")), 1U);
    EXPECT_EQ(days.intervalOf(day("2022-03-01")), 2U);
    EXPECT_EQ(days.intervalOf(day("2023-08-27")), 2U);
    EXPECT_EQ(days.intervalOf(day("2023-08-28")), 3U);
    EXPECT_EQ(days.intervalOf(day("2023-12-31")), 3U);
    EXPECT_EQ(days.intervalOf(day("2024-01-01")), 4U);
}

TEST_F(LoaderDays, FromTheFirstAndUntilTheLastOfAllChangeNothing) {
    write("fees/credit.csv", "account,market,code,rate1,from,until\nC1,SH,600000,0.5,0001-01-01,9999-12-31\n");
    EXPECT_TRUE(loadGoodFolder().changeDates().empty());
}

TEST_F(LoaderDays, OfABrokenFolderAreEmpty) {
    append("accounts.csv", "S1,Again,stock,\n");
    const FolderResult result = loadFolder(folder.string());
    EXPECT_FALSE(result.ok());
    EXPECT_EQ(result.folder.name(), folder.string());
    EXPECT_TRUE(result.folder.marketOn(day("2023-08-28")).accounts.empty());
}

}  // namespace
}  // namespace standalone
