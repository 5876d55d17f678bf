#ifndef FEEDESK_RECONCILING_RATE_CAUSES_H
#define FEEDESK_RECONCILING_RATE_CAUSES_H

#include <memory>
#include <vector>

#include "feedesk/reconciling/rate_change.h"

namespace feedesk {

/// Gives differing orders without a cause the rates that fit from a day on, those first that explain most of them, and
/// hands these rates back. Each explains at least one order that no single change does. Where the rates of several
/// charges explain the same orders, the first of them is given and says so; of a single order none is.
std::vector<std::shared_ptr<const SolvedRate>> takeRatesFromDays(const ChargedLines& lines, const Layout& layout);

/// Gives the order, which no single change explains, the rate that fits it alone, or says in its remark why there is
/// none to be named: the rates of several charges fit, or its fills may be charged one by one.
void takeRateOfOrder(ReconciledOrder& charged, const ChargedLines& lines, const Layout& layout);

/// Where the order alone has another minimum or maximum for its cause, adds the rates that fit it as well.
void addRatesBesidesLimit(ReconciledOrder& charged, const ChargedLines& lines, const Layout& layout);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_RATE_CAUSES_H
