#ifndef FEEDESK_TEXT_NUMBERS_H
#define FEEDESK_TEXT_NUMBERS_H

#include <cstddef>
#include <string>

namespace feedesk {

/// Amounts of money are shown with so many decimals at least: to the fen or the cent.
constexpr int kMoneyDecimals = 2;

// Free of the locale; safe from any thread.

/// One of 0 to 9.
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// `value` rounded to 15 significant digits, as short as that is, without an exponent: "0.0000341". So a decimal of up
/// to 15 digits is shown as it was written, and a quotient without its noise: 2.3 / 10000 is "0.00023". No sign at
/// zero; "nan", "inf" and "-inf" for what is no number.
std::string plainNumber(double value);

/// A fraction as percent: "0.00341%" for 0.0000341. The point of plainNumber's text is moved, nothing is multiplied.
std::string percent(double fraction);

/// How many digits a decimal has from the first that is not 0 on: 3 for "0.000341" and "100".
std::size_t significantDigits(const std::string& decimal);

/// With a comma between groups of three digits: "61,234".
std::string grouped(std::size_t number);

/// "1 account", "1,234 accounts".
std::string counted(std::size_t number, const std::string& noun);

}  // namespace feedesk

#endif  // FEEDESK_TEXT_NUMBERS_H
