#ifndef STANDALONE_TEXT_CSV_ROWS_H
#define STANDALONE_TEXT_CSV_ROWS_H

#include <csv.h>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/text/line_buffer.h"

namespace standalone {

/// A cell of a row, without its quotes.
struct CsvCell {
    std::string text;
    std::uint32_t line = 0;  ///< where the cell begins
};

/// One row of a table, or, when `fault` is not empty, a line that is none.
struct CsvRow {
    std::uint32_t line = 0;  ///< where the row begins, from 1
    std::vector<CsvCell> cells;
    std::string fault;
    bool isTooLong = false;  ///< the fault is that the line has no room
};

/// Reads the rows of a comma-separated text one by one. Blank lines are passed over. A faulty line spoils only itself:
/// reading goes on behind it. For one thread.
class CsvRows {
public:
    /// `text` has LF or CRLF line ends and outlives the reader.
    explicit CsvRows(std::string_view text);
    /// The same of a text that is read block by block; its lines are LineBuffer::kMostBytes long at most.
    explicit CsvRows(ReadBlock text);
    CsvRows(const CsvRows&) = delete;
    CsvRows& operator=(const CsvRows&) = delete;
    ~CsvRows();

    /// Replaces `row` by the next one; false at the end of the text.
    bool next(CsvRow& row);

private:
    static void onCell(void* text, std::size_t length, void* self) noexcept;
    static void onRow(int terminator, void* self) noexcept;

    void startParser();
    void restart();
    bool feedLine(std::string_view text);
    bool feed(std::string_view part, std::size_t& taken);
    [[nodiscard]] std::string faultAt(std::string_view text, std::size_t offset) const;
    bool fail(CsvRow& row, std::string message);
    bool readQuoted(CsvRow& row);

    LineBuffer lines;
    csv_parser parser{};
    std::exception_ptr failure;  ///< thrown in a callback; carried around the parser, which is C
    CsvRow current;
    std::string fault;
    std::uint32_t cellLine = 0;  ///< where the unfinished cell begins
    bool rowDone = false;
};

}  // namespace standalone

#endif  // STANDALONE_TEXT_CSV_ROWS_H
