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

std::optional<std::pair<std::string, std::string>> TableEdit::succeed(std::size_t line, const std::string& column,
                                                                      const std::string& value, cost::Date from) {
    const auto rate = columnNamed(column);
    const auto before = from.previous();
    const std::size_t index = line - 1;
    if (!rate || !before || succeeded.count(index) != 0 || cellsOf(line).empty() || !hasDays()) {
        return std::nullopt;
    }
    Cells old = cellsOf(line);
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
    return std::pair(withoutEnd(table.lines[index]), joinedLines(made));
}

std::optional<std::pair<std::string, std::string>> TableEdit::addFor(std::size_t line, const std::string& market,
                                                                     const std::string& code, const std::string& column,
                                                                     const std::string& value, cost::Date from) {
    const auto rate = columnNamed(column);
    const auto codes = columnNamed("code");
    if (!rate || !codes || cellsOf(line).empty() || !hasDays()) {
        return std::nullopt;
    }
    const std::size_t index = line - 1;
    Cells next = cellsOf(line);
    next[*codes] = code;
    next[*rate] = value;
    for (const auto& [name, text] : {std::pair("market", market), std::pair("product", std::string())}) {
        if (const auto place = columnNamed(name)) {
            next[*place] = text;
        }
    }
    const auto begins = cost::Date::parse(next[*columnNamed(kFrom)]);
    if (!begins || *begins < from) {
        next[*columnNamed(kFrom)] = from.text();
    }
    std::vector<std::string>& made = replacements[index];
    made.resize(std::max<std::size_t>(made.size(), 1), table.lines[index]);
    const std::string end = endOf(table.lines[index]);
    made.push_back(lineOf(next, end));
    succeeded.insert(index);
    return std::pair(withoutEnd(table.lines[index]), joinedLines(made));
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
