#ifndef FEEDESK_RECONCILING_RATE_CHANGE_H
#define FEEDESK_RECONCILING_RATE_CHANGE_H

#include <optional>

#include "feedesk/reconciling/charged_lines.h"

namespace feedesk {

/// Another rate from a day on.
struct RateChange {
    SolvedRate solved;
    OrdersByDay explained;              ///< the differing orders that have no cause yet and that it fits
    const ChargedLine* line = nullptr;  ///< whose rate it is; empty: of several
};

/// The rate that fits the line's orders from a day on, and the earliest such day: all orders of that day and of those
/// after it agree with it, but those that differ in other ways as well, which are counted. It fits at least one order
/// that differs. Nothing when there is no such rate. With `within` it is one of these rates. With `until` the orders
/// behind that day are left out, and the rate is said to hold until the last day with a difference that it fits.
std::optional<RateChange> lastChangeOf(const ChargedLine& line, const Layout& layout,
                                       const std::optional<RateRange>& within = {},
                                       const std::optional<cost::Date>& until = {});

/// The rate of the line that fits this order, and the first order from its day on that has another; nothing when no
/// rate fits it.
std::optional<SolvedRate> rateOf(const ChargedLine& line, const ReconciledOrder& charged, const Layout& layout);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_RATE_CHANGE_H
