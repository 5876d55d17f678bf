#ifndef FEEDESK_ROWS_WORKBOOK_H
#define FEEDESK_ROWS_WORKBOOK_H

#include <xlsxwriter.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "feedesk/terminal/interruption.h"

namespace feedesk {

/// How a cell looks.
struct CellLook {
    std::string number{};  ///< the spreadsheet's format of numbers; empty: as it comes
    bool bold = false;
    bool marked = false;   ///< not to be overlooked
    bool wrapped = false;  ///< on several lines

    bool operator<(const CellLook& other) const {
        return std::tie(number, bold, marked, wrapped) <
               std::tie(other.number, other.bold, other.marked, other.wrapped);
    }
};

/// One sheet of a workbook: a line of titles, and lines below it that are written from the first to the last. Lives as
/// long as its workbook.
class Sheet {
public:
    /// Lines of it, its titles among them.
    [[nodiscard]] std::size_t lines() const { return next; }

    /// The cells that follow are on the next line.
    void beginLine() { ++next; }
    /// A text stays a text: "000001" keeps its zeros, "=1" is no formula, and its lines stay lines. What is not UTF-8
    /// or does not print is escaped, and a text that is too long for a cell ends in an ellipsis.
    void add(std::size_t column, const std::string& text, const CellLook& look = {});
    void add(std::size_t column, double number, const CellLook& look);

private:
    friend class Workbook;
    Sheet(class Workbook& ofBook, lxw_worksheet* newSheet) : book(&ofBook), sheet(newSheet) {}

    void note(std::size_t column, std::size_t width);

    class Workbook* book;
    lxw_worksheet* sheet;
    std::size_t next = 0;
    std::vector<std::size_t> widths;  // of the columns, in characters
};

/// An .xlsx file in the making. Lines go to temporary files as they come. The file appears under its name when all of
/// it is written; until then what was there before stays, and an
/// interruption leaves nothing behind. For the main thread.
class Workbook {
public:
    /// Throws Failure when the file's folder cannot be written to.
    explicit Workbook(const std::string& path);
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;
    ~Workbook();

    /// A sheet with a line of titles. Its name is `wanted` as far as a spreadsheet allows it, and no other sheet's.
    Sheet& addSheet(const std::string& wanted, const std::vector<std::string>& titles);

    /// How many cells were too short for their texts.
    [[nodiscard]] std::size_t shortenedCells() const { return tooLong; }

    /// Writes the file; nothing may follow. Throws Failure when it cannot be written.
    void finish();

private:
    friend class Sheet;

    [[nodiscard]] std::string freeName(const std::string& wanted) const;
    lxw_format* formatOf(const CellLook& look);
    void require(int error) const;

    std::string file;
    std::string unfinished;  // its name until it is whole
    RemovedWhenInterrupted endedEarly;
    lxw_workbook* book = nullptr;
    std::vector<std::unique_ptr<Sheet>> sheets;
    std::map<CellLook, lxw_format*> formats;
    std::size_t tooLong = 0;
};

}  // namespace feedesk

#endif  // FEEDESK_ROWS_WORKBOOK_H
