#include "standalone/text/csv_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <new>
#include <utility>

#include "standalone/text/escape.h"
#include "standalone/text/utf8.h"

namespace standalone {
namespace {

bool isBlank(std::string_view line) { return line.find_first_not_of(" \t") == std::string_view::npos; }

/// Whether the cells of a line are what is between its commas. The parser takes a carriage return for a line's end.
bool isPlain(std::string_view line) {
    return line.find('"') == std::string_view::npos && line.find('\r') == std::string_view::npos;
}

std::string_view trimmed(std::string_view cell) {
    const std::size_t first = std::min(cell.find_first_not_of(" \t"), cell.size());
    return cell.substr(first, cell.find_last_not_of(" \t") + 1 - first);
}

/// The cells of a line without quotes. Most lines are such, and through the parser they take twice as long: 5 million
/// of eleven cells 2.0 s more. The row's cells are used again.
void split(std::string_view line, CsvRow& row) {
    std::size_t count = 0;
    for (std::size_t start = 0; start <= line.size(); ++count) {
        const std::size_t end = std::min(line.find(',', start), line.size());
        if (count == row.cells.size()) {
            row.cells.emplace_back();
        }
        row.cells[count].text = trimmed(line.substr(start, end - start));
        row.cells[count].line = row.line;
        start = end + 1;
    }
    row.cells.resize(count);
}

}  // namespace

CsvRows::CsvRows(std::string_view text) : lines(text) { startParser(); }

CsvRows::CsvRows(ReadBlock text) : lines(std::move(text)) { startParser(); }

CsvRows::~CsvRows() { csv_free(&parser); }

void CsvRows::onCell(void* cellText, std::size_t length, void* self) noexcept {
    auto& rows = *static_cast<CsvRows*>(self);
    try {
        const char* begin = static_cast<const char*>(cellText);
        rows.current.cells.push_back({length == 0 ? std::string() : std::string(begin, length), rows.cellLine});
    } catch (...) {
        rows.failure = std::current_exception();
    }
    rows.cellLine = static_cast<std::uint32_t>(rows.lines.number());
}

void CsvRows::onRow(int /*terminator*/, void* self) noexcept { static_cast<CsvRows*>(self)->rowDone = true; }

/// Initialising allocates nothing, and fails only where there is no parser.
void CsvRows::startParser() { static_cast<void>(csv_init(&parser, CSV_STRICT)); }

void CsvRows::restart() {
    csv_free(&parser);
    startParser();
}

bool CsvRows::feed(std::string_view part, std::size_t& taken) {
    taken = csv_parse(&parser, part.data(), part.size(), onCell, onRow, this);
    if (failure) {
        std::rethrow_exception(std::exchange(failure, nullptr));
    }
    if (taken == part.size()) {
        return true;
    }
    if (csv_error(&parser) != CSV_EPARSE) {
        throw std::bad_alloc();
    }
    return false;
}

bool CsvRows::feedLine(std::string_view lineText) {
    std::size_t taken = 0;
    if (!feed(lineText, taken)) {
        fault = faultAt(lineText, taken);
        return false;
    }
    return feed("\n", taken);  // a line may always end
}

std::string CsvRows::faultAt(std::string_view lineText, std::size_t offset) const {
    const std::string found = inQuotes(firstCharacter(lineText.substr(offset)));
    if (cellLine < lines.number()) {
        return fmt::format(
            "the quoted cell that begins here is not closed properly: in line {} its closing quote is followed by {}, "
            "but a comma or the line's end was expected; close the cell, and double every quote inside it",
            lines.number(), found);
    }
    if (lineText[offset] == '"') {
        return "a quote is inside a cell, after " + inQuotes(lineText.substr(0, offset)) +
               "; put the whole cell in quotes and double every quote inside it";
    }
    return fmt::format(
        "a closing quote is followed by {}, after {}, but a comma or the line's end was expected; double every quote "
        "inside the cell",
        found, inQuotes(lineText.substr(0, offset)));
}

// A cell that was opened by mistake swallows the lines behind it, so reading goes on right behind the line where the
// cell begins. A line is read at most twice on that account: the swallowed ones hold their quotes in pairs.
bool CsvRows::fail(CsvRow& row, std::string message) {
    row = {cellLine, {}, std::move(message)};
    lines.goBehind(cellLine);
    restart();
    return true;
}

/// The row that begins with this line, which has quotes.
bool CsvRows::readQuoted(CsvRow& row) {
    current = {};
    current.line = cellLine = static_cast<std::uint32_t>(lines.number());
    rowDone = false;
    do {
        if (lines.tooLong()) {
            return fail(row,
                        fmt::format("the quoted cell that begins here is not closed within the {} bytes that a line "
                                    "may have; add the closing quote",
                                    LineBuffer::kMostBytes));
        }
        if (!feedLine(lines.line())) {
            return fail(row, std::move(fault));
        }
        if (rowDone) {
            row = std::move(current);
            return true;
        }
    } while (lines.next());
    return fail(row, "the quoted cell that begins here is never closed; add the closing quote");
}

bool CsvRows::next(CsvRow& row) {
    for (lines.passOverEmpty(); lines.next(); lines.passOverEmpty()) {
        lines.mark();
        const auto number = static_cast<std::uint32_t>(lines.number());
        if (lines.tooLong()) {
            row = {
                number, {}, fmt::format("the line has more than {} bytes; shorten it", LineBuffer::kMostBytes), true};
            return true;
        }
        if (isBlank(lines.line())) {
            continue;
        }
        if (!isPlain(lines.line())) {
            return readQuoted(row);
        }
        row.line = number;
        row.fault.clear();
        row.isTooLong = false;
        split(lines.line(), row);
        return true;
    }
    return false;
}

}  // namespace standalone
