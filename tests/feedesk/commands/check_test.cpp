#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/feedesk/support/check_folder.h"

namespace feedesk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// With an error, a warning and a note in it.
class FaultyFolder : public CheckFolder {
public:
    FaultyFolder() {
        EXPECT_TRUE(replace("fees/stock.csv", "S100,SH,*,MAIN,0.00025", "S100,SH,*,MAIN,0.025"));
        append("custom/stock.csv", "S100,1,1,0.00015,0.0005\n");
        append("categories.csv", "1,白酒,SH,60060*,\n");
    }
};

TEST(Check, IsATableForPeople) {
    const FaultyFolder folder;
    EXPECT_EQ(folder.check().out, R"(Place                 Found
error percent-rate: a fraction that looks like percent or per mille
  fees/stock.csv:2    account S100: commission 0.025 is 2.5% of the turnover;
                      write a plain fraction: 0.00025 if 0.025 is in percent;
                      the column usually has 0.0002
warning shadowed-line: a line of an account from which no answer comes
  custom/stock.csv:4  account S100: no answer comes from this line:
                      custom/stock.csv:2 answers for its 1 instrument; remove
                      the line, or give it a later update or an earlier place
note empty-category-line: a line of a category that holds no instrument
  categories.csv:6    the line holds no instrument for the category 1 白酒;
                      correct market, code and product, or remove the line

1 error, 1 warning, 1 note by 33 checks as of 2026-09-30
)");
}

TEST(Check, IsCsvForPrograms) {
    const FaultyFolder folder;
    EXPECT_THAT(
        lines(folder.check("--csv").out),
        ElementsAre("severity,check,file,line,accounts,count,found,remedy,places",
                    "error,percent-rate,fees/stock.csv,2,S100,1,commission 0.025 is 2.5% of the turnover,"
                    "write a plain fraction: 0.00025 if 0.025 is in percent; the column usually has 0.0002,"
                    "fees/stock.csv:2",
                    "warning,shadowed-line,custom/stock.csv,4,S100,1,no answer comes from this line: "
                    "custom/stock.csv:2 answers for its 1 instrument,\"remove the line, or give it a later "
                    "update or an earlier place\",custom/stock.csv:4",
                    "note,empty-category-line,categories.csv,6,,1,the line holds no instrument for the category "
                    "1 白酒,\"correct market, code and product, or remove the line\",categories.csv:6"));
}

TEST(Check, IsJsonForPrograms) {
    const FaultyFolder folder;
    EXPECT_EQ(
        folder.check("--json --only percent-rate").out,
        R"([
{"severity":"error","check":"percent-rate","file":"fees/stock.csv","line":2,"accounts":["S100"],"count":1,)"
        R"("found":"commission 0.025 is 2.5% of the turnover","remedy":"write a plain fraction: 0.00025 if 0.025 is in)"
        R"( percent; the column usually has 0.0002","places":["fees/stock.csv:2"]}
]
)");
}

TEST(Check, WithoutFindingsSaysSo) {
    const CheckFolder folder;
    EXPECT_EQ(folder.check().out, "Place  Found\n\n0 errors, 0 warnings, 0 notes by 33 checks as of 2026-09-30\n");
    EXPECT_EQ(folder.check("--json").out, "[]\n");
}

TEST(Check, FitsTheWidth) {
    const FaultyFolder folder;
    EXPECT_LE(widestLine(folder.check().out), 80U);
    EXPECT_LE(widestLine(folder.check("--list").out), 80U);
    EXPECT_LE(widestLine(ask(BUNDLED_MARKET, "check").out), 80U);
}

TEST(Check, CountsTheLinesOfOneFaultInOneFinding) {
    const CheckFolder folder;
    folder.replaceEverywhere(",0.0003,0.0005", ",0.03,0.0005");
    EXPECT_THAT(folder.check().out, HasSubstr("  fees/stock.csv:4 +1  account S200: commission 0.03 is 3% of the"));
    EXPECT_THAT(lines(folder.check("--csv").out)[1], testing::EndsWith(",fees/stock.csv:4 fees/stock.csv:5"));
}

TEST(Check, ExitStatusFollowsTheThreshold) {
    const std::vector<std::pair<std::string, std::vector<int>>> rows = {
        // off            error, warning, note, never
        {"", {1, 1, 1, 0}},
        {"--off percent-rate", {0, 1, 1, 0}},
        {"--off percent-rate shadowed-line", {0, 0, 1, 0}},
        {"--off percent-rate shadowed-line empty-category-line", {0, 0, 0, 0}},
    };
    const FaultyFolder folder;
    for (const auto& [off, statuses] : rows) {
        EXPECT_EQ(folder.check(off).status, statuses[0]) << off;  // error is the threshold when none is named
        std::size_t at = 0;
        for (const std::string threshold : {"error", "warning", "note", "never"}) {
            EXPECT_EQ(folder.check(off + " --fail-on " + threshold).status, statuses[at++]) << off << threshold;
        }
    }
}

/// The names of the checks that found something.
std::vector<std::string> found(const CheckFolder& folder, const std::string& arguments) {
    std::vector<std::string> names;
    const std::vector<std::string> rows = lines(folder.check("--csv " + arguments).out);
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const std::size_t begin = rows[i].find(',') + 1;
        names.push_back(rows[i].substr(begin, rows[i].find(',', begin) - begin));
    }
    return names;
}

TEST(Check, RunsOnlyTheChecksThatAreNamed) {
    const FaultyFolder folder;
    EXPECT_THAT(found(folder, "--only shadowed-line"), ElementsAre("shadowed-line"));
    EXPECT_THAT(found(folder, "--only shadowed-line --only percent-rate"),
                ElementsAre("percent-rate", "shadowed-line"));
    EXPECT_THAT(found(folder, "--only shadowed-line,percent-rate"), ElementsAre("percent-rate", "shadowed-line"));
    EXPECT_THAT(found(folder, "--only shadowed-line percent-rate --off percent-rate"), ElementsAre("shadowed-line"));
    EXPECT_THAT(found(folder, "--off shadowed-line"), ElementsAre("percent-rate", "empty-category-line"));
}

TEST(Check, ShowsWhatAnAccountIsCharged) {
    const FaultyFolder folder;
    EXPECT_TRUE(folder.replace("fees/stock.csv", "S200,SZ,*,", "S200,SZ,0*,"));
    EXPECT_THAT(found(folder, "--account S200"), ElementsAre("built-in-default"));
    EXPECT_THAT(found(folder, "--account S100"), ElementsAre("percent-rate", "shadowed-line"));
    EXPECT_THAT(found(folder, "--account S100 --account S200"),
                ElementsAre("percent-rate", "built-in-default", "shadowed-line"));
    EXPECT_THAT(found(folder, "--account O100"), ElementsAre());
}

TEST(Check, OfAnUnknownAccountHasNoAnswer) {
    const CheckFolder folder;
    const Outcome outcome = folder.check("--account S101");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "feedesk: the market folder has no account S101; did you mean S100?\n");
}

// More accounts than are known at a time.
TEST(Check, FindsTheFaultsOfEachOfManyAccounts) {
    const CheckFolder folder;
    std::string accounts;
    std::string fees;
    for (int number = 100; number < 220; ++number) {
        const std::string account = "N" + std::to_string(number);
        accounts += account + ",many,stock\n";
        fees += account + ",SH,*,,0.0003,0.0005,,\n" + account + ",SZ,*,,0.0003,0.0005,,\n";
    }
    fees += "N100,SH,600519,,0.0003,0.0005,,\nN100,SH,600519,,0.0004,0.0005,,\n";
    fees += "N219,SH,600519,,0.0003,0.0005,,\nN219,SH,600519,,0.0004,0.0005,,\n";
    folder.append("accounts.csv", accounts);
    folder.append("fees/stock.csv", fees);
    const Outcome outcome = folder.check("--csv");
    EXPECT_THAT(lines(outcome.out), ElementsAre(testing::StartsWith("severity,"),
                                                testing::StartsWith("warning,shadowed-line,fees/stock.csv,246,N100,"),
                                                testing::StartsWith("warning,shadowed-line,fees/stock.csv,248,N219,")))
        << outcome.out;
}

TEST(Check, WrongQuestionsAreBadInput) {
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"--off percent", "--off: there is no check percent; did you mean percent-rate?"},
        {"--off dut", "--off: there is no check dut; did you mean old-duty, both-sides-duty or missing-duty?"},
        {"--off zzz", "--off: there is no check zzz; `feedesk check --list` lists them"},
        {"--off percent-rates", "--off: there is no check percent-rates; did you mean percent-rate?"},
        {"--only shadow-line", "--only: there is no check shadow-line; did you mean shadowed-line?"},
        {"--only far-rate --off far-rate", "no check is left: every one is switched off with --off"},
        {"--only", "--only"},
        {"--fail-on fatal", "--fail-on: fatal is not error, warning, note or never"},
        {"--max-age -1", "--max-age: -1 is not a whole number of days from 0 to 36500"},
        {"--max-age soon", "--max-age: soon is not a whole number of days from 0 to 36500"},
        {"--max-age 36501", "--max-age: 36501 is not a whole number of days from 0 to 36500"},
        {"--json --csv", "--json"},
        {"S100", "the argument S100 was not expected"},
        {"--date soon", "--date: soon is not a day such as 2023-08-28"},
    };
    const FaultyFolder folder;
    for (const auto& [arguments, sentence] : rows) {
        const Outcome outcome = folder.check(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_EQ(outcome.out, arguments == "--json --csv" ? "[]\n" : "") << arguments;
        EXPECT_THAT(outcome.err, HasSubstr(sentence)) << arguments;
    }
}

TEST(Check, BrokenFolderIsBadInputWhateverTheThreshold) {
    const CheckFolder folder;
    folder.append("fees/stock.csv", "S100,SX,*,,0.1,,,\n");
    const Outcome outcome = folder.check("--fail-on never");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("fees/stock.csv:6: column market holds \"SX\""));
    EXPECT_THAT(outcome.err, HasSubstr("feedesk: 1 error; nothing was loaded"));
}

TEST(Check, ListNeedsNoFolder) {
    const Outcome outcome = ask("/nowhere", "check --list --only far-rate old-duty");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "Check     Severity  Finds\n"
              "old-duty  error     a stamp duty that has been cut since is still charged\n"
              "far-rate  warning   a rate far from all others of its column\n");
}

TEST(Check, SchedulesAreTooOldAfterTheDaysNamed) {
    const CheckFolder folder;  // looked up on 2026-09-01, asked as of 2026-09-30
    EXPECT_THAT(found(folder, "--max-age 29"), ElementsAre());
    EXPECT_THAT(found(folder, "--max-age 28"), ElementsAre("unchecked-schedule", "unchecked-schedule"));
}

TEST(Check, LooksAtTheDayAskedFor) {
    const CheckFolder folder;
    // The old duty was the duty then, and no contract had expired; later one has.
    EXPECT_TRUE(folder.replace("fees/hgt.csv", "0.001,0.001", "0.0013,0.0013"));
    EXPECT_THAT(found(folder, "--only old-duty expired-contract"), ElementsAre("old-duty"));
    EXPECT_THAT(found(folder, "--only expired-contract --date 2026-10-31"), ElementsAre());
    EXPECT_THAT(found(folder, "--only expired-contract --date 2026-11-01"), ElementsAre("expired-contract"));
}

TEST(Check, FindsRatesWithoutATermInEveryTable) {
    const CheckFolder folder;
    EXPECT_TRUE(folder.replace("configured/stock.csv", "SH,510050,0.0001,", "SH,510050,0.0001,0.0005"));
    EXPECT_TRUE(folder.replace("charges.csv", "stamp_duty,sell,turnover,", "duty,sell,turnover,0.0005"));
    const std::string found =
        "no charging term is for the rate stamp_duty,\"add a term of stamp_duty to charges.csv, or take the rate "
        "out\",";
    EXPECT_EQ(folder.check("--only unused-rate --csv").out,
              "severity,check,file,line,accounts,count,found,remedy,places\n"
              "warning,unused-rate,configured/stock.csv,2,,1," +
                  found + "configured/stock.csv:2\n" + "warning,unused-rate,custom/stock.csv,2,S100,2," + found +
                  "custom/stock.csv:2 custom/stock.csv:3\n" + "warning,unused-rate,fees/stock.csv,2,S100 S200,4," +
                  found + "fees/stock.csv:2 fees/stock.csv:3 fees/stock.csv:4 fees/stock.csv:5\n");
}

TEST(Check, RateWithoutATermIsNoneWhereTheFolderChargesNothing) {
    const CheckFolder folder;
    folder.write("charges.csv", "family,charge,side,basis,per,currency\n");
    EXPECT_THAT(found(folder, "--only unused-rate"), ElementsAre());
}

TEST(Check, OldDutyIsMendedByASuccessorOnlyWhereItWasRightBefore) {
    const CheckFolder folder;
    EXPECT_TRUE(folder.replace("fees/stock.csv", "S200,SZ,*,,0.0003,0.0005,,", "S200,SZ,*,,0.0003,0.001,2023-08-28,"));
    EXPECT_THAT(folder.check("--csv").out, HasSubstr(",write 0.0005,fees/stock.csv:5"));
    EXPECT_TRUE(folder.replace("fees/stock.csv", "2023-08-28", "2023-08-27"));
    EXPECT_THAT(folder.check("--csv").out,
                HasSubstr(",end the line with until 2023-08-27 and add one with 0.0005 from 2023-08-28,"));
}

TEST(Check, OldDutyOfALineThatEndedInTimeIsNone) {
    const CheckFolder folder;
    folder.append("fees/stock.csv", "S200,SZ,*,,0.0003,0.001,,2023-08-27\n");
    EXPECT_THAT(found(folder, ""), ElementsAre());
    EXPECT_TRUE(folder.replace("fees/stock.csv", "2023-08-27", "2026-09-30"));
    EXPECT_THAT(found(folder, "--only old-duty"), ElementsAre("old-duty"));
}

TEST(Check, AccountsThatTheDayDoesNotCoverAreNamed) {
    const CheckFolder folder;
    EXPECT_TRUE(folder.replace("market.toml", "as_of = 2026-09-30\n",
                               "as_of = 2026-09-30\n[coverage]\nhgt = { from = 2026-10-01 }\n"));
    const Outcome outcome = folder.check("--csv");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.err,
                HasSubstr("account H100 was not asked: the folder's schedules of family hgt are known from "
                          "2026-10-01"));
}

TEST(Check, ErrorsAreColouredOnATerminal) {
    const FaultyFolder folder;
    const std::string shown = onTerminal(folder.path(), "check --no-pager", 100);
    EXPECT_THAT(shown, HasSubstr("\x1b["));
    EXPECT_THAT(onTerminal(folder.path(), "check --no-pager --off percent-rate", 100),
                testing::Not(HasSubstr("\x1b[")));
}

}  // namespace
}  // namespace feedesk::test
