#ifndef FEEDESK_RECONCILING_RATE_CHANGE_H
#define FEEDESK_RECONCILING_RATE_CHANGE_H

#include <memory>
#include <vector>

#include "feedesk/reconciling/reconciliation.h"

namespace feedesk {

/// Orders that are charged by the same lines of the folder, by day.
using Kind = std::vector<ReconciledOrder*>;

/// The rate of one charge that fits every order of the kind from the first of `explained` on: those must differ and be
/// of the kind. Other differing orders of the kind may have other causes and are not asked, unless the rate explains
/// them too. Nothing when there is none.
std::shared_ptr<const SolvedRate> rateFor(const Kind& kind, const Kind& explained, const Layout& layout);

/// The rate of one charge that fits this order; nothing when there is none.
std::shared_ptr<const SolvedRate> rateFor(const ReconciledOrder& charged, const Layout& layout);

/// Whether the rate explains the order.
bool explains(const SolvedRate& solved, const ReconciledOrder& charged, const Layout& layout);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_RATE_CHANGE_H
