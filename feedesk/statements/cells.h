#ifndef FEEDESK_STATEMENTS_CELLS_H
#define FEEDESK_STATEMENTS_CELLS_H

#include <optional>
#include <string>
#include <vector>

namespace feedesk {

// The cells of a line as brokers write them. Texts are UTF-8.

/// The cells of a line between commas or, where `separator` is one, tabs. A cell may be in quotes, written as a formula
/// that a spreadsheet shows as text (="000001"), or begin with the apostrophe of one ('000001); blanks around it do not
/// count, those that take two columns or do not break neither. Empty when a quote is not closed.
std::optional<std::vector<std::string>> cellsOf(const std::string& line, char separator);

}  // namespace feedesk

#endif  // FEEDESK_STATEMENTS_CELLS_H
