#ifndef COST_TRADE_H
#define COST_TRADE_H

#include <optional>
#include <string>

#include "cost/date.h"
#include "cost/decimal.h"
#include "cost/side.h"
#include "cost/tariff.h"
#include "host/futures_records.h"

namespace cost {

/// One order or one fill of an order. A plain value.
struct Trade {
    Side side = Side::kBuy;                    ///< what is done
    char hedgeFlag = qmservice::kSpeculation;  ///< futures: a qmservice::HedgeFlag; which margin rates open a position
    Decimal quantity;                          ///< shares, lots, contracts
    Decimal price;                             ///< for one share or unit of the underlying; an exercise needs none
    Date date;                                 ///< the day on which it is charged
    /// The order that it is a fill of, within the account; empty: an order of its own.
    std::string order;
    /// Above 0: the money that was traded, where the price is an average that was rounded. Empty: quantity x price x
    /// multiplier.
    std::optional<Decimal> turnover{};
};

/// The trade's own turnover, else quantity x price x multiplier; 0 for an exercise without a price. Throws Refused for
/// a trade that cannot have been made: a quantity or price that is not above 0, a quantity that is not whole, a
/// purchase or opening that is no tradable quantity (asked of an order of its own only: a fill may have any whole
/// quantity), a hedge flag that is not 1, 2 or 3; and when the multiplier is not known.
Decimal turnoverOf(const Trade& trade, const Tariff& tariff);

}  // namespace cost

#endif  // COST_TRADE_H
