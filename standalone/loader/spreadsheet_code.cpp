#include "standalone/loader/spreadsheet_code.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "standalone/text/escape.h"
#include "standalone/text/numbers.h"

namespace standalone::loader {
namespace {

constexpr std::size_t kLongestCode = 8;  // of a code of digits alone; longer ones have no leading zeros

/// A number of a spreadsheet in its parts: 1.005E+05 is "1", "005" and "05".
struct NumberParts {
    std::string_view whole;
    std::string_view fraction;
    std::string_view exponent;
};

std::optional<NumberParts> partsOf(std::string_view text) {
    NumberParts parts;
    if (const std::size_t at = text.find_first_of("Ee"); at != std::string_view::npos) {
        if (text.substr(at + 1, 1) != "+") {
            return std::nullopt;
        }
        parts.exponent = text.substr(at + 2);
        if (!isDigits(parts.exponent)) {
            return std::nullopt;
        }
        text = text.substr(0, at);
    }
    if (const std::size_t at = text.find('.'); at != std::string_view::npos) {
        parts.fraction = text.substr(at + 1);
        if (!isDigits(parts.fraction)) {
            return std::nullopt;
        }
        text = text.substr(0, at);
    }
    parts.whole = text;
    return isDigits(text) ? std::optional(parts) : std::nullopt;
}

/// The number without point and exponent; empty when it is none that a code can have been.
std::string plainDigits(const NumberParts& parts) {
    std::string_view fraction = parts.fraction;
    fraction = fraction.substr(0, fraction.find_last_not_of('0') + 1);
    if (parts.exponent.size() > 2) {
        return {};
    }
    std::size_t shift = 0;
    for (const char digit : parts.exponent) {
        shift = shift * 10 + static_cast<std::size_t>(digit - '0');
    }
    if (fraction.size() > shift || parts.whole.size() + shift > kLongestCode) {
        return {};
    }
    return std::string(parts.whole) + std::string(fraction) + std::string(shift - fraction.size(), '0');
}

/// The code of the market that the digits become with zeros before them; empty when there is none.
std::string withZeros(const InstrumentIndex& instruments, const std::string& market, std::string digits) {
    for (; !digits.empty() && digits.size() <= kLongestCode; digits.insert(digits.begin(), '0')) {
        if (instruments.find(market, digits)) {
            return digits;
        }
    }
    return {};
}

/// The code of the market that this one becomes without its leading zeros; empty when there is none.
std::string withoutZeros(const InstrumentIndex& instruments, const std::string& market, const std::string& code) {
    if (!isDigits(code) || code.front() != '0') {
        return {};
    }
    const std::string digits = code.substr(std::min(code.find_first_not_of('0'), code.size() - 1));
    return instruments.find(market, digits) ? digits : "";
}

}  // namespace

bool isSpreadsheetNumber(std::string_view code) {
    const std::optional<NumberParts> parts = partsOf(code);
    return parts && !parts->exponent.empty();
}

std::string spoiltCode(const InstrumentIndex& instruments, const std::string& market, const std::string& code) {
    if (const std::string there = withoutZeros(instruments, market, code); !there.empty()) {
        return fmt::format(", but {} {} is, from which a spreadsheet seems to have taken the zeros; {}", market,
                           inQuotes(there), kKeepCodes);
    }
    const std::optional<NumberParts> parts = partsOf(code);
    if (!parts) {
        return {};
    }
    const std::string meant = withZeros(instruments, market, plainDigits(*parts));
    if (!meant.empty()) {
        return fmt::format(", but {} {} is, of which a spreadsheet seems to have made a number; {}", market,
                           inQuotes(meant), kKeepCodes);
    }
    if (parts->exponent.empty()) {
        return {};
    }
    return ", and a spreadsheet seems to have made a number of the code; " + std::string(kKeepCodes);
}

}  // namespace standalone::loader
