#ifndef FEEDESK_RECONCILING_REFUTED_CAUSES_H
#define FEEDESK_RECONCILING_REFUTED_CAUSES_H

#include "feedesk/reconciling/charged_lines.h"

namespace feedesk {

/// Takes out of what may explain the differing orders each all-in commission that agreeing orders of the same charging
/// terms speak against: those of its day or later, and where it is left to one order all of them. One that explains a
/// single order from the first goes to its lastCauses instead.
void removeRefuted(const OrdersByDay& orders, const Layout& layout);

/// Names the last causes of an order that nothing else explains, and lets those of another one fit as well.
void takeLastCauses(ReconciledOrder& charged);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_REFUTED_CAUSES_H
