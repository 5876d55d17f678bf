#include "feedesk/table.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "feedesk/text.h"

namespace feedesk {
namespace {

constexpr std::size_t kGap = 2;

Cell printableCell(Cell cell) {
    std::transform(cell.begin(), cell.end(), cell.begin(), singleLine);
    return cell;
}

Table printableTable(Table table) {
    for (Column& column : table.columns) {
        column.title = printableCell(std::move(column.title));
    }
    for (TableRow& row : table.rows) {
        row.heading = singleLine(row.heading);
        for (Cell& cell : row.cells) {
            cell = printableCell(std::move(cell));
        }
    }
    return table;
}

using Widths = std::vector<std::size_t>;
using CellWidth = std::size_t (*)(const Cell&);

std::string onOneLine(const Cell& cell) { return fmt::format("{}", fmt::join(cell, " ")); }

std::size_t widthOnOneLine(const Cell& cell) { return displayWidth(onOneLine(cell)); }

std::size_t widthOfWidestPiece(const Cell& cell) {
    std::size_t widest = 0;
    for (const std::string& piece : cell) {
        widest = std::max(widest, displayWidth(piece));
    }
    return widest;
}

/// How wide each column is when its title and its cells are measured this way.
Widths columnWidths(const Table& table, CellWidth ofTitle, CellWidth ofCell) {
    Widths widths;
    for (const Column& column : table.columns) {
        widths.push_back(ofTitle(column.title));
    }
    for (const TableRow& row : table.rows) {
        std::transform(row.cells.begin(), row.cells.end(), widths.begin(), widths.begin(),
                       [ofCell](const Cell& cell, std::size_t width) { return std::max(width, ofCell(cell)); });
    }
    return widths;
}

Widths shortestWidths(const Table& table, Widths widths) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (table.columns[i].shortest != 0) {
            widths[i] =
                std::min(widths[i], std::max(table.columns[i].shortest, widthOfWidestPiece(table.columns[i].title)));
        }
    }
    return widths;
}

std::size_t total(const Widths& widths) {
    return std::accumulate(widths.begin(), widths.end(), kGap * (widths.size() - 1));
}

/// Takes columns from the column that has most to spare, one by one, until the table fits or nothing can be spared.
void narrow(Widths& widths, const Widths& floors, std::size_t width) {
    for (std::size_t tooMuch = total(widths); tooMuch > width; --tooMuch) {
        std::size_t best = 0;
        for (std::size_t i = 1; i < widths.size(); ++i) {
            if (widths[i] - floors[i] > widths[best] - floors[best]) {
                best = i;
            }
        }
        if (widths[best] == floors[best]) {
            return;
        }
        --widths[best];
    }
}

/// What is left of the widths when every cell has been put on its lines.
void tighten(Widths& widths, const Table& table) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
        std::size_t used = widthOfWidestPiece(fillLines(table.columns[i].title, widths[i]));
        for (const TableRow& row : table.rows) {
            used = std::max(used, widthOfWidestPiece(fillLines(row.cells[i], widths[i])));
        }
        widths[i] = std::min(widths[i], used);
    }
}

Widths fit(const Table& table, std::size_t width, Squeeze squeeze) {
    Widths widths = columnWidths(table, widthOnOneLine, widthOnOneLine);
    const Widths wrappedTitles = columnWidths(table, widthOfWidestPiece, widthOnOneLine);
    narrow(widths, wrappedTitles, width);
    if (squeeze == Squeeze::kTexts) {
        narrow(widths, shortestWidths(table, wrappedTitles), width);
        const Widths wrappedCells = columnWidths(table, widthOfWidestPiece, widthOfWidestPiece);
        narrow(widths, shortestWidths(table, wrappedCells), width);
    }
    tighten(widths, table);
    return widths;
}

std::string placed(const std::string& text, const Column& column, std::size_t width) {
    const std::string fitting = shortened(text, width);
    return column.align == Align::kLeft ? fmt::format("{:<{}}", fitting, width) : fmt::format("{:>{}}", fitting, width);
}

void trimEnd(std::string& text) { text.erase(text.find_last_not_of(' ') + 1); }

/// One row, as lines, as many as its highest cell needs; `atBottom` puts cells of fewer lines on the last ones.
std::vector<std::string> rowLines(const Table& table, const std::vector<Cell>& row, const Widths& widths,
                                  bool atBottom) {
    std::vector<std::vector<std::string>> cells;
    std::size_t height = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
        cells.push_back(fillLines(row[i], widths[i]));
        height = std::max(height, cells.back().size());
    }
    std::vector<std::string> lines(height);
    for (std::size_t line = 0; line < height; ++line) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const std::size_t above = atBottom ? height - cells[i].size() : 0;
            const bool filled = line >= above && line - above < cells[i].size();
            lines[line] +=
                placed(filled ? cells[i][line - above] : "", table.columns[i], widths[i]) + std::string(kGap, ' ');
        }
        trimEnd(lines[line]);
    }
    return lines;
}

std::string rowText(const std::vector<std::string>& lines, bool isMarked) {
    std::string text;
    for (const std::string& line : lines) {
        text += (isMarked ? marked(line) : line) + "\n";
    }
    return text;
}

std::vector<Cell> titles(const Table& table) {
    std::vector<Cell> row;
    for (const Column& column : table.columns) {
        row.push_back(column.title);
    }
    return row;
}

/// A row turned upright: what stands beside each title, the heading first.
std::vector<std::string> upright(const TableRow& row) {
    std::vector<std::string> texts = {row.heading};
    std::transform(row.cells.begin(), row.cells.end(), std::back_inserter(texts), onOneLine);
    for (std::string& text : texts) {
        text.erase(0, text.find_first_not_of(' '));  // the indentation below a heading
        text = row.marked && !text.empty() ? marked(text) : text;
    }
    return texts;
}

std::vector<std::string> uprightTitles(const Table& table) {
    std::vector<std::string> names = {""};
    std::transform(table.columns.begin(), table.columns.end(), std::back_inserter(names),
                   [](const Column& column) { return onOneLine(column.title); });
    return names;
}

/// A title and what stands beside it; below it where the line would be too wide.
std::string entryText(const std::string& title, std::size_t titleWidth, const std::string& values, std::size_t width) {
    std::string text = fmt::format("{:<{}}{}", title, titleWidth, values);
    trimEnd(text);
    if (displayWidth(text) > width) {
        text = (title.empty() ? "" : title + "\n") + values;
        trimEnd(text);
    }
    return text + "\n";
}

/// Rows side by side: their texts, title by title.
std::string block(const std::vector<std::string>& names, const std::vector<Cell>& rows, std::size_t width) {
    const std::size_t titleWidth = widthOfWidestPiece(names);
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::string values;
        for (const Cell& row : rows) {
            const std::size_t behind = widthOfWidestPiece(row) - displayWidth(row[i]);
            values += std::string(kGap, ' ') + row[i] + std::string(behind, ' ');
        }
        const bool empty = values.find_first_not_of(' ') == std::string::npos;
        text += empty ? "" : entryText(names[i], titleWidth, values, width);
    }
    return text;
}

}  // namespace

std::string columnsSideBySide(const Table& table, std::size_t width, Squeeze squeeze) {
    const Table shown = printableTable(table);
    const Widths widths = fit(shown, width, squeeze);
    if (total(widths) > width) {
        return "";
    }
    std::string text = rowText(rowLines(shown, titles(shown), widths, true), false);
    std::string heading;
    for (const TableRow& row : shown.rows) {
        if (row.heading != heading) {
            heading = row.heading;
            text += shortened(heading, width) + "\n";
        }
        text += rowText(rowLines(shown, row.cells, widths, false), row.marked);
    }
    return text;
}

std::string rowsSideBySide(const Table& table, std::size_t width) {
    const Table shown = printableTable(table);
    const std::vector<std::string> names = uprightTitles(shown);
    std::string text;
    std::vector<Cell> together;
    std::size_t used = widthOfWidestPiece(names);
    const auto finish = [&] {
        text += (text.empty() ? "" : "\n") + block(names, together, width);
        together.clear();
        used = widthOfWidestPiece(names);
    };
    for (const TableRow& row : shown.rows) {
        const Cell texts = upright(row);
        if (!together.empty() && used + kGap + widthOfWidestPiece(texts) > width) {
            finish();
        }
        used += kGap + widthOfWidestPiece(texts);
        together.push_back(texts);
    }
    finish();
    return text;
}

std::string tableText(const Table& table, std::size_t width) {
    const std::string text = columnsSideBySide(table, width, Squeeze::kTexts);
    return text.empty() ? rowsSideBySide(table, width) : text;
}

}  // namespace feedesk
