#include "standalone/loader/table.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "standalone/loader/long_text.h"
#include "standalone/text/escape.h"
#include "standalone/text/nearness.h"
#include "standalone/text/utf8.h"
#include "standalone/text/wording.h"

namespace standalone::loader {

TableReader::TableReader(Load& underWay, std::string fileName, std::vector<ColumnHeader> tableColumns,
                         bool unknownColumns)
    : load(underWay),
      file(std::move(fileName)),
      columns(std::move(tableColumns)),
      fileNumber(load.addFile(file)),
      text(CheckedText::of(load.folder / file, file, load.errors)) {
    isComplete = text.has_value();
    if (isComplete) {
        readHeader(unknownColumns);
    }
}

void TableReader::headerFault(const CsvCell& cell, const std::string& message) {
    load.errors.add({file, cell.line, cell.text}, ErrorKind::kHeader, message);
    headerGood = false;
}

std::vector<std::string> TableReader::names() const {
    std::vector<std::string> all;
    for (const ColumnHeader& column : columns) {
        all.push_back(column.name);
    }
    return all;
}

std::size_t TableReader::columnOf(const std::string& name) const {
    const auto found =
        std::find_if(columns.begin(), columns.end(), [&](const ColumnHeader& column) { return column.name == name; });
    return found == columns.end() ? kNoColumn : static_cast<std::size_t>(found - columns.begin());
}

bool TableReader::hasColumn(std::size_t column) const {
    return std::find(columnOfCell.begin(), columnOfCell.end(), column) != columnOfCell.end();
}

void TableReader::readHeader(bool unknownColumns) {
    rows.emplace(text->blocks());
    rows->next(row);
    if (!row.fault.empty()) {
        return giveUp(row.isTooLong ? ErrorKind::kTooLong : ErrorKind::kQuoting, row.fault);
    }
    if (separatedOtherwise()) {
        return giveUp(ErrorKind::kHeader, "the header has no comma but " + inQuotes(row.cells.front().text) +
                                              ", and commas were expected between the columns; save the table as "
                                              "comma-separated values");
    }
    if (isNoHeader()) {
        return giveUp(ErrorKind::kHeader, "the first line names none of the columns of this table, which are " +
                                              oneOf(names()) + "; put a header line with their names there");
    }
    headerLine = row.line;
    std::vector<bool> excused(columns.size(), false);
    for (const CsvCell& cell : row.cells) {
        matchHeader(cell, unknownColumns, excused);
    }
    reportMissing(row.line, excused);
}

void TableReader::giveUp(ErrorKind kind, const std::string& message) {
    load.errors.add({file, row.line}, kind, message);
    isComplete = false;
    rows.reset();
}

bool TableReader::separatedOtherwise() const {
    return row.cells.size() == 1 && row.cells.front().text.find_first_of(";\t") != std::string::npos;
}

bool TableReader::isNoHeader() const {
    return std::none_of(row.cells.begin(), row.cells.end(), [&](const CsvCell& cell) {
        return cell.text.empty() || columnOf(cell.text) != kNoColumn || !nearest(cell.text, names()).empty();
    });
}

void TableReader::matchHeader(const CsvCell& cell, bool unknownColumns, std::vector<bool>& excused) {
    const std::size_t column = columnOf(cell.text);
    const bool repeated = column != kNoColumn && hasColumn(column);
    if (repeated) {
        headerFault(cell, "the column " + inQuotes(cell.text) + " appears twice in the header; keep one of them");
    }
    if (column == kNoColumn && unknownColumns) {
        reportUnknown(cell, excused);
    }
    columnOfCell.push_back(repeated ? kNoColumn : column);
}

void TableReader::reportUnknown(const CsvCell& cell, std::vector<bool>& excused) {
    if (cell.text.empty()) {
        headerFault(cell, "column " + std::to_string(columnOfCell.size() + 1) +
                              " has no name in the header; name it or remove it");
        return;
    }
    const std::string near = nearest(cell.text, names());
    if (!near.empty()) {
        excused[columnOf(near)] = true;
    }
    headerFault(cell, fmt::format("the header names an unknown column {}, but the columns here are {}{}",
                                  inQuotes(cell.text), oneOf(names(), columns.size()),
                                  near.empty() ? "" : "; did you mean " + inQuotes(near) + "?"));
}

// A needed column that seems to be there under a misspelt name has been reported with that name.
void TableReader::reportMissing(std::uint32_t line, const std::vector<bool>& excused) {
    for (std::size_t column = 0; column < columns.size(); ++column) {
        if (columns[column].need == ColumnNeed::kOptional || hasColumn(column)) {
            continue;
        }
        isComplete = false;
        if (!excused[column]) {
            headerFault({columns[column].name, line},
                        "the header lacks the column " + inQuotes(columns[column].name) + ", which is needed; add it");
        }
    }
}

bool TableReader::usable() {
    const bool isFirst = std::exchange(isFirstLine, false);
    if (row.fault.empty() && row.cells.size() == columnOfCell.size()) {
        return true;
    }
    isComplete = false;
    if (!row.fault.empty()) {
        load.errors.add({file, row.line}, row.isTooLong ? ErrorKind::kTooLong : ErrorKind::kQuoting, row.fault);
    } else if (const std::size_t lines = isFirst ? likeLines() : 0; lines > 1 || (lines == 1 && !headerGood)) {
        reportColumnCount(lines);
        rows.reset();
    } else {
        reportCellCount();
    }
    return false;
}

// A header's fault is looked for when the first line does not fit, so that good tables are read once.
std::size_t TableReader::likeLines() {
    CheckedText again = *text;
    CsvRows all(again.blocks());
    CsvRow other;
    std::size_t lines = 0;
    for (all.next(other); all.next(other); ++lines) {
        if (!other.fault.empty() || other.cells.size() != row.cells.size()) {
            return 0;
        }
    }
    return lines;
}

void TableReader::reportColumnCount(std::size_t lines) {
    if (!headerGood) {
        return;
    }  // its fault has been reported
    const std::size_t there = columnOfCell.size();
    const std::size_t wanted = row.cells.size();
    headerFault(
        {"", headerLine},
        fmt::format(
            "the header has {} columns, but all {} lines have {} cells; name the columns of the lines in the header",
            there, lines, wanted));
}

void TableReader::reportCellCount() {
    load.errors.add({file, row.line}, ErrorKind::kCellCount, [&] {
        const bool few = row.cells.size() < columnOfCell.size();
        return fmt::format("the line has too {} cells: {} where the header has {}{}", few ? "few" : "many",
                           row.cells.size(), columnOfCell.size(),
                           few ? "; add the missing ones, empty ones too"
                               : "; remove the extra ones, or quote a cell that holds a comma");
    });
}

bool TableReader::next() {
    while (rows && rows->next(row)) {
        if (usable()) {
            return true;
        }
    }
    if (rows && !text->isUnchanged()) {
        reportChanged(file, load.errors);
        isComplete = false;
    }
    rows.reset();
    return false;
}

bool TableReader::readCells(const std::function<void(std::size_t, TableCell&)>& set) {
    RowState state{load.errors, file, headerGood};
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const std::size_t column = columnOfCell[i];
        if (column == kNoColumn) {
            continue;
        }
        TableCell cell(row.cells[i].text, columns[column].name, row.cells[i].line, state);
        if (const std::string fault = tooLong(cell.text); !fault.empty()) {
            cell.refuse(ErrorKind::kTooLong, [&] { return " holds " + inQuotes(cell.text) + fault; });
        } else if (!cell.empty()) {
            set(column, cell);
        } else if (columns[column].need == ColumnNeed::kFilled) {
            cell.refuse(ErrorKind::kEmptyCell,
                        [] { return " is empty, but every line needs a value there; fill it in"; });
        }
    }
    return state.whole;
}

}  // namespace standalone::loader
