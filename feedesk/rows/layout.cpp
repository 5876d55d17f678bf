#include "feedesk/rows/layout.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <numeric>

#include "feedesk/text/text.h"

namespace feedesk {
namespace {

constexpr std::size_t kGap = 2;

using Widths = std::vector<std::size_t>;
using PiecesWidth = std::size_t (*)(const Pieces&);

std::string onOneLine(const Pieces& cell) { return fmt::format("{}", fmt::join(cell, " ")); }

std::size_t widthOnOneLine(const Pieces& cell) { return displayWidth(onOneLine(cell)); }

std::size_t widthOfWidestPiece(const Pieces& cell) {
    std::size_t widest = 0;
    for (const std::string& piece : cell) {
        widest = std::max(widest, displayWidth(piece));
    }
    return widest;
}

/// How wide each column is when its title and its cells are measured this way.
Widths columnWidths(const TextTable& table, PiecesWidth ofTitle, PiecesWidth ofCell) {
    Widths widths;
    for (const TextColumn& column : table.columns) {
        widths.push_back(ofTitle(column.title));
    }
    for (const TextRow& row : table.rows) {
        std::transform(row.cells.begin(), row.cells.end(), widths.begin(), widths.begin(),
                       [ofCell](const Pieces& cell, std::size_t width) { return std::max(width, ofCell(cell)); });
    }
    return widths;
}

Widths shortestWidths(const TextTable& table, Widths widths) {
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
void tighten(Widths& widths, const TextTable& table) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
        std::size_t used = widthOfWidestPiece(fillLines(table.columns[i].title, widths[i]));
        for (const TextRow& row : table.rows) {
            used = std::max(used, widthOfWidestPiece(fillLines(row.cells[i], widths[i])));
        }
        widths[i] = std::min(widths[i], used);
    }
}

Widths fit(const TextTable& table, std::size_t width, Squeeze squeeze) {
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

std::string placed(const std::string& text, const TextColumn& column, std::size_t width) {
    const std::string fitting = shortened(text, width);
    return column.align == Align::kLeft ? fmt::format("{:<{}}", fitting, width) : fmt::format("{:>{}}", fitting, width);
}

void trimEnd(std::string& text) { text.erase(text.find_last_not_of(' ') + 1); }

/// One row, as lines, as many as its highest cell needs; `atBottom` puts cells of fewer lines on the last ones.
std::vector<std::string> rowLines(const TextTable& table, const std::vector<Pieces>& row, const Widths& widths,
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

std::vector<Pieces> titles(const TextTable& table) {
    std::vector<Pieces> row;
    for (const TextColumn& column : table.columns) {
        row.push_back(column.title);
    }
    return row;
}

/// A row turned upright: what is next to each title, the heading first.
Pieces upright(const TextRow& row) {
    Pieces texts = {row.heading};
    std::transform(row.cells.begin(), row.cells.end(), std::back_inserter(texts), onOneLine);
    for (std::string& text : texts) {
        text.erase(0, text.find_first_not_of(' '));  // the indentation below a heading
        text = row.marked && !text.empty() ? marked(text) : text;
    }
    return texts;
}

Pieces uprightTitles(const TextTable& table) {
    Pieces names = {""};
    for (const TextColumn& column : table.columns) {
        names.push_back(onOneLine(column.title));
    }
    return names;
}

std::string padded(const std::string& text, std::size_t width) {
    return text + std::string(width - displayWidth(text), ' ');
}

/// Upright rows side by side: a line for each title that has a text.
std::string block(const Pieces& names, const std::vector<Pieces>& rows) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::string line;
        for (const Pieces& row : rows) {
            line += std::string(kGap, ' ') + padded(row[i], widthOfWidestPiece(row));
        }
        trimEnd(line);
        text += line.empty() ? "" : padded(names[i], widthOfWidestPiece(names)) + line + "\n";
    }
    return text;
}

}  // namespace

std::string columnsSideBySide(const TextTable& table, std::size_t width, Squeeze squeeze) {
    const Widths widths = fit(table, width, squeeze);
    if (total(widths) > width) {
        return "";
    }
    std::string text = rowText(rowLines(table, titles(table), widths, true), false);
    std::string heading;
    for (const TextRow& row : table.rows) {
        if (row.heading != heading) {
            heading = row.heading;
            text += filledText(heading, width);
        }
        text += rowText(rowLines(table, row.cells, widths, false), row.marked);
    }
    return text;
}

std::string rowsSideBySide(const TextTable& table, std::size_t width) {
    const Pieces names = uprightTitles(table);
    const std::size_t namesWidth = widthOfWidestPiece(names);
    std::string text;
    std::vector<Pieces> together;
    std::size_t used = namesWidth;
    const auto finish = [&] {
        text += (text.empty() || together.empty() ? "" : "\n") + block(names, together);
        together.clear();
        used = namesWidth;
    };
    for (const TextRow& row : table.rows) {
        Pieces texts = upright(row);
        if (namesWidth + kGap + displayWidth(row.heading) > width) {  // the heading above the row
            finish();
            texts.front().clear();
            text += (text.empty() ? "" : "\n") + filledText(row.heading, width) + block(names, {texts});
            continue;
        }
        if (!together.empty() && used + kGap + widthOfWidestPiece(texts) > width) {
            finish();
        }
        used += kGap + widthOfWidestPiece(texts);
        together.push_back(texts);
    }
    finish();
    return text;
}

}  // namespace feedesk
