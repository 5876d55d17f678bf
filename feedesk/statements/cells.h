#ifndef FEEDESK_STATEMENTS_CELLS_H
#define FEEDESK_STATEMENTS_CELLS_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cost/date.h"
#include "cost/decimal.h"

namespace feedesk {

// The cells of a line as brokers write them. Texts are UTF-8.

/// The cells of a line between commas or, where `separator` is one, tabs. A cell may be in quotes, written as a formula
/// that a spreadsheet shows as text (="000001"), or begin with the apostrophe of one ('000001); blanks around it do not
/// count, those that take two columns or do not break neither. Empty when a quote is not closed.
std::optional<std::vector<std::string>> cellsOf(const std::string& line, char separator);

// In numbers, days and codes full-width characters, as Chinese keyboards write them, count as their usual forms.

/// A number as statements write it: ".5", "5.", "1,234.50", "1 234.50", "-12", "¥12", "-¥12"; 0 for an empty cell and
/// for dashes alone. Empty for what is none.
std::optional<cost::Decimal> statedNumber(std::string_view cell);

/// The day of "20210304", "2021-03-04", "2021/3/4", "2021.3.4" or "2021年3月4日", with a time behind it or without.
std::optional<cost::Date> statedDay(std::string_view cell);

/// The code of an instrument.
std::string statedCode(std::string_view cell);

}  // namespace feedesk

#endif  // FEEDESK_STATEMENTS_CELLS_H
