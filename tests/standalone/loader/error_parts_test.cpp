// The parts of an error, for a program, and the line that a person reads.

#include "fixture.h"

namespace standalone {
namespace {

/// A line behind the last one of a table, or of market.toml, and the error that it makes.
struct Part {
    const char* kind;
    const char* file;
    const char* line;
    const char* column;
};

class LoaderErrorParts : public LoaderTest, public ::testing::WithParamInterface<Part> {};

TEST_P(LoaderErrorParts, AreKindFileAndColumn) {
    const Part& part = GetParam();
    append(part.file, std::string(part.line) + "\n");
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 1U);
    const LoadError& error = result.errors.front();
    EXPECT_STREQ(nameOf(error.kind), part.kind) << error.message;
    EXPECT_EQ(error.file, part.file);
    EXPECT_EQ(error.column, part.column) << error.message;
    EXPECT_NE(error.line, 0U);
    EXPECT_EQ(result.errorCount, 1U);
    EXPECT_TRUE(result.further.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, LoaderErrorParts,
    ::testing::Values(Part{"encoding", "accounts.csv", "Z1,\xFF,stock,", ""},
                      Part{"line-end", "accounts.csv", "Z1,a\rb,stock,", ""}, Part{"toml", "market.toml", "= 1", ""},
                      Part{"unknown-key", "market.toml", "fee2 = { colour = 1 }", "rates.option.fee2.colour"},
                      Part{"missing-key", "market.toml", "[markets.X]\ntitle = \"X\"", "markets.X.trade_unit"},
                      Part{"key-value", "market.toml", "fee2 = { unit = \"x\" }", "rates.option.fee2.unit"},
                      Part{"cell-count", "accounts.csv", "Z1", ""},
                      Part{"quoting", "accounts.csv", "Z1,a\"b,stock,", ""},
                      Part{"empty-cell", "accounts.csv", "Z1,,stock,", "name"},
                      Part{"number", "fees/credit.csv", "C1,SH,*,x,", "rate1"},
                      Part{"number", "accounts.csv", "Z1,One,stock,1.5", "platform"},
                      Part{"word", "accounts.csv", "Z1,One,stocks,", "kind"},
                      Part{"name", "accounts.csv", "Z 1,One,stock,", "account"},
                      Part{"unknown-market", "fees/credit.csv", "C1,XX,*,,", "market"},
                      Part{"unknown-account", "fees/credit.csv", "C9,SH,*,,", "account"},
                      Part{"account-kind", "fees/credit.csv", "S1,SH,*,,", "account"},
                      Part{"unknown-code", "fees/credit.csv", "C1,SH,nothing,,", "code"},
                      Part{"no-match", "fees/credit.csv", "C1,SH,9*,,", ""},
                      Part{"unknown-category", "custom/credit.csv", "C1,1,77,,", "category"},
                      Part{"unused-category", "custom/credit.csv", "C1,1,10001,,", "category"},
                      Part{"days", "market.toml", "[coverage]\nfrom = 2024-01-02\nuntil = 2024-01-01",
                           "coverage.until"},
                      Part{"repeated", "accounts.csv", "S1,Again,stock,", "account"}),
    [](const auto& part) {
        std::string name = part.param.kind;
        for (char& byte : name) {
            byte = byte == '-' ? '_' : byte;
        }
        return name + "_" + std::to_string(part.index);
    });

using LoaderErrorText = LoaderTest;

TEST_F(LoaderErrorText, OfAHeaderNamesTheColumn) {
    write("fees/credit.csv", "account,market,code,colour\nC1,SH,*,\n");
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 1U);
    EXPECT_STREQ(nameOf(result.errors[0].kind), "header");
    EXPECT_EQ(result.errors[0].column, "colour");
}

TEST_F(LoaderErrorText, BeginsWithThePathThatAnEditorOpens) {
    const LoadError error{"fees/stock.csv", 12, "rate1", ErrorKind::kNumber, "wrong"};
    EXPECT_EQ(error.text("broken"), "broken/fees/stock.csv:12: wrong");
    EXPECT_EQ(error.text("broken/"), "broken/fees/stock.csv:12: wrong");
    EXPECT_EQ(error.text("../m"), "../m/fees/stock.csv:12: wrong");
    EXPECT_EQ(error.text("/srv/market"), "/srv/market/fees/stock.csv:12: wrong");
}

TEST_F(LoaderErrorText, OfAWholeFileHasNoLine) {
    EXPECT_EQ((LoadError{"fees/stock.csv", 0, "", ErrorKind::kUnreadable, "wrong"}).text("m"),
              "m/fees/stock.csv: wrong");
}

TEST_F(LoaderErrorText, OfTheFolderHasItsAbsolutePath) {
    const LoadError error{"", 0, "", ErrorKind::kFolder, "wrong"};
    EXPECT_EQ(error.text("m"), (std::filesystem::current_path() / "m").string() + ": wrong");
    EXPECT_EQ(error.text("/m"), "/m: wrong");
}

}  // namespace
}  // namespace standalone
