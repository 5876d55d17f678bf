// A folder of many errors: the first are shown, the others counted.

#include "fixture.h"

namespace standalone {
namespace {

using LoaderErrorCut = LoaderTest;

std::string times(std::size_t count, const std::string& line) {
    std::string lines;
    for (std::size_t i = 0; i < count; ++i) {
        lines += line;
    }
    return lines;
}

TEST_F(LoaderErrorCut, AHundredAreReportedOneByOne) {
    append("fees/credit.csv", times(100, "C1,SH,*,x,\n"));
    const LoadResult result = load();
    EXPECT_EQ(result.errors.size(), 100U);
    EXPECT_TRUE(result.further.empty());
    EXPECT_EQ(result.errorCount, 100U);
}

TEST_F(LoaderErrorCut, TheOthersAreCountedByKindWithThePlaceOfTheFirst) {
    append("fees/credit.csv", times(100, "C1,SH,*,x,\n") + times(7, "C1,SH,*,,x\nC9,SH,*,,\n"));
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 100U);
    EXPECT_EQ(result.errors.front().line, 3U);
    EXPECT_EQ(result.errors.back().line, 102U);
    EXPECT_EQ(result.errorCount, 114U);
    ASSERT_EQ(result.further.size(), 2U);
    EXPECT_EQ(
        result.further[0].text("m"),
        "m/fees/credit.csv:103: from here on 7 more of the kind \"number\": cells that hold no number, or one out "
        "of range");
    EXPECT_EQ(result.further[1].text("m"),
              "m/fees/credit.csv:104: from here on 7 more of the kind \"unknown-account\": accounts that accounts.csv "
              "does not have");
}

// What others follow from is among the first, although market.toml is the last by name.
TEST_F(LoaderErrorCut, TheFirstAreThoseOfTheFilesThatAreReadFirst) {
    append("market.toml", "fee9 = 1\n");
    append("instruments/a.csv", times(30, "SH,1,One,x,,,,\n"));
    append("fees/credit.csv", times(60, "C1,SH,*,x,\n"));
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 100U);
    EXPECT_EQ(result.errors[0].file, "market.toml");
    EXPECT_EQ(result.errors[1].file, "instruments/a.csv");
    EXPECT_EQ(result.errors[1].line, 8U);
    EXPECT_EQ(result.errors.back().file, "fees/credit.csv");
    ASSERT_EQ(result.further.size(), 1U);
    EXPECT_EQ(result.further.back().file, "fees/credit.csv");
    std::size_t counted = 0;
    for (const FurtherErrors& further : result.further) {
        counted += further.count;
    }
    EXPECT_EQ(counted + 100, result.errorCount);
}

TEST_F(LoaderErrorCut, ErrorsComeInTheOrderInWhichFilesAreRead) {
    const std::vector<std::string> inOrder = {
        "instrument",     "market.toml",           "accounts.csv",         "instruments/a.csv", "instruments/zzz.txt",
        "categories.csv", "custom_categories.csv", "group_categories.csv", "configured/x.csv",  "fees/stack.csv",
        "fees/x.csv",     "custom/x.csv"};
    for (const std::string& file : inOrder) {
        write(file, "= \r=");
    }
    std::vector<std::string> files;
    for (const LoadError& error : load().errors) {
        if (files.empty() || files.back() != error.file) {
            files.push_back(error.file);
        }
    }
    EXPECT_EQ(files, inOrder);
}

}  // namespace
}  // namespace standalone
