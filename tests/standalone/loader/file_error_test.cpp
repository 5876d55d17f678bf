// What is wrong with a folder, a file, a header or the shape of a line.

#include <sys/stat.h>

#include <fstream>

#include "fixture.h"

namespace standalone {
namespace {

using LoaderFileError = LoaderTest;

TEST_F(LoaderFileError, FolderMissing) {
    std::filesystem::remove_all(folder);
    expectError("", 0, {"no such folder", "market.toml"});
}

TEST_F(LoaderFileError, FolderIsAFile) {
    std::filesystem::remove_all(folder);
    std::ofstream(folder) << "text";
    expectError("", 0, {"not a folder"});
}

TEST_F(LoaderFileError, FolderWithoutAName) {
    const LoadResult result = loadMarket("");
    ASSERT_EQ(result.errors.size(), 1U);
    EXPECT_EQ(result.errors[0].text(""), "\"\": there is no such folder; name the folder that holds market.toml");
}

TEST_F(LoaderFileError, MarketTomlMissingIsTheOnlyErrorThoughOthersNeedIt) {
    remove("market.toml");
    expectError("market.toml", 0, {"missing", "add it"});
}

TEST_F(LoaderFileError, AccountsMissingIsTheOnlyErrorThoughOthersNeedThem) {
    remove("accounts.csv");
    expectError("accounts.csv", 0, {"missing"});
}

TEST_F(LoaderFileError, NoInstrumentFolderIsTheOnlyErrorThoughOthersNeedIt) {
    remove("instruments");
    expectError("instruments", 0, {"at least one", "instruments/*.csv"});
}

TEST_F(LoaderFileError, NoInstrumentFile) {
    remove("instruments/a.csv");
    remove("instruments/b.csv");
    expectError("instruments", 0, {"at least one", "instruments/*.csv"});
}

const LoaderError kFileErrors[] = {
    error("UnknownFileIsComparedWithTheKnownOnes", written("fees/stcok.csv", "x\n"), 0, "does not know",
          "did you mean \"stock.csv\"?"),
    error("UnknownFileUnlikeAnyNamesTheKnownOnes", written("configured/everything.csv", "x\n"), 0,
          "stock.csv, hgt.csv or sgt.csv"),
    error("InstrumentFileMustBeATable", written("instruments/c.txt", "x\n"), 0, "ending in .csv"),
    error("EmptyFile", written("fees/stock.csv", ""), 0, "empty"),
    error("FileOfBlankLines", written("fees/stock.csv", "\xEF\xBB\xBF\n \r\n\n"), 0, "empty"),
    error("SemicolonsForCommas", written("fees/credit.csv", "account;market;code;rate1\nC1;SH;*;0.1\n"), 1,
          "\"account;market;code;rate1\"", "commas were expected"),
    error("TabsForCommas", written("accounts.csv", "account\tname\tkind\nS1\tStock\tstock\n"), 1,
          "account\\tname\\tkind", "commas were expected"),
    error("FirstLineThatIsNotUtf8IsNamed",
          appended("accounts.csv", "Z1,\xE4\xB8\xAD,stock,\nZ2,\xE4\xB8,stock,\nZ3,\xE4\xB8,stock,\n"), 14,
          "is not UTF-8", "save it as UTF-8"),
    error("MarketTomlMustBeUtf8", replaced("market.toml", "\"Foreign\"", "\"\xFF\""), 23, "is not UTF-8"),
    error("NulByte", appended("accounts.csv", std::string("Z1,a\0b,stock,\n", 14)), 13, "NUL"),
    error("LoneCarriageReturn", appended("accounts.csv", "Z1,a\rb,stock,\n"), 13, "carriage return", "CRLF"),
    error("MissingColumn", written("custom/option.csv", "account,update,category,handling\nO1,1,20,1\n"), 1, "lacks",
          "\"item\""),
    error("UnknownColumnNamesTheKnownOnes",
          written("custom_categories.csv", "category,market,code,weight\n10001,SH,600001,1\n10002,HK,00700,1\n"), 1,
          "unknown column \"weight\"", "category, market or code"),
    error("MisspeltColumnIsNotReportedAsMissingToo", replaced("accounts.csv", "account,name", "acount,name"), 1,
          "unknown column \"acount\"", "did you mean \"account\"?"),
    error("RateUnderItsFieldNameIsUnknownWhenItHasAColumnName", replaced("configured/stock.csv", "commission", "rate1"),
          1, "unknown column \"rate1\"", "commission"),
    error("RepeatedColumn", written("fees/credit.csv", "account,market,code,rate1,rate1\nC1,SH,*,1,2\n"), 1,
          "\"rate1\" appears twice"),
    error("ColumnWithoutAName", written("fees/credit.csv", "account,market,code,\nC1,SH,*,\n"), 1,
          "column 4 has no name"),
    error("LineThatIsNoHeaderIsReportedOnce", written("fees/credit.csv", "C1,SH,*,0.1\nC1,SH,600000,0.2\n"), 1,
          "none of the columns", "account, market, code, product, rate1", "header line"),
    error("TooFewCells", appended("fees/credit.csv", "C1,SH,*,x\n"), 3, "too few cells", "4", "5"),
    error("TooManyCells", appended("fees/credit.csv", "C1,SH,*,x,,\n"), 3, "too many cells", "6", "5"),
    error("QuoteInsideAnUnquotedCell", appended("accounts.csv", "Z1,5\" disk,stock,\n"), 13, "quote is inside a cell",
          "double"),
    error("TextBehindAClosingQuote", appended("accounts.csv", "Z1,\"a\"b,stock,\n"), 13,
          "closing quote is followed by \"b\""),
    error("QuoteThatIsNeverClosed", appended("accounts.csv", "Z1,\"a,stock,\nZ2,b,stock,\n"), 13, "never closed"),
    error("CellBehindAQuotedLineBreakIsNamedByItsOwnLine", appended("accounts.csv", "Z1,\"a\nb\",shares,\n"), 14,
          "shares"),
    error("LineNumbersAreRightBehindBlankLinesCrlfAndQuotedLineBreaks",
          appended("accounts.csv", "\r\nZ1,\"a\r\n\r\nb\",stock,\r\n \r\nZ2,b,shares,\r\n"), 18, "shares")};

INSTANTIATE_TEST_SUITE_P(FileError, LoaderErrorTest, ::testing::ValuesIn(kFileErrors), &nameOfError);

TEST_F(LoaderFileError, GbkIsRecognised) {
    append("accounts.csv", "Z1,\xD6\xD0\xB9\xFA,stock,\n");
    expectError(
        "accounts.csv", 13,
        {"looks like GB18030 (GBK)", "save it as UTF-8", "iconv -f GB18030 -t UTF-8 " + path("accounts.csv") + " > "});
}

TEST_F(LoaderFileError, Utf16IsRecognised) {
    write("accounts.csv", std::string("\xFF\xFE"
                                      "a\0",
                                      4));
    expectError("accounts.csv", 1,
                {"UTF-16", "save it as UTF-8", "iconv -f UTF-16 -t UTF-8 " + path("accounts.csv") + " > "});
}

TEST_F(LoaderFileError, FileNameWithALineBreakIsReportedOnOneLine) {
    write("two\nlines", "x\n");
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 1U);
    EXPECT_EQ(result.errors[0].file, "two\nlines");
    EXPECT_THAT(result.errors[0].text("f"), ::testing::StartsWith("f/two\\nlines: the format does not know this name"));
}

TEST_F(LoaderFileError, MisspeltFolderIsNotReportedAsMissingToo) {
    std::filesystem::rename(path("instruments"), path("instrument"));
    expectError("instrument", 0, {"did you mean \"instruments\"?"});
}

TEST_F(LoaderFileError, FileInPlaceOfAFolder) {
    remove("configured");
    write("configured", "x\n");
    expectError("configured", 0, {"a file where a folder", "expected", "rename it or remove it"});
}

TEST_F(LoaderFileError, FolderInPlaceOfAFile) {
    remove("fees/stock.csv");
    write("fees/stock.csv/x", "x\n");
    expectError("fees/stock.csv", 0, {"a folder where a file"});
}

TEST_F(LoaderFileError, LinkToNothingCannotBeRead) {
    remove("fees/stock.csv");
    std::filesystem::create_symlink("nowhere", path("fees/stock.csv"));
    expectError("fees/stock.csv", 0, {"cannot be read", "No such file"});
}

TEST_F(LoaderFileError, PipeIsNotWaitedFor) {
    remove("fees/stock.csv");
    ASSERT_EQ(mkfifo(path("fees/stock.csv").c_str(), 0600), 0);
    expectError("fees/stock.csv", 0, {"not a plain file"});
}

TEST_F(LoaderFileError, FailureWhileReadingIsAnErrorOfTheFile) {
    remove("fees/stock.csv");
    std::filesystem::create_symlink("/proc/self/mem", path("fees/stock.csv"));
    expectError("fees/stock.csv", 0, {"cannot be read", "error"});
}

TEST_F(LoaderFileError, EmptyMarketToml) {
    write("market.toml", "");
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 1U);
    EXPECT_EQ(result.errors[0].text("f"), "f/market.toml: the file is empty; fill it in");
}

TEST_F(LoaderFileError, EmptyAccountsAreNotToBeRemoved) {
    write("accounts.csv", "\n");
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 1U);
    EXPECT_EQ(result.errors[0].text("f"), "f/accounts.csv: the file is empty; fill it in");
}

TEST_F(LoaderFileError, BadHeaderDoesNotHideBadCells) {
    write("fees/credit.csv", "account,market,code,rate1,colour\nC1,SH,*,x,\n");
    expectPlaces({"fees/credit.csv:1", "fees/credit.csv:2"});
}

TEST_F(LoaderFileError, HeaderThatCannotBeReadStopsOnlyItsFile) {
    write("fees/credit.csv", "account,mar\"ket,code\nC1,SH\n");
    append("fees/stock.csv", "S1,SH\n");
    expectPlaces({"fees/credit.csv:1", "fees/stock.csv:4"});
}

TEST_F(LoaderFileError, HeaderThatAllLinesDifferFromIsReportedOnce) {
    write("fees/credit.csv", "account,market,code,rate1\n\nC1,SH,*,,0.1\nC1,SH,600000,,0.2\nC1,SH,600000,,x\n");
    expectError("fees/credit.csv", 1, {"the header has 4 columns, but all 3 lines have 5 cells"});
    write("fees/credit.csv", "account,market,code,product,rate1\nC1,SH,*\nC1,SH,600000\n");
    expectError("fees/credit.csv", 1, {"the header has 5 columns, but all 2 lines have 3 cells"});
}

TEST_F(LoaderFileError, LinesThatDifferFromOneAnotherAreReportedOneByOne) {
    write("fees/credit.csv", "account,market,code,rate1\nC1,SH,*,,0.1\nC1,SH,600000,0.2\nC1,SH,600000,,0.3\n");
    expectPlaces({"fees/credit.csv:2", "fees/credit.csv:4"});
    write("fees/credit.csv", "account,market,code,rate1\nC1,SH,*,,0.1\nC1,SH,600000,0.2,,,\n");
    expectPlaces({"fees/credit.csv:2", "fees/credit.csv:3"});
    write("fees/credit.csv", "account,market,code,rate1\nC1,SH,*,,0.1\nC1,S\"H,600000,0.2,\n");
    expectPlaces({"fees/credit.csv:2", "fees/credit.csv:3"});
}

TEST_F(LoaderFileError, LinesThatDifferFromAWrongHeaderAreNotReportedToo) {
    write("fees/credit.csv", "account,code,rate1\nC1,SH,*,0.1\nC1,SH,600000,0.2\n");
    expectError("fees/credit.csv", 1, {"lacks the column \"market\""});
    write("fees/credit.csv", "account,code,rate1\nC1,SH,*,0.1\n");
    expectError("fees/credit.csv", 1, {"lacks the column \"market\""});
}

TEST_F(LoaderFileError, QuoteThatIsNotClosedDoesNotHideTheLinesBehindIt) {
    append("accounts.csv", "Z1,\"a,stock,\nZ2,b,shares,\nZ3,\"c\",stock,\nZ4,\"d\",shares,\n");
    expectPlaces({"accounts.csv:13", "accounts.csv:14", "accounts.csv:16"});
}

TEST_F(LoaderFileError, BadLineDoesNotHideTheLinesBehindIt) {
    append("accounts.csv", "Z1,a\"b,stock,\nZ2,b,shares,\n\"Z3\"x,c,stock,\nZ4,b,stock\nZ5,b,shares,\n");
    expectPlaces({"accounts.csv:13", "accounts.csv:14", "accounts.csv:15", "accounts.csv:16", "accounts.csv:17"});
}

TEST_F(LoaderFileError, LongCellIsShortenedInTheMessage) {
    append("fees/credit.csv", "C1,SH,*," + std::string(50000, 'x') + ",\n");
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 1U);
    EXPECT_EQ(result.errors[0].line, 3U);
    EXPECT_LT(result.errors[0].message.size(), 200U);
    EXPECT_THAT(result.errors[0].message, ::testing::HasSubstr("\"" + std::string(40, 'x') + "...\""));
}

TEST_F(LoaderFileError, LongCellIsShortenedBetweenCharacters) {
    std::string text(39, 'x');
    for (int i = 0; i < 20; ++i) {
        text += "\xE4\xB8\xAD";
    }
    append("fees/credit.csv", "C1,SH,*," + text + ",\n");
    expectError("fees/credit.csv", 3, {"\"" + std::string(39, 'x') + "...\""});
}

}  // namespace
}  // namespace standalone
