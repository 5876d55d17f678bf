#ifndef FEEDESK_COMMANDS_ONLY_MARKETS_H
#define FEEDESK_COMMANDS_ONLY_MARKETS_H

#include <string>
#include <vector>

#include "standalone/market.h"

namespace CLI {
class App;
}  // namespace CLI

namespace feedesk {

/// Adds --only-market to a command. What is given goes into `markets`, as it is written.
void addOnlyMarket(CLI::App& command, std::vector<std::string>& markets);

/// The markets that a person names, as the folder calls them; they may be in small letters, as in the name of an
/// instrument. Throws Failure where the folder has no such market.
std::vector<std::string> knownMarkets(std::vector<std::string> named, const standalone::Market& market);

/// Whether the market is one of those; none of them means every market.
bool isAmong(const std::vector<std::string>& markets, const std::string& market);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_ONLY_MARKETS_H
