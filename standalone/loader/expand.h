#ifndef STANDALONE_LOADER_EXPAND_H
#define STANDALONE_LOADER_EXPAND_H

#include "standalone/loader/checked_folder.h"

// From checked lines to the records of one day. Nothing here can find an error: the lines are good. Safe from any
// number of threads at once.

namespace standalone::loader {

/// The market on a day without the fees and custom fees of its accounts.
Market expandShared(const CheckedFolder& folder, cost::Date day);

/// One account on a day, by its place, with its fees and custom fees.
Account expandAccount(const CheckedFolder& folder, cost::Date day, std::size_t account);

/// The whole market on a day.
Market expand(const CheckedFolder& folder, cost::Date day);

/// Adds the configured limits of the day to a market.
void expandConfiguredLimits(const CheckedFolder& folder, cost::Date day, Market& market);

/// The fee records of one account on a day, by its place.
std::vector<FeeRecord> expandFees(const CheckedFolder& folder, cost::Date day, std::size_t account);
/// How many they are; none is made.
std::size_t countFees(const CheckedFolder& folder, cost::Date day, std::size_t account);

/// The custom fees of one account on a day, by its place.
std::vector<CustomFee> expandCustomFees(const CheckedFolder& folder, cost::Date day, std::size_t account);
/// How many they are; none is made.
std::size_t countCustomFees(const CheckedFolder& folder, cost::Date day, std::size_t account);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_EXPAND_H
