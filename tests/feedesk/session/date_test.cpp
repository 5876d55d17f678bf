// Questions as of a day.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "feedesk/session/session.h"
#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

constexpr const char* kQuestion = "fee S100 SH:600519 --csv";

cost::Date day(const char* text) { return cost::Date::parse(text).value(); }

/// A folder in which S100's commission on SH:600519 falls from 0.0003 to 0.0002 on 2023-08-28, and 0.0004 is
/// configured for SZ:000001 until the day before. Its account W100 trades everything.
class Date : public testing::Test {
protected:
    Date() {
        folder.write("fees/stock.csv",
                     "account,market,code,commission,from,until\n"
                     "S100,SH,600519,0.0002,2023-08-28,\n"
                     "S100,SH,600519,0.0003,,2023-08-27\n");
        folder.write("configured/stock.csv", "market,code,commission,until\nSZ,000001,0.0004,2023-08-27\n");
        folder.write("custom/stock.csv", "account,update,category,commission,from\nS100,1,1,0.0001,2023-08-28\n");
    }

    /// Puts lines at the top of market.toml.
    void say(const std::string& lines) const {
        folder.write("market.toml", lines + contentOf(folder.path() + "/market.toml"));
    }

    [[nodiscard]] std::string answer(const std::string& arguments) const {
        const Outcome outcome = ask(folder.path(), arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return lines(outcome.out).back();
    }

    SampleFolder folder;
};

TEST_F(Date, ChoosesTheLinesInForce) {
    EXPECT_THAT(answer("fee S100 SH:600519 --csv --date 2023-08-27"),
                HasSubstr(",own record,fees/stock.csv:3,,0.0003,"));
    EXPECT_THAT(answer("fee S100 SH:600519 --csv --date 2023-08-28"),
                HasSubstr(",own record,fees/stock.csv:2,,0.0002,"));
}

TEST_F(Date, ChoosesTheConfiguredLimitsAndCustomFees) {
    EXPECT_THAT(answer("fee S100 SZ:000001 --csv --date 2023-08-27"),
                HasSubstr("configured limit,configured/stock.csv:2,,0.0004,"));
    EXPECT_THAT(answer("fee S100 SZ:000001 --csv --date 2023-08-28"), HasSubstr("built-in default"));
    EXPECT_THAT(answer("fee S100 SH:600000 --csv --date 2023-08-27"), HasSubstr("built-in default"));
    EXPECT_THAT(answer("fee S100 SH:600000 --csv --date 2023-08-28"), HasSubstr("custom fee,custom/stock.csv:2"));
}

TEST_F(Date, MayComeBeforeTheCommand) {
    EXPECT_THAT(answer("--date 2023-08-27 fees S100 --csv"), HasSubstr(",0.0003,"));
}

TEST_F(Date, IsTheFoldersWhereNoneIsAskedFor) {
    say("as_of = 2023-08-27\n");
    EXPECT_THAT(answer(kQuestion), HasSubstr(",0.0003,"));
}

TEST_F(Date, IsTodayWhereNobodySaysOne) { EXPECT_THAT(answer(kQuestion), HasSubstr(",0.0002,")); }

TEST_F(Date, IsShownAboveATable) {
    EXPECT_EQ(lines(ask(folder.path(), "fee S100 SH:600519 --date 2023-08-27").out).front(),
              "Account S100 (stock) 股票户, as of 2023-08-27");
    EXPECT_EQ(lines(ask(folder.path(), "fee S100 SH:600519").out).front(), "Account S100 (stock) 股票户");
}

TEST_F(Date, CountsTheRecordsOfTheDay) {
    EXPECT_THAT(answer("accounts S100 --csv --date 2023-08-27"), EndsWith(",1,0"));
    EXPECT_THAT(answer("accounts S100 --csv --date 2023-08-28"), EndsWith(",1,1"));
}

struct Refusal {
    const char* name;
    const char* coverage;
    const char* arguments;
    const char* sentence;
};

class RefusedDate : public Date, public testing::WithParamInterface<Refusal> {};

TEST_P(RefusedDate, IsReportedWithTheDaysThatAreKnown) {
    say(GetParam().coverage);
    const Outcome outcome = ask(folder.path(), GetParam().arguments);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, std::string("feedesk: ") + GetParam().sentence + "\n");
}

constexpr const char* kFolderCoverage = "coverage = { from = 2021-01-01, until = 2026-12-31 }\n";
constexpr const char* kHgtCoverage = "coverage = { from = 2021-01-01, hgt = { from = 2023-01-01 } }\n";

INSTANTIATE_TEST_SUITE_P(
    , RefusedDate,
    testing::Values(
        Refusal{"BeforeTheFolders", kFolderCoverage, "fee S100 SH:600519 --date 2020-12-31",
                "the folder's schedules are known from 2021-01-01 until 2026-12-31, and 2020-12-31 lies outside; ask "
                "for a day within with --date"},
        Refusal{"BehindTheFolders", kFolderCoverage, "accounts --date 2027-01-01",
                "the folder's schedules are known from 2021-01-01 until 2026-12-31, and 2027-01-01 lies outside; ask "
                "for a day within with --date"},
        Refusal{"OfTheAccountsFamily", kHgtCoverage, "fee H100 HK:00700 --date 2022-12-31",
                "the folder's schedules of family hgt are known from 2023-01-01 on, and 2022-12-31 lies outside; ask "
                "for a day within with --date"},
        Refusal{"OfTheAccountsList", kHgtCoverage, "fees H100 --date 2022-12-31",
                "the folder's schedules of family hgt are known from 2023-01-01 on, and 2022-12-31 lies outside; ask "
                "for a day within with --date"},
        Refusal{"OfOneOfTheAccounts", kHgtCoverage, "accounts --levels --date 2022-12-31",
                "the folder's schedules of family hgt are known from 2023-01-01 on, and 2022-12-31 lies outside; ask "
                "for a day within with --date"},
        Refusal{"OfTheAnswerWhereTheAccountTradesEverything", "coverage = { stock = { from = 2023-01-01 } }\n",
                "fee W100 SH:600519 --date 2022-12-31",
                "the folder's schedules of family stock are known from 2023-01-01 on, and 2022-12-31 lies outside; "
                "ask for a day within with --date"},
        Refusal{"ThatIsNone", "", "accounts --date 2023-02-29",
                "--date: 2023-02-29 is not a day such as 2023-08-28; `feedesk accounts --help` shows how to ask"}),
    [](const auto& refusal) { return refusal.param.name; });

TEST_F(Date, OfAnotherFamilyIsAnsweredWhereOneIsNotCovered) {
    say(kHgtCoverage);
    EXPECT_THAT(answer("fee S100 SH:600519 --csv --date 2022-12-31"), HasSubstr(",0.0003,"));
    EXPECT_THAT(answer("accounts H100 --csv --date 2022-12-31"), HasSubstr("H100"));
}

TEST_F(Date, MayChangeWithEachQuestionToASession) {
    Session session({folder.path(), 1, day("2023-08-28")});
    const auto commission = [&](const char* date) {
        const DatedFee dated = session.feeOn(day(date), "S100", {"SH", "600519"});
        return std::pair(dated.fee->stkRateLimit->rate1,
                         dated.market->where(*dated.answer.lines.at(0).origin.position));
    };
    const std::pair<double, std::string> before(0.0003, "fees/stock.csv:3");
    const std::pair<double, std::string> after(0.0002, "fees/stock.csv:2");
    EXPECT_EQ(commission("2023-08-27"), before);
    EXPECT_EQ(commission("2023-08-28"), after);
    EXPECT_EQ(commission("1999-01-01"), before);
    const Replies asOfItsDay = session.fees(session.account("S100"), {{"SH", "600519"}});
    EXPECT_EQ(asOfItsDay.answers.at(0).lines.at(0).rates.at(0).rates.at(0).value, 0.0002);
}

TEST_F(Date, HasNoFeeOfAnUnknownInstrument) {
    Session session({folder.path(), 1, day("2023-08-28")});
    EXPECT_FALSE(session.feeOn(day("2023-08-28"), "S100", {"SH", "699999"}).fee);
    EXPECT_TRUE(session.hasAccount("S100"));
    EXPECT_FALSE(session.hasAccount("S999"));
}

}  // namespace
}  // namespace feedesk::test
