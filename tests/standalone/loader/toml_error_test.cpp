// What is wrong with market.toml.

#include "fixture.h"

namespace standalone {
namespace {

using LoaderTomlError = LoaderTest;

const LoaderError kTomlErrors[] = {
    error("SyntaxErrorHasItsLine", replaced("market.toml", "threads = 3", "threads = "), 5, "not valid TOML"),
    error("SyntaxErrorThatQuotesALineBreakIsReportedOnOneLine",
          replaced("market.toml", "threads = 3", "threads = t\nx"), 5, "not valid TOML", "'t\\n'"),
    error("RepeatedKey", replaced("market.toml", "threads = 3", "threads = 3\nthreads = 4"), 6, "not valid TOML",
          "threads"),
    error("OtherFormat", replaced("market.toml", "format = 1", "format = 2"), 1, "\"format\"", "holds 2",
          "1 was expected"),
    error("FormatMissing", replaced("market.toml", "format = 1", ""), 1, "\"format\"", "missing"),
    error("UnknownKeyIsComparedWithTheKnownOnes", replaced("market.toml", "threads = 3", "thraeds = 3"), 5,
          "\"engine.thraeds\"", "did you mean \"threads\"?"),
    error("UnknownTable", replaced("market.toml", "[engine]", "[motor]\nspeed = 1\n[engine]"), 4, "\"motor\"",
          "engine"),
    error("ThreadsOutOfRange", replaced("market.toml", "threads = 3", "threads = 0"), 5, "\"engine.threads\"",
          "holds 0", "from 1 to 64"),
    error("TextForANumber", replaced("market.toml", "threads = 3", "threads = \"3\""), 5, "holds the text \"3\"",
          "a whole number"),
    error("FractionForANumber", replaced("market.toml", "threads = 3", "threads = 3.5"), 5, "number with a fraction",
          "a whole number"),
    error("PlatformThatIsNoNumber", replaced("market.toml", "[9001, 9002]", "[9001,\n \"x\"]"), 9,
          "\"platforms.simulation\"", "the text \"x\"", "a whole number"),
    error("PlatformsThatAreNoList", replaced("market.toml", "[9001, 9002]", "9001"), 8, "\"platforms.simulation\"",
          "a list"),
    error("NegativeTradeUnit", replaced("market.toml", "trade_unit = 2", "trade_unit = -2"), 24,
          "\"markets.CME.trade_unit\"", "holds -2", "from 1"),
    error("QuantityStepOfNothing", replaced("market.toml", "trade_unit = 2", "trade_unit = 2\nquantity_step = 0"), 25,
          "\"markets.CME.quantity_step\"", "holds 0", "from 1"),
    error("TradeUnitMissingDoesNotMakeTheMarketUnknown", replaced("market.toml", "trade_unit = 100\n", ""), 10,
          "\"markets.SH.trade_unit\"", "missing"),
    error("ForeignIsTrueOrFalse", replaced("market.toml", "foreign = true", "foreign = 1"), 25,
          "\"markets.CME.foreign\"", "true or false"),
    error("MarketNameWithASpace",
          replaced("market.toml", "[markets.CME]", "[markets.\"C ME\"]\ntitle = \"T\"\ntrade_unit = 1\n[markets.CME]"),
          22, "\"markets.C ME\"", "not a market name"),
    error("UnknownFamilyOfRates", replaced("market.toml", "[rates.option]", "[rates.bond]\nrate1 = {}\n[rates.option]"),
          31, "\"rates.bond\"", "stock, credit, neeq, hgt, sgt or option"),
    error("UnknownRateOfAFamily", replaced("market.toml", "fee1 =", "fee6 ="), 32, "\"rates.option.fee6\"",
          "fee1, fee2, fee3, fee4 or fee5"),
    error("BadUnit", replaced("market.toml", "\"yuan\"", "\"percent\""), 29, "\"rates.stock.rate6.unit\"",
          "\"percent\"", "fraction or yuan"),
    error("ColumnNameOfOtherCharacters", replaced("market.toml", "\"stamp_duty\"", "\"Stamp duty\""), 29,
          "\"rates.stock.rate6.column\"", "\"Stamp duty\"", "lower-case"),
    error("ColumnNameThatTheTablesUse", replaced("market.toml", "\"stamp_duty\"", "\"product\""), 29,
          "\"rates.stock.rate6.column\"", "\"product\"", "already"),
    error("ColumnNameOfTwoRates", replaced("market.toml", "\"stamp_duty\"", "\"rate2\""), 29, "\"rates.stock.rate6\"",
          "\"rate2\"", "already"),
    error("MarketNamedLikeAChannel",
          replaced("market.toml", "[markets.CME]", "[markets.XSGT]\ntitle = \"T\"\ntrade_unit = 1\n[markets.CME]"), 22,
          "\"markets.XSGT\"", "connect channels", "rename it"),
    error("EmptyText", replaced("market.toml", "\"Test market\"", "\"\""), 2, "\"title\" is empty",
          "a text in quotes was expected; correct it"),
    error("TextOfTooManyCharacters", replaced("market.toml", "\"Test market\"", "\"" + std::string(1001, 'x') + "\""),
          2, "\"title\"", "1001 characters", "at most 1000")};

INSTANTIATE_TEST_SUITE_P(TomlError, LoaderErrorTest, ::testing::ValuesIn(kTomlErrors), &nameOfError);

TEST_F(LoaderTomlError, MarketNameThatTheTerminalObeysIsEscapedWhereItIsNamed) {
    append("market.toml", "[markets.\"\\u001b[31m\"]\ntitle = \"Red\"\ntrade_unit = 1\n");
    append("instruments/a.csv", "SX,1,One,stock,,,,\n");
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 2U);
    EXPECT_EQ(result.errors[1].file, "instruments/a.csv");
    for (const LoadError& error : result.errors) {
        EXPECT_THAT(error.message, ::testing::HasSubstr("\\x1b[31m"));
        EXPECT_THAT(error.message, ::testing::Not(::testing::HasSubstr("\x1b")));
    }
}

TEST_F(LoaderTomlError, NumberForATable) {
    replace("market.toml", "[engine]\nthreads = 3\n", "");
    replace("market.toml", "title = \"Test market\"", "title = \"Test market\"\nengine = 3");
    expectError("market.toml", 3, {"\"engine\"", "holds 3", "a table"});
}

TEST_F(LoaderTomlError, NoMarkets) {
    write("market.toml", "format = 1\ntitle = \"T\"\n");
    // What the tables say of markets and rates cannot be judged then.
    expectError("market.toml", 1, {"\"markets\"", "missing"});
}

TEST_F(LoaderTomlError, ColumnNameThatTheAnswersUse) {
    for (const std::string name :
         {"trade_unit", "base_rate", "kind", "name", "part", "item", "level", "source", "marks", "unit_volume"}) {
        replace("market.toml", "column = \"handling\"", "column = \"" + name + "\"");
        expectError("market.toml", 32, {"\"rates.option.fee1.column\"", "\"" + name + "\"", "already"});
        replace("market.toml", "column = \"" + name + "\"", "column = \"handling\"");
    }
}

TEST_F(LoaderTomlError, EveryErrorIsReported) {
    replace("market.toml", "threads = 3", "threads = 0");
    replace("market.toml", "foreign = true", "foreign = 1\ncolour = 2");
    replace("market.toml", "\"yuan\"", "\"percent\"");
    expectPlaces({"market.toml:5", "market.toml:25", "market.toml:26", "market.toml:30"});
}

}  // namespace
}  // namespace standalone
