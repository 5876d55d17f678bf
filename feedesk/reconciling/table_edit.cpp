#include "feedesk/reconciling/table_edit.h"

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

std::optional<std::pair<std::string, std::string>> TableEdit::succeed(std::size_t line, const std::string& column,
                                                                      const std::string& value, cost::Date from) {
    const auto rate = columnNamed(column);
    const auto before = from.previous();
    const std::size_t index = line - 1;
    if (!rate || !before || line < 2 || line > table.lines.size() || succeeded.count(index) != 0) {
        return std::nullopt;
    }
    if (!columnNamed(kFrom) || !columnNamed(kUntil)) {
        if (columnNamed(kFrom) || columnNamed(kUntil)) {
            return std::nullopt;  // one of both is there, and which comes next to it is its writer's to say
        }
        addDays();
    }
    Cells old = cellsIn(table.lines[index]);
    old.resize(daysAreAdded ? header.size() : old.size());
    if (old.size() != header.size()) {
        return std::nullopt;
    }
    const std::string end = endOf(table.lines[index]);
    Cells next = old;
    next[*rate] = value;
    const auto begins = cost::Date::parse(old[*columnNamed(kFrom)]);
    std::vector<std::string>& made = replacements[index];
    made.clear();
    succeeded.insert(index);
    if (!begins || *begins < from) {
        old[*columnNamed(kUntil)] = before->text();
        next[*columnNamed(kFrom)] = from.text();
        made.push_back(lineOf(old, end));
    }
    made.push_back(lineOf(next, end));
    std::string after;
    for (const std::string& each : made) {
        after += (after.empty() ? "" : "\n") + withoutEnd(each);
    }
    return std::pair(withoutEnd(table.lines[index]), after);
}

std::string TableEdit::patch(const std::string& file) const { return unifiedPatch(file, table, replacements); }

}  // namespace feedesk
