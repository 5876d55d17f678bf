#ifndef FEEDESK_SHOW_H
#define FEEDESK_SHOW_H

#include <cstddef>
#include <string>
#include <vector>

#include "feedesk/answer.h"
#include "standalone/market.h"

namespace feedesk {

// Answers as text. The shapes are described in docs/feedesk.md. `market` is the one that the answers come from.

/// A table for each part of the answers, in `width` columns.
std::string showAsTables(const std::vector<Answer>& answers, const standalone::Market& market, std::size_t width);

/// An array with one object for each line of the answers.
std::string showAsJson(const std::vector<Answer>& answers, const standalone::Market& market);

/// A header line and one line for each line of the answers.
std::string showAsCsv(const std::vector<Answer>& answers, const standalone::Market& market);

/// "fees/stock.csv:12"; empty when the origin has no place in the folder.
std::string sourceText(const Origin& origin, const standalone::Market& market);

}  // namespace feedesk

#endif  // FEEDESK_SHOW_H
