#ifndef FEEDESK_TRADED_LISTS_H
#define FEEDESK_TRADED_LISTS_H

#include <optional>
#include <string>
#include <vector>

#include "feedesk/provenance.h"
#include "standalone/families.h"
#include "standalone/market.h"

namespace feedesk {

/// The lists of a market folder whose instruments accounts of a kind trade.
struct TradedLists {
    std::string name;  ///< what a person calls them
    standalone::Lists lists;
};

/// By CAccountInfo::accountType; empty for a kind that trades everything.
std::optional<TradedLists> tradedLists(int accountType);

/// The instruments that accounts of a kind trade, in the folder's order.
std::vector<Question> tradedInstruments(int accountType, const standalone::Market& market);

}  // namespace feedesk

#endif  // FEEDESK_TRADED_LISTS_H
