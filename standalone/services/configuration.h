#ifndef STANDALONE_SERVICES_CONFIGURATION_H
#define STANDALONE_SERVICES_CONFIGURATION_H

#include <boost/shared_ptr.hpp>
#include <boost/unordered_set.hpp>
#include <string>
#include <string_view>

#include "standalone/market.h"
#include "standalone/services/instrument_table.h"

namespace standalone {

/// The trade units, configured limits and simulation platforms of a market. Immutable: safe from any thread.
class Configuration {
public:
    template <class Limit>
    using Limits = InstrumentTable<boost::shared_ptr<Limit>>;

    /// With nothing configured.
    Configuration() = default;
    explicit Configuration(const Market& market);

    /// The instrument's minimum trade unit; its market's when the instrument is unknown; the usual one when both are.
    [[nodiscard]] int tradeUnit(const std::string& market, const std::string& code) const;
    [[nodiscard]] bool isSimulation(int platform) const { return simulationPlatforms.count(platform) != 0; }
    [[nodiscard]] const Limits<qmservice::CStkExchangeRateLimit>& stock() const { return stockLimits; }
    [[nodiscard]] const Limits<qmservice::CCustomHGTExchangeRateLimit>& hgt() const { return hgtLimits; }
    [[nodiscard]] const Limits<qmservice::CCustomSgtExchangeRateLimit>& sgt() const { return sgtLimits; }

private:
    [[nodiscard]] int marketUnit(const std::string& market) const;

    boost::unordered_map<std::string, int> marketUnits;
    // Of the instruments whose unit is not their market's. They are few, and a small table stays in the caches.
    InstrumentTable<int> instrumentUnits;
    Limits<qmservice::CStkExchangeRateLimit> stockLimits;
    Limits<qmservice::CCustomHGTExchangeRateLimit> hgtLimits;
    Limits<qmservice::CCustomSgtExchangeRateLimit> sgtLimits;
    boost::unordered_set<int> simulationPlatforms;
};

}  // namespace standalone

#endif  // STANDALONE_SERVICES_CONFIGURATION_H
