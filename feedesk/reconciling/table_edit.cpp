#include "feedesk/reconciling/table_edit.h"

#include <fmt/format.h>

#include <algorithm>

#include "standalone/text/csv_rows.h"
#include "standalone/text/utf8.h"

namespace feedesk {
namespace {

using standalone::CsvRow;
using standalone::CsvRows;

constexpr const char* kFrom = "from";
constexpr const char* kUntil = "until";

/// The cells of one line; none when it is not a row by itself.
std::vector<std::string> cellsIn(const std::string& line) {
    CsvRow row;
    std::vector<std::string> cells;
    if (CsvRows(line).next(row) && row.fault.empty()) {
        for (const auto& cell : row.cells) {
            cells.push_back(cell.text);
        }
    }
    return cells;
}

std::string quoted(const std::string& cell) {
    if (cell.find_first_of(",\"") == std::string::npos) {
        return cell;
    }
    std::string text = "\"";
    for (const char c : cell) {
        text += c == '"' ? "\"\"" : std::string(1, c);
    }
    return text + '"';
}

std::string lineOf(const std::vector<std::string>& cells, const std::string& end) {
    std::string line;
    for (const std::string& cell : cells) {
        line += (&cell == &cells.front() ? "" : ",") + quoted(cell);
    }
    return line + end;
}

std::string endOf(const std::string& line) { return !line.empty() && line.back() == '\r' ? "\r" : ""; }

std::string withoutEnd(const std::string& line) { return line.substr(0, line.size() - endOf(line).size()); }

std::string joinedLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& each : lines) {
        text += (text.empty() ? "" : "\n") + withoutEnd(each);
    }
    return text;
}

}  // namespace

TableEdit::TableEdit(const std::string& text) : table(text) {
    if (!table.lines.empty()) {
        header = cellsIn(table.lines.front().substr(standalone::utf8MarkLength(table.lines.front())));
    }
}

std::optional<std::size_t> TableEdit::columnNamed(const std::string& name) const {
    const auto column = std::find(header.begin(), header.end(), name);
    return column == header.end() ? std::nullopt : std::optional(static_cast<std::size_t>(column - header.begin()));
}

void TableEdit::addDays() {
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        const std::string line = withoutEnd(table.lines[i]);
        if (!line.empty()) {
            replacements[i] = {line + (i == 0 ? ",from,until" : ",,") + endOf(table.lines[i])};
        }
    }
    header.insert(header.end(), {kFrom, kUntil});
    daysAreAdded = true;
}

bool TableEdit::hasDays() {
    const bool hasFrom = columnNamed(kFrom).has_value();
    const bool hasUntil = columnNamed(kUntil).has_value();
    if (!hasFrom && !hasUntil) {
        addDays();
    }
    return hasFrom == hasUntil;
}

TableEdit::Cells TableEdit::cellsOf(std::size_t line) const {
    if (line < 2 || line > table.lines.size()) {
        return {};
    }
    Cells cells = cellsIn(table.lines[line - 1]);
    cells.resize(daysAreAdded ? header.size() : cells.size());
    return cells.size() == header.size() ? cells : Cells();
}

std::optional<std::string> TableEdit::cell(std::size_t line, const std::string& column) const {
    const auto index = columnNamed(column);
    const Cells cells = cellsOf(line);
    return index && !cells.empty() ? std::optional(cells[*index]) : std::nullopt;
}

TableEdit::Cells TableEdit::withValues(Cells cells, const Values& values) const {
    for (const auto& [column, value] : values) {
        const auto index = columnNamed(column);
        if (!index || cells.empty()) {
            return {};
        }
        cells[*index] = value;
    }
    return cells;
}

std::optional<TableEdit::Cells> TableEdit::onDays(Cells cells, const cost::DateRange& days) const {
    std::string& first = cells[*columnNamed(kFrom)];
    std::string& last = cells[*columnNamed(kUntil)];
    const cost::DateRange own{cost::Date::parse(first), cost::Date::parse(last)};
    if (!own.overlaps(days)) {
        return std::nullopt;
    }
    if (days.from && (!own.from || *own.from < *days.from)) {
        first = days.from->text();
    }
    if (days.until && (!own.until || *days.until < *own.until)) {
        last = days.until->text();
    }
    return cells;
}

std::vector<std::string> TableEdit::pieces(std::size_t line) const {
    const Cells own = cellsOf(line);
    const std::string end = endOf(table.lines[line - 1]);
    std::vector<std::string> made;
    const auto add = [&](const Cells& cells, const cost::DateRange& days) {
        if (const auto kept = onDays(cells, days)) {
            made.push_back(lineOf(*kept, end));
        }
    };
    cost::DateRange left;
    bool goesOn = true;
    for (const Stretch& each : changed.at(line)) {
        if (!left.from || *left.from < *each.days.from) {
            add(own, {left.from, each.days.from->previous()});
        }
        add(withValues(own, each.values), each.days);
        left.from = each.days.until ? each.days.until->next() : std::nullopt;
        goesOn = left.from.has_value();
    }
    if (goesOn) {
        add(own, left);
    }
    return made;
}

std::optional<TableEdit::Change> TableEdit::succeed(std::size_t line, const Values& values,
                                                    const cost::DateRange& days) {
    const bool isPossible = days.from->previous() && extended.count(line) == 0;
    if (!isPossible || withValues(cellsOf(line), values).empty() || !hasDays()) {
        return std::nullopt;
    }
    std::vector<Stretch>& stretches = changed[line];
    const bool isTaken =
        std::any_of(stretches.begin(), stretches.end(), [&](const Stretch& each) { return each.days.overlaps(days); });
    if (isTaken) {
        return std::nullopt;
    }
    const auto place = std::find_if(stretches.begin(), stretches.end(),
                                    [&](const Stretch& each) { return *days.from < *each.days.from; });
    stretches.insert(place, {values, days});
    replacements[line - 1] = pieces(line);
    return Change(withoutEnd(table.lines[line - 1]), joinedLines(replacements[line - 1]));
}

std::optional<TableEdit::Change> TableEdit::addLike(std::size_t line, const Values& values,
                                                    const cost::DateRange& days) {
    if (withValues(cellsOf(line), values).empty() || !hasDays()) {
        return std::nullopt;
    }
    const auto added = onDays(withValues(cellsOf(line), values), days);
    if (!added) {
        return std::nullopt;
    }
    const std::string& before = table.lines[line - 1];
    std::vector<std::string>& made = replacements[line - 1];
    made.resize(std::max<std::size_t>(made.size(), 1), before);
    made.push_back(lineOf(*added, endOf(before)));
    extended.insert(line);
    return Change(withoutEnd(before), joinedLines(made));
}

std::string TableEdit::text() const {
    std::vector<std::string> lines;
    lines.reserve(table.lines.size());
    for (std::size_t i = 0; i < table.lines.size(); ++i) {
        const auto replaced = replacements.find(i);
        if (replaced == replacements.end()) {
            lines.push_back(table.lines[i]);
        } else {
            lines.insert(lines.end(), replaced->second.begin(), replaced->second.end());
        }
    }
    return fmt::format("{}{}", fmt::join(lines, "\n"), table.endsWithLine ? "\n" : "");
}

std::string TableEdit::patch(const std::string& file) const { return unifiedPatch(file, table, replacements); }

}  // namespace feedesk
