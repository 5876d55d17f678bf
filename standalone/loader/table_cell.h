#ifndef STANDALONE_LOADER_TABLE_CELL_H
#define STANDALONE_LOADER_TABLE_CELL_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "standalone/loader/error_log.h"

namespace standalone::loader {

/// What is known of a row while its cells are read.
struct RowState {
    ErrorLog& errors;
    const std::string& file;
    bool whole = true;  ///< every cell so far could be used
};

/// One cell of a table, with the way to complain about it. A view: the row outlives it.
class TableCell {
public:
    TableCell(std::string_view cellText, std::string_view columnName, std::size_t lineNumber, RowState& rowState)
        : text(cellText), column(columnName), line(lineNumber), row(rowState) {}

    [[nodiscard]] bool empty() const { return text.empty(); }

    /// Reports that the cell is bad; the sentence, which is called when the error is shown, goes on behind the column's
    /// name. The answer is false.
    template <class Sentence>
    bool refuse(ErrorKind kind, const Sentence& sentence) {
        row.errors.add({row.file, line, column}, kind, [&] { return "column " + std::string(column) + sentence(); });
        return drop();
    }

    /// Reports `"text", but EXPECTED was expected` and so on; `advice`, called when the error is shown, says how to
    /// correct it; where it is empty or says nothing the cell is to be corrected.
    bool refuseFound(ErrorKind kind, const std::string& expected, const std::function<std::string()>& advice = {});

    /// Reports that a file of the folder is missing for which the cell asks, as `what` says: once, whichever cells ask
    /// for it. The answer is false.
    bool refuseWithout(const std::string& file, const std::string& what);

    /// Makes the row unusable without an error: the cause is reported where it is. The answer is false.
    bool drop();

    const std::string_view text;
    const std::string_view column;
    const std::size_t line;

private:
    RowState& row;
};

/// Words of a cell and what they stand for.
using Words = std::vector<std::pair<std::string, int>>;

/// The words alone.
std::vector<std::string> wordsOf(const Words& words);

// Each reads the whole cell into `value`. False, with `value` untouched and the error reported, when it cannot.

/// A finite number, written with a point and without grouping. The locale does not matter.
bool readNumber(TableCell& cell, double& value);
/// The same; 0 or more.
bool readNumberFromZero(TableCell& cell, double& value);
/// Refuses a cell that holds no number, with the way to write one where it is known. The answer is false.
bool refuseNumber(TableCell& cell);
/// A whole number from `low` to `high`.
bool readInteger(TableCell& cell, int low, int high, int& value);
/// One of the words; the value is what it stands for.
bool readWord(TableCell& cell, const Words& words, int& value);
/// Any text.
bool readText(TableCell& cell, std::string& value);
/// Whether the text is a fee item of stock options: three letters or digits.
bool isItem(std::string_view text);
/// A text without spaces and control characters.
bool readName(TableCell& cell, std::string& value);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_TABLE_CELL_H
