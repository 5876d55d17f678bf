#ifndef FEEDESK_RECONCILING_RATE_CHANGE_H
#define FEEDESK_RECONCILING_RATE_CHANGE_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "feedesk/reconciling/reconciliation.h"

namespace feedesk {

/// Orders of a statement, by day.
using OrdersByDay = std::vector<ReconciledOrder*>;

/// One charge by one line of the folder, with every order that pays it: what another rate there reaches.
struct ChargedLine {
    SoughtRate sought;
    OrdersByDay orders;
};

/// The charged lines of a statement, in the order in which they are first met. Refers to the orders.
class ChargedLines {
public:
    explicit ChargedLines(const OrdersByDay& orders);

    [[nodiscard]] const std::vector<ChargedLine>& all() const { return lines; }
    /// Those by which the order is charged.
    [[nodiscard]] std::vector<const ChargedLine*> of(const ReconciledOrder& charged) const;

private:
    std::vector<ChargedLine> lines;
    std::unordered_map<std::string, std::size_t> places;
};

/// Another rate from a day on.
struct RateChange {
    SolvedRate solved;
    OrdersByDay explained;  ///< the differing orders that have no cause yet and that it fits
};

/// The rate that fits the line's orders from a day on, and the earliest such day: all orders of that day and of those
/// after it agree with it, but those that differ in other ways as well, which are counted. It fits at least one order
/// that differs. Nothing when there is no such rate.
std::optional<RateChange> lastChangeOf(const ChargedLine& line, const Layout& layout);

/// The rate of the line that fits this order, and the first order from its day on that has another; nothing when no
/// rate fits it.
std::optional<SolvedRate> rateOf(const ChargedLine& line, const ReconciledOrder& charged, const Layout& layout);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_RATE_CHANGE_H
