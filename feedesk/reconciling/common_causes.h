#ifndef FEEDESK_RECONCILING_COMMON_CAUSES_H
#define FEEDESK_RECONCILING_COMMON_CAUSES_H

#include "feedesk/reconciling/rate_change.h"

namespace feedesk {

/// Gives the differing orders of one charging term the first change of a term, such as of its minimum, that explains
/// them all; then those that the same lines of the folder charge the first cause that explains them all. Orders that
/// have none in common, or differ alone, stay as they are.
void takeCommonCauses(const OrdersByDay& orders);

/// Gives the order the first cause that explains it.
void takeFirstCause(ReconciledOrder& charged);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_COMMON_CAUSES_H
