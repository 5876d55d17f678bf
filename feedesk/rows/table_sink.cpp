#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "feedesk/rows/layout.h"
#include "feedesk/rows/shown_columns.h"
#include "feedesk/rows/sinks.h"
#include "feedesk/text/text.h"

namespace feedesk {
namespace {

/// Numbers the sources below a table where there is no room for them in it.
class SourceNotes {
public:
    std::string mark(const std::string& source) {
        const auto number = numbers.emplace(source, numbers.size() + 1);
        if (number.second) {
            text += fmt::format("[{}] {}\n", number.first->second, source);
        }
        return fmt::format("[{}]", number.first->second);
    }

    std::string text;

private:
    std::map<std::string, std::size_t> numbers;
};

/// With the sources in columns or, where there are notes, numbered behind the last text of each row. Sources of several
/// columns are kept apart by their titles.
TextTable textTable(const ShownColumns& columns, const std::vector<Row>& rows, SourceNotes* notes) {
    const auto isSource = [](const ShownColumn& column) { return column.isSource; };
    const bool needsLabels = std::count_if(columns.shown.begin(), columns.shown.end(), isSource) > 1;
    const auto label = [&](const ShownColumn& column) {
        return needsLabels ? column.fields.front().title + " " : std::string();
    };
    TextTable table;
    for (const ShownColumn& column : columns.shown) {
        if (notes == nullptr || !column.isSource) {
            table.columns.push_back(column.title());
        }
    }
    for (const Row& row : rows) {
        TextRow& made = table.rows.emplace_back();
        made.heading = columns.headingOf(row);
        made.marked = row.marked;
        for (const ShownColumn& column : columns.shown) {
            Pieces cell = column.cell(row);
            if (notes == nullptr || !column.isSource) {
                made.cells.push_back(std::move(cell));
            } else if (!cell.empty()) {
                made.cells.back().push_back(notes->mark(label(column) + cell.front()));
            }
        }
        if (!made.heading.empty()) {
            made.cells.front().front().insert(0, "  ");
        }
    }
    return table;
}

std::string rowsText(const ShownColumns& columns, const std::vector<Row>& rows, std::size_t width) {
    const TextTable whole = textTable(columns, rows, nullptr);
    std::string text = columnsSideBySide(whole, width, Squeeze::kTitles);
    if (!text.empty()) {
        return text;
    }
    SourceNotes notes;
    text = columnsSideBySide(textTable(columns, rows, &notes), width, Squeeze::kTexts);
    return text.empty() ? rowsSideBySide(whole, width) : text + notes.text;
}

std::string zerosText(const std::vector<std::string>& titles, std::size_t width) {
    if (titles.empty()) {
        return "";
    }
    const std::string sentence = fmt::format("Rates not shown are 0: {}.", fmt::join(titles, ", "));
    return fmt::format("{}\n", fmt::join(fillLines(words(sentence), width), "\n"));
}

std::string sectionTable(const Section& section, const std::vector<Row>& rows, std::size_t width) {
    const ShownColumns columns(section.fields, rows);
    return (section.title.empty() ? "" : section.title + "\n") + rowsText(columns, rows, width) +
           zerosText(columns.namedZeros, width);
}

class TableSink : public RowSink {
public:
    TableSink(Write write, std::size_t newWidth) : writeTable(std::move(write)), width(newWidth) {}

    void begin(const Sections& newSections) override {
        sections = newSections;
        rowsOf.resize(sections.size());
    }

    void row(const Row& row) override { rowsOf.at(row.section).push_back(row); }

    void end() override {
        const bool anyRows = std::any_of(rowsOf.begin(), rowsOf.end(), [](const auto& rows) { return !rows.empty(); });
        std::string gap;
        for (std::size_t i = 0; i < sections.size(); ++i) {
            if (!anyRows || !rowsOf[i].empty()) {
                writeTable(gap + sectionTable(sections[i], rowsOf[i], width));
                gap = "\n";
            }
        }
    }

private:
    Write writeTable;
    std::size_t width;
    Sections sections;
    std::vector<std::vector<Row>> rowsOf;  // of each section
};

}  // namespace

std::unique_ptr<RowSink> tableSink(Write write, std::size_t width) {
    return std::make_unique<TableSink>(std::move(write), width);
}

}  // namespace feedesk
