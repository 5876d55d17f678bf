#include "standalone/loader/table_cell.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <boost/algorithm/string/predicate.hpp>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

#include "standalone/text/escape.h"
#include "standalone/text/numbers.h"
#include "standalone/text/unseen.h"
#include "standalone/text/wording.h"

namespace standalone::loader {
namespace {

const std::string kPlainNumber = "a plain number such as 0.00025";

std::optional<double> plainNumber(std::string_view text) {
    const std::optional<double> value = numberIn<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::string written(double value) {
    std::array<char, 512> digits{};
    const std::to_chars_result end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
    return std::string(digits.data(), end.ptr);
}

/// How to write a number that ends in a sign for hundredths and so on; the exponent keeps every digit.
std::string partsAdvice(std::string_view text, std::string_view sign, const std::string& exponent) {
    if (!boost::ends_with(text, sign)) {
        return {};
    }
    std::string number(text.substr(0, text.size() - sign.size()));
    number.erase(number.find_last_not_of(' ') + 1);
    const std::optional<double> value = plainNumber(number + exponent);
    if (!value) {
        return {};
    }
    return "rates are plain fractions: write " + written(*value);
}

std::string commasAdvice(std::string_view text) {
    if (text.find(',') == std::string_view::npos) {
        return {};
    }
    std::string bare(text);
    bare.erase(std::remove(bare.begin(), bare.end(), ','), bare.end());
    if (!plainNumber(bare)) {
        return {};
    }
    const std::size_t comma = text.find(',');
    const bool grouped = comma != 0 && text.size() - comma == 4;
    return grouped ? "digits are not grouped: write " + bare : "write a point, not a comma, and do not group digits";
}

std::string plusAdvice(std::string_view text) {
    if (text.substr(0, 1) != "+" || !plainNumber(text.substr(1))) {
        return {};
    }
    return "leave out the plus sign";
}

std::string numberAdvice(std::string_view text) {
    for (const std::string& advice : {partsAdvice(text, "%", "e-2"), partsAdvice(text, "\xEF\xBC\x85", "e-2"),
                                      partsAdvice(text, "\xE2\x80\xB0", "e-3"), commasAdvice(text), plusAdvice(text)}) {
        if (!advice.empty()) {
            return advice;
        }
    }
    return {};
}

}  // namespace

bool TableCell::refuseFound(ErrorKind kind, const std::string& expected, const std::function<std::string()>& advice) {
    return refuse(kind, [&] {
        const std::string remedy = advice ? advice() : "";
        return fmt::format(" holds {}{}, but {} was expected; {}", inQuotes(text), unseenClause(text), expected,
                           remedy.empty() ? "correct it" : remedy);
    });
}

bool TableCell::refuseWithout(const std::string& file, const std::string& what) {
    row.errors.addOnce({file}, ErrorKind::kMissingFile, [&] {
        return fmt::format("the file is missing, but {}:{} names {}; add it", row.file, line, what);
    });
    return drop();
}

bool TableCell::drop() {
    row.whole = false;
    return false;
}

std::vector<std::string> wordsOf(const Words& words) {
    std::vector<std::string> names;
    for (const auto& [name, value] : words) {
        names.push_back(name);
    }
    return names;
}

bool refuseNumber(TableCell& cell) {
    return cell.refuseFound(ErrorKind::kNumber, kPlainNumber, [&] { return numberAdvice(cell.text); });
}

bool readNumber(TableCell& cell, double& value) {
    double number = 0;
    const std::errc error = readNumberIn(cell.text, number);
    if (error == std::errc::invalid_argument) {
        return refuseNumber(cell);
    }
    if (error == std::errc::result_out_of_range) {
        return cell.refuseFound(ErrorKind::kNumber, "a number that a double holds, 0 or from 1e-307 to 1e308");
    }
    if (!std::isfinite(number)) {
        return cell.refuseFound(ErrorKind::kNumber, kPlainNumber);
    }
    value = number;
    return true;
}

bool readNumberFromZero(TableCell& cell, double& value) {
    double number = 0;
    if (!readNumber(cell, number)) {
        return false;
    }
    if (number < 0) {
        return cell.refuseFound(ErrorKind::kNumber, "a number that is not negative");
    }
    value = number;
    return true;
}

bool readInteger(TableCell& cell, int low, int high, int& value) {
    const std::optional<int> number = numberIn<int>(cell.text);
    if (!number || *number < low || *number > high) {
        return cell.refuseFound(ErrorKind::kNumber, fmt::format("a whole number from {} to {}", low, high));
    }
    value = *number;
    return true;
}

bool readWord(TableCell& cell, const Words& words, int& value) {
    const auto found =
        std::find_if(words.begin(), words.end(), [&](const auto& word) { return word.first == cell.text; });
    if (found == words.end()) {
        return cell.refuse(ErrorKind::kWord, [&] {
            const std::vector<std::string> names = wordsOf(words);
            return fmt::format(" holds {}, but {} was expected{}", inQuotes(cell.text), oneOf(names),
                               adviseOneOf(cell.text, names));
        });
    }
    value = found->second;
    return true;
}

bool readText(TableCell& cell, std::string& value) {
    value = cell.text;
    return true;
}

bool isItem(std::string_view text) {
    return text.size() == 3 && std::all_of(text.begin(), text.end(), [](char byte) {
               return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
           });
}

bool readName(TableCell& cell, std::string& value) {
    if (hasBlank(cell.text)) {
        return cell.refuseFound(ErrorKind::kName, "a text without spaces and control characters");
    }
    return readText(cell, value);
}

}  // namespace standalone::loader
