#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <utility>

#include "host/services.h"
#include "support/fake_host.h"

// The operations that a host defines, answered from FakeHost.

namespace {

using test::FakeHost;

/// The joined key, without a word to the test.
std::string joined(const std::string& market, const std::string& code) { return market + "|" + code; }

/// The service of a class that is in place.
template <class Service>
boost::shared_ptr<Service> inPlace() {
    static const boost::shared_ptr<Service> both[] = {boost::make_shared<Service>(), boost::make_shared<Service>()};
    return both[FakeHost::instance().servicesInPlace()];
}

/// The host, after the test has seen the call.
FakeHost& host(const char* operation) {
    FakeHost::instance().called(operation);
    return FakeHost::instance();
}

template <class Service>
void noteIfReplaced(const char* operation, const Service* service) {
    if (service != inPlace<Service>().get()) {
        FakeHost::instance().replacedServiceCalled(operation);
    }
}

/// The host, after the test has seen the call of a service.
template <class Service>
FakeHost& host(const char* operation, const Service* service) {
    noteIfReplaced(operation, service);
    return host(operation);
}

template <class Map, class Key>
typename Map::mapped_type findOr(const Map& map, const Key& key, typename Map::mapped_type otherwise) {
    const auto found = map.find(key);
    return found != map.end() ? found->second : std::move(otherwise);
}

class Catalogue : public qmservice::IInstrumentCenter {
public:
    boost::shared_ptr<qmservice::CInstrument> findInstrument(qmservice::uint64 instrumentKey) override {
        return findOr(host("findInstrument", this).catalogue, instrumentKey, {});
    }

    void getInstrumentMap(int type,
                          std::map<std::string, boost::shared_ptr<qmservice::CInstrument>>& instruments) override {
        for (const auto& listed : host("getInstrumentMap", this).instruments) {
            if ((listed.types & type) != 0) {
                instruments[listed.mapKey.empty() ? keyOf(listed.instrument.get()) : listed.mapKey] = listed.instrument;
            }
        }
    }

    void getInstrumentList(std::vector<boost::shared_ptr<qmservice::CInstrument>>& instruments, int listMask) override {
        for (const auto& listed : host("getInstrumentList", this).instruments) {
            if ((listed.listMask & listMask) != 0) {
                instruments.push_back(listed.instrument);
            }
        }
    }

private:
    /// An empty instrument is listed under an empty key.
    static std::string keyOf(const qmservice::CInstrument* instrument) {
        return instrument != nullptr ? joined(instrument->market, instrument->code) : std::string();
    }
};

class Accounts : public qmservice::IDataCenter {
public:
    boost::shared_ptr<qmservice::CAccountData> getAccountData(qmservice::uint64 accountKey) override {
        return findOr(host("getAccountData", this).accounts, accountKey, {});
    }
};

}  // namespace

namespace utils {

std::string voStockKey(const std::string& market, const std::string& code) {
    FakeHost::instance().keyCalled("voStockKey");
    return joined(market, code);
}

void splitVoStockKey(const std::string& key, std::string& market, std::string& code) {
    FakeHost::instance().keyCalled("splitVoStockKey");
    const auto bar = key.find('|');
    market = key.substr(0, bar);
    code = bar == std::string::npos ? std::string() : key.substr(bar + 1);
}

qmservice::uint64 hash(const std::string& text) {
    FakeHost::instance().keyCalled("hash");
    FakeHost::instance().hashed(text);
    // FNV-1a.
    qmservice::uint64 value = 0xcbf29ce484222325U;
    for (const char c : text) {
        value = (value ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    }
    return value;
}

template <>
qmservice::CppCategory* CSingletonT<qmservice::CppCategory>::instance() {
    FakeHost::instance().instanceAsked("CppCategory::instance");
    return inPlace<qmservice::CppCategory>().get();
}

template <>
qmservice::StockTypeCenter* CSingletonT<qmservice::StockTypeCenter>::instance() {
    FakeHost::instance().instanceAsked("StockTypeCenter::instance");
    return inPlace<qmservice::StockTypeCenter>().get();
}

template <>
net::RPCEngine* CSingletonT<net::RPCEngine>::instance() {
    FakeHost::instance().instanceAsked("RPCEngine::instance");
    static net::RPCEngine engine;
    return &engine;
}

}  // namespace utils

namespace net {

boost::shared_ptr<boost::asio::io_service::strand> RPCEngine::getStrand(const std::string& name) {
    return host("getStrand").strand(name);
}

}  // namespace net

namespace qmservice {

uint64 crc64(uint64 seed, const char* data, std::size_t length) {
    FakeHost::instance().keyCalled("crc64");
    // Bit by bit, the polynomial of CRC-64/XZ reflected.
    uint64 value = ~seed;
    for (std::size_t i = 0; i < length; ++i) {
        value ^= static_cast<unsigned char>(data[i]);
        for (int bit = 0; bit < 8; ++bit) {
            value = (value & 1U) != 0 ? (value >> 1U) ^ 0xC96C5795D7870F42U : value >> 1U;
        }
    }
    return ~value;
}

int getTradeMinUnit(const std::string& market, const std::string& code) {
    const FakeHost& fake = host("getTradeMinUnit");  // may ask the fee center, before market and code are read
    return findOr(fake.tradeUnits, FakeHost::Name(market, code), 100);
}

boost::shared_ptr<TraderCenter> TraderCenter::instance() {
    FakeHost::instance().instanceAsked("TraderCenter::instance");
    return inPlace<TraderCenter>();
}

IInstrumentCenter* TraderCenter::getInstCenter() const {
    FakeHost::instance().instanceAsked("getInstCenter");
    noteIfReplaced("getInstCenter", this);
    return inPlace<Catalogue>().get();
}

boost::shared_ptr<IDataCenter> TraderCenter::getDataCenter() const {
    FakeHost::instance().instanceAsked("getDataCenter");
    noteIfReplaced("getDataCenter", this);
    return inPlace<Accounts>();
}

boost::shared_ptr<ConfigCollector> ConfigCollector::instance() {
    FakeHost::instance().instanceAsked("ConfigCollector::instance");
    return inPlace<ConfigCollector>();
}

boost::shared_ptr<CStkExchangeRateLimit> ConfigCollector::getRateLimitPtr(std::string market, std::string code) {
    return findOr(host("getRateLimitPtr", this).rateLimits, FakeHost::Name(std::move(market), std::move(code)), {});
}

boost::shared_ptr<CCustomHGTExchangeRateLimit> ConfigCollector::getHGTExchangeRateLimitPtr(std::string market,
                                                                                           std::string code) {
    return findOr(host("getHGTExchangeRateLimitPtr", this).hgtLimits,
                  FakeHost::Name(std::move(market), std::move(code)), {});
}

boost::shared_ptr<CCustomSgtExchangeRateLimit> ConfigCollector::getSgtExchangeRateLimitPtr(std::string market,
                                                                                           std::string code) {
    return findOr(host("getSgtExchangeRateLimitPtr", this).sgtLimits,
                  FakeHost::Name(std::move(market), std::move(code)), {});
}

bool ConfigCollector::isSimulationPlatform(int platformId) const {
    return host("isSimulationPlatform", this).simulationPlatforms.count(platformId) != 0;
}

bool CppCategory::isStockInCategoryForTS(const std::string& market, const std::string& code,
                                         const std::string& productId, int category) {
    const FakeHost& fake = host("isStockInCategoryForTS", this);
    return fake.inSystemCategory ? fake.inSystemCategory(market, code, productId, category)
                                 : fake.systemMembers.count({category, FakeHost::Name(market, code)}) != 0;
}

bool CppCategory::isStockInCustomCategory(const std::string& market, const std::string& code,
                                          const std::vector<std::string>& members) {
    const FakeHost& fake = host("isStockInCustomCategory", this);
    return fake.inCustomCategory ? fake.inCustomCategory(market, code, members)
                                 : std::find(members.begin(), members.end(), code) != members.end();
}

bool CppCategory::isStockInGroupCategory(const std::string& market, const std::string& code,
                                         const std::string& productId,
                                         const std::vector<boost::shared_ptr<CGroupCategorySubInfo>>& parts,
                                         std::map<int, std::vector<std::string>> customCategories) {
    const FakeHost& fake = host("isStockInGroupCategory", this);
    return fake.inGroupCategory ? fake.inGroupCategory(market, code, productId, parts, customCategories)
                                : fake.groupMembers.count(FakeHost::Name(market, code)) != 0;
}

int CppCategory::getCategorId(const std::string& name) {
    return findOr(host("getCategorId", this).categoryNumbers, name, -1);
}

bool StockTypeCenter::isWPMarket(const std::string& market) const {
    return host("isWPMarket", this).foreignMarkets.count(market) != 0;
}

}  // namespace qmservice
