#include "host/configuration.h"

#include "standalone/boundary/uncounted.h"
#include "standalone/services/process.h"

using standalone::published;
using standalone::Snapshot;

namespace qmservice {

int getTradeMinUnit(const std::string& market, const std::string& code) {
    return published().read([&](const Snapshot& now) { return now.configuration.tradeUnit(market, code); });
}

boost::shared_ptr<ConfigCollector> ConfigCollector::instance() {
    return standalone::uncounted(standalone::onlyOne<ConfigCollector>());
}

boost::shared_ptr<CStkExchangeRateLimit> ConfigCollector::getRateLimitPtr(std::string market, std::string code) {
    return published().read([&](const Snapshot& now) { return now.configuration.stock().valueOr(market, code, {}); });
}

boost::shared_ptr<CCustomHGTExchangeRateLimit> ConfigCollector::getHGTExchangeRateLimitPtr(std::string market,
                                                                                           std::string code) {
    return published().read([&](const Snapshot& now) { return now.configuration.hgt().valueOr(market, code, {}); });
}

boost::shared_ptr<CCustomSgtExchangeRateLimit> ConfigCollector::getSgtExchangeRateLimitPtr(std::string market,
                                                                                           std::string code) {
    return published().read([&](const Snapshot& now) { return now.configuration.sgt().valueOr(market, code, {}); });
}

bool ConfigCollector::isSimulationPlatform(int platformId) const {
    return published().read([&](const Snapshot& now) { return now.configuration.isSimulation(platformId); });
}

}  // namespace qmservice
