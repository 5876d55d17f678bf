#ifndef COST_BACKWARDS_H
#define COST_BACKWARDS_H

#include "cost/bill.h"

// From money to quantity and from a purchase to the price that pays for it.

namespace cost {

/// The largest quantity that the cash pays for with all costs: of a purchase or of an option bought to open its
/// turnover, of futures the margin by the rates of the contract (see kMarginLabel). 0 when it does not pay for the
/// least quantity. The trade says side, price, hedge flag and date; its quantity and order are not looked at. Throws
/// Refused as costOf() does, for a side that cash does not limit, and for futures without margin rates.
Decimal affordable(const Decimal& cash, Trade trade, const Tariff& tariff);

/// The price of `closing`, on the grid of `tick`, at which closing the position gives back what opening it took, the
/// costs of both with it: of a long position the lowest such price, of a short one the highest. Charged by the tariff
/// and the day of the opening, each as an order of its own. Where an amount is rounded up to a coarse step, a price a
/// little better may miss again. Throws Refused as costOf() does, when the sides do not open and close one position,
/// when the tick is not above 0, and when no price does it.
Decimal breakEvenPrice(const Trade& opening, Side closing, const Decimal& tick, const Tariff& tariff);

}  // namespace cost

#endif  // COST_BACKWARDS_H
