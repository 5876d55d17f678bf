#ifndef STANDALONE_LOADER_RATE_NAMES_H
#define STANDALONE_LOADER_RATE_NAMES_H

#include <string>
#include <vector>

#include "standalone/market.h"

namespace standalone::loader {

/// The families whose rates market.toml names.
const std::vector<std::string>& namedFamilies();

/// The rates of a named family under their own names.
std::vector<RateName> ownRateNames(const std::string& family);

/// Whether the tables of rates, or the answers that show rates, use the name for a column of their own.
bool isFixedColumn(const std::string& name);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_RATE_NAMES_H
