#ifndef FEEDESK_RECONCILING_CHARGED_LINES_H
#define FEEDESK_RECONCILING_CHARGED_LINES_H

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
    std::string instrument{};  ///< not empty: the orders of this one alone
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

/// The line with those of its orders that are of one instrument, each, for the instruments of these orders.
std::vector<ChargedLine> byInstrument(const ChargedLine& line, const OrdersByDay& wanted);

/// Several lines of one charge as one.
ChargedLine joined(const std::vector<const ChargedLine*>& lines);

/// Those of the orders that have no cause yet.
OrdersByDay openOf(const OrdersByDay& orders);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_CHARGED_LINES_H
