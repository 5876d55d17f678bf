#ifndef FEEDESK_RECONCILING_KNOWN_RATES_H
#define FEEDESK_RECONCILING_KNOWN_RATES_H

#include "feedesk/reconciling/reconciliation.h"

namespace feedesk {

/// Of the rates that fit the order names one that is known for this charge already, where there is one: that of
/// other days in the folder first, then one `found` on other lines of the statement, then those of other levels,
/// categories and accounts; of several the one with the fewest decimals.
void preferKnown(SolvedRate& solved, const ReconciledOrder& charged, OtherTariffs& others, const SolvedRates& found);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_KNOWN_RATES_H
