// What spreadsheets and desktops leave in a folder.

#include "fixture.h"

namespace standalone {
namespace {

using LoaderLitter = LoaderTest;

TEST_F(LoaderLitter, IsPassedOver) {
    for (const char* name : {"~$accounts.csv", ".~lock.accounts.csv#", "Thumbs.db", "desktop.ini", "Desktop.ini",
                             ".DS_Store", "instruments/~$a.csv", "instruments/Thumbs.db", "fees/~$stock.csv"}) {
        write(name, "\xD0\xCF");
    }
    EXPECT_EQ(loadGood().files.size(), 25U);
}

TEST_F(LoaderLitter, IsNothingElse) {
    write("fees/thumbs.csv", "x\n");
    write("fees/x~$stock.csv", "x\n");
    expectPlaces({"fees/thumbs.csv:0", "fees/x~$stock.csv:0"});
}

/// A code of a fee table, and what its error says.
struct Spoilt {
    const char* market;
    const char* code;
    std::vector<std::string> words;
};

class LoaderSpoiltCode : public LoaderTest, public ::testing::WithParamInterface<Spoilt> {
protected:
    LoaderSpoiltCode() {
        append("instruments/a.csv",
               "SH,000001,One,stock,,,,\nSH,2,Two,stock,,,,\nSH,100000,Round,stock,,,,\n"
               "SH,001500,Small and round,stock,,,,\n");
    }
};

TEST_P(LoaderSpoiltCode, IsReportedWithTheCodeThatWasMeant) {
    const Spoilt& spoilt = GetParam();
    std::vector<std::string> words = spoilt.words;
    words.push_back(std::string("the instrument ") + spoilt.market + " \"" + spoilt.code + "\" is not in");
    append("fees/stock.csv", std::string("S1,") + spoilt.market + "," + spoilt.code + ",,,,,,,\n");
    expectError("fees/stock.csv", 4, words);
}

const char* const kAsText = "give the column the format \"text\" in the spreadsheet";

INSTANTIATE_TEST_SUITE_P(
    Codes, LoaderSpoiltCode,
    ::testing::Values(Spoilt{"SH", "1", {"but SH \"000001\" is, of which", kAsText}},
                      Spoilt{"SH", "0001", {"but SH \"000001\" is, of which", kAsText}},
                      Spoilt{"HK", "700", {"but HK \"00700\" is, of which", kAsText}},
                      Spoilt{"SH", "600000.0", {"but SH \"600000\" is, of which", kAsText}},
                      Spoilt{"SH", "1.00", {"but SH \"000001\" is, of which", kAsText}},
                      Spoilt{"SH", "1E+05", {"but SH \"100000\" is, of which", kAsText}},
                      Spoilt{"SH", "1.00E+05", {"but SH \"100000\" is, of which", kAsText}},
                      Spoilt{"SH", "1.5e+3", {"but SH \"001500\" is, of which", kAsText}},
                      Spoilt{"SH", "6.01E+05", {"a spreadsheet seems to have made a number of the code", kAsText}},
                      Spoilt{
                          "SH", "000002", {"but SH \"2\" is, from which a spreadsheet seems to have taken the zeros"}},
                      Spoilt{"SH", "3", {"instruments/*.csv; correct the code or add"}},
                      Spoilt{"SH", "0000000001", {"instruments/*.csv; correct the code or add"}},
                      Spoilt{"SH", "1.5", {"instruments/*.csv; correct the code or add"}},
                      Spoilt{"SH", "1E5", {"instruments/*.csv; correct the code or add"}},
                      Spoilt{"SH", "1E+", {"instruments/*.csv; correct the code or add"}},
                      Spoilt{"SH", "1.E+05", {"instruments/*.csv; correct the code or add"}},
                      Spoilt{"SH", "E+05", {"instruments/*.csv; correct the code or add"}},
                      Spoilt{"SH", "0", {"instruments/*.csv; correct the code or add"}},
                      Spoilt{"HK", "1", {"instruments/*.csv; correct the code or add"}},
                      Spoilt{"SH", "1E+99", {"made a number of the code"}},
                      Spoilt{"SH", "1E+99999999999999999999", {"made a number of the code"}}));

TEST_F(LoaderTest, SpoiltCodeOfTheConfigurationAndOfCategoriesIsReportedToo) {
    append("configured/hgt.csv", "HK,700,,\n");
    append("custom_categories.csv", "10002,HK,700\n");
    const LoadResult result = load();
    ASSERT_EQ(result.errors.size(), 2U);
    for (const LoadError& error : result.errors) {
        EXPECT_THAT(error.message, ::testing::HasSubstr("but HK \"00700\" is"));
    }
}

TEST_F(LoaderTest, CatalogueTakesNoCodeThatASpreadsheetMadeANumber) {
    append("instruments/a.csv", "SH,1E+05,Round,stock,,,,\n");
    expectError("instruments/a.csv", 8, {"column code holds \"1E+05\"", "a spreadsheet makes", kAsText});
}

}  // namespace
}  // namespace standalone
