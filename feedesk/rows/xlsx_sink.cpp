#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "feedesk/rows/sinks.h"
#include "feedesk/rows/workbook.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "standalone/text/numbers.h"

namespace feedesk {
namespace {

constexpr std::size_t kDigitsOfANumber = 15;  // what a spreadsheet's cell holds exactly

const char* numberFormat(Unit unit) {
    switch (unit) {
        case Unit::kFraction:
            return "0.0#############%";
        case Unit::kYuan:
            return "General\" yuan\"";
        case Unit::kCount:
            return "#,##0";
        case Unit::kText:
        case Unit::kNumber:
            break;
    }
    return "";
}

/// How many digits a number needs to hold the decimal: zeros in front of the first other one are none.
/// Shows as many places as the amount has.
std::string moneyFormat(const std::string& decimal) {
    const std::size_t point = decimal.find('.');
    const std::size_t places = point == std::string::npos ? 0 : decimal.size() - point - 1;
    return "#,##0" + (places == 0 ? "" : "." + std::string(places, '0'));
}

/// The first of January 1901; a spreadsheet's own count of the days before March 1900 is off by one.
const cost::Date& firstSpreadsheetDay() {
    static const cost::Date day = *cost::Date::of(1901, 1, 1);
    return day;
}

/// The number by which a spreadsheet knows the day: of days since 1899-12-30. Months count from March here, so that the
/// day that leap years have more is the last of a year.
double spreadsheetDay(cost::Date date) {
    constexpr int kUntilYear0 = 693900;  // 1899-12-30 counted so from March of year 0
    const int year = date.month() > 2 ? date.year() : date.year() - 1;
    const int month = date.month() > 2 ? date.month() - 3 : date.month() + 9;
    const int days = 365 * year + year / 4 - year / 100 + year / 400 + (153 * month + 2) / 5 + date.day();
    return days - kUntilYear0;
}

/// Writes a value into a cell.
struct Cell {
    Sheet& sheet;
    std::size_t column;
    Unit unit;
    bool marked;

    void text(const std::string& text) const { sheet.add(column, text, {"", false, marked}); }
    void number(double number, const std::string& format) const { sheet.add(column, number, {format, false, marked}); }

    void operator()(const Nothing& /*nothing*/) const {}
    void operator()(const std::string& value) const { text(value); }
    void operator()(const Label& label) const { text(fmt::format("{}", fmt::join(label.shown, " "))); }
    void operator()(const Names& names) const { text(plainText(names)); }
    void operator()(const Source& source) const { text(source.place); }
    void operator()(const cost::Date& day) const {
        day < firstSpreadsheetDay() ? text(day.text()) : number(spreadsheetDay(day), "yyyy-mm-dd");
    }
    void operator()(const Sources& sources) const { text(plainText(sources)); }
    void operator()(const Sentences& sentences) const { text(plainText(sentences)); }
    void operator()(std::size_t count) const { number(static_cast<double>(count), numberFormat(Unit::kCount)); }
    void operator()(double value) const {
        std::isfinite(value) ? number(value, numberFormat(unit)) : text(plainNumber(value));
    }
    void operator()(const Money& money) const { exactly(money.decimal, moneyFormat(money.decimal)); }
    void operator()(const Rate& rate) const { exactly(rate.decimal, numberFormat(rate.unit)); }

    /// A decimal with more digits than a cell's number holds stays a text.
    void exactly(const std::string& decimal, const std::string& format) const {
        const std::optional<double> value = standalone::numberIn<double>(decimal);
        value&& significantDigits(decimal) <= kDigitsOfANumber ? number(*value, format) : text(decimal);
    }
};

/// Where a workbook's cells say that something is: the column that says so, file and line, and how many cells do. Of
/// two folders that are compared the column says which one is meant.
class SourceList {
public:
    void add(const std::string& column, const Value& value) {
        if (const auto* source = std::get_if<Source>(&value)) {
            add(column, source->place);
        }
        if (const auto* several = std::get_if<Sources>(&value)) {
            std::for_each(several->places.begin(), several->places.end(),
                          [&](const std::string& place) { add(column, place); });
        }
    }

    void write(Workbook& book) const {
        if (cells.empty()) {
            return;
        }
        Sheet& sheet = book.addSheet("Sources", {"Column", "File", "Line", "Cells"});
        for (const auto& [said, count] : cells) {
            const auto& [column, file, line] = said;
            sheet.beginLine();
            sheet.add(0, column);
            sheet.add(1, file);
            if (line != 0) {
                sheet.add(2, static_cast<double>(line), {});
            }
            sheet.add(3, static_cast<double>(count), {});
        }
    }

private:
    void add(const std::string& column, const std::string& place) {
        const std::size_t colon = place.rfind(':');
        const std::string line = colon == std::string::npos ? "" : place.substr(colon + 1);
        const std::optional<std::size_t> number = standalone::numberIn<std::size_t>(line);
        ++cells[{column, number ? place.substr(0, colon) : place, number.value_or(0)}];
    }

    std::map<std::tuple<std::string, std::string, std::size_t>, std::size_t> cells;  // column, file and line
};

/// The heading of the column of a field that programs get: its title, or its name as words where it has none. Where
/// several have a title, such as a rate by turnover and by lot, it has the name too.
std::string columnTitle(const Field& field, const std::vector<Field>& all) {
    if (field.title.empty()) {
        return asTitle(field.name);
    }
    const auto hasTheTitle = [&](const Field& each) { return !each.name.empty() && each.title == field.title; };
    return std::count_if(all.begin(), all.end(), hasTheTitle) == 1 ? field.title
                                                                   : fmt::format("{} ({})", field.title, field.name);
}

/// The sheets of one section. Programs' fields are its columns.
class SectionSheets {
public:
    SectionSheets(const Section& section, std::size_t mostLines)
        : name(section.sheet.empty() ? section.title : section.sheet), most(mostLines) {
        for (const Field& field : section.fields) {
            columns.push_back(field.name.empty() ? kNoColumn : titles.size());
            units.push_back(field.unit);
            if (!field.name.empty()) {
                titles.push_back(columnTitle(field, section.fields));
            }
        }
    }

    [[nodiscard]] bool isOpen() const { return sheet != nullptr; }

    void open(Workbook& book) { sheet = &book.addSheet(name, titles); }

    void add(Workbook& book, const Row& row, SourceList& sources) {
        if (!isOpen() || sheet->lines() == most) {
            open(book);
        }
        sheet->beginLine();
        for (std::size_t i = 0; i < row.values.size(); ++i) {
            if (columns[i] != kNoColumn) {
                std::visit(Cell{*sheet, columns[i], units[i], row.marked}, row.values[i]);
                sources.add(titles[columns[i]], row.values[i]);
            }
        }
    }

private:
    static constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

    std::string name;
    std::size_t most;
    std::vector<std::string> titles;
    std::vector<std::size_t> columns;  // of each field
    std::vector<Unit> units;
    Sheet* sheet = nullptr;
};

class XlsxSink : public RowSink {
public:
    XlsxSink(const std::string& file, Write tellNote, std::size_t mostLinesOfASheet)
        : book(file), tell(std::move(tellNote)), most(mostLinesOfASheet) {}

    void begin(const Sections& newSections) override {
        for (const Section& section : newSections) {
            sections.emplace_back(section, most);
        }
    }

    void row(const Row& row) override { sections.at(row.section).add(book, row, sources); }

    void end() override {
        const bool anyRows = std::any_of(sections.begin(), sections.end(),
                                         [](const SectionSheets& section) { return section.isOpen(); });
        if (!anyRows && !sections.empty()) {
            sections.front().open(book);
        }
        sources.write(book);
        book.finish();
        if (tell && book.shortenedCells() > 0) {
            tell(fmt::format(
                "{} of the spreadsheet {} longer than a spreadsheet allows and {} in an ellipsis; --csv and "
                "--json have the whole texts",
                counted(book.shortenedCells(), "cell"), book.shortenedCells() == 1 ? "is" : "are",
                book.shortenedCells() == 1 ? "ends" : "end"));
        }
    }

    void breakOff() override {}

private:
    Workbook book;
    Write tell;
    std::size_t most;
    std::vector<SectionSheets> sections;
    SourceList sources;
};

}  // namespace

std::unique_ptr<RowSink> xlsxSink(const std::string& file, Write tell, std::size_t mostLinesOfASheet) {
    return std::make_unique<XlsxSink>(file, std::move(tell), mostLinesOfASheet);
}

}  // namespace feedesk
