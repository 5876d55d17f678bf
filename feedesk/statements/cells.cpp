#include "feedesk/statements/cells.h"

#include <csv.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>

#include "standalone/text/numbers.h"
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

/// "1,234,567.5" without its commas; empty when they stand elsewhere than between groups of three digits.
std::string ungrouped(std::string_view text) {
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::size_t first = text.find(',');
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != ',') {
            plain += text[i];
        } else if (i > point || i == 0 || first > 3 || (point - i) % 4 != 0) {
            return "";
        }
    }
    return plain;
}

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

std::optional<cost::Decimal> statedNumber(std::string_view cell) {
    if (cell.find_first_not_of('-') == std::string_view::npos) {
        return cost::Decimal();
    }
    const bool isGrouped = cell.find(',') != std::string_view::npos;
    const bool isNegative = cell.front() == '-';
    std::string plain = isGrouped ? ungrouped(cell.substr(isNegative ? 1 : 0)) : std::string(cell);
    if (isGrouped && isNegative && !plain.empty()) {
        plain.insert(0, 1, '-');
    }
    if (plain.size() > 1 && plain.back() == '.') {
        plain.pop_back();
    }
    return cost::Decimal::parse(plain);
}

std::optional<cost::Date> statedDay(std::string_view cell) {
    const std::string_view day = cell.substr(0, cell.find_first_of(" T"));
    if (const auto compact = cost::Date::parseCompact(day)) {
        return compact;
    }
    const std::size_t first = day.find_first_of("-/.");
    const std::size_t second = first == std::string_view::npos ? first : day.find(day[first], first + 1);
    if (second == std::string_view::npos) {
        return std::nullopt;
    }
    const auto year = standalone::numberIn<int>(day.substr(0, first));
    const auto month = standalone::numberIn<int>(day.substr(first + 1, second - first - 1));
    const auto number = standalone::numberIn<int>(day.substr(second + 1));
    return year && month && number ? cost::Date::of(*year, *month, *number) : std::nullopt;
}

}  // namespace feedesk
