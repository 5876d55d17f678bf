#ifndef FEEDESK_RECONCILING_FILL_AMOUNTS_H
#define FEEDESK_RECONCILING_FILL_AMOUNTS_H

#include <cstddef>
#include <optional>

#include "feedesk/reconciling/hypotheses.h"

namespace feedesk {

// What a charge of an order amounts to when its fills are charged one by one, while their number alone is known.

/// With the charge's minimum for each fill: least when the fills are alike, most when all but one are small.
Span withMinimumOfEachFill(const Part& part, std::size_t fills);

/// With each fill rounded by itself: half a step for each of them, or a whole one on one side.
Span withEachFillRounded(const Part& part, std::size_t fills);

/// Whether the charge is of the whole order now, so that its fills may be charged instead.
bool isOfOrder(const Part& part);

/// The order with each fill charged as an order of its own, minimum and rounding; a range where the fills are not known
/// one by one. Nothing for an order of one fill.
std::optional<Amounts> chargedFillByFill(const Disputed& disputed);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_FILL_AMOUNTS_H
