// Values in market.toml of another type than expected: the message says what is there.

#include "fixture.h"

namespace standalone {
namespace {

struct OtherType {
    const char* name;
    const char* value;
    const char* found;
};

/// The number of threads given as something else.
class LoaderTomlTypeError : public LoaderTest, public ::testing::WithParamInterface<OtherType> {};

TEST_P(LoaderTomlTypeError, IsNamed) {
    replace("market.toml", "threads = 3", std::string("threads = ") + GetParam().value);
    expectError("market.toml", 5, {"\"engine.threads\"", GetParam().found, "a whole number from 1 to"});
}

INSTANTIATE_TEST_SUITE_P(Types, LoaderTomlTypeError,
                         ::testing::Values(OtherType{"True", "true", "holds true"},
                                           OtherType{"False", "false", "holds false"},
                                           OtherType{"Table", "{ a = 1 }", "is a table"},
                                           OtherType{"List", "[3]", "is a list"},
                                           OtherType{"Fraction", "3.0", "holds a number with a fraction"},
                                           OtherType{"Date", "2026-01-05", "holds a date or time"},
                                           OtherType{"Text", "'three'", "holds the text \"three\""},
                                           OtherType{"EmptyText", "''", "is empty"}),
                         [](const auto& type) { return type.param.name; });

using LoaderTomlValueError = LoaderTest;

const LoaderError kTomlValueErrors[] = {
    error("NumberForAText", replaced("market.toml", "title = \"Test market\"", "title = 3"), 2, "\"title\"", "holds 3",
          "a text in quotes"),
    error("MarketThatIsNoTable", replaced("market.toml", "[markets.SH]", "[markets]\nXX = 3\n\n[markets.SH]"), 11,
          "\"markets.XX\"", "holds 3", "a table"),
    error("MarketWithoutAName",
          replaced("market.toml", "[markets.SH]", "[markets.\"\"]\ntitle = \"None\"\ntrade_unit = 1\n\n[markets.SH]"),
          10, "is not a market name"),
    error("GoodRateDoesNotHideTheBadOneBeforeIt", replaced("market.toml", "unit = \"fraction\"", "unit = \"pounds\""),
          28, "\"rates.stock.rate1.unit\"", "\"pounds\"", "fraction or yuan")};

INSTANTIATE_TEST_SUITE_P(TomlValueError, LoaderErrorTest, ::testing::ValuesIn(kTomlValueErrors), &nameOfError);

TEST_F(LoaderTomlValueError, MarketsThatAreNoTable) {
    write("market.toml", "format = 1\ntitle = \"T\"\nmarkets = 3\n");
    // What the tables say of markets cannot be judged then, but the rates have their own names.
    const LoadResult result = load();
    ASSERT_FALSE(result.errors.empty());
    for (const LoadError& error : result.errors) {
        EXPECT_THAT(error.message, ::testing::Not(::testing::HasSubstr("SH\"")));
    }
    EXPECT_EQ(result.errors.back().file, "market.toml");
    EXPECT_THAT(result.errors.back().message, ::testing::HasSubstr("\"markets\" holds 3, but a table was expected"));
}

TEST_F(LoaderTomlValueError, MarketsWithoutAMarket) {
    write("market.toml", "format = 1\ntitle = \"T\"\n[markets]\n");
    const LoadResult result = load();
    ASSERT_FALSE(result.errors.empty());
    EXPECT_EQ(result.errors.back().file, "market.toml");
    EXPECT_THAT(result.errors.back().message, ::testing::HasSubstr("\"markets\" has no market, but at least one was"));
}

class LoaderTomlMarketError : public LoaderTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(LoaderTomlMarketError, NameThatWouldBeTakenForSomethingElseIsRefused) {
    append("market.toml", std::string("[markets.\"") + GetParam() + "\"]\ntitle = \"Odd\"\ntrade_unit = 1\n");
    expectError("market.toml", 33, {GetParam(), "is not a market name"});
}

INSTANTIATE_TEST_SUITE_P(Names, LoaderTomlMarketError, ::testing::Values("S:H", "S*", ":", "*"));

TEST_F(LoaderTomlValueError, PlatformsWithoutAListAreNone) {
    replace("market.toml", "simulation = [9001, 9002]\n", "");
    EXPECT_TRUE(loadGood().simulationPlatforms.empty());
}

class LoaderTomlColumnError : public LoaderTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(LoaderTomlColumnError, OfOtherCharactersIsRefused) {
    replace("market.toml", "\"stamp_duty\"", std::string("\"") + GetParam() + "\"");
    expectError("market.toml", 29, {"\"rates.stock.rate6.column\"", GetParam(), "lower-case"});
}

// The neighbours of the characters that are taken: before 0, behind 9, before and behind the underscore, behind z.
INSTANTIATE_TEST_SUITE_P(Columns, LoaderTomlColumnError, ::testing::Values("a/", "a:", "a^", "a`", "a{", "aA"));

TEST_F(LoaderTomlValueError, EveryBadRateOfAFamilyIsReported) {
    replace("market.toml", "unit = \"fraction\"", "unit = \"pounds\"");
    replace("market.toml", "unit = \"yuan\"", "unit = \"ounces\"");
    expectPlaces({"market.toml:28", "market.toml:29"});
}

}  // namespace
}  // namespace standalone
