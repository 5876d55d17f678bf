#include "cost/decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>

namespace cost {
namespace {

constexpr std::size_t kMostDigits = 18;  // on either side of the point of a text
constexpr int kRateDigits = 15;
constexpr double kLargestRate = 1e15;
constexpr double kSmallestRate = 1e-20;
constexpr int kLargestPower = 76;  // 10^77 needs more than 256 bits

bool areDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

const Decimal::Mantissa& Decimal::powerOfTen(int exponent) {
    static const std::array<Mantissa, kLargestPower + 1> powers = [] {
        std::array<Mantissa, kLargestPower + 1> table;
        table[0] = 1;
        for (std::size_t i = 1; i < table.size(); ++i) {
            table[i] = table[i - 1] * 10;
        }
        return table;
    }();
    if (exponent > kLargestPower) {
        throw std::overflow_error("a number of more than 77 digits");
    }
    return powers[static_cast<std::size_t>(exponent)];
}

std::optional<Decimal> Decimal::parse(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    if (negative || (!text.empty() && text.front() == '+')) {
        text.remove_prefix(1);
    }
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction = point == text.size() ? std::string_view() : text.substr(point + 1);
    const bool hasFraction = point != text.size();
    if ((whole.empty() && !hasFraction) || (hasFraction && fraction.empty()) || whole.size() > kMostDigits ||
        fraction.size() > kMostDigits || !areDigits(whole) || !areDigits(fraction)) {
        return std::nullopt;
    }
    std::uint64_t wholePart = 0;
    std::uint64_t fractionPart = 0;
    std::from_chars(whole.data(), whole.data() + whole.size(), wholePart);
    std::from_chars(fraction.data(), fraction.data() + fraction.size(), fractionPart);
    const int decimals = static_cast<int>(fraction.size());
    Decimal number(powerOfTen(decimals) * wholePart + fractionPart, decimals);
    number.dropTrailingZeros();
    return negative ? -number : number;
}

std::optional<Decimal> Decimal::fromRate(double rate) {
    const double size = std::fabs(rate);
    if (size == 0) {
        return Decimal();
    }
    if (!(size >= kSmallestRate && size < kLargestRate)) {
        return std::nullopt;
    }
    // Scientific notation of a double is rounded correctly: d.ddddddddddddddde-ee
    std::array<char, 40> buffer{};
    char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), size, std::chars_format::scientific,
                                    kRateDigits - 1)
                          .ptr;
    const char* const mark = std::find(buffer.data(), end, 'e');
    std::uint64_t digits = 0;
    for (const char* c = buffer.data(); c != mark; ++c) {
        if (*c != '.') {
            digits = digits * 10 + static_cast<std::uint64_t>(*c - '0');
        }
    }
    int exponent = 0;
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);
    const int decimals = kRateDigits - 1 - exponent;
    if (decimals < 0) {  // it was rounded up to 1e15
        return std::nullopt;
    }
    Decimal number(Mantissa(digits), decimals);
    number.dropTrailingZeros();
    return rate < 0 ? -number : number;
}

std::string Decimal::text(int decimals) const {
    Decimal shortest = *this;
    shortest.dropTrailingZeros();
    const int shown = std::max(shortest.places, decimals);
    std::string digits = Mantissa(abs(shortest.mantissaWith(shown))).str();
    const auto width = static_cast<std::size_t>(shown) + 1;
    if (digits.size() < width) {
        digits.insert(0, width - digits.size(), '0');
    }
    if (shown > 0) {
        digits.insert(digits.size() - static_cast<std::size_t>(shown), 1, '.');
    }
    return isNegative() ? '-' + digits : digits;
}

bool Decimal::isWhole() const { return places == 0 || (mantissa % powerOfTen(places)).is_zero(); }

Decimal Decimal::quotient(const Decimal& by, RoundingMode mode) const {
    const int decimals = std::max(places, by.places);
    const Mantissa dividend = abs(mantissaWith(decimals));
    const Mantissa divisor = abs(by.mantissaWith(decimals));
    Mantissa count;
    Mantissa rest;
    divide_qr(dividend, divisor, count, rest);
    if (!rest.is_zero() && mode != RoundingMode::kDown) {
        const Mantissa missing = divisor - rest;
        if (mode == RoundingMode::kUp || rest > missing ||
            (rest == missing && (mode == RoundingMode::kHalfUp || bit_test(count, 0)))) {
            ++count;
        }
    }
    return {isNegative() != by.isNegative() ? Mantissa(-count) : count, 0};
}

Decimal& Decimal::operator+=(const Decimal& other) {
    if (places < other.places) {
        mantissa = mantissaWith(other.places);
        places = other.places;
    }
    mantissa += other.mantissaWith(places);
    return *this;
}

Decimal& Decimal::operator*=(const Decimal& other) {
    mantissa *= other.mantissa;
    places = mantissa.is_zero() ? 0 : places + other.places;
    return *this;
}

Decimal::Mantissa Decimal::mantissaWith(int decimals) const {
    return decimals == places ? mantissa : Mantissa(mantissa * powerOfTen(decimals - places));
}

int Decimal::compare(const Decimal& other) const {
    const int decimals = std::max(places, other.places);
    return mantissaWith(decimals).compare(other.mantissaWith(decimals));
}

void Decimal::dropTrailingZeros() {
    while (places > 0 && (mantissa % 10).is_zero()) {
        mantissa /= 10;
        --places;
    }
}

std::optional<Rounding> Rounding::parse(std::string_view text) {
    const std::size_t space = std::min(text.find(' '), text.size());
    const auto step = Decimal::parse(text.substr(0, space));
    const auto mode = fromWord<RoundingMode>(text.substr(std::min(space + 1, text.size())));
    if (!step || !mode || !(*step > Decimal())) {
        return std::nullopt;
    }
    return Rounding{*step, *mode};
}

std::string Rounding::text() const { return step.text() + ' ' + std::string(wordFor(mode)); }

}  // namespace cost
