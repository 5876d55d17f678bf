#include "standalone/services/configuration.h"

#include <vector>

#include "host/configuration.h"

namespace standalone {

namespace {

constexpr int kNoTradeUnit = 0;

template <class Limit>
void addLimits(Configuration::Limits<Limit>& table, const std::vector<ConfiguredLimit<Limit>>& limits) {
    for (const ConfiguredLimit<Limit>& limit : limits) {
        table.add(limit.market, limit.code, limit.limit);
    }
}

}  // namespace

Configuration::Configuration(const Market& market)
    : simulationPlatforms(market.simulationPlatforms.begin(), market.simulationPlatforms.end()) {
    for (const MarketPlace& place : market.markets) {
        marketUnits.emplace(place.market, place.tradeUnit);
    }
    for (const ListedInstrument& listed : market.instruments) {
        const qmservice::CInstrument& instrument = *listed.record;
        if (listed.tradeUnit != marketUnit(instrument.market)) {
            instrumentUnits.add(instrument.market, instrument.code, listed.tradeUnit);
        }
    }
    addLimits(stockLimits, market.stockLimits);
    addLimits(hgtLimits, market.hgtLimits);
    addLimits(sgtLimits, market.sgtLimits);
}

int Configuration::tradeUnit(const std::string& market, const std::string& code) const {
    const int unit = instrumentUnits.valueOr(market, code, kNoTradeUnit);
    return unit > kNoTradeUnit ? unit : marketUnit(market);
}

int Configuration::marketUnit(const std::string& market) const {
    const auto found = marketUnits.find(market);
    return found == marketUnits.end() || found->second <= kNoTradeUnit ? qmservice::kUsualTradeUnit : found->second;
}

}  // namespace standalone
