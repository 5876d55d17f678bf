#ifndef FEEDESK_STATEMENTS_WRITTEN_VALUES_H
#define FEEDESK_STATEMENTS_WRITTEN_VALUES_H

#include <optional>
#include <string>
#include <string_view>

#include "cost/date.h"
#include "cost/decimal.h"

namespace feedesk {

// What the cells of statements say. Full-width characters, as Chinese keyboards write them, count as their usual forms.

/// A number as statements write it: ".5", "5.", "1,234.50", "1 234.50", "-12", "¥12", "-¥12"; 0 for an empty cell and
/// for dashes alone. Empty for what is none.
std::optional<cost::Decimal> statedNumber(std::string_view cell);

/// The day of "20210304", "2021-03-04", "2021/3/4", "2021.3.4" or "2021年3月4日", with a time behind it or without.
std::optional<cost::Date> statedDay(std::string_view cell);

/// The broker's word for what was done, without blanks: "买 入" is "买入".
std::string statedOperation(std::string_view cell);

/// The code of an instrument.
std::string statedCode(std::string_view cell);

}  // namespace feedesk

#endif  // FEEDESK_STATEMENTS_WRITTEN_VALUES_H
