#include "feedesk/program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/feedesk/support/program.h"
#include "tests/feedesk/support/sample_folder.h"

namespace feedesk::test {
namespace {

using testing::Contains;
using testing::HasSubstr;

TEST(Program, EndsWhatIsAnsweredWhereTheNextRowFails) {
    const SampleFolder folder;
    const Session session({folder.path(), 0});
    for (const auto& [format, text] : std::vector<std::pair<Format, std::string>>{
             {Format::kTable, "V\nx\n"}, {Format::kCsv, "v\nx\n"}, {Format::kJson, "[\n{\"v\":\"x\"}\n]\n"}}) {
        Program program;
        program.format = format;
        const auto failing = [](RowSink& sink) -> Remarks {
            sink.row({0, {std::string("x")}, false});
            throw Failure(kNoAnswer, "line 2 is wrong");
        };
        testing::internal::CaptureStdout();
        EXPECT_THROW(program.answer(session, {{"", {{"v", "V"}}}}, failing), Failure);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), text);
        EXPECT_TRUE(program.hasAnswered);
    }
}

TEST(Program, WritesASpreadsheetInPlaceOfStandardOutput) {
    const SampleFolder folder;
    const std::string file = folder.path() + ".xlsx";
    const Outcome outcome = ask(folder.path(), "accounts --xlsx '" + file + "'");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(lines(runShell(std::string(SPREADSHEET_CELLS) + " '" + file + "'").out),
                Contains("Accounts|A2|s|S100|General|"));
    std::remove(file.c_str());
}

TEST(Program, MarksCsvAsUtf8WhereThatIsAskedFor) {
    const SampleFolder folder;
    EXPECT_EQ(ask(folder.path(), "accounts --csv-bom").out, "\xEF\xBB\xBF" + ask(folder.path(), "accounts --csv").out);
}

TEST(Program, AnswersInOneForm) {
    const SampleFolder folder;
    for (const std::string forms :
         {"--json --csv", "--csv --csv-bom", "--xlsx a.xlsx --json", "--csv-bom --xlsx a.xlsx"}) {
        const Outcome outcome = ask(folder.path(), "accounts " + forms);
        EXPECT_EQ(outcome.status, 2) << forms;
        EXPECT_THAT(outcome.err, HasSubstr(" exclude each other; use one of them; `feedesk ")) << forms;
    }
}

TEST(Program, SaysWhatACommandLineLacks) {
    const SampleFolder folder;
    struct Case {
        const char* arguments;
        const char* reported;
    };
    for (const Case& wrong : {
             Case{"fee S100 SH:600519 --thread 3",
                  "the argument --thread was not expected; did you mean --threads? `feedesk fee --help` shows how to "
                  "ask"},
             Case{"fees S100 --only-markt=SZ",
                  "the argument --only-markt=SZ was not expected; did you mean --only-market? `feedesk fees --help`"},
             Case{"fees S100 --match", "--match needs a value behind it: PATTERN; `feedesk fees --help` shows"},
             Case{"check --only", "--only needs a value behind it: NAME...; `feedesk check --help` shows"},
             Case{"check --only percent", "did you mean percent-rate? `feedesk check --help` shows how to ask"},
             Case{"fee S100 x --zzzzzz",
                  "the argument --zzzzzz was not expected; `feedesk fee --help` shows how to ask"},
         }) {
        const Outcome outcome = ask(folder.path(), wrong.arguments);
        EXPECT_EQ(outcome.status, 2) << wrong.arguments;
        EXPECT_THAT(outcome.err, HasSubstr(wrong.reported)) << wrong.arguments;
    }
}

}  // namespace
}  // namespace feedesk::test
