#ifndef FEEDESK_RECONCILING_KNOWN_RATES_H
#define FEEDESK_RECONCILING_KNOWN_RATES_H

#include "feedesk/reconciling/reconciliation.h"

namespace feedesk {

/// Of the rates that fit the order names one that the folder has for this charge already, where there is one: of other
/// days first, then of other levels, categories and accounts; of several the one with the fewest decimals.
void preferKnown(SolvedRate& solved, const ReconciledOrder& charged, OtherTariffs& others);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_KNOWN_RATES_H
