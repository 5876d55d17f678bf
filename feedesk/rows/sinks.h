#ifndef FEEDESK_ROWS_SINKS_H
#define FEEDESK_ROWS_SINKS_H

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "feedesk/rows/rows.h"

namespace feedesk {

// The forms of an answer. docs/feedesk.md describes them.

/// Where a sink writes: what it is called with follows, as a whole, what it was called with before.
using Write = std::function<void(const std::string&)>;

/// A table for each section that has rows, or for each where none has, an empty line between two, in `width` columns of
/// the terminal: the section's title, the rows, and which fields are 0. Where room is short, sources become numbered
/// notes below the table. It is as wide as its widest row: the rows are held until the end.
std::unique_ptr<RowSink> tableSink(Write write, std::size_t width);

/// A header line with every field of the sections once, in the order in which they appear, then one line for each row;
/// a cell is empty where the row's section has no such field. A cell with a comma, a quote or a line break is quoted, a
/// quote inside it doubled. Rows are written as they come.
std::unique_ptr<RowSink> csvSink(Write write);

/// An array with one object on a line for each row, its members in the order of the fields. What a row has not is null;
/// in a group it is left out. Rows are written as they come.
std::unique_ptr<RowSink> jsonSink(Write write);

/// The same objects, one a line, without an array around them.
std::unique_ptr<RowSink> jsonLinesSink(Write write);

/// As many lines as a sheet of a spreadsheet has, its titles among them.
constexpr std::size_t kLinesOfASheet = 1'048'576;

/// An .xlsx workbook: a sheet for each section that has rows, the first where none has, and more where a sheet is full,
/// with a column for each field that programs get; and a sheet with every source. Texts stay texts, fractions are shown
/// as percent, amounts with all their places; an amount with more digits than a spreadsheet's number holds is a text.
/// Rows are written to temporary files as they come, and the file when all of it is there. Where texts are longer than
/// a cell holds `tell` gets a sentence that says so. Throws Failure when it cannot be written.
std::unique_ptr<RowSink> xlsxSink(const std::string& file, Write tell = {},
                                  std::size_t mostLinesOfASheet = kLinesOfASheet);

}  // namespace feedesk

#endif  // FEEDESK_ROWS_SINKS_H
