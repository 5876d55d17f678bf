#ifndef FEEDESK_TRADES_JSON_TRADE_H
#define FEEDESK_TRADES_JSON_TRADE_H

#include <string>

#include "feedesk/trades/trade_line.h"

namespace feedesk {

/// Reads a trade from a JSON object, its members named as the columns: texts, or numbers with the digits that they are
/// written with; null is an empty cell. What is wrong with it becomes the trade's fault.
void readJsonTrade(const std::string& json, TradeLine& trade);

}  // namespace feedesk

#endif  // FEEDESK_TRADES_JSON_TRADE_H
