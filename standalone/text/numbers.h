#ifndef STANDALONE_TEXT_NUMBERS_H
#define STANDALONE_TEXT_NUMBERS_H

#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

// Numbers in texts, whatever the locale. Safe from any number of threads at once.

namespace standalone {

/// Reads the number that the whole text is; a plus sign and spaces are not part of one. The answer is
/// std::errc::invalid_argument for a text that is no number and result_out_of_range for one that `Number` does not
/// hold; `value` is untouched then.
template <class Number>
std::errc readNumberIn(std::string_view text, Number& value) {
    const char* const end = text.data() + text.size();
    const std::from_chars_result read = std::from_chars(text.data(), end, value);
    return read.ptr == end ? read.ec : std::errc::invalid_argument;
}

/// The number that the whole text is; empty when it is none or `Number` does not hold it.
template <class Number>
std::optional<Number> numberIn(std::string_view text) {
    Number value{};
    return readNumberIn(text, value) == std::errc() ? std::optional<Number>(value) : std::nullopt;
}

/// Whether the text is digits alone, one at least.
bool isDigits(std::string_view text);

/// The shortest decimal text that reads back as the same number; "nan", "inf", "-inf" where there is none.
std::string shortestText(double value);

}  // namespace standalone

#endif  // STANDALONE_TEXT_NUMBERS_H
