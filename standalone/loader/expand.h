#ifndef STANDALONE_LOADER_EXPAND_H
#define STANDALONE_LOADER_EXPAND_H

#include "standalone/loader/checked_folder.h"

// From checked lines to the records of one day. Nothing here can find an error: the lines are good. Safe from any
// number of threads at once.

namespace standalone::loader {

/// The whole market on a day.
Market expand(const CheckedFolder& folder, cost::Date day);

/// Adds the configured limits of the day to a market.
void expandConfiguredLimits(const CheckedFolder& folder, cost::Date day, Market& market);

/// Adds the fee records of the day to one account of a market, by its place.
void expandFees(const CheckedFolder& folder, cost::Date day, std::size_t account, Market& market);

/// The same for its custom fees.
void expandCustomFees(const CheckedFolder& folder, cost::Date day, std::size_t account, Market& market);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_EXPAND_H
