#include "feedesk/rows/workbook.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>
#include <system_error>
#include <utility>

#include "feedesk/failure.h"
#include "feedesk/text/text.h"
#include "standalone/text/escape.h"

namespace feedesk {
namespace {

constexpr std::size_t kNarrowest = 8;  // columns, in characters
constexpr std::size_t kWidest = 60;
constexpr std::size_t kLongestName = 31;  // of a sheet, in characters that are not Chinese; a spreadsheet takes no more
constexpr std::size_t kLongestText = 32'767;  // of a cell, in characters
constexpr const char* kForbiddenInNames = "[]:*?/\\'";

[[noreturn]] void fail(const std::string& file, const std::string& why) {
    throw Failure(kBadInput, fmt::format("the spreadsheet {} could not be written: {}", pathText(file), why));
}

lxw_col_t columnNumber(std::size_t column) { return static_cast<lxw_col_t>(column); }

/// The name without what a spreadsheet does not take in one.
std::string allowedName(const std::string& wanted) {
    std::string name = standalone::printable(wanted);
    std::replace_if(
        name.begin(), name.end(), [](char each) { return std::strchr(kForbiddenInNames, each) != nullptr; }, ' ');
    const std::vector<std::string> left = words(name);
    return left.empty() ? "Answer" : fmt::format("{}", fmt::join(left, " "));
}

}  // namespace

void Sheet::add(std::size_t column, const std::string& text, const CellLook& look) {
    const std::string whole = printableLines(text);
    const std::string shown = shortened(whole, kLongestText);
    book->tooLong += shown == whole ? 0 : 1;
    CellLook own = look;
    own.wrapped = shown.find('\n') != std::string::npos;
    const auto row = static_cast<lxw_row_t>(next - 1);
    book->require(worksheet_write_string(sheet, row, columnNumber(column), shown.c_str(), book->formatOf(own)));
    note(column, displayWidth(shown));
}

void Sheet::add(std::size_t column, double number, const CellLook& look) {
    const auto row = static_cast<lxw_row_t>(next - 1);
    book->require(worksheet_write_number(sheet, row, columnNumber(column), number, book->formatOf(look)));
    note(column, kNarrowest);
}

void Sheet::note(std::size_t column, std::size_t width) {
    widths.resize(std::max(widths.size(), column + 1), kNarrowest);
    widths[column] = std::clamp(width, widths[column], std::max(widths[column], kWidest));
}

Workbook::Workbook(const std::string& path) : file(path), unfinished(path + ".unfinished"), endedEarly(unfinished) {
    // The library opens the file at the end. Whether it can be written is said before anything is asked.
    if (std::filesystem::is_directory(file)) {
        fail(file, "it is a folder");
    }
    if (!std::ofstream(unfinished, std::ios::binary)) {
        fail(file, std::strerror(errno));
    }
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    book = workbook_new_opt(unfinished.c_str(), &options);
    if (book == nullptr) {
        throw std::bad_alloc();
    }
}

Workbook::~Workbook() {
    if (book != nullptr) {
        lxw_workbook_free(book);
        std::error_code ignored;
        std::filesystem::remove(unfinished, ignored);
    }
}

std::string Workbook::freeName(const std::string& wanted) const {
    const std::string base = allowedName(wanted);
    std::string name = shortened(base, kLongestName);
    for (std::size_t number = 2; workbook_validate_sheet_name(book, name.c_str()) == LXW_ERROR_SHEETNAME_ALREADY_USED;
         ++number) {
        const std::string behind = fmt::format(" ({})", number);
        name = shortened(base, kLongestName - behind.size()) + behind;
    }
    return name;
}

Sheet& Workbook::addSheet(const std::string& wanted, const std::vector<std::string>& titles) {
    lxw_worksheet* const made = workbook_add_worksheet(book, freeName(wanted).c_str());
    if (made == nullptr) {
        fail(file, fmt::format("a sheet {} could not be added", echoed(wanted)));
    }
    Sheet& sheet = *sheets.emplace_back(new Sheet(*this, made));
    sheet.beginLine();
    for (std::size_t i = 0; i < titles.size(); ++i) {
        sheet.add(i, titles[i], {"", true, false});
    }
    worksheet_freeze_panes(made, 1, 0);
    return sheet;
}

void Workbook::finish() {
    for (const std::unique_ptr<Sheet>& each : sheets) {
        for (std::size_t i = 0; i < each->widths.size(); ++i) {
            require(worksheet_set_column(each->sheet, columnNumber(i), columnNumber(i),
                                         static_cast<double>(each->widths[i]) + 1, nullptr));
        }
        if (!each->widths.empty()) {
            require(worksheet_autofilter(each->sheet, 0, 0, static_cast<lxw_row_t>(each->next - 1),
                                         columnNumber(each->widths.size() - 1)));
        }
    }
    lxw_workbook* const whole = std::exchange(book, nullptr);
    const lxw_error error = workbook_close(whole);  // frees it, whatever happens
    std::error_code problem;
    if (error == LXW_NO_ERROR) {
        std::filesystem::rename(unfinished, file, problem);
    }
    if (error != LXW_NO_ERROR || problem) {
        std::error_code ignored;
        std::filesystem::remove(unfinished, ignored);
        fail(file, error != LXW_NO_ERROR ? lxw_strerror(error) : problem.message());
    }
}

lxw_format* Workbook::formatOf(const CellLook& look) {
    const auto made = formats.emplace(look, nullptr);
    lxw_format*& format = made.first->second;
    if (made.second) {
        format = workbook_add_format(book);
        if (!look.number.empty()) {
            format_set_num_format(format, look.number.c_str());
        }
        if (look.bold) {
            format_set_bold(format);
        }
        if (look.wrapped) {
            format_set_text_wrap(format);
        }
        if (look.marked) {
            format_set_font_color(format, LXW_COLOR_RED);
        }
    }
    return format;
}

void Workbook::require(int error) const {
    if (error != LXW_NO_ERROR) {
        fail(file, lxw_strerror(static_cast<lxw_error>(error)));
    }
}

}  // namespace feedesk
