#ifndef STANDALONE_LOADER_TABLE_H
#define STANDALONE_LOADER_TABLE_H

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "standalone/loader/load.h"
#include "standalone/loader/table_cell.h"
#include "standalone/loader/text_file.h"
#include "standalone/text/csv_rows.h"

namespace standalone::loader {

/// What a table asks of a column.
enum class ColumnNeed {
    kFilled,   ///< the column is needed and none of its cells is empty
    kPresent,  ///< the column is needed; a cell may be empty
    kOptional  ///< the column may be left out; a cell may be empty
};

/// One column of a table whose lines are read into a `Line`.
template <class Line>
struct TableColumn {
    std::string name;
    ColumnNeed need = ColumnNeed::kOptional;
    /// Reads a cell, which is not empty, into the line or complains through the cell.
    std::function<void(Line&, TableCell&)> set;
};

/// A column as its header sees it.
struct ColumnHeader {
    std::string name;
    ColumnNeed need = ColumnNeed::kOptional;
};

/// A line of a table as it was read. `whole` is false when something in it was bad: what could be read is in `line`,
/// the rest of it is as it was made.
template <class Line>
struct ReadLine {
    Line line;
    Position position;
    bool whole = true;
};

/// The rows of one table, matched with its columns.
class TableReader {
public:
    /// `unknownColumns` false passes over columns with unknown names, which are then no error.
    TableReader(Load& underWay, std::string fileName, std::vector<ColumnHeader> tableColumns, bool unknownColumns);

    /// Goes to the next line with the right number of cells; false at the end.
    bool next();

    /// Whether each line could be split into cells and every needed column is there.
    [[nodiscard]] bool complete() const { return isComplete; }
    [[nodiscard]] Position position() const { return {fileNumber, row.line}; }

    /// Calls `set` with the number of a column and its cell, for every cell of the line that is not empty. The answer
    /// is whether all of them, and the header, were good.
    bool readCells(const std::function<void(std::size_t, TableCell&)>& set);

private:
    static constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

    void readHeader(bool unknownColumns);
    [[nodiscard]] bool separatedOtherwise() const;
    /// Whether the first line is like no header of this table.
    [[nodiscard]] bool isNoHeader() const;
    void matchHeader(const CsvCell& cell, bool unknownColumns, std::vector<bool>& excused);
    void reportUnknown(const CsvCell& cell, std::vector<bool>& excused);
    void reportMissing(std::uint32_t line, const std::vector<bool>& excused);
    [[nodiscard]] std::size_t columnOf(const std::string& name) const;
    [[nodiscard]] bool hasColumn(std::size_t column) const;
    [[nodiscard]] std::vector<std::string> names() const;
    bool usable();
    /// How many lines the table has if all of them have as many cells as this one, otherwise 0.
    [[nodiscard]] std::size_t likeLines();
    void reportColumnCount(std::size_t lines);
    void headerFault(const CsvCell& cell, const std::string& message);
    void giveUp(ErrorKind kind, const std::string& message);
    void reportCellCount();

    Load& load;
    std::string file;
    std::vector<ColumnHeader> columns;
    std::uint32_t fileNumber;
    std::optional<CheckedText> text;
    std::optional<CsvRows> rows;
    std::vector<std::size_t> columnOfCell;
    CsvRow row;
    std::uint32_t headerLine = 0;
    bool isFirstLine = true;  ///< behind the header
    bool isComplete = true;
    bool headerGood = true;
};

/// Reads a table line by line and hands each ReadLine to `sink`. False when not every line could be split into cells or
/// a needed column is missing, so that it is not known what the table holds.
template <class Line, class Sink>
bool readTable(Load& load, const std::string& file, const std::vector<TableColumn<Line>>& columns, Sink sink,
               bool unknownColumns = true) {
    std::vector<ColumnHeader> headers;
    headers.reserve(columns.size());
    for (const TableColumn<Line>& column : columns) {
        headers.push_back({column.name, column.need});
    }
    TableReader reader(load, file, std::move(headers), unknownColumns);
    while (reader.next()) {
        ReadLine<Line> read{Line(), reader.position(), true};
        read.whole =
            reader.readCells([&](std::size_t column, TableCell& cell) { columns[column].set(read.line, cell); });
        sink(read);
    }
    return reader.complete();
}

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_TABLE_H
