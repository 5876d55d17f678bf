#include "standalone/text/csv_rows.h"

#include <fmt/format.h>

#include <new>
#include <utility>

#include "standalone/text/escape.h"

namespace standalone {
namespace {

bool isBlank(std::string_view line) { return line.find_first_not_of(" \t") == std::string_view::npos; }

std::vector<std::size_t> startsOfLines(std::string_view text) {
    std::vector<std::size_t> starts;
    for (std::size_t start = 0; start < text.size();) {
        starts.push_back(start);
        const std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) {
            break;
        }
        start = end + 1;
    }
    return starts;
}

std::string_view firstCharacter(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
        ++length;
    }
    return text.substr(0, length);
}

}  // namespace

CsvRows::CsvRows(std::string_view textOfRows) : text(textOfRows), lineStarts(startsOfLines(textOfRows)) {
    startParser();
}

CsvRows::~CsvRows() { csv_free(&parser); }

void CsvRows::onCell(void* cellText, std::size_t length, void* self) noexcept {
    auto& rows = *static_cast<CsvRows*>(self);
    try {
        const char* begin = static_cast<const char*>(cellText);
        rows.current.cells.push_back({length == 0 ? std::string() : std::string(begin, length), rows.cellLine});
    } catch (...) {
        rows.failure = std::current_exception();
    }
    rows.cellLine = static_cast<std::uint32_t>(rows.lineNumber);
}

void CsvRows::onRow(int /*terminator*/, void* self) noexcept { static_cast<CsvRows*>(self)->rowDone = true; }

/// Initialising allocates nothing, and fails only where there is no parser.
void CsvRows::startParser() { static_cast<void>(csv_init(&parser, CSV_STRICT)); }

void CsvRows::restart() {
    csv_free(&parser);
    startParser();
}

std::string_view CsvRows::line(std::size_t number) const {
    const std::size_t start = lineStarts[number - 1];
    const std::size_t end = number < lineStarts.size() ? lineStarts[number] : text.size();
    std::string_view found = text.substr(start, end - start);
    while (!found.empty() && (found.back() == '\n' || found.back() == '\r')) {
        found.remove_suffix(1);
    }
    return found;
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
    if (cellLine < lineNumber) {
        return fmt::format(
            "the quoted cell that begins here is not closed properly: in line {} its closing quote is followed by {}, "
            "but a comma or the line's end was expected; close the cell, and double every quote inside it",
            lineNumber, found);
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
    lineNumber = cellLine;
    restart();
    return true;
}

bool CsvRows::next(CsvRow& row) {
    current = {};
    rowDone = false;
    while (lineNumber < lineStarts.size()) {
        const std::string_view lineText = line(++lineNumber);
        if (current.line == 0) {
            if (isBlank(lineText)) {
                continue;
            }
            current.line = cellLine = static_cast<std::uint32_t>(lineNumber);
        }
        if (!feedLine(lineText)) {
            return fail(row, std::move(fault));
        }
        if (!rowDone) {
            continue;
        }
        row = std::move(current);
        return true;
    }
    if (current.line == 0) {
        return false;
    }
    return fail(row, "the quoted cell that begins here is never closed; add the closing quote");
}

}  // namespace standalone
