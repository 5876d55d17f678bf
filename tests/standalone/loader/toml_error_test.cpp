// What is wrong with market.toml.

#include "fixture.h"

namespace standalone {
namespace {

using LoaderTomlError = LoaderTest;

TEST_F(LoaderTomlError, SyntaxErrorHasItsLine) {
    replace("market.toml", "threads = 3", "threads = ");
    expectError("market.toml", 5, {"not valid TOML"});
}

TEST_F(LoaderTomlError, SyntaxErrorThatQuotesALineBreakIsToldOnOneLine) {
    replace("market.toml", "threads = 3", "threads = t\nx");
    expectError("market.toml", 5, {"not valid TOML", "'t\\n'"});
}

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

TEST_F(LoaderTomlError, RepeatedKey) {
    replace("market.toml", "threads = 3", "threads = 3\nthreads = 4");
    expectError("market.toml", 6, {"not valid TOML", "threads"});
}

TEST_F(LoaderTomlError, OtherFormat) {
    replace("market.toml", "format = 1", "format = 2");
    expectError("market.toml", 1, {"\"format\"", "holds 2", "1 was expected"});
}

TEST_F(LoaderTomlError, FormatMissing) {
    replace("market.toml", "format = 1", "");
    expectError("market.toml", 1, {"\"format\"", "missing"});
}

TEST_F(LoaderTomlError, UnknownKeyIsComparedWithTheKnownOnes) {
    replace("market.toml", "threads = 3", "thraeds = 3");
    expectError("market.toml", 5, {"\"engine.thraeds\"", "did you mean \"threads\"?"});
}

TEST_F(LoaderTomlError, UnknownTable) {
    replace("market.toml", "[engine]", "[motor]\nspeed = 1\n[engine]");
    expectError("market.toml", 4, {"\"motor\"", "engine"});
}

TEST_F(LoaderTomlError, ThreadsOutOfRange) {
    replace("market.toml", "threads = 3", "threads = 0");
    expectError("market.toml", 5, {"\"engine.threads\"", "holds 0", "from 1 to 64"});
}

TEST_F(LoaderTomlError, TextForANumber) {
    replace("market.toml", "threads = 3", "threads = \"3\"");
    expectError("market.toml", 5, {"holds the text \"3\"", "a whole number"});
}

TEST_F(LoaderTomlError, FractionForANumber) {
    replace("market.toml", "threads = 3", "threads = 3.5");
    expectError("market.toml", 5, {"number with a fraction", "a whole number"});
}

TEST_F(LoaderTomlError, NumberForATable) {
    replace("market.toml", "[engine]\nthreads = 3\n", "");
    replace("market.toml", "title = \"Test market\"", "title = \"Test market\"\nengine = 3");
    expectError("market.toml", 3, {"\"engine\"", "holds 3", "a table"});
}

TEST_F(LoaderTomlError, PlatformThatIsNoNumber) {
    replace("market.toml", "[9001, 9002]", "[9001,\n \"x\"]");
    expectError("market.toml", 9, {"\"platforms.simulation\"", "the text \"x\"", "a whole number"});
}

TEST_F(LoaderTomlError, PlatformsThatAreNoList) {
    replace("market.toml", "[9001, 9002]", "9001");
    expectError("market.toml", 8, {"\"platforms.simulation\"", "a list"});
}

TEST_F(LoaderTomlError, NegativeTradeUnit) {
    replace("market.toml", "trade_unit = 2", "trade_unit = -2");
    expectError("market.toml", 24, {"\"markets.CME.trade_unit\"", "holds -2", "from 1"});
}

TEST_F(LoaderTomlError, TradeUnitMissingDoesNotMakeTheMarketUnknown) {
    replace("market.toml", "trade_unit = 100\n", "");
    expectError("market.toml", 10, {"\"markets.SH.trade_unit\"", "missing"});
}

TEST_F(LoaderTomlError, ForeignIsTrueOrFalse) {
    replace("market.toml", "foreign = true", "foreign = 1");
    expectError("market.toml", 25, {"\"markets.CME.foreign\"", "true or false"});
}

TEST_F(LoaderTomlError, MarketNameWithASpace) {
    replace("market.toml", "[markets.CME]", "[markets.\"C ME\"]\ntitle = \"T\"\ntrade_unit = 1\n[markets.CME]");
    expectError("market.toml", 22, {"\"markets.C ME\"", "not a market name"});
}

TEST_F(LoaderTomlError, NoMarkets) {
    write("market.toml", "format = 1\ntitle = \"T\"\n");
    // What the tables say of markets and rates cannot be judged then.
    expectError("market.toml", 1, {"\"markets\"", "missing"});
}

TEST_F(LoaderTomlError, UnknownFamilyOfRates) {
    replace("market.toml", "[rates.option]", "[rates.bond]\nrate1 = {}\n[rates.option]");
    expectError("market.toml", 31, {"\"rates.bond\"", "stock, credit, neeq, hgt, sgt or option"});
}

TEST_F(LoaderTomlError, UnknownRateOfAFamily) {
    replace("market.toml", "fee1 =", "fee6 =");
    expectError("market.toml", 32, {"\"rates.option.fee6\"", "fee1, fee2, fee3, fee4 or fee5"});
}

TEST_F(LoaderTomlError, BadUnit) {
    replace("market.toml", "\"yuan\"", "\"percent\"");
    expectError("market.toml", 29, {"\"rates.stock.rate6.unit\"", "\"percent\"", "fraction or yuan"});
}

TEST_F(LoaderTomlError, ColumnNameOfOtherCharacters) {
    replace("market.toml", "\"stamp_duty\"", "\"Stamp duty\"");
    expectError("market.toml", 29, {"\"rates.stock.rate6.column\"", "\"Stamp duty\"", "lower-case"});
}

TEST_F(LoaderTomlError, ColumnNameThatTheTablesUse) {
    replace("market.toml", "\"stamp_duty\"", "\"product\"");
    expectError("market.toml", 29, {"\"rates.stock.rate6.column\"", "\"product\"", "already"});
}

TEST_F(LoaderTomlError, ColumnNameOfTwoRates) {
    replace("market.toml", "\"stamp_duty\"", "\"rate2\"");
    expectError("market.toml", 29, {"\"rates.stock.rate6\"", "\"rate2\"", "already"});
}

TEST_F(LoaderTomlError, ColumnNameThatTheAnswersUse) {
    for (const std::string name :
         {"trade_unit", "base_rate", "kind", "name", "part", "item", "level", "source", "unit_volume"}) {
        replace("market.toml", "column = \"handling\"", "column = \"" + name + "\"");
        expectError("market.toml", 32, {"\"rates.option.fee1.column\"", "\"" + name + "\"", "already"});
        replace("market.toml", "column = \"" + name + "\"", "column = \"handling\"");
    }
}

TEST_F(LoaderTomlError, MarketNamedLikeAChannel) {
    replace("market.toml", "[markets.CME]", "[markets.XSGT]\ntitle = \"T\"\ntrade_unit = 1\n[markets.CME]");
    expectError("market.toml", 22, {"\"markets.XSGT\"", "connect channels", "rename it"});
}

TEST_F(LoaderTomlError, EmptyText) {
    replace("market.toml", "\"Test market\"", "\"\"");
    expectError("market.toml", 2, {"\"title\" is empty", "a text in quotes was expected; correct it"});
}

TEST_F(LoaderTomlError, TextOfTooManyCharacters) {
    replace("market.toml", "\"Test market\"", "\"" + std::string(1001, 'x') + "\"");
    expectError("market.toml", 2, {"\"title\"", "1001 characters", "at most 1000"});
}

TEST_F(LoaderTomlError, EveryErrorIsReported) {
    replace("market.toml", "threads = 3", "threads = 0");
    replace("market.toml", "foreign = true", "foreign = 1\ncolour = 2");
    replace("market.toml", "\"yuan\"", "\"percent\"");
    expectPlaces({"market.toml:5", "market.toml:25", "market.toml:26", "market.toml:30"});
}

}  // namespace
}  // namespace standalone
