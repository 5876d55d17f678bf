// The days for which a folder's schedules are known.

#include "fixture.h"

namespace standalone {
namespace {

class LoaderCoverage : public LoaderTest {
protected:
    /// Puts lines behind the title, which is line 2.
    void say(const std::string& lines) const {
        replace("market.toml", "title = \"Test market\"\n", "title = \"Test market\"\n" + lines);
    }

    [[nodiscard]] Coverage coverage() const { return loadGoodFolder().coverage(); }
};

TEST_F(LoaderCoverage, IsOfEveryDayWhereNothingIsSaid) {
    EXPECT_EQ(coverage().refusal(cost::Date()), "");
    EXPECT_EQ(coverage().refusal(cost::Date::last(), cost::Family::kHgt), "");
}

TEST_F(LoaderCoverage, RefusesDaysOutsideInOneSentence) {
    say("[coverage]\nfrom = 2021-01-01\nuntil = 2026-12-31\n");
    EXPECT_EQ(
        coverage().refusal(day("2020-12-31")),
        "the folder's schedules are known from 2021-01-01 until 2026-12-31, and 2020-12-31 lies outside; ask for a "
        "day within");
    EXPECT_EQ(coverage().refusal(day("2021-01-01")), "");
    EXPECT_EQ(coverage().refusal(day("2026-12-31")), "");
    EXPECT_NE(coverage().refusal(day("2027-01-01")), "");
}

TEST_F(LoaderCoverage, OfAFamilyIsNarrower) {
    say("[coverage]\nfrom = 2021-01-01\nuntil = 2026-12-31\nhgt = { from = 2023-01-01 }\nfutures = { until = "
        "2026-06-30 }\n");
    const Coverage known = coverage();
    EXPECT_EQ(known.refusal(day("2022-12-31"), cost::Family::kHgt),
              "the folder's schedules of family hgt are known from 2023-01-01 until 2026-12-31, and 2022-12-31 lies "
              "outside; ask for a day within");
    EXPECT_EQ(known.refusal(day("2023-01-01"), cost::Family::kHgt), "");
    EXPECT_EQ(known.refusal(day("2022-12-31"), cost::Family::kStock), "");
    EXPECT_NE(known.refusal(day("2026-07-01"), cost::Family::kFutures), "");
    EXPECT_EQ(known.refusal(day("2021-01-01"), cost::Family::kFutures), "");
}

TEST_F(LoaderCoverage, OfAMarketIsNarrower) {
    say("[coverage]\nfrom = 2021-01-01\nuntil = 2026-12-31\nmarkets = { SH = { from = 2021-11-15 } }\n");
    const Coverage known = coverage();
    EXPECT_EQ(known.refusal(day("2021-11-14"), "SH"),
              "the folder's schedules of market SH are known from 2021-11-15 until 2026-12-31, and 2021-11-14 lies "
              "outside; ask for a day within");
    EXPECT_EQ(known.refusal(day("2021-11-15"), "SH"), "");
    EXPECT_EQ(known.refusal(day("2021-11-14"), "HK"), "");
}

struct WrongDays {
    const char* name;
    const char* lines;
    std::size_t line;
    std::vector<std::string> words;
};

class LoaderCoverageError : public LoaderTest, public ::testing::WithParamInterface<WrongDays> {};

TEST_P(LoaderCoverageError, IsReportedAtItsKey) {
    replace("market.toml", "title = \"Test market\"\n", std::string("title = \"Test market\"\n") + GetParam().lines);
    expectError("market.toml", GetParam().line, GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, LoaderCoverageError,
    ::testing::Values(WrongDays{"TextForADay",
                                "as_of = \"2026-09-30\"\n",
                                3,
                                {"\"as_of\"", "the text \"2026-09-30\"", "a day such as 2026-09-30, without quotes"}},
                      WrongDays{"TimeForADay", "as_of = 2026-09-30T00:00:00\n", 3, {"\"as_of\"", "a day such as"}},
                      WrongDays{"EndBeforeTheBegin",
                                "[coverage]\nfrom = 2022-01-02\nuntil = 2022-01-01\n",
                                5,
                                {"\"coverage.until\"", "2022-01-01", "not before 2022-01-02"}},
                      WrongDays{"FamilyEndBeforeItsBegin",
                                "[coverage]\nhgt = { from = 2022-01-02, until = 2022-01-01 }\n",
                                4,
                                {"\"coverage.hgt.until\"", "not before 2022-01-02"}},
                      WrongDays{"FamilyBeforeTheFolder",
                                "[coverage]\nfrom = 2022-01-02\nhgt = { from = 2022-01-01 }\n",
                                5,
                                {"\"coverage.hgt.from\"", "2022-01-01", "covered from 2022-01-02 on", "lie within"}},
                      WrongDays{"FamilyBehindTheFolder",
                                "[coverage]\nuntil = 2022-01-02\nhgt = { until = 2022-01-03 }\n",
                                5,
                                {"\"coverage.hgt.until\"", "covered until 2022-01-02"}},
                      WrongDays{"AsOfOutside",
                                "as_of = 2021-12-31\n[coverage]\nfrom = 2022-01-01\n",
                                3,
                                {"\"as_of\"", "2021-12-31", "covered from 2022-01-01 on"}},
                      WrongDays{"MarketBeforeTheFolder",
                                "[coverage]\nfrom = 2022-01-02\nmarkets = { SH = { from = 2022-01-01 } }\n",
                                5,
                                {"\"coverage.markets.SH.from\"", "covered from 2022-01-02 on", "lie within"}},
                      WrongDays{"NoMarket",
                                "[coverage]\nmarkets = { SX = { from = 2022-01-01 } }\n",
                                4,
                                {"\"coverage.markets.SX\"", "not a market of this file", "SH"}},
                      WrongDays{"NoFamily",
                                "[coverage]\ncommission = { from = 2022-01-01 }\n",
                                4,
                                {"\"coverage.commission\"", "not a key of the format", "futures"}}),
    [](const auto& wrong) { return wrong.param.name; });

TEST_F(LoaderCoverage, ThatIsWrongItselfIsReportedOnce) {
    say("as_of = 2020-08-28\n[coverage]\nfrom = 2021-01-01\nuntil = 2020-12-31\nhgt = { from = 2019-01-01 }\n");
    expectPlaces({"market.toml:6"});
}

}  // namespace
}  // namespace standalone
