// The operations that host/catalogue.h, configuration.h, categories.h, engine.h and singleton.h declare.

#include <algorithm>

#include "standalone/services.h"

using standalone::services;

namespace {

// A pointer without a reference count: the object is never destroyed, and the count would be one more place that every
// query of every thread changes twice.
template <class T>
boost::shared_ptr<T> uncounted(T& object) {
    return boost::shared_ptr<T>(boost::shared_ptr<void>(), &object);
}

}  // namespace

namespace qmservice {

using standalone::CategoryBook;
using standalone::Configuration;

boost::shared_ptr<TraderCenter> TraderCenter::instance() { return uncounted(services().traderCenter); }

IInstrumentCenter* TraderCenter::getInstCenter() const { return &services().instruments; }

boost::shared_ptr<IDataCenter> TraderCenter::getDataCenter() const {
    return uncounted<IDataCenter>(services().accounts);
}

int getTradeMinUnit(const std::string& market, const std::string& code) {
    return services().configuration.read([&](const Configuration& known) { return known.tradeUnit(market, code); });
}

boost::shared_ptr<ConfigCollector> ConfigCollector::instance() { return uncounted(services().configCollector); }

boost::shared_ptr<CStkExchangeRateLimit> ConfigCollector::getRateLimitPtr(std::string market, std::string code) {
    return services().configuration.read(
        [&](const Configuration& known) { return known.stock().valueOr(market, code, {}); });
}

boost::shared_ptr<CCustomHGTExchangeRateLimit> ConfigCollector::getHGTExchangeRateLimitPtr(std::string market,
                                                                                           std::string code) {
    return services().configuration.read(
        [&](const Configuration& known) { return known.hgt().valueOr(market, code, {}); });
}

boost::shared_ptr<CCustomSgtExchangeRateLimit> ConfigCollector::getSgtExchangeRateLimitPtr(std::string market,
                                                                                           std::string code) {
    return services().configuration.read(
        [&](const Configuration& known) { return known.sgt().valueOr(market, code, {}); });
}

bool ConfigCollector::isSimulationPlatform(int platformId) const {
    return services().configuration.read([&](const Configuration& known) { return known.isSimulation(platformId); });
}

bool CppCategory::isStockInCategoryForTS(const std::string& market, const std::string& code,
                                         const std::string& productId, int category) {
    return services().categories.read(
        [&](const CategoryBook& known) { return known.holds(category, market, code, productId); });
}

bool CppCategory::isStockInCustomCategory(const std::string& market, const std::string& code,
                                          const std::vector<std::string>& members) {
    return std::find(members.begin(), members.end(), utils::voStockKey(market, code)) != members.end();
}

bool CppCategory::isStockInGroupCategory(const std::string& market, const std::string& code,
                                         const std::string& productId,
                                         const std::vector<boost::shared_ptr<CGroupCategorySubInfo>>& parts,
                                         std::map<int, std::vector<std::string>> customCategories) {
    const auto known = services().categories.hold();
    bool takenIn = false;
    for (const boost::shared_ptr<CGroupCategorySubInfo>& part : parts) {
        if (!part) {
            continue;
        }
        const auto custom = customCategories.find(part->category);
        const bool holds = custom != customCategories.end() ? isStockInCustomCategory(market, code, custom->second)
                                                            : known->holds(part->category, market, code, productId);
        if (holds && part->excluded != 0) {
            return false;
        }
        takenIn = takenIn || holds;
    }
    return takenIn;
}

int CppCategory::getCategorId(const std::string& name) {
    return services().categories.read([&](const CategoryBook& known) { return known.numberOf(name); });
}

bool StockTypeCenter::isWPMarket(const std::string& market) const {
    return services().foreignMarkets.read([&](const standalone::ForeignMarkets& known) { return known.holds(market); });
}

}  // namespace qmservice

namespace net {

boost::shared_ptr<boost::asio::io_service::strand> RPCEngine::getStrand(const std::string& name) {
    return services().engine.strand(name);
}

}  // namespace net

namespace utils {

template <>
qmservice::CppCategory* CSingletonT<qmservice::CppCategory>::instance() {
    return &services().category;
}

template <>
qmservice::StockTypeCenter* CSingletonT<qmservice::StockTypeCenter>::instance() {
    return &services().stockTypes;
}

template <>
net::RPCEngine* CSingletonT<net::RPCEngine>::instance() {
    return &services().rpcEngine;
}

}  // namespace utils
