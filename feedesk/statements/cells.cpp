#include "feedesk/statements/cells.h"

#include <csv.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>

#include "standalone/text/utf8.h"

namespace feedesk {
namespace {

/// Besides the space and the tab: no-break space, ideographic space, zero-width space, byte order mark.
constexpr std::array<std::string_view, 6> kCellBlanks = {
    " ", "\t", "\xC2\xA0", "\xE3\x80\x80", "\xE2\x80\x8B", standalone::kUtf8Mark};

bool dropBlank(std::string_view& text, bool atEnd) {
    const auto* const blank = std::find_if(kCellBlanks.begin(), kCellBlanks.end(), [&](std::string_view each) {
        return text.size() >= each.size() && text.substr(atEnd ? text.size() - each.size() : 0, each.size()) == each;
    });
    if (blank == kCellBlanks.end()) {
        return false;
    }
    atEnd ? text.remove_suffix(blank->size()) : text.remove_prefix(blank->size());
    return true;
}

std::string_view trimmed(std::string_view text) {
    while (dropBlank(text, false)) {
    }
    while (dropBlank(text, true)) {
    }
    return text;
}

/// What a spreadsheet would show.
std::string cleaned(std::string_view text) {
    text = trimmed(text);
    const bool isFormula = text.size() >= 3 && text.substr(0, 2) == "=\"" && text.back() == '"';
    if (isFormula) {
        text = trimmed(text.substr(2, text.size() - 3));
    } else if (!text.empty() && text.front() == '\'') {
        text = trimmed(text.substr(1));
    }
    return std::string(text);
}

struct Cells {
    std::vector<std::string> cells;
    bool failed = false;
};

void onCell(void* text, std::size_t length, void* self) noexcept {
    auto& read = *static_cast<Cells*>(self);
    try {
        read.cells.push_back(length == 0 ? std::string() : cleaned({static_cast<const char*>(text), length}));
    } catch (...) {
        read.failed = true;  // the parser is C, and no exception passes it
    }
}

using Parser = std::unique_ptr<csv_parser, void (*)(csv_parser*)>;

}  // namespace

std::optional<std::vector<std::string>> cellsOf(const std::string& line, char separator) {
    csv_parser parser{};
    static_cast<void>(csv_init(&parser, 0));
    const Parser freed(&parser, csv_free);
    csv_set_delim(&parser, static_cast<unsigned char>(separator));
    Cells read;
    // A quote that is not closed takes the line end in, and then only the end of all text ends the cell.
    const std::string whole = line + '\n';
    const bool closed = std::count(line.begin(), line.end(), '"') % 2 == 0;
    if (csv_parse(&parser, whole.data(), whole.size(), onCell, nullptr, &read) != whole.size() || read.failed) {
        throw std::bad_alloc();
    }
    return closed ? std::optional(std::move(read.cells)) : std::nullopt;
}

}  // namespace feedesk
