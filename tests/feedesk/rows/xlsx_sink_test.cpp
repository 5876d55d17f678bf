// Spreadsheets, as another program reads them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>

#include "feedesk/failure.h"
#include "feedesk/rows/sinks.h"
#include "tests/feedesk/support/program.h"

namespace feedesk {
namespace {

using test::lines;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

/// A folder for the spreadsheets of one test.
class Xlsx : public testing::Test {
protected:
    Xlsx() { std::filesystem::create_directory(folder); }
    ~Xlsx() override { std::filesystem::remove_all(folder); }

    [[nodiscard]] std::string path(const std::string& name) const { return (folder / name).string(); }
    [[nodiscard]] static std::vector<std::string> cellsOf(const std::string& file) {
        return lines(test::runShell(std::string(SPREADSHEET_CELLS) + " '" + file + "'").out);
    }

    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("feedesk_xlsx_" + std::to_string(getpid()));
};

const Sections kTwo = {{"", {{"code", "Code"}, {"fee", "Fee", Unit::kFraction}, {"from", "From"}, forPeople("Seen")}},
                       {"Margin [buy/sell]", {{"code", ""}}}};

Row one(const std::string& code, const Value& fee, const std::string& place) {
    return {0, {code, fee, Source{place}, std::string("by people")}, false};
}

TEST_F(Xlsx, HasASheetForEachSectionAndOneForSources) {
    const auto sink = xlsxSink(path("a.xlsx"));
    sink->begin(kTwo);
    sink->row(one("000001", 0.00023, "fees/stock.csv:12"));
    sink->row({1, {std::string("600519")}, false});
    sink->row(one("=1+1", 0.5, "fees/stock.csv:9"));
    sink->row(one("x", Nothing(), "fees/stock.csv:12"));
    sink->end();
    EXPECT_THAT(
        cellsOf(path("a.xlsx")),
        ElementsAre("Answer|A1|s|Code|General|", "Answer|B1|s|Fee|General|", "Answer|C1|s|From|General|",
                    "Answer|A2|s|000001|General|", "Answer|B2|n|0.00023|0.0#############%|",
                    "Answer|C2|s|fees/stock.csv:12|General|",  //
                    "Answer|A3|s|=1+1|General|", "Answer|B3|n|0.5|0.0#############%|",
                    "Answer|C3|s|fees/stock.csv:9|General|",  //
                    "Answer|A4|s|x|General|", "Answer|C4|s|fees/stock.csv:12|General|",
                    "Margin buy sell|A1|s|Code|General|", "Margin buy sell|A2|s|600519|General|",
                    "Sources|A1|s|Column|General|", "Sources|B1|s|File|General|", "Sources|C1|s|Line|General|",
                    "Sources|D1|s|Cells|General|",  //
                    "Sources|A2|s|From|General|", "Sources|B2|s|fees/stock.csv|General|", "Sources|C2|n|9|General|",
                    "Sources|D2|n|1|General|",  //
                    "Sources|A3|s|From|General|", "Sources|B3|s|fees/stock.csv|General|", "Sources|C3|n|12|General|",
                    "Sources|D3|n|2|General|"));
}

struct CellCase {
    const char* what;
    Unit unit;
    Value value;
    std::string cell;  // type, value and format
};

const CellCase kCellCases[] = {
    {"Label", Unit::kText, Label{"own record", {"own record,", "ZERO MARGIN"}}, "s|own record, ZERO MARGIN|General"},
    {"Names", Unit::kText, Names{"not_set", "zero_margin"}, "s|not_set zero_margin|General"},
    {"TextThatIsNotUtf8", Unit::kText, std::string("a\x9B"), R"(s|a\x9b|General)"},
    {"TextOfTwoLines", Unit::kText, std::string("a\nb"), "s|a<line>b|General"},
    {"TextTooLongForACell", Unit::kText, std::string(32'768, 'x'), "s|" + std::string(32'766, 'x') + "…|General"},
    {"Yuan", Unit::kYuan, 1.3, R"(n|1.3|General" yuan")"},
    {"Number", Unit::kNumber, 9001.0, "n|9001|General"},
    {"NotANumber", Unit::kNumber, std::numeric_limits<double>::quiet_NaN(), "s|nan|General"},
    {"Count", Unit::kCount, std::size_t{61234}, "n|61234|#,##0"},
    {"Money", Unit::kNumber, Money{"-1234.50"}, "n|-1234.5|#,##0.00"},
    {"MoneyWithoutPlaces", Unit::kNumber, Money{"1234"}, "n|1234|#,##0"},
    {"MoneyOfFifteenDigits", Unit::kNumber, Money{"1234567890123.45"}, "n|1234567890123.45|#,##0.00"},
    {"MoneyBelowAFen", Unit::kNumber, Money{"0.000000000000012"}, "n|1.2e-14|#,##0.000000000000000"},
    {"RateOfTurnover", Unit::kNumber, Rate{"0.00025", Unit::kFraction}, "n|0.00025|0.0#############%"},
    {"RateInYuan", Unit::kNumber, Rate{"1.3", Unit::kYuan}, R"(n|1.3|General" yuan")"},
    {"RateOfSixteenDigits", Unit::kNumber, Rate{"1.234567890123456", Unit::kYuan}, "s|1.234567890123456|General"},
    {"Places", Unit::kText, Sources{{"a.csv:1", "b.csv:2"}}, "s|a.csv:1 b.csv:2|General"},
    {"MoneyOfSixteenDigits", Unit::kNumber, Money{"12345678901234.56"}, "s|12345678901234.56|General"},
};

TEST_F(Xlsx, SaysHowManyTextsAreTooLong) {
    const auto told = [&](const std::vector<std::size_t>& lengths) {
        std::string sentence;
        const auto sink = xlsxSink(path("long.xlsx"), [&](const std::string& text) { sentence += text; });
        sink->begin({{"Texts", {{"v", "V"}}}});
        for (const std::size_t length : lengths) {
            sink->row({0, {std::string(length, 'x')}, false});
        }
        sink->end();
        return sentence;
    };
    EXPECT_EQ(told({32'767, 1}), "");
    EXPECT_EQ(told({32'768, 1}),
              "1 cell of the spreadsheet is longer than a spreadsheet allows and ends in an ellipsis; --csv and --json "
              "have the whole texts");
    EXPECT_THAT(told({32'768, 50'000}), testing::StartsWith("2 cells of the spreadsheet are longer "));
}

TEST_F(Xlsx, KeepsNumbersAsNumbersAndTextsAsTexts) {
    Sections sections;
    for (const CellCase& each : kCellCases) {
        sections.push_back({each.what, {{"v", "V", each.unit}}});
    }
    const auto sink = xlsxSink(path("a.xlsx"));
    sink->begin(sections);
    for (std::size_t i = 0; i < std::size(kCellCases); ++i) {
        sink->row({i, {kCellCases[i].value}, false});
    }
    sink->end();
    const std::vector<std::string> cells = cellsOf(path("a.xlsx"));
    for (const CellCase& each : kCellCases) {
        EXPECT_THAT(cells, Contains(std::string(each.what) + "|A2|" + each.cell + "|"));
    }
}

TEST_F(Xlsx, CountsEachOfSeveralSourcesByTheColumnThatNamesIt) {
    const auto sink = xlsxSink(path("a.xlsx"));
    sink->begin({{"", {{"old_sources", ""}, {"new", "New"}}}});
    sink->row({0, {Sources{{"a.csv:2", "a.csv:10"}}, Source{"a.csv:2"}}, false});
    sink->row({0, {Sources{{"a.csv:2"}}, Nothing()}, false});
    sink->end();
    std::vector<std::string> cells = cellsOf(path("a.xlsx"));
    cells.erase(cells.begin(), std::find(cells.begin(), cells.end(), "Sources|A2|s|New|General|"));
    EXPECT_THAT(cells, ElementsAre("Sources|A2|s|New|General|", "Sources|B2|s|a.csv|General|",
                                   "Sources|C2|n|2|General|", "Sources|D2|n|1|General|",  //
                                   "Sources|A3|s|Old sources|General|", "Sources|B3|s|a.csv|General|",
                                   "Sources|C3|n|2|General|", "Sources|D3|n|2|General|",  //
                                   "Sources|A4|s|Old sources|General|", "Sources|B4|s|a.csv|General|",
                                   "Sources|C4|n|10|General|", "Sources|D4|n|1|General|"));
}

TEST_F(Xlsx, NamesItsSheetsAsFarAsASpreadsheetAllows) {
    const std::string tooLong(40, 'x');
    const auto sink = xlsxSink(path("a.xlsx"));
    sink->begin({{"", {{"v", "V"}}, "Findings"},
                 {"'[]'", {{"v", "V"}}, ""},
                 {"FINDINGS", {{"v", "V"}}, ""},
                 {tooLong, {{"v", "V"}}, ""},
                 {tooLong, {{"v", "V"}}, ""}});
    for (std::size_t i = 0; i < 5; ++i) {
        sink->row({i, {std::string("a")}, false});
    }
    sink->end();
    std::vector<std::string> names;
    for (const std::string& cell : cellsOf(path("a.xlsx"))) {
        const std::string name = cell.substr(0, cell.find('|'));
        if (names.empty() || names.back() != name) {
            names.push_back(name);
        }
    }
    EXPECT_THAT(names, ElementsAre("Findings", "Answer", "FINDINGS (2)", std::string(30, 'x') + "…",
                                   std::string(26, 'x') + "… (2)"));
}

TEST_F(Xlsx, ShowsInRedWhatMustNotBeOverlooked) {
    const auto sink = xlsxSink(path("a.xlsx"));
    sink->begin({{"", {{"v", "V"}}}});
    sink->row({0, {std::string("a")}, true});
    sink->row({0, {std::string("b")}, false});
    sink->end();
    EXPECT_THAT(cellsOf(path("a.xlsx")),
                ElementsAre("Answer|A1|s|V|General|", "Answer|A2|s|a|General|marked", "Answer|A3|s|b|General|"));
}

TEST_F(Xlsx, GoesOnOnAnotherSheetWhereOneIsFull) {
    const auto sink = xlsxSink(path("a.xlsx"), {}, 3);
    sink->begin({{"", {{"v", "V"}}}});
    for (const char* const each : {"a", "b", "c"}) {
        sink->row({0, {std::string(each)}, false});
    }
    sink->end();
    EXPECT_THAT(cellsOf(path("a.xlsx")),
                ElementsAre("Answer|A1|s|V|General|", "Answer|A2|s|a|General|", "Answer|A3|s|b|General|",
                            "Answer (2)|A1|s|V|General|", "Answer (2)|A2|s|c|General|"));
}

TEST_F(Xlsx, LeavesWhatWasThereWhenAnAnswerBreaksOff) {
    std::ofstream(path("a.xlsx")) << "good";
    {
        const auto sink = xlsxSink(path("a.xlsx"));
        sink->begin({{"", {{"v", "V"}}}});
        sink->row({0, {std::string("a")}, false});
        sink->breakOff();
    }
    EXPECT_EQ(std::filesystem::file_size(path("a.xlsx")), 4U);
    EXPECT_FALSE(std::filesystem::exists(path("a.xlsx.unfinished")));
}

TEST_F(Xlsx, SaysAtOnceThatItsFileCannotBeWritten) {
    try {
        xlsxSink(path("none/a.xlsx"));
        ADD_FAILURE() << "a file in a folder that is not there";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.status(), kBadInput);
        EXPECT_THAT(failure.what(), HasSubstr("none/a.xlsx could not be written: No such file or directory"));
    }
    try {
        xlsxSink(folder.string());
        ADD_FAILURE() << "a folder";
    } catch (const Failure& failure) {
        EXPECT_THAT(failure.what(), HasSubstr("it is a folder"));
    }
}

}  // namespace
}  // namespace feedesk
