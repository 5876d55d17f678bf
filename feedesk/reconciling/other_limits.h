#ifndef FEEDESK_RECONCILING_OTHER_LIMITS_H
#define FEEDESK_RECONCILING_OTHER_LIMITS_H

#include "feedesk/reconciling/rate_change.h"

namespace feedesk {

/// Adds to what explains the differing orders another minimum or maximum of a charging term. It is one that the
/// statement shows: every order of the term from that day on agrees with it, and either orders of different size cost
/// the very same, or one costs an amount that brokers have for a minimum, such as 5.
void addOtherLimits(const OrdersByDay& orders, const Layout& layout);

/// Adds the minimum or maximum that the order alone would show, to go beside a rate which later orders refute as well:
/// a usual amount, or one in whole money in place of the folder's minimum.
void addLimitsOfOne(ReconciledOrder& charged, const Layout& layout);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_OTHER_LIMITS_H
