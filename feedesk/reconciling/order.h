#ifndef FEEDESK_RECONCILING_ORDER_H
#define FEEDESK_RECONCILING_ORDER_H

#include <cstddef>
#include <string>
#include <vector>

#include "feedesk/reconciling/comparison.h"
#include "feedesk/statements/statement.h"

namespace feedesk {

/// The lines of a statement that are compared together: the fills of one order, of one instrument, side and day; a line
/// without an order number is an order of its own.
struct Order {
    std::vector<std::size_t> lines;   ///< indexes into Statement::lines
    std::vector<cost::Trade> trades;  ///< one for each line
    std::size_t fills = 0;            ///< of all lines
    StatedAmounts stated;             ///< sums over the lines

    [[nodiscard]] cost::Date date() const { return trades.front().date; }
    [[nodiscard]] cost::Side side() const { return trades.front().side; }
};

/// The orders of a statement, by their first lines.
std::vector<Order> ordersOf(const Statement& statement);

/// Puts the lines of another order of the same day and instrument into this one.
void join(Order& order, Order other);

/// What quantity x price says of the amount that was traded: an average price is as exact as its decimals.
Span turnoverSpan(const StatementLine& line, const cost::Decimal& multiplier);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_ORDER_H
