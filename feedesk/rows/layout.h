#ifndef FEEDESK_ROWS_LAYOUT_H
#define FEEDESK_ROWS_LAYOUT_H

#include <cstddef>
#include <string>
#include <vector>

#include "feedesk/rows/value.h"

namespace feedesk {

/// On which side of its column a text is.
enum class Align { kLeft, kRight };

/// A column: its title, and how its texts are put into it.
struct TextColumn {
    Pieces title;
    Align align = Align::kLeft;
    std::size_t shortest = 0;  ///< how narrow the texts may be made by shortening them; 0: they stay whole
};

/// A row of a table of texts.
struct TextRow {
    std::vector<Pieces> cells;  ///< as many as the table has columns
    /// What the row and its neighbours of the same heading belong to; empty: nothing is said.
    std::string heading;
    bool marked = false;  ///< not to be overlooked: its texts are marked()
};

/// Its texts are printable, and none has a line end.
struct TextTable {
    std::vector<TextColumn> columns;
    std::vector<TextRow> rows;
};

/// How far a table may be squeezed to fit.
enum class Squeeze {
    kTitles,  ///< titles may take several lines
    kTexts    ///< where that is not enough, texts may be shortened; where that is not, cells may take several lines
};

/// The columns side by side in at most `width` columns of the terminal, each heading on a line of its own. Empty
/// when they do not fit.
std::string columnsSideBySide(const TextTable& table, std::size_t width, Squeeze squeeze);

/// The rows side by side, as many as fit in `width` columns, at least one; then the next ones below.
std::string rowsSideBySide(const TextTable& table, std::size_t width);

}  // namespace feedesk

#endif  // FEEDESK_ROWS_LAYOUT_H
