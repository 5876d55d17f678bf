#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "tests/feedesk/support/check_folder.h"

// Every kind of fault, put one at a time into a folder without one: exactly that one is found, at its line.

namespace feedesk::test {
namespace {

using testing::HasSubstr;

/// A text of a file, and what takes its place. A file of "*" is every file; nothing to replace means lines to add.
struct Edit {
    std::string file;
    std::string from;
    std::string to;
};

struct Fault {
    std::string name;  ///< of the test
    std::vector<Edit> edits;
    std::string check;
    std::string severity;
    std::string place;
    std::string found;  ///< a part of what is said
};

std::ostream& operator<<(std::ostream& out, const Fault& fault) { return out << fault.name; }

bool put(const CheckFolder& folder, const Edit& edit) {
    if (edit.file == "*") {
        folder.replaceEverywhere(edit.from, edit.to);
        return true;
    }
    if (edit.from.empty()) {
        folder.append(edit.file, edit.to);
        return true;
    }
    return folder.replace(edit.file, edit.from, edit.to);
}

/// Eight lines: more than there are with the duty of today.
std::string yearsOfTheOldDuty() {
    std::string lines;
    for (int year = 2015; year <= 2022; ++year) {
        const std::string text = std::to_string(year);
        lines += "S200,SZ,*,,0.0003,0.001," + text + "-01-01," + text + "-12-31\n";
    }
    return lines;
}

/// Accounts with one rate for shares of Shanghai, of which some have a fifth of it for funds; those of Shenzhen are
/// between.
constexpr int kAccountsWithFunds = 4;
constexpr int kMoreAccounts = 12;

std::string moreAccounts() {
    std::string accounts;
    for (int i = 1; i <= kMoreAccounts; ++i) {
        const std::string number = "S3" + std::to_string(10 + i);
        accounts += number + ",另户" + std::to_string(i) + ",stock\n";
    }
    return accounts;
}

std::string linesOfMoreAccounts() {
    std::string lines;
    for (int i = 1; i <= kMoreAccounts; ++i) {
        const std::string number = "S3" + std::to_string(10 + i);
        lines += number + ",SZ,*,,0.0001,0.0005,,\n";
        lines += number + (i <= kAccountsWithFunds ? ",SH,*,MAIN" : ",SH,*,") + ",0.0003,0.0005,,\n";
        lines += i <= kAccountsWithFunds ? number + ",SH,*,ETF,0.00005,0.0005,,\n" : "";
    }
    return lines;
}

/// Three terms of other families, with those of the duties that one of them pays; each text has the cells from minimum
/// to until.
std::string termsOfCommission(const std::string& credit, const std::string& neeq, const std::string& hgt) {
    const std::string cells = ",,,commission,both,turnover,,order,CNY,2026-09-01";
    return "credit" + cells + credit + "\nneeq" + cells + neeq + "\nhgt" + cells + hgt + "\n" +
           "hgt,,,stamp_duty_buy,buy,turnover,,order,CNY,2026-09-01,,,,,,\n"
           "hgt,,,stamp_duty_sell,sell,turnover,,order,CNY,2026-09-01,,,,,,\n";
}

const std::vector<Fault>& faults() {
    static const std::vector<Fault> all = {
        {"PercentInAFeeTable",
         {{"fees/stock.csv", "SH,*,MAIN,0.00025", "SH,*,MAIN,0.025"}},
         "percent-rate",
         "error",
         "fees/stock.csv,2",
         "commission 0.025 is 2.5% of the turnover"},
        {"PercentOfTwoColumnsIsOneFinding",
         {{"fees/stock.csv", "SH,*,MAIN,0.00025,0.0005", "SH,*,MAIN,0.025,0.05"}},
         "percent-rate",
         "error",
         "fees/stock.csv,2",
         "stamp_duty 0.05 is 5% of the turnover"},
        {"PerMilleInACustomFee",
         {{"custom/stock.csv", "S100,1,1,0.0002", "S100,1,1,0.2"}},
         "percent-rate",
         "error",
         "custom/stock.csv,2",
         "write a plain fraction: 0.0002 if 0.2 is per mille"},
        {"PercentInAConfiguredLimit",
         {{"configured/stock.csv", "0.0001", "0.01"}},
         "percent-rate",
         "error",
         "configured/stock.csv,2",
         "commission 0.01 is 1%"},
        {"PercentThatWouldBeAnOutdatedDuty",
         {{"fees/stock.csv", "S200,SZ,*,,0.0003,0.0005", "S200,SZ,*,,0.0003,0.1"}},
         "percent-rate",
         "error",
         "fees/stock.csv,5",
         "write a plain fraction: 0.001 (a stamp duty of 0.1%, which is out of date: 0.05% since 2023-08-28) if 0.1 is "
         "in percent; the column usually has 0.0005"},
        {"PercentBesideTheDutyOfItsOwnDays",
         {{"fees/stock.csv", "S200,SZ,*,,0.0003,0.0005,,\n",
           yearsOfTheOldDuty() + "S200,SZ,*,,0.0003,0.0005,2023-08-28,2025-12-31\n"},
          {"fees/stock.csv", "", "S200,SZ,*,,0.0003,0.05,2026-01-01,\n"}},
         "percent-rate",
         "error",
         "fees/stock.csv,14",
         "0.0005 if 0.05 is in percent; the column usually has 0.0005"},
        {"NegativeRate",
         {{"fees/stock.csv", "S200,SZ,*,,0.0003,0.0005", "S200,SZ,*,,-0.0003,0.0005"}},
         "negative-rate",
         "error",
         "fees/stock.csv,5",
         "commission -0.0003 pays the account instead of charging it,write 0.0003 if the sign is a slip"},
        {"NegativeRateOfACustomFee",
         {{"custom/stock.csv", "S100,1,1,0.0002", "S100,1,1,-0.0002"}},
         "negative-rate",
         "error",
         "custom/stock.csv,2",
         "commission -0.0002"},
        {"DutyOnBothSides",
         {{"charges.csv", "stamp_duty,sell", "stamp_duty,both"}},
         "both-sides-duty",
         "error",
         "charges.csv,5",
         "stamp_duty is charged on both sides, and since 2008-09-19 sales alone pay it\",end the line with until "
         "2008-09-18 and add one with sell in side from 2008-09-19,"},
        {"DutyOnPurchasesOfALaterTerm",
         {{"charges.csv", "", "stock,S200,,stamp_duty,buy,turnover,,order,CNY,2026-09-01,,,,,2008-09-19,\n"}},
         "both-sides-duty",
         "error",
         "charges.csv,6,S200",
         "stamp_duty is charged on purchases, and since 2008-09-19 sales alone pay it\",write sell in side,"},
        {"RateOfAnAccountWhoseTermIsAnothers",
         {{"charges.csv", "stock,,,stamp_duty,sell,turnover,", "stock,S100,,stamp_duty,sell,turnover,"}},
         "unused-rate",
         "warning",
         "fees/stock.csv,4,S200,2",
         "no charging term is for the rate stamp_duty"},
        {"ExchangeWithoutTheDuty",
         {{"fees/stock.csv", "S200,SZ,*,,0.0003,0.0005", "S200,SZ,*,,0.0003,0"}},
         "missing-duty",
         "warning",
         "fees/stock.csv,5",
         "S200,1,\"stamp_duty is 0 for 1 instrument, such as SZ:300750, and usually 0.0005 for product CHINEXT"},
        {"CustomFeeWithoutTheDuty",
         {{"custom/stock.csv", "S100,1,1,0.0002,0.0005", "S100,1,1,0.0002,"}},
         "missing-duty",
         "warning",
         "custom/stock.csv,2",
         "stamp_duty is 0 for 1 instrument, such as SH:600519, and usually 0.0005 for product MAIN"},
        {"OneDutyOfHongKongLeftOut",
         {{"instruments/all.csv", "", "HK,00701,腾讯二,hgt,\n"},
          {"fees/hgt.csv", "", "H100,HK,00701,0.0003,0.001,0\n"}},
         "missing-duty",
         "warning",
         "fees/hgt.csv,3",
         "stamp_duty_sell is 0 for 1 instrument, such as HK:00701, and usually 0.001 for HK:007*"},
        {"ExchangeWithoutACommission",
         {{"fees/stock.csv", "S200,SZ,*,,0.0003,0.0005", "S200,SZ,*,,0,0.0005"}},
         "free-commission",
         "warning",
         "fees/stock.csv,5",
         "commission is 0 for 1 instrument, such as SZ:300750, and usually 0.0002 for product CHINEXT"},
        {"FuturesThatAreClosedForNothing",
         {{"custom/commission.csv", "0.0002,0.0002", "0.0002,0"}},
         "free-commission",
         "warning",
         "custom/commission.csv,2",
         "close_by_money and close_by_volume are 0 for 1 instrument, such as SHFE:rb2705, and usually close_by_money "
         "0.0001 for product rb"},
        {"MinimumTenTimesTheOthers",
         {{"charges.csv", "", termsOfCommission(",5,,,,,", ",5,,,,,", ",50,,,,,")}},
         "far-term",
         "warning",
         "charges.csv,8",
         "the minimum 50 of commission is far from all others: 10 times the next lower one, 5"},
        {"MaximumATenthOfTheOthers",
         {{"charges.csv", "", termsOfCommission(",,100,,,,", ",,10,,,,", ",,120,,,,")}},
         "far-term",
         "warning",
         "charges.csv,7",
         "the maximum 10 of commission is far from all others: the next higher one, 100, is 10 times as much"},
        {"RoundingUnlikeTheOthers",
         {{"charges.csv", "commission,both,turnover,,order,CNY,2026-09-01,,,",
           "commission,both,turnover,,order,CNY,2026-09-01,,,0.01 half_up"},
          {"charges.csv", "", termsOfCommission(",,,0.01 half_up,,,", ",,,0.1 half_up,,,", ",,,0.01 half_up,,,")}},
         "far-term",
         "warning",
         "charges.csv,7",
         "commission has rounding 0.1 half_up, and 3 of its 4 terms have rounding 0.01 half_up"},
        {"MinimumOfOneAccountThatNobodyExplains",
         {{"charges.csv", "", "stock,S200,,commission,both,turnover,,order,CNY,2026-09-01,5,,,,,\n"}},
         "unexplained-term",
         "warning",
         "charges.csv,6,S200",
         "commission has minimum 5 in place of no minimum of charges.csv:2"},
        {"MinimumPerFillThatNobodyExplains",
         {{"charges.csv", "", "stock,S200,,commission,both,turnover,,fill,CNY,2026-09-01,,,,,,\n"}},
         "unexplained-term",
         "warning",
         "charges.csv,6,S200",
         "commission has per fill in place of per order of charges.csv:2"},
        {"LineThatEndsAndNoneFollows",
         {{"fees/stock.csv", "S200,SZ,*,,0.0003,0.0005,,", "S200,SZ,*,,0.0003,0.0005,,2026-10-31"}},
         "ended-line",
         "warning",
         "fees/stock.csv,5,S200,3",
         "ends on 2026-10-31, and from 2026-11-01 on no line follows for 3 instruments, such as SZ:000001: built-in "
         "default"},
        {"LineThatEndsAndAWiderOneAnswers",
         {{"fees/stock.csv", "", "S200,SZ,300750,,0.0002,0.0005,,2026-10-31\n"}},
         "ended-exception",
         "note",
         "fees/stock.csv,6,S200,1",
         "ends on 2026-10-31, and from 2026-11-01 on fees/stock.csv:5 answers for 1 instrument, such as SZ:300750, "
         "with "
         "other rates"},
        {"TermThatEndsAndNoneFollows",
         {{"charges.csv", "0.00002,order,CNY,2026-09-01,,,,,,", "0.00002,order,CNY,2026-09-01,,,,,,2026-12-31"}},
         "ended-term",
         "warning",
         "charges.csv,3",
         "ends on 2026-12-31, and no term charges levy from 2027-01-01 on"},
        {"TermOfOneAccountThatEnds",
         {{"charges.csv", "", "stock,S200,,commission,both,turnover,,order,CNY,2026-09-01,,,,,,2026-12-31\n"}},
         "ended-term",
         "warning",
         "charges.csv,6,S200",
         "ends on 2026-12-31, and charges.csv:2 charges commission in its place from 2027-01-01 on"},
        {"ScheduleThatWasLookedUpOnADayToCome",
         {{"charges.csv", "0.00002,order,CNY,2026-09-01", "0.00002,order,CNY,2999-01-01"}},
         "future-check",
         "warning",
         "charges.csv,3",
         "the stock schedule says that it was checked on 2999-01-01, a day to come"},
        {"OldDutyOfAChargingTerm",
         {{"charges.csv", "", "stock,,,stamp_duty_own,sell,turnover,0.001,order,CNY,2026-09-01,,,,,,\n"}},
         "old-duty",
         "error",
         "charges.csv,6",
         "stamp_duty_own 0.001 is a stamp duty of 0.1%, which is out of date"},
        {"PercentInAFuturesCommission",
         {{"fees/commission.csv", "au*,0.00005,", "au*,0.05,"}},
         "percent-rate",
         "error",
         "fees/commission.csv,3",
         "open_by_money 0.05"},
        {"PercentInAChargingTerm",
         {{"charges.csv", "0.00002", "0.02"}},
         "percent-rate",
         "error",
         "charges.csv,3",
         "levy 0.02 is 2%"},
        {"RateTenTimesTheOthers",
         {{"fees/stock.csv", "S200,SH,*,,0.0003", "S200,SH,*,,0.003"}},
         "far-rate",
         "warning",
         "fees/stock.csv,4",
         "commission 0.003 is far from all other rates of its column: 10 times the next lower one, 0.0003"},
        {"RateNearThoseOfLinesThatHaveEnded",
         {{"fees/stock.csv", "S200,SH,*,,0.0003", "S200,SH,*,,0.003"},
          {"fees/stock.csv", "",
           "S200,SH,*,,0.003,0.0005,,2024-12-31\nS200,SH,*,,0.003,0.0005,2025-01-01,2026-09-29\n"}},
         "far-rate",
         "warning",
         "fees/stock.csv,4",
         "commission 0.003 is far from all other rates of its column: 10 times the next lower one, 0.0003"},
        {"RateATenthOfTheOthers",
         {{"fees/stock.csv", "S200,SZ,*,,0.0003", "S200,SZ,*,,0.00001"}},
         "far-rate",
         "warning",
         "fees/stock.csv,5",
         "is 10 times as much"},
        {"MarginFarFromTheOthers",
         {{"fees/margin.csv", "rb27*,2,0.08,0.08", "rb27*,2,0.008,0.08"}},
         "far-rate",
         "warning",
         "fees/margin.csv,6",
         "long_by_money 0.008"},
        {"RateTenTimesTheOthersOfItsMarketAndNearThoseOfAnother",
         {{"fees/stock.csv", "S200,SH,*,,0.0003", "S200,SH,*,,0.003"},
          {"fees/stock.csv", "S100,SZ,*,,0.00025", "S100,SZ,*,,0.0009"},
          {"fees/stock.csv", "S200,SZ,*,,0.0003", "S200,SZ,*,,0.0009"}},
         "far-rate",
         "warning",
         "fees/stock.csv,4",
         "commission 0.003 is far from all other rates of its column in SH: 12 times the next lower one, 0.00025"},
        {"MarginFarFromTheOthersOfItsProductAndNearThoseOfAnother",
         {{"fees/margin.csv", "rb2610,1,0.08,0.08", "rb2610,1,0.008,0.08"},
          {"fees/margin.csv", "au*,1,0.12,0.12", "au*,1,0.03,0.12"},
          {"fees/margin.csv", "au*,2,0.1,0.1", "au*,2,0.025,0.1"}},
         "far-rate",
         "warning",
         "fees/margin.csv,2",
         "long_by_money 0.008 is far from all other rates of its column for rb of SHFE: the next higher one, 0.07, "
         "is 8.8 times as much"},
        {"OldDuty",
         {{"fees/stock.csv", "S200,SZ,*,,0.0003,0.0005", "S200,SZ,*,,0.0003,0.001"}},
         "old-duty",
         "error",
         "fees/stock.csv,5",
         "a stamp duty of 0.1%, which is out of date: 0.05% since 2023-08-28"},
        {"OldDutyInHongKong",
         {{"fees/hgt.csv", "0.001,0.001", "0.0013,0.0013"}},
         "old-duty",
         "error",
         "fees/hgt.csv,2",
         "a stamp duty of 0.13%, which is out of date: 0.1% since 2023-11-17"},
        {"ZeroMargin",
         {{"fees/margin.csv", "rb2610,2,0.07,0.07", "rb2610,2,0,0.07"}},
         "zero-margin",
         "error",
         "fees/margin.csv,3",
         "the long margin is 0 by money and 0 by volume"},
        {"NegativeMargin",
         {{"fees/margin.csv", "rb2610,2,0.07,0.07", "rb2610,2,0.07,-0.07"}},
         "zero-margin",
         "error",
         "fees/margin.csv,3",
         "the short margin is -0.07"},
        {"MarginInPercent",
         {{"fees/margin.csv", "au*,1,0.12,0.12", "au*,1,12,12"}},
         "margin-above-one",
         "error",
         "fees/margin.csv,8",
         "long_by_money 12 is 1200% of the value, short_by_money 12"},
        {"CustomMarginOfAFlagWithoutASlot",
         {{"fees/margin.csv", "F100,SHFE,rb2610,2,0.07,0.07\n", ""},
          {"categories.csv", "", "5,近月,SHFE,rb2610,\n"},
          {"custom/margin.csv", "", "F100,1,5,3,0.15,0.15\n"}},
         "lost-margin",
         "error",
         "custom/margin.csv,3",
         "the hedging margin is not the one that answers for 1 instrument, such as SHFE:rb2610"},
        {"MarginReplacedByOneOfAnotherFlag",
         {{"fees/margin.csv", "F100,SHFE,rb2610,2,0.07,0.07\n", ""},
          {"categories.csv", "", "5,近月,SHFE,rb2610,\n"},
          {"custom/margin.csv", "", "F100,1,5,2,0.15,0.15\n"}},
         "lost-margin",
         "error",
         "fees/margin.csv,3",
         "the hedging margin"},
        {"SecondFlagOfOneCustomFee",
         {{"custom/margin.csv", "", "F100,1,4,2,0.14,0.14\n"}},
         "lost-margin",
         "error",
         "custom/margin.csv,3",
         "the arbitrage margin"},
        {"MarginsWithoutACommission",
         {{"fees/commission.csv", "F100,SHFE,au*,0.00005,0.00005\n", ""}},
         "unset-commission",
         "error",
         "accounts.csv,5",
         "1 instrument with margins and without a commission: SHFE au 1"},
        {"HedgeFlagsInPart",
         {{"fees/margin.csv", "F100,SHFE,au*,2,0.1,0.1\n", ""}},
         "missing-hedge-flag",
         "warning",
         "fees/margin.csv,8",
         "a margin for speculation and hedging and none for arbitrage"},
        {"CustomFeeThatReachesNothing",
         {{"custom/stock.csv", "S100,1,2,", "S100,1,3,"}},
         "unreached-custom-fee",
         "warning",
         "custom/stock.csv,3",
         "the category 3 holds no instrument of the account's list"},
        {"CustomMarginThatReachesNothing",
         {{"custom/margin.csv", "F100,1,4,", "F100,1,1,"}},
         "unreached-custom-fee",
         "warning",
         "custom/margin.csv,2",
         "the category 1"},
        {"CustomFeeBehindAnEarlierOne",
         {{"custom/stock.csv", "", "S100,1,1,0.00015,0.0005\n"}},
         "shadowed-line",
         "warning",
         "custom/stock.csv,4",
         "no answer comes from this line: custom/stock.csv:2 answers for its 1 instrument"},
        {"CustomFeeBeforeALaterUpdate",
         {{"custom/stock.csv", "", "S100,2,1,0.00015,0.0005\n"}},
         "shadowed-line",
         "warning",
         "custom/stock.csv,2",
         "custom/stock.csv:4 answers"},
        {"RecordBeforeALaterOne",
         {{"fees/stock.csv", "", "S200,SH,*,,0.00035,0.0005,,\n"}},
         "shadowed-line",
         "warning",
         "fees/stock.csv,4",
         "fees/stock.csv:6"},
        {"RecordBehindAConfiguredLimit",
         {{"fees/stock.csv", "", "S100,SH,510050,,0.0001,,,\n"}},
         "overridden-record",
         "note",
         "fees/stock.csv,6",
         "configured limits go before it"},
        {"StockLimitOfAnOption",
         {{"configured/stock.csv", "", "SHO,10001,0.0001,\n"}},
         "unlisted-limit",
         "warning",
         "configured/stock.csv,3",
         "SHO:10001"},
        {"ConnectLimitOfAStock",
         {{"configured/hgt.csv", "", "SH,600000,0.0003\n"}},
         "unlisted-limit",
         "warning",
         "configured/hgt.csv,2",
         "SH:600000"},
        {"OptionItemThatNobodyAsksFor",
         {{"custom/option.csv", "", "O100,3,3,0X0,1.3\n"}},
         "unasked-item",
         "warning",
         "custom/option.csv,4",
         "the item 0X0"},
        {"OptionItemThatIsChargedAndMissing",
         {{"charges.csv", "", "option,,0D,handling_fee,exercise,quantity,,order,CNY,2026-09-01,,,,,,\n"}},
         "missing-item",
         "warning",
         "custom/option.csv,2",
         "1 instrument with items of the account and without the charged 0D"},
        {"BuiltInDefault",
         {{"fees/stock.csv", "S200,SZ,*,", "S200,SZ,0*,"}},
         "built-in-default",
         "warning",
         "accounts.csv,3",
         "1 of 6 instruments fall to the built-in stock rates: SZ CHINEXT 1, with a stamp duty of 0.1%"},
        {"BuiltInDefaultOfHongKong",
         {{"instruments/all.csv", "", "HK,09988,阿里巴巴,hgt,\n"}, {"fees/hgt.csv", "HK,*", "HK,00*"}},
         "built-in-default",
         "warning",
         "accounts.csv,4",
         "HK 1, with a stamp duty of 0.13%, which is out of date"},
        {"ExpiredFuture",
         {{"*", "rb2610", "rb2608"}},
         "expired-contract",
         "note",
         "instruments/all.csv,10",
         "1 contract with a delivery month before 2026-09: rb2608"},
        {"ExpiredFutureOfOneDigit",
         {{"*", "rb2610", "rb608"}},
         "expired-contract",
         "note",
         "instruments/all.csv,10",
         "rb608"},
        {"ExpiredOption",
         {{"instruments/all.csv", "50ETF购12月2500", "510050C2608M002500"}},
         "expired-contract",
         "note",
         "instruments/all.csv,9",
         "10001"},
        {"ScheduleThatNobodyLookedUp",
         {{"charges.csv", "0.00002,order,CNY,2026-09-01", "0.00002,order,CNY,2025-09-29"}},
         "unchecked-schedule",
         "warning",
         "charges.csv,3",
         "the stock schedule was last checked on 2025-09-29"},
        {"ScheduleWithoutADay",
         {{"charges.csv", "0.00002,order,CNY,2026-09-01", "0.00002,order,CNY,"}},
         "unchecked-schedule",
         "warning",
         "charges.csv,3",
         "does not say when it was checked"},
        {"ZeroWidthSpaceInAnAccount",
         {{"*", "S200", "S200\xE2\x80\x8B"}},
         "invisible-character",
         "error",
         "accounts.csv,3",
         "the account that looks like S200 holds a zero-width space (U+200B)"},
        {"NoBreakSpaceInACode",
         {{"*", "600000", "600000\xC2\xA0"}},
         "invisible-character",
         "error",
         "instruments/all.csv,3",
         "the code that looks like 600000 holds a no-break space (U+00A0)"},
        {"NoBreakSpaceInAProduct",
         {{"instruments/all.csv", "贵州茅台,stock,MAIN", "贵州茅台,stock,MAIN\xC2\xA0"}},
         "invisible-character",
         "error",
         "instruments/all.csv,2",
         "the product that looks like MAIN"},
        {"AccountWithoutItsZeros",
         {{"*", "S100", "0012345"}, {"*", "S200", "12345"}},
         "spreadsheet-number",
         "warning",
         "accounts.csv,3",
         "the account 12345 seems to be 0012345 without its zeros"},
        {"CodeWithoutItsZeros",
         {{"instruments/all.csv", "SZ,000001", "SZ,1"}},
         "spreadsheet-number",
         "warning",
         "instruments/all.csv,5",
         "the code 1 seems to be 000001 without its zeros"},
        {"AccountWithAnExponent",
         {{"*", "H100", "1E+05"}},
         "spreadsheet-number",
         "warning",
         "accounts.csv,4",
         "a number as a spreadsheet writes it"},
        {"AccountsThatLookAlike",
         {{"*", "S200", "S1OO"}},
         "look-alike",
         "warning",
         "accounts.csv,3",
         "the account S1OO looks like S100 at accounts.csv:2"},
        {"CodesThatDifferInCase",
         {{"instruments/all.csv", "SZ,000001", "SZ,A1"}, {"instruments/all.csv", "SZ,000002", "SZ,a1"}},
         "look-alike",
         "warning",
         "instruments/all.csv,6",
         "the code a1 looks like A1"},
        {"CategoryLineWithoutInstruments",
         {{"categories.csv", "", "1,白酒,SH,60060*,\n"}},
         "empty-category-line",
         "note",
         "categories.csv,6",
         "the category 1"},
        {"CategoryLineThatAddsNothing",
         {{"categories.csv", "", "1,白酒,SH,600519,MAIN\n"}},
         "repeated-category-line",
         "note",
         "categories.csv,6",
         "1 instrument of this line is in the category 1"},
        {"PartOfAGroupThatAddsNothing",
         {{"categories.csv", "", "5,茅台,SH,600519,\n"},
          {"group_categories.csv", "", "group,category,mode\n70001,1,include\n70001,5,include\n"}},
         "repeated-category-line",
         "note",
         "group_categories.csv,3",
         "1 instrument of this line is in the group 70001 by the lines before it"},
        {"PartOfAGroupThatLeavesNothingOut",
         {{"group_categories.csv", "", "group,category,mode\n70001,2,include\n70001,1,exclude\n"}},
         "repeated-category-line",
         "note",
         "group_categories.csv,3",
         "the line leaves 1 instrument out of the group 70001, none of which is in it"},
        {"GroupThatLeavesOutAllThatItTakesIn",
         {{"categories.csv", "", "5,茅台,SH,600519,\n"},
          {"group_categories.csv", "", "group,category,mode\n70001,1,include\n70001,5,exclude\n"}},
         "empty-category-line",
         "note",
         "group_categories.csv,2",
         "the group 70001 holds no instrument: its lines leave out all that they take in"},
    };
    return all;
}

class CheckFaults : public testing::TestWithParam<Fault> {};

TEST_P(CheckFaults, IsFoundAtItsLineAndNothingElse) {
    const Fault& fault = GetParam();
    const CheckFolder folder;
    for (const Edit& edit : fault.edits) {
        ASSERT_TRUE(put(folder, edit)) << edit.file << " does not hold once: " << edit.from;
    }
    const Outcome outcome = folder.check("--fail-on note --csv");
    const std::vector<std::string> rows = lines(outcome.out);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    ASSERT_EQ(rows.size(), 2U) << outcome.out;
    EXPECT_THAT(rows[1], testing::StartsWith(fault.severity + "," + fault.check + "," + fault.place + ","));
    EXPECT_THAT(rows[1], HasSubstr(fault.found));
}

INSTANTIATE_TEST_SUITE_P(Each, CheckFaults, testing::ValuesIn(faults()),
                         [](const testing::TestParamInfo<Fault>& each) { return each.param.name; });

TEST(CheckFolderWithoutFaults, HasNoFinding) {
    const CheckFolder folder;
    const Outcome outcome = folder.check("--fail-on note --csv");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, "severity,check,file,line,accounts,count,found,remedy,places\n");
}

/// What looks like one of the faults above and is none.
struct Lookalike {
    std::string name;
    std::vector<Edit> edits;
};

std::ostream& operator<<(std::ostream& out, const Lookalike& lookalike) { return out << lookalike.name; }

class CheckLookalikes : public testing::TestWithParam<Lookalike> {};

TEST_P(CheckLookalikes, AreNoFinding) {
    const CheckFolder folder;
    for (const Edit& edit : GetParam().edits) {
        ASSERT_TRUE(put(folder, edit)) << edit.file << " does not hold once: " << edit.from;
    }
    const Outcome outcome = folder.check("--fail-on note --csv");
    EXPECT_EQ(outcome.status, 0) << outcome.out << outcome.err;
}

INSTANTIATE_TEST_SUITE_P(
    Each, CheckLookalikes,
    testing::Values(
        Lookalike{"AccountsWithTheSameLinesEachOfItsOwn",
                  {{"accounts.csv", "", "S300,第三户,stock\n"},
                   {"fees/stock.csv", "", "S300,SH,*,,0.0003,0.0005,,\nS300,SZ,*,,0.0003,0.0005,,\n"}}},
        Lookalike{"LineThatEndsAndOneFollows",
                  {{"fees/stock.csv", "", "S200,SZ,300750,,0.0002,0.0005,,2026-10-31\n"},
                   {"fees/stock.csv", "", "S200,SZ,300750,,0.0004,0.0005,2026-11-01,\n"}}},
        Lookalike{"LineThatEndsAndAWiderOneHasTheSameRates",
                  {{"fees/stock.csv", "", "S200,SZ,300750,,0.0003,0.0005,,2026-10-31\n"}}},
        Lookalike{"LineThatEndsWithTheCoverage",
                  {{"market.toml", "as_of = 2026-09-30\n", "as_of = 2026-09-30\ncoverage = { until = 2026-10-31 }\n"},
                   {"fees/stock.csv", "S200,SZ,*,,0.0003,0.0005,,", "S200,SZ,*,,0.0003,0.0005,,2026-10-31"}}},
        Lookalike{
            "DutyOnBothSidesThatEndedInTime",
            {{"charges.csv", "", "stock,S200,,stamp_duty,both,turnover,,order,CNY,2026-09-01,,,,,,2008-09-18\n"}}},
        Lookalike{"DutyOnBothSidesOfHongKong",
                  {{"charges.csv", "", "hgt,,,commission,both,turnover,,order,CNY,2026-09-01,,,,,,\n"},
                   {"charges.csv", "", "hgt,,,stamp_duty_buy,both,turnover,,order,CNY,2026-09-01,,,,,,\n"},
                   {"charges.csv", "", "hgt,,,stamp_duty_sell,both,turnover,,order,CNY,2026-09-01,,,,,,\n"}}},
        Lookalike{"RateWithoutATermOfALineThatHasEnded",
                  {{"charges.csv", "stamp_duty,sell,turnover,,order,CNY,2026-09-01,,,,,,",
                    "stamp_duty,sell,turnover,,order,CNY,2026-09-01,,,,,2024-01-01,"},
                   {"fees/stock.csv", "", "S200,SZ,300750,,0.0003,0.0005,,2023-12-31\n"}}},
        Lookalike{"FarRateOfALineThatHasEnded", {{"fees/stock.csv", "", "S200,SZ,300750,,0.003,0.0005,,2026-09-29\n"}}},
        Lookalike{"FundsThatAreCheaperThanTheSharesOfTheirMarket",
                  {{"accounts.csv", "", moreAccounts()},
                   {"fees/stock.csv", "", linesOfMoreAccounts()},
                   {"fees/stock.csv", "S100,SH,*,MAIN", "S100,SH,*,"},
                   {"custom/stock.csv", "S100,1,1,0.0002", "S100,1,1,0.0003"},
                   {"configured/stock.csv", "SH,510050,0.0001,\n", ""}}},
        Lookalike{"LineThatHasEnded", {{"fees/stock.csv", "", "S200,SZ,300750,,0.0002,0.0005,,2026-09-29\n"}}},
        Lookalike{
            "TermThatEndsAndOneFollows",
            {{"charges.csv", "0.00002,order,CNY,2026-09-01,,,,,,", "0.00002,order,CNY,2026-09-01,,,,,,2026-12-31"},
             {"charges.csv", "", "stock,,,levy,both,turnover,0.00003,order,CNY,2026-09-01,,,,,2027-01-01,\n"}}},
        Lookalike{
            "MinimumOfOneAccountWithItsSource",
            {{"charges.csv", "", "stock,S200,,commission,both,turnover,,order,CNY,2026-09-01,5,,,agreed in 2026,,\n"}}},
        Lookalike{"MinimumOfTenCentsThatIsNone",
                  {{"charges.csv", "", termsOfCommission(",5,,,,,", ",5,,,,,", ",0.1,,,,,")}}},
        Lookalike{"FuturesThatAreClosedOnTheSameDayForNothing",
                  {{"fees/commission.csv", "open_by_money,close_by_money\n",
                    "open_by_money,close_by_money,close_today_by_money\n"},
                   {"fees/commission.csv", "rb*,0.0001,0.0001\n", "rb*,0.0001,0.0001,0.0001\n"},
                   {"fees/commission.csv", "au*,0.00005,0.00005\n", "au*,0.00005,0.00005,0.00005\n"}}}),
    [](const testing::TestParamInfo<Lookalike>& each) { return each.param.name; });

/// Every check that there is has a fault above, so that none can be silent unnoticed.
TEST(CheckFolderWithoutFaults, LeavesNoCheckWithoutAFault) {
    const CheckFolder folder;
    const std::vector<std::string> listed = lines(folder.check("--list --csv").out);
    for (std::size_t i = 1; i < listed.size(); ++i) {
        const std::string name = listed[i].substr(0, listed[i].find(','));
        EXPECT_TRUE(std::any_of(faults().begin(), faults().end(), [&](const Fault& fault) {
            return fault.check == name;
        })) << name;
    }
}

}  // namespace
}  // namespace feedesk::test
