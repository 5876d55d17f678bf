#include "feedesk/commands/options.h"

#include <fmt/format.h>

#include <vector>

#include "feedesk/text/text.h"

namespace feedesk {
namespace {

/// Why the text is no day; empty when it is one.
std::string dayProblem(const std::string& text) {
    return cost::Date::parse(text) ? "" : fmt::format("{} is not a day such as 2023-08-28", echoed(text));
}

/// Why a spreadsheet cannot be written there; empty when it may.
std::string spreadsheetProblem(const std::string& text) {
    return text == "-"    ? "a spreadsheet is no text and does not go to standard output; name a file"
           : text.empty() ? "a spreadsheet needs the name of a file"
                          : "";
}

}  // namespace

void addDayOption(CLI::App& command, const std::string& name, std::optional<cost::Date>& day,
                  const std::string& description) {
    command
        .add_option_function<std::string>(
            name, [&day](const std::string& text) { day = cost::Date::parse(text); }, description)
        ->check(CLI::Validator(dayProblem, ""))
        ->type_name("DAY");
}

void addNumberPattern(CLI::App& command, std::string& pattern) {
    command.add_option("PATTERN", pattern, "Only numbers or names like this; * is any\ntext")->type_name("");
}

void addFormatOptions(CLI::App& command, Program& program) {
    const auto addForm = [&](const char* name, Format format, const char* description) {
        return command.add_flag_callback(
            name, [&program, format] { program.format = format; }, description);
    };
    std::vector<CLI::Option*> forms = {
        addForm("--json", Format::kJson, "Answer as JSON"),
        addForm("--csv", Format::kCsv, "Answer as comma-separated values"),
        addForm("--csv-bom", Format::kCsvWithMark, "The same, marked as UTF-8 for spreadsheets"),
    };
    forms.push_back(command
                        .add_option_function<std::string>(
                            "--xlsx",
                            [&program](const std::string& file) {
                                program.format = Format::kXlsx;
                                program.file = file;
                            },
                            "Write the answer to FILE, a spreadsheet")
                        ->check(CLI::Validator(spreadsheetProblem, ""))
                        ->type_name("FILE")
                        ->option_text("FILE"));
    for (auto form = forms.begin(); form != forms.end(); ++form) {
        if ((*form)->get_option_text().empty()) {
            (*form)->option_text(" ");  // help would list what each of them excludes
        }
        for (auto other = forms.begin(); other != form; ++other) {
            (*form)->excludes(*other);
        }
    }
}

}  // namespace feedesk
