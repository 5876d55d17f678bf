#ifndef COST_DECIMAL_H
#define COST_DECIMAL_H

#include <boost/multiprecision/cpp_int.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "cost/words.h"

namespace cost {

/// Which way an amount between two steps goes.
enum class RoundingMode {
    kHalfUp,    ///< to the nearest step; a half away from zero
    kHalfEven,  ///< to the nearest step; a half to the even one
    kUp,        ///< away from zero
    kDown       ///< toward zero
};

/// Its words.
template <>
inline constexpr std::array<std::string_view, 4> kWords<RoundingMode> = {"half_up", "half_even", "up", "down"};

/// An exact decimal number: money, turnover, a price, a rate. A plain value; distinct objects are safe from any thread.
///
/// Nothing is ever rounded but by the operations that name a rounding mode. A result that needs more than 256 bits (77
/// digits) throws std::overflow_error. No operation allocates but text().
class Decimal {
public:
    Decimal() = default;
    /// A whole number.
    explicit Decimal(std::int64_t whole) : mantissa(whole) {}

    /// Reads plain notation: a sign or none, digits, a point with digits behind it or none; ".5" is a half. At most 18
    /// digits on either side of the point, no exponent, no grouping, nothing around it. Empty for any other text.
    static std::optional<Decimal> parse(std::string_view text);

    /// The number rounded to 15 significant digits, which gives back every published rate and takes away the noise of a
    /// quotient. Empty for NaN, for an infinity, and for what is no rate: 1e15 and above, or nearer to 0 than 1e-20
    /// without being 0.
    static std::optional<Decimal> fromRate(double rate);

    /// Plain notation with as few decimals as the number needs, but at least so many: "4.5", "4.50", "-0.00001".
    [[nodiscard]] std::string text(int decimals = 0) const;

    [[nodiscard]] bool isZero() const { return mantissa.is_zero(); }       ///< equal to 0
    [[nodiscard]] bool isNegative() const { return mantissa.sign() < 0; }  ///< below 0
    /// Whether it has no decimals but zeros.
    [[nodiscard]] bool isWhole() const;

    /// How often `by` goes into this number, rounded to a whole number. `by` may not be 0.
    [[nodiscard]] Decimal quotient(const Decimal& by, RoundingMode mode) const;

    /// @{
    /// Exact; throw std::overflow_error where more than 256 bits are needed.
    Decimal operator-() const { return {-mantissa, places}; }
    Decimal& operator+=(const Decimal& other);
    Decimal& operator-=(const Decimal& other) { return *this += -other; }
    Decimal& operator*=(const Decimal& other);
    friend Decimal operator+(Decimal a, const Decimal& b) { return a += b; }
    friend Decimal operator-(Decimal a, const Decimal& b) { return a -= b; }
    friend Decimal operator*(Decimal a, const Decimal& b) { return a *= b; }
    /// @}

    /// @{
    /// By value: 4.5 equals 4.50.
    friend bool operator==(const Decimal& a, const Decimal& b) { return a.compare(b) == 0; }
    friend bool operator!=(const Decimal& a, const Decimal& b) { return a.compare(b) != 0; }
    friend bool operator<(const Decimal& a, const Decimal& b) { return a.compare(b) < 0; }
    friend bool operator<=(const Decimal& a, const Decimal& b) { return a.compare(b) <= 0; }
    friend bool operator>(const Decimal& a, const Decimal& b) { return a.compare(b) > 0; }
    friend bool operator>=(const Decimal& a, const Decimal& b) { return a.compare(b) >= 0; }
    /// @}

private:
    using Mantissa = boost::multiprecision::number<
        boost::multiprecision::cpp_int_backend<256, 256, boost::multiprecision::signed_magnitude,
                                               boost::multiprecision::checked, void>,
        boost::multiprecision::et_off>;

    Decimal(Mantissa digits, int decimals) : mantissa(std::move(digits)), places(decimals) {}

    static const Mantissa& powerOfTen(int exponent);
    /// The mantissa that the number has with so many decimals, which are no fewer than its own.
    [[nodiscard]] Mantissa mantissaWith(int decimals) const;
    [[nodiscard]] int compare(const Decimal& other) const;
    void dropTrailingZeros();

    Mantissa mantissa = 0;
    int places = 0;  // decimals; the number is mantissa / 10^places; never negative
};

/// To what an amount is rounded, and which way.
struct Rounding {
    Decimal step = Decimal(1);                  ///< above 0; need not be a power of ten
    RoundingMode mode = RoundingMode::kHalfUp;  ///< which way between two multiples

    /// Reads "0.01 half_up", "1 up": step and mode with one space between them. Empty for any other text.
    static std::optional<Rounding> parse(std::string_view text);
    /// "0.01 half_up": the step and the word of the mode.
    [[nodiscard]] std::string text() const;

    /// The multiple of the step that the mode chooses.
    [[nodiscard]] Decimal rounded(const Decimal& amount) const { return amount.quotient(step, mode) * step; }
};

}  // namespace cost

#endif  // COST_DECIMAL_H
