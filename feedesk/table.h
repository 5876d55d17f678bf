#ifndef FEEDESK_TABLE_H
#define FEEDESK_TABLE_H

#include <cstddef>
#include <string>
#include <vector>

namespace feedesk {

enum class Align { kLeft, kRight };

/// What stands in one place of a table: pieces that may be put on lines of their own where room is short.
using Cell = std::vector<std::string>;

struct Column {
    Cell title;
    Align align = Align::kLeft;
    /// How narrow the texts of the column may be made by shortening them; 0: they stay whole.
    std::size_t shortest = 0;
};

struct TableRow {
    std::vector<Cell> cells;  ///< as many as the table has columns
    /// What the row and its neighbours of the same heading belong to; empty: nothing is said.
    std::string heading;
    bool marked = false;  ///< not to be overlooked: its texts are marked()
};

/// Its texts may be any text: they are laid out as singleLine() shows them.
struct Table {
    std::vector<Column> columns;
    std::vector<TableRow> rows;
};

/// How far a table may be squeezed to fit.
enum class Squeeze {
    kTitles,  ///< titles may take several lines
    kTexts    ///< where that is not enough, texts may be shortened; where that is not, cells may take several lines
};

/// The columns beside each other in at most `width` columns of the terminal, each heading on a line of its own. Empty
/// when they do not fit.
std::string columnsSideBySide(const Table& table, std::size_t width, Squeeze squeeze);

/// The rows beside each other, as many as fit in `width` columns, then the next ones below. A row that is too wide
/// alone has its texts below their titles.
std::string rowsSideBySide(const Table& table, std::size_t width);

/// The columns side by side where they fit, else the rows.
std::string tableText(const Table& table, std::size_t width);

}  // namespace feedesk

#endif  // FEEDESK_TABLE_H
