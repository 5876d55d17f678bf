#include "feedesk/text/numbers.h"

#include <fmt/format.h>
#include <algorithm>

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace feedesk {
namespace {

struct DigitsAndPoint {
    bool negative = false;
    std::string digits;     // without point and leading zeros
    int pointPosition = 0;  // how many of the digits stand before the point; may be negative or beyond them
};

/// A decimal of so many digits survives a double, and the noise of a quotient does not reach the last of them.
constexpr int kSignificantDigits = 15;

/// "2.3e-04": a finite number rounded to the significant digits. The largest doubles would be rounded to what no double
/// holds; they are written with the fewest digits that read back as the same double.
std::string scientific(double value) {
    std::array<char, 32> buffer{};
    char* const last = buffer.data() + buffer.size();
    const char* end =
        std::to_chars(buffer.data(), last, value, std::chars_format::scientific, kSignificantDigits - 1).ptr;
    double readBack = 0;
    if (std::from_chars(buffer.data(), end, readBack).ec == std::errc::result_out_of_range && value > 1) {
        end = std::to_chars(buffer.data(), last, value, std::chars_format::scientific).ptr;
    }
    return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

/// A finite number that is not 0; zeros at the end of its digits are left out.
DigitsAndPoint digitsOf(double value) {
    const std::string text = scientific(std::fabs(value));
    const char* const end = text.data() + text.size();
    DigitsAndPoint found;
    found.negative = std::signbit(value);
    const char* next = text.data();
    for (; next != end && *next != 'e'; ++next) {
        if (*next != '.') {
            found.digits += *next;
        }
    }
    ++next;  // 'e'; from_chars reads no plus sign
    std::from_chars(*next == '+' ? next + 1 : next, end, found.pointPosition);
    ++found.pointPosition;
    found.digits.erase(found.digits.find_last_not_of('0') + 1);
    return found;
}

std::string withPoint(const std::string& digits, int pointPosition) {
    if (pointPosition <= 0) {
        return fmt::format("0.{:0>{}}{}", "", -pointPosition, digits);
    }
    const auto whole = static_cast<std::size_t>(pointPosition);
    if (whole >= digits.size()) {
        return fmt::format("{:0<{}}", digits, whole);
    }
    return fmt::format("{}.{}", digits.substr(0, whole), digits.substr(whole));
}

/// plainNumber's text with the point moved by `places`.
std::string shifted(double value, int places) {
    if (!std::isfinite(value)) {
        return fmt::format("{}", value);
    }
    if (value == 0) {
        return "0";
    }
    const DigitsAndPoint found = digitsOf(value);
    return (found.negative ? "-" : "") + withPoint(found.digits, found.pointPosition + places);
}

}  // namespace

std::string plainNumber(double value) { return shifted(value, 0); }

std::string percent(double fraction) { return shifted(fraction, 2) + "%"; }

std::size_t significantDigits(const std::string& decimal) {
    const auto first =
        std::find_if(decimal.begin(), decimal.end(), [](char each) { return isDigit(each) && each != '0'; });
    return static_cast<std::size_t>(std::count_if(first, decimal.end(), isDigit));
}

std::string grouped(std::size_t number) {
    std::string text = fmt::format("{}", number);
    for (std::size_t end = text.size(); end > 3; end -= 3) {
        text.insert(end - 3, ",");
    }
    return text;
}

std::string counted(std::size_t number, const std::string& noun) {
    return fmt::format("{} {}{}", grouped(number), noun, number == 1 ? "" : "s");
}

}  // namespace feedesk
