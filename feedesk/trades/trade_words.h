#ifndef FEEDESK_TRADES_TRADE_WORDS_H
#define FEEDESK_TRADES_TRADE_WORDS_H

#include <string>
#include <vector>

#include "cost/trade.h"

namespace feedesk {

// How people and files write the parts of a trade. What cannot be read is thrown as cost::WrongTrade, in a sentence
// that says what was found and what was expected.

/// "buy", "open_long"; "open-long" and "Open_Long" are the same. Futures may be written in two words, "sell" and the
/// offset "open", which is open_short; `offset` is empty where one word says it.
cost::Side sideFrom(const std::string& side, const std::string& offset = "");

/// "speculation", "arbitrage", "hedging", or the flag itself, 1 to 3. Speculation where the text is empty.
char hedgeFlagFrom(const std::string& text);
/// "speculation" for a qmservice::HedgeFlag; the flag itself where it has no name.
std::string hedgeName(char flag);
/// The names that flags have.
std::vector<std::string> hedgeNames();

cost::Decimal quantityFrom(const std::string& text);
cost::Decimal priceFrom(const std::string& text);

/// "2023-08-28" or "20230828".
cost::Date dateFrom(const std::string& text);

/// "buy 300@1488.50" without its side, which the trade has: quantity and price. "3" has no price, which an exercise may
/// do without, "@1488.50" no quantity, which may be what is asked for: 0 then.
void readQuantityAndPrice(const std::string& text, bool asksQuantity, cost::Trade& trade);

}  // namespace feedesk

#endif  // FEEDESK_TRADES_TRADE_WORDS_H
