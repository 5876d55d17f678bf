#ifndef FEEDESK_COMMANDS_COST_BACKWARDS_H
#define FEEDESK_COMMANDS_COST_BACKWARDS_H

#include <string>

#include "cost/trade.h"
#include "feedesk/commands/cost_arguments.h"

namespace feedesk {

// The questions asked backwards. What has no answer is thrown as Failure or cost::Refused.

/// Sets the quantity of the trade to the largest that the money of --cash pays for. With an exchange rate the money is
/// yuan, else in the currency in which the trade is charged.
void takeAffordable(cost::Trade& trade, const cost::Tariff& tariff, const CostArguments& arguments);

/// The steps in which a price moves, and who says so.
struct Tick {
    cost::Decimal step;
    std::string reason;
};

/// The instrument's own tick; else 0.01, or finer when `writtenPrice` has more decimals.
Tick tickOf(const qmservice::CInstrument& instrument, const std::string& writtenPrice);

/// The trade that closes the position which this one opens, at the price that pays for both.
cost::Trade breakEven(const cost::Trade& opening, const cost::Tariff& tariff, const Tick& tick);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_COST_BACKWARDS_H
