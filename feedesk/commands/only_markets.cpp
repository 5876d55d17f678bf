#include "feedesk/commands/only_markets.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <boost/algorithm/string/case_conv.hpp>
#include <locale>

#include "feedesk/failure.h"
#include "feedesk/text/text.h"

namespace feedesk {
namespace {

std::vector<std::string> marketNames(const standalone::Market& market) {
    std::vector<std::string> names;
    for (const standalone::MarketPlace& place : market.markets) {
        names.push_back(place.market);
    }
    return names;
}

std::string knownMarket(const std::string& text, const std::vector<std::string>& known) {
    for (const std::string& name : {text, boost::to_upper_copy(text, std::locale::classic())}) {
        if (std::find(known.begin(), known.end(), name) != known.end()) {
            return name;
        }
    }
    throw Failure(kNoAnswer,
                  fmt::format("the market folder has no market {}; it has {}", echoed(text), fmt::join(known, ", ")));
}

}  // namespace

void addOnlyMarket(CLI::App& command, std::vector<std::string>& markets) {
    command.add_option("--only-market", markets, "Only this market; may be given again")
        ->type_name("M")
        ->allow_extra_args(false);
}

std::vector<std::string> knownMarkets(std::vector<std::string> named, const standalone::Market& market) {
    const std::vector<std::string> known = marketNames(market);
    for (std::string& name : named) {
        name = knownMarket(name, known);
    }
    return named;
}

bool isAmong(const std::vector<std::string>& markets, const std::string& market) {
    return markets.empty() || std::find(markets.begin(), markets.end(), market) != markets.end();
}

}  // namespace feedesk
