#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kChangeHeader =
    "change,accounts,instruments,from,until,part,item,rate,old,new,old_level,old_sources,new_level,new_sources,"
    "expected,accounts_count,accounts_short,instruments_count,instruments_short,side,column,names,names_count,"
    "names_short\n";
constexpr const char* kNoRate = ",,,,,,,,,,,,,,,,,,,,";  // behind the change, up to the names

constexpr int kExpectedColumn = 15;  // counted from 1

/// Two folders that are the same to begin with, asked as of 2024-01-02.
class Diff : public testing::Test {
protected:
    Diff() {
        for (const SampleFolder* folder : {&before, &after}) {
            folder->write("fees/hgt.csv", "account,market,code,commission,from,until\nH100,HK,*,0.0003,,\n");
        }
    }

    Outcome diff(const std::string& arguments = "", const std::string& environment = "") const {
        return runProgram("diff " + before.path() + " " + after.path() + " --from 2024-01-02 " + arguments,
                          environment);
    }

    /// The rows of CSV without the header, each up to its column `expected`, which is empty.
    std::vector<std::string> rows(const std::string& arguments = "") const {
        const Outcome outcome = diff(arguments + " --csv");
        EXPECT_EQ(outcome.err, "");
        std::vector<std::string> found = lines(outcome.out);
        EXPECT_FALSE(found.empty());
        found.erase(found.begin());
        for (std::string& row : found) {
            std::size_t end = 0;
            for (int cell = 1; cell < kExpectedColumn; ++cell) {
                end = row.find(',', end) + 1;
            }
            EXPECT_EQ(row.at(end), ',') << row;
            row.resize(end);
        }
        return found;
    }

    SampleFolder before;
    SampleFolder after;
};

TEST_F(Diff, OfTheSameFolderIsEmpty) {
    const Outcome outcome = diff("", "COLUMNS=120");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, "The same answers from 2024-01-02 on: " + before.path() + " and " + after.path() + "\n\n");
    EXPECT_EQ(diff("--json").out, "[]\n");
    EXPECT_EQ(diff("--csv").out, kChangeHeader);
}

TEST_F(Diff, OfMovedLinesAndOtherNamesIsEmpty) {
    after.write("fees/stock.csv",
                "account,market,code,stamp_duty,commission\n"
                "S100,SZ,*,0.0005,0.0000341\n\n"
                "S100,SH,600*,0.0005,0.00025\n");
    after.write("categories.csv",
                "category,name,market,code\n"
                "1,Pufa renamed,SH,600000\n"
                "2,Futures,SHFE,*\n"
                "3,Options,SHO,*\n"
                "4,Rebar,SHFE,rb2610\n");
    EXPECT_EQ(diff("--expect-none").status, 0);
    EXPECT_EQ(diff("--json").out, "[]\n");
}

TEST_F(Diff, OneChangedLineIsOneRowForEachRate) {
    after.write("fees/stock.csv",
                "account,market,code,commission,stamp_duty\n"
                "S100,SH,600*,0.0002,0.00025\n"
                "S100,SZ,*,0.0000341,0.0005\n");
    const Outcome outcome = diff("--csv");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, std::string(kChangeHeader) +
                               "rate,S100,SH:600519,2024-01-02,,stock,,commission,0.00025,0.0002,own record,"
                               "fees/stock.csv:2,own record,fees/stock.csv:2,,1,S100,1,SH:600519,,,,,\n"
                               "rate,S100,SH:600519,2024-01-02,,stock,,stamp_duty,0.0005,0.00025,own record,"
                               "fees/stock.csv:2,own record,fees/stock.csv:2,,1,S100,1,SH:600519,,,,,\n");
}

TEST_F(Diff, AccountsThatChangeAlikeShareARow) {
    after.write("configured/stock.csv", "market,code,commission\nSZ,000001,0.0003\n");
    EXPECT_THAT(rows(), ElementsAre("rate,S100 S200 P100 W100,SZ:000001,2024-01-02,,stock,,commission,0.0002,0.0003,"
                                    "configured limit,configured/stock.csv:2,configured limit,"
                                    "configured/stock.csv:2,"));
}

TEST_F(Diff, ChangedLimitThatStockAndCreditAccountsReadIsOneRow) {
    for (const SampleFolder* folder : {&before, &after}) {
        folder->write("market.toml", contentOf(folder->path() + "/market.toml") +
                                         "[rates.credit]\nrate1 = { column = \"commission\" }\n");
        folder->write("instruments/more.csv",
                      "market,code,name,lists\nSZ,159915,x,stock credit\nSZ,159901,y,stock credit\n"
                      "SZ,159902,z,stock\n");
        folder->write("accounts.csv",
                      "account,name,kind\nC100,融资户,credit\nS100,a,stock\nS200,b,stock\nS300,c,stock\nS400,d,stock\n"
                      "S500,e,stock\nH100,f,hgt\nF100,g,futures\nF300,h,futures\nF400,i,futures\nO100,j,option\n");
        folder->write("configured/stock.csv", "market,code,commission\nSZ,159915,0.0002\nSZ,159901,0.0002\n");
    }
    after.write("configured/stock.csv", "market,code,commission\nSZ,159915,0.0003\nSZ,159901,0.0003\n");
    EXPECT_THAT(rows(),
                ElementsAre("rate,C100 S100 S200 S300 S400 S500,SZ:159915 SZ:159901,2024-01-02,,credit stock,,"
                            "commission,0.0002,0.0003,configured limit,configured/stock.csv:2 configured/stock.csv:3,"
                            "configured limit,configured/stock.csv:2 configured/stock.csv:3,"));
    EXPECT_THAT(diff("", "COLUMNS=150").out,
                HasSubstr("\nC100, S100, S200 and 3 more (credit, stock): SZ:159901, SZ:159915\n"));
    // The line alone is in common: what the accounts pay without it is not.
    after.write("configured/stock.csv", "market,code,commission\nSZ,159915,0.0002\n");
    after.write("fees/credit.csv", "account,market,code,commission\nC100,SZ,159901,0.0001\n");
    before.write("fees/credit.csv", "account,market,code,commission\nC100,SZ,159901,0.0001\n");
    EXPECT_THAT(rows(), testing::IsSupersetOf(
                            {StartsWith("rate,C100,SZ:159901,2024-01-02,,credit,,commission,0.0002,0.0001,"),
                             StartsWith("rate,S100,SZ:159901,2024-01-02,,stock,,commission,0.0002,0.0000341,")}));
}

TEST_F(Diff, RowsOfProgramsHaveCountsAndAShortFormToo) {
    std::string listed = "market,code,name,lists\n";
    for (int code = 1; code <= 5; ++code) {
        listed += "SZ,30000" + std::to_string(code) + ",x" + std::to_string(code) + ",stock\n";
    }
    for (const SampleFolder* folder : {&before, &after}) {
        folder->write("instruments/more.csv", listed);
        folder->write("fees/stock.csv", "account,market,code,commission\nS100,SZ,30000*,0.0001\n");
    }
    after.write("fees/stock.csv", "account,market,code,commission\nS100,SZ,30000*,0.0002\n");
    EXPECT_THAT(diff("--csv").out,
                HasSubstr("SZ:300001 SZ:300002 SZ:300003 SZ:300004 SZ:300005,2024-01-02,,stock,,commission,"));
    EXPECT_THAT(diff("--csv").out, HasSubstr(",1,S100,5,SZ:3000* (5 instruments),,,,,\n"));
    EXPECT_THAT(diff("--json").out, HasSubstr("\"accounts_count\":1,\"accounts_short\":\"S100\","
                                              "\"instruments_count\":5,"
                                              "\"instruments_short\":\"SZ:3000* (5 instruments)\"}"));
}

TEST_F(Diff, CategoryThatTakesInstrumentsFromSeveralLinesIsOneRow) {
    for (const SampleFolder* folder : {&before, &after}) {
        folder->write("fees/stock.csv",
                      "account,market,code,commission,stamp_duty\n"
                      "S100,SH,600*,0.00025,0.0005\n"
                      "S100,SZ,*,0.00025,0.0005\n");
        folder->write("custom/stock.csv", "account,update,category,commission,stamp_duty\nS100,1,1,0.0001,0.0005\n");
        folder->write("configured/stock.csv", "market,code,commission\n");
    }
    after.write("categories.csv",
                "category,name,market,code\n"
                "1,Pufa,SH,600000\n1,Pufa,SH,600519\n1,Pufa,SZ,000001\n"
                "2,Futures,SHFE,*\n3,Options,SHO,*\n4,Rebar,SHFE,rb2610\n");
    EXPECT_THAT(rows(), ElementsAre("rate,S100,SH:600519 SZ:000001,2024-01-02,,stock,,commission,0.00025,0.0001,"
                                    "own record,fees/stock.csv:2 fees/stock.csv:3,custom fee,custom/stock.csv:2,"));
    // Two lines that change alike are two changes.
    after.write("categories.csv",
                "category,name,market,code\n1,Pufa,SH,600000\n"
                "2,Futures,SHFE,*\n3,Options,SHO,*\n4,Rebar,SHFE,rb2610\n");
    after.write("fees/stock.csv",
                "account,market,code,commission,stamp_duty\n"
                "S100,SH,600*,0.0002,0.0005\n"
                "S100,SZ,*,0.0002,0.0005\n");
    EXPECT_EQ(rows().size(), 2U);
}

TEST_F(Diff, ChangeThatSomeAccountsHaveForMoreInstrumentsIsOneRowOfATable) {
    for (const SampleFolder* folder : {&before, &after}) {
        folder->write(
            "fees/stock.csv",
            "account,market,code,commission\nS100,SH,600*,0.00025\nS100,SZ,*,0.00025\nS200,SH,600*,0.00025\n");
        folder->write("custom/stock.csv", "account,update,category,commission\nS100,1,1,0.0001\nS200,1,1,0.0001\n");
        folder->write("configured/stock.csv", "market,code,commission\nSZ,000001,0.0003\n");
    }
    after.write("categories.csv",
                "category,name,market,code\n1,Pufa,SH,600000\n1,Pufa,SH,600519\n1,Pufa,SZ,300750\n"
                "2,Futures,SHFE,*\n3,Options,SHO,*\n4,Rebar,SHFE,rb2610\n");
    const std::string table = diff("", "COLUMNS=150").out;
    EXPECT_THAT(table, HasSubstr("S100, S200: SH:600519, SZ:300750, each account some of them\n"
                                 "  Commission  0.025%  0.01%  own record        fees/stock.csv:2 and 2 more"));
    EXPECT_THAT(rows(), testing::IsSupersetOf(
                            {StartsWith("rate,S100,SH:600519 SZ:300750,2024-01-02,,stock,,commission,0.00025,0.0001,"),
                             StartsWith("rate,S200,SH:600519,2024-01-02,,stock,,commission,0.00025,0.0001,")}));
}

TEST_F(Diff, LineThatIsTakenAwayLeavesTheRateBelowIt) {
    after.write("custom/stock.csv", "account,update,category,commission\n");
    EXPECT_THAT(rows(), ElementsAre("rate,S100,SH:600000,2024-01-02,,stock,,commission,0.0001,0.00025,custom fee,"
                                    "custom/stock.csv:2,own record,fees/stock.csv:2,",
                                    "rate,S100,SH:600000,2024-01-02,,stock,,stamp_duty,0,0.0005,custom fee,"
                                    "custom/stock.csv:2,own record,fees/stock.csv:2,"));
}

TEST_F(Diff, SameRatesFromAnotherLevelAreALevelThatChanges) {
    after.write("custom/stock.csv", "account,update,category,commission,stamp_duty\nS100,1,1,0.00025,0.0005\n");
    before.write("custom/stock.csv", "account,update,category,commission\n");
    EXPECT_THAT(rows(), ElementsAre("level,S100,SH:600000,2024-01-02,,stock,,,,,own record,fees/stock.csv:2,"
                                    "custom fee,custom/stock.csv:2,"));
}

TEST_F(Diff, ScheduleOfALaterDayIsFoundAsOfThatDay) {
    after.write("fees/hgt.csv",
                "account,market,code,commission,from,until\n"
                "H100,HK,*,0.0003,,2024-06-30\n"
                "H100,HK,*,0.0002,2024-07-01,2024-09-30\n"
                "H100,HK,*,0.0003,2024-10-01,\n");
    EXPECT_THAT(rows(), ElementsAre("rate,H100,HK:00700,2024-07-01,2024-09-30,hgt,,commission,0.0003,0.0002,own record,"
                                    "fees/hgt.csv:2,own record,fees/hgt.csv:3,"));
    EXPECT_THAT(diff().out, HasSubstr("H100: HK:00700, from 2024-07-01 until 2024-09-30\n"));
    EXPECT_EQ(diff("--until 2024-06-30 --json").out, "[]\n");
    const std::string folders = "diff " + before.path() + " " + after.path();
    EXPECT_EQ(runProgram(folders + " --date 2024-06-30 --json").out, "[]\n");
    EXPECT_THAT(runProgram(folders + " --date 2024-07-01 --csv").out, HasSubstr(",2024-07-01,2024-07-01,hgt,"));
}

TEST_F(Diff, OneChangeOverSeveralIntervalsIsOneRow) {
    // Another account's line divides the days.
    after.write("fees/hgt.csv",
                "account,market,code,commission,from,until\n"
                "H100,HK,*,0.0002,,\n"
                "H200,HK,*,0.0001,2024-07-01,\n");
    before.write("fees/hgt.csv",
                 "account,market,code,commission,from,until\n"
                 "H100,HK,*,0.0003,,\n"
                 "H200,HK,*,0.0001,2024-07-01,\n");
    EXPECT_THAT(rows(), ElementsAre(StartsWith("rate,H100,HK:00700,2024-01-02,,hgt,,commission,0.0003,0.0002,")));
}

TEST_F(Diff, MarginsAndItemsHaveRowsOfTheirOwn) {
    after.write("fees/margin.csv",
                "account,market,code,hedge_flag,long_by_money,short_by_money\n"
                "F100,SHFE,rb*,1,0.09,0.08\n"
                "F400,SHFE,au*,1,0.17,0.17\n"
                "F400,SHFE,au*,3,0.16,0.16\n");
    after.write("custom/option.csv",
                "account,update,category,item,handling_fee\n"
                "O100,1,3,000,1.5\n"
                "O100,2,3,0D1,0\n");
    EXPECT_THAT(rows(), ElementsAre(StartsWith("rate,F100,SHFE:rb2610,2024-01-02,,margin,1,long_by_money,0.07,0.09,"),
                                    StartsWith("rate,O100,SHO:10001,2024-01-02,,option,000,handling_fee,1.3,1.5,")));
    EXPECT_THAT(diff().out, HasSubstr("\n  speculation Long        7%        9%  "));
    EXPECT_THAT(diff().out, HasSubstr("\n  000 Handling fee  1.3 yuan  1.5 yuan  "));
}

TEST_F(Diff, AccountsAndInstrumentsOfOneFolderAreNamed) {
    after.write("accounts.csv",
                "account,name,kind,platform\nS100,a,stock,\nS200,b,credit,\nF100,c,futures,\nF200,d,futures,9001\n"
                "F300,e,futures,\nO100,f,option,\nO200,g,option,\nH100,h,hgt,\nP100,i,prime_brokerage,\n"
                "W100,j,income_swap,\nF400,k,futures,\nS300,l,stock,\n");
    after.write("instruments/more.csv", "market,code,name,lists\nSZ,000002,万科,stock\n");
    EXPECT_EQ(diff("--csv").out, std::string(kChangeHeader) + "accounts_removed" + kNoRate +
                                     ",H200,1,H200\naccounts_added" + kNoRate +
                                     ",S300,1,S300\naccounts_of_another_kind" + kNoRate +
                                     ",S200,1,S200\ninstruments_added" + kNoRate + ",SZ:000002,1,SZ:000002\n");
}

TEST_F(Diff, ExpectNoneIsMetByNothingAlone) {
    EXPECT_EQ(diff("--expect-none").status, 0);
    after.write("fees/hgt.csv", "account,market,code,commission\nH100,HK,*,0.0002\n");
    EXPECT_EQ(diff().status, 0);
    const Outcome outcome = diff("--expect-none --csv");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "feedesk: not expected: 1 account changed: H100\n");
    EXPECT_THAT(outcome.out, testing::EndsWith(",no,1,H100,1,HK:00700,,,,,\n"));
}

TEST_F(Diff, ExpectOnlyIsMetByTheNamedAccountsAlone) {
    after.write("configured/stock.csv", "market,code,commission\nSZ,000001,0.0003\n");
    EXPECT_EQ(diff("--expect-only S100 S200 P100 W100").status, 0);
    EXPECT_EQ(diff("--expect-only 'S*' 'P*' --expect-only W100").status, 0);
    EXPECT_THAT(diff("--expect-only 'S*' P100 W100 --csv").out,
                testing::EndsWith(",yes,4,\"S100, S200, P100, W100\",1,SZ:000001,,,,,\n"));
    const Outcome outcome = diff("--expect-only 'S*'");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "feedesk: not expected: 2 accounts changed: P100, W100\n");
}

TEST_F(Diff, ExpectedAccountThatStaysIsNoted) {
    after.write("fees/hgt.csv", "account,market,code,commission\nH100,HK,*,0.0002\n");
    const Outcome outcome = diff("--expect-only H100 S100 --json");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "{\"note\":\"--expect-only names S100, and nothing changes there\"}\n");
}

TEST_F(Diff, NewInstrumentIsNoAccountsExpectedChange) {
    after.write("instruments/more.csv", "market,code,name,lists\nSZ,000002,万科,stock\n");
    const Outcome outcome = diff("--expect-only S100 --csv");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("feedesk: not expected: 1 instrument of the new folder alone\n"));
}

TEST_F(Diff, HelpNamesTheWayToOneDay) {
    EXPECT_THAT(runProgram("diff --help").out, HasSubstr("--date DAY compares one"));
}

TEST_F(Diff, IsATable) {
    after.write("configured/stock.csv", "market,code,commission\nSZ,000001,0.0003\n");
    EXPECT_EQ(diff("", "COLUMNS=90").out, "Differences from 2024-01-02 on: " + before.path() + " and " + after.path() +
                                              "\n"
                                              "\n"
                                              "Rates\n"
                                              "Rate            Old    New  Old level             New level\n"
                                              "S100, S200, P100, W100: SZ:000001\n"
                                              "  Commission  0.02%  0.03%  configured limit [1]  configured limit [2]\n"
                                              "[1] Old source configured/stock.csv:2\n"
                                              "[2] New source configured/stock.csv:2\n");
}

TEST_F(Diff, QuestionThatIsWrongIsRefused) {
    const std::string folders = before.path() + " " + after.path();
    struct Case {
        std::string arguments;
        const char* reported;
    };
    for (const Case& wrong : {
             Case{"", "feedesk: A is required"},
             Case{before.path(), "feedesk: B is required"},
             Case{folders + " " + folders, "feedesk: the argument "},
             Case{folders + " --from x", "feedesk: --from: x is not a day such as 2023-08-28"},
             Case{folders + " --date 2024-01-02 --until 2024-01-03",
                  "feedesk: --date compares one day, and --from and --until several; use one or the other"},
             Case{folders + " --from 2024-01-02 --until 2024-01-01",
                  "feedesk: the days end on 2024-01-01, before they begin on 2024-01-02"},
             Case{folders + " --expect-only S999", "feedesk: --expect-only: neither folder has an account S999"},
             Case{folders + " --expect-only S100 --expect-none", "feedesk: --expect-"},
             Case{folders + " --expect-only", "feedesk: --expect-only"},
             Case{"--market " + before.path() + " " + folders,
                  "feedesk: diff compares the two folders that it names; leave --market out"},
             Case{folders + "/none", "feedesk: "},
         }) {
        const Outcome outcome = runProgram("diff " + wrong.arguments);
        EXPECT_EQ(outcome.status, 2) << wrong.arguments;
        EXPECT_EQ(outcome.out, "") << wrong.arguments;
        EXPECT_THAT(outcome.err, HasSubstr(wrong.reported)) << wrong.arguments;
    }
}

TEST_F(Diff, DayThatOneFolderDoesNotCoverIsRefused) {
    const std::string toml = "[coverage]\nfrom = 2024-01-01\nuntil = 2024-12-31\nhgt = { from = 2024-03-01 }\n";
    std::string content = "format = 1\ntitle = \"Test\"\nas_of = 2024-01-02\n" + toml;
    for (const std::string market : {"SH", "SZ", "HK", "SHO", "SHFE"}) {
        content += "[markets." + market + "]\ntitle = \"x\"\ntrade_unit = 100\n";
    }
    content += "[rates.stock]\nrate1 = { column = \"commission\" }\nrate6 = { column = \"stamp_duty\" }\n";
    content +=
        "[rates.hgt]\nrate1 = { column = \"commission\" }\n[rates.option]\nfee1 = { column = \"handling_fee\" }\n";
    for (const SampleFolder* folder : {&before, &after}) {
        folder->write("market.toml", content);
    }
    after.write("fees/hgt.csv", "account,market,code,commission\nH100,HK,*,0.0002\n");
    const Outcome outcome = diff();
    EXPECT_THAT(outcome.out, StartsWith("Differences from 2024-01-02 until 2024-12-31: "));
    EXPECT_THAT(outcome.out, HasSubstr("H100: HK:00700, from 2024-03-01 until 2024-12-31\n"));
    EXPECT_THAT(diff("--csv").err, HasSubstr("the schedules of family hgt are known from 2024-03-01 until 2024-12-31; "
                                             "other days of it are not compared"));
    const Outcome refused = diff("--until 2025-01-01");
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.err, HasSubstr("2025-01-01 lies outside; ask for a day within with --from and --until"));
}

/// The sample folder's market.toml, with this coverage.
void cover(const SampleFolder& folder, const std::string& coverage) {
    std::string content = contentOf(folder.path() + "/market.toml");
    content.resize(std::min(content.size(), content.find("[coverage]")));
    folder.write("market.toml", content + "[coverage]\n" + coverage + "\n");
}

TEST_F(Diff, DaysThatTheNewFolderNoLongerAnswersAreAChange) {
    const std::string one = before.path();
    const std::string other = after.path();
    cover(before, "from = 2021-01-01\nuntil = 2026-12-31");
    struct Case {
        const char* coverage;
        std::string sentence;
        const char* row;
    };
    for (const Case& each : {
             Case{"from = 2021-01-01\nuntil = 2026-10-31",
                  other + "'s schedules end on 2026-10-31, those of " + one + " on 2026-12-31",
                  "coverage,,,2026-11-01,2026-12-31,,,,,,,,,,no,,,,,,,,,"},
             Case{"from = 2021-01-01\nuntil = 2026-12-31\nhgt = { until = 2026-06-30 }",
                  other + "'s schedules of family hgt end on 2026-06-30, those of " + one + " on 2026-12-31",
                  "coverage,,,2026-07-01,2026-12-31,hgt,,,,,,,,,no,,,,,,,,,"},
             Case{"from = 2021-01-01\nuntil = 2026-12-31\nmarkets = { SZ = { from = 2024-03-01 } }",
                  other + "'s schedules of market SZ begin on 2024-03-01, those of " + one + " on 2021-01-01",
                  "coverage,,SZ:*,2021-01-01,2024-02-29,,,,,,,,,,no,,,,,,,,,"},
         }) {
        cover(after, each.coverage);
        for (const char* expectation : {"--expect-none", "--expect-only S100"}) {
            const Outcome outcome = diff(std::string(expectation) + " --csv");
            EXPECT_EQ(outcome.status, 1) << each.coverage;
            EXPECT_THAT(outcome.err, HasSubstr("feedesk: not expected: " + each.sentence + "\n"));
            EXPECT_EQ(outcome.out, std::string(kChangeHeader) + each.row + "\n");
        }
        const Outcome table = diff("", "COLUMNS=200");
        EXPECT_EQ(table.status, 0);
        EXPECT_THAT(table.out, StartsWith("Differences "));
        EXPECT_THAT(table.out, HasSubstr("Days without answers\n"));
        EXPECT_THAT(table.out, HasSubstr(each.sentence + "\n"));
    }
}

TEST_F(Diff, NewFolderThatBeginsLaterIsAChangeWhereNoFirstDayIsAsked) {
    cover(before, "from = 2021-01-01");
    cover(after, "from = 2022-01-01");
    const Outcome outcome = runProgram("diff " + before.path() + " " + after.path() + " --expect-none --csv");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err,
                HasSubstr("feedesk: not expected: " + after.path() + "'s schedules begin on 2022-01-01, those of " +
                          before.path() + " on 2021-01-01\n"));
    EXPECT_EQ(outcome.out, std::string(kChangeHeader) + "coverage,,,2021-01-01,2021-12-31,,,,,,,,,,no,,,,,,,,,\n");
    EXPECT_EQ(diff("--expect-none").status, 0);
}

TEST_F(Diff, NewFolderThatEndsIsAChangeOfOneThatDoesNot) {
    cover(before, "from = 2021-01-01");
    cover(after, "from = 2021-01-01\nuntil = 2026-10-31");
    const Outcome outcome = diff("--expect-none --csv");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr(after.path() + "'s schedules end on 2026-10-31, those of " + before.path() +
                                       " have no last day\n"));
    EXPECT_THAT(outcome.out, HasSubstr("\ncoverage,,,2026-11-01,,,"));
}

TEST_F(Diff, DaysThatTheNewFolderAnswersBesidesAreNoted) {
    cover(before, "from = 2021-01-01\nuntil = 2026-10-31");
    cover(after, "from = 2021-01-01\nuntil = 2026-12-31");
    const Outcome outcome = diff("--expect-none --csv");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, kChangeHeader);
    EXPECT_THAT(outcome.err, HasSubstr(before.path() + "'s schedules end on 2026-10-31, those of " + after.path() +
                                       " on 2026-12-31\n"));
}

TEST_F(Diff, LostDaysThatNobodyAskedForAreNoChange) {
    cover(before, "from = 2021-01-01\nuntil = 2026-12-31");
    cover(after, "from = 2021-01-01\nuntil = 2026-10-31");
    EXPECT_EQ(diff("--until 2026-10-31 --expect-none").status, 0);
    const std::string folders = "diff " + before.path() + " " + after.path();
    EXPECT_EQ(runProgram(folders + " --date 2026-10-31 --expect-none").status, 0);
}

TEST_F(Diff, BrokenFolderReportsItsErrors) {
    after.write("fees/hgt.csv", "account,market,code,commission\nH100,HK,*,x\n");
    const Outcome outcome = diff();
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.err, HasSubstr(after.path() + "/fees/hgt.csv:2: "));
}

}  // namespace
}  // namespace feedesk::test
