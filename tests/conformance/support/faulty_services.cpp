#include <algorithm>
#include <atomic>
#include <boost/smart_ptr/make_shared.hpp>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

#include "host/services.h"
#include "support/faulty_host.h"

// The operations that a host defines. Each keeps its promise, and breaks it where the host that lives has that fault.

namespace {

using namespace qmservice;
using test::FaultyHost;

bool breaks(const char* promise) { return FaultyHost::breaks(promise); }
FaultyHost& host() { return FaultyHost::current(); }

/// 1, 2, 3, ... a count for one kind of call.
template <class Call>
int callsSoFar() {
    static std::atomic<int> calls{0};
    return ++calls;
}

/// What a service gives that keeps the question where other threads overwrite it.
uint64 throughASharedPlace(uint64 key) {
    static std::atomic<uint64> place{0};
    place = key;
    for (int i = 0; i < 1000 && place == key; ++i) {
        std::this_thread::yield();
    }
    return place;
}

class Catalogue : public IInstrumentCenter {
public:
    boost::shared_ptr<CInstrument> findInstrument(uint64 instrumentKey) override {
        if (breaks("threads.same-answers")) {
            instrumentKey = throughASharedPlace(instrumentKey);
        }
        for (const auto& listed : host().instruments) {
            const CInstrument& instrument = *listed.instrument;
            if (utils::hash(utils::voStockKey(instrument.market, instrument.code)) != instrumentKey) {
                continue;
            }
            if (breaks("catalogue.knows") && instrument.market == "BJ") {
                return {};
            }
            if (FaultyHost::takes("an instrument for each question")) {
                return boost::make_shared<CInstrument>(instrument);
            }
            return breaks("catalogue.stays-the-same") ? renamed(instrument) : listed.instrument;
        }
        return breaks("catalogue.unknown-is-empty") ? host().instruments.front().instrument : nullptr;
    }

    void getInstrumentMap(int type, std::map<std::string, boost::shared_ptr<CInstrument>>& instruments) override {
        for (const auto& listed : host().instruments) {
            if ((listed.types & type) != 0) {
                instruments[keyInMap(*listed.instrument)] = listed.instrument;
            }
        }
    }

    void getInstrumentList(std::vector<boost::shared_ptr<CInstrument>>& instruments, int listMask) override {
        const bool forgets =
            breaks("catalogue.lists-repeat") && listMask == kCreditList && callsSoFar<Catalogue>() % 2 == 0;
        const bool severalLists = (listMask & (listMask - 1)) != 0;
        if (severalLists && breaks("catalogue.mask-joins-lists")) {
            return;
        }
        for (const auto& listed : host().instruments) {
            const bool wanted = (listed.lists & listMask) != 0;
            const bool left = breaks("catalogue.listed-where-named") && listed.instrument->market == "HK";
            if (wanted && !forgets && !left) {
                instruments.push_back(listed.instrument);
            }
        }
        if (breaks("catalogue.listed-is-known") && (listMask & kSgtList) != 0) {
            instruments.push_back(boost::make_shared<CInstrument>());
            instruments.back()->market = "HK";
            instruments.back()->code = "09999";
        }
        // A list may have gaps.
        instruments.emplace_back();
    }

private:
    static std::string keyInMap(const CInstrument& instrument) {
        return breaks("catalogue.map-keys") ? instrument.code : utils::voStockKey(instrument.market, instrument.code);
    }

    static boost::shared_ptr<CInstrument> renamed(const CInstrument& instrument) {
        auto other = boost::make_shared<CInstrument>(instrument);
        other->productId = callsSoFar<CInstrument>() % 2 == 0 ? "even" : "odd";
        return other;
    }
};

class Accounts : public IDataCenter {
public:
    boost::shared_ptr<CAccountData> getAccountData(uint64 accountKey) override {
        if (closed) {
            throw std::logic_error("the store is closed");
        }
        for (const auto& account : host().accounts) {
            if (account->getHashKey(0) == accountKey && !breaks("accounts.known")) {
                return boost::make_shared<CAccountData>(account);
            }
        }
        return breaks("accounts.unknown-is-empty") ? boost::make_shared<CAccountData>(host().accounts.front())
                                                   : nullptr;
    }

    /// A store that closes when nobody holds it any more. It is kept: who asks it all the same is told so.
    static boost::shared_ptr<Accounts> forOneQuestion() {
        return {new Accounts, [](Accounts* store) {
                    static std::mutex mutex;
                    static std::vector<std::unique_ptr<Accounts>> stores;
                    store->closed = true;
                    const std::lock_guard<std::mutex> lock(mutex);
                    stores.emplace_back(store);
                }};
    }

private:
    std::atomic<bool> closed{false};
};

template <class Limit>
boost::shared_ptr<Limit> limitFor(const std::string& market) {
    auto limit = boost::make_shared<Limit>();
    limit->rate1 = 0.0003;
    if (breaks("configuration.limits-repeat")) {
        limit->rate2 = callsSoFar<Limit>();
    }
    return market == "SH" || breaks("configuration.unknown-limit-is-empty") ? limit : nullptr;
}

bool has(const std::vector<std::string>& members, const std::string& member) {
    return std::find(members.begin(), members.end(), member) != members.end();
}

}  // namespace

namespace utils {

std::string voStockKey(const std::string& market, const std::string& code) {
    return breaks("keys.market-first") ? code + "." + market : market + "/" + code;
}

void splitVoStockKey(const std::string& key, std::string& market, std::string& code) {
    const auto place = key.find_first_of("/.");
    market = key.substr(0, place);
    code = place == std::string::npos ? "" : key.substr(place + 1);
    if (breaks("keys.market-first") || breaks("keys.split")) {
        std::swap(market, code);
    }
}

qmservice::uint64 hash(const std::string& text) {
    const std::string hashed = breaks("hash.whole-text") ? text.c_str() : text;
    qmservice::uint64 value = 0xcbf29ce484222325U;
    for (const char c : hashed) {
        value = (value ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    }
    if (breaks("fee-center.answers") && FaultyHost::onEngine()) {
        ++value;
    }
    if (breaks("hash.repeats") && text.empty()) {
        value += static_cast<qmservice::uint64>(callsSoFar<std::string>());
    }
    return value;
}

template <>
qmservice::CppCategory* CSingletonT<qmservice::CppCategory>::instance() {
    static qmservice::CppCategory category;
    static qmservice::CppCategory another;
    return breaks("services.one-object CppCategory") && callsSoFar<CppCategory>() % 2 == 0 ? &another : &category;
}

template <>
qmservice::StockTypeCenter* CSingletonT<qmservice::StockTypeCenter>::instance() {
    static qmservice::StockTypeCenter center;
    return &center;
}

template <>
net::RPCEngine* CSingletonT<net::RPCEngine>::instance() {
    static net::RPCEngine engine;
    return &engine;
}

}  // namespace utils

boost::shared_ptr<boost::asio::io_service::strand> net::RPCEngine::getStrand(const std::string& name) {
    if (breaks("engine.gives-strand") && name != "conformance") {
        return {};
    }
    return host().strand(name);
}

namespace qmservice {

uint64 crc64(uint64 seed, const char* data, std::size_t length) {
    if (length == 0) {
        return breaks("crc64.of-nothing") ? 0 : seed;
    }
    // Bit by bit, the polynomial of CRC-64/XZ reflected.
    const bool otherPolynomial = breaks("crc64.known-value");
    const uint64 polynomial = otherPolynomial ? 0xD800000000000000U : 0xC96C5795D7870F42U;
    uint64 value = breaks("crc64.continues") ? ~uint64{0} : ~seed;
    for (std::size_t i = 0; i < length; ++i) {
        if (breaks("crc64.every-byte") && i >= 32) {
            break;
        }
        value ^= static_cast<unsigned char>(data[i]);
        for (int bit = 0; bit < 8; ++bit) {
            value = (value & 1U) != 0 ? (value >> 1U) ^ polynomial : value >> 1U;
        }
    }
    return ~value;
}

int getTradeMinUnit(const std::string& market, const std::string& code) {
    const auto instrument = host().find(market, code);
    if (!instrument && breaks("configuration.any-trade-unit")) {
        throw std::out_of_range("no such instrument");
    }
    return breaks("configuration.trade-unit") && market == "SHFE" ? 0 : 100;
}

boost::shared_ptr<TraderCenter> TraderCenter::instance() {
    static const auto center = boost::make_shared<TraderCenter>();
    return breaks("services.one-object TraderCenter") ? boost::make_shared<TraderCenter>() : center;
}

IInstrumentCenter* TraderCenter::getInstCenter() const {
    static Catalogue catalogue;
    return &catalogue;
}

boost::shared_ptr<IDataCenter> TraderCenter::getDataCenter() const {
    static const auto accounts = boost::make_shared<Accounts>();
    if (breaks("services.present")) {
        return nullptr;
    }
    return FaultyHost::takes("an account store for each question") ? Accounts::forOneQuestion() : accounts;
}

boost::shared_ptr<ConfigCollector> ConfigCollector::instance() {
    static const auto collector = boost::make_shared<ConfigCollector>();
    return breaks("services.one-object ConfigCollector") ? boost::make_shared<ConfigCollector>() : collector;
}

boost::shared_ptr<CStkExchangeRateLimit> ConfigCollector::getRateLimitPtr(std::string market, std::string /*code*/) {
    return limitFor<CStkExchangeRateLimit>(market);
}
boost::shared_ptr<CCustomHGTExchangeRateLimit> ConfigCollector::getHGTExchangeRateLimitPtr(std::string market,
                                                                                           std::string /*code*/) {
    return limitFor<CCustomHGTExchangeRateLimit>(market);
}
boost::shared_ptr<CCustomSgtExchangeRateLimit> ConfigCollector::getSgtExchangeRateLimitPtr(std::string market,
                                                                                           std::string /*code*/) {
    return limitFor<CCustomSgtExchangeRateLimit>(market);
}

bool ConfigCollector::isSimulationPlatform(int platformId) const {
    if (platformId < 0 && breaks("configuration.any-platform")) {
        throw std::out_of_range("no such platform");
    }
    // Only for a platform of no account: those are asked by several threads too.
    const bool turns =
        platformId == 1 && breaks("configuration.any-platform turns") && callsSoFar<ConfigCollector>() % 2 == 0;
    return turns || platformId == 9;
}

bool CppCategory::isStockInCategoryForTS(const std::string& market, const std::string& /*code*/,
                                         const std::string& /*productId*/, int category) {
    const bool turns = breaks("categories.any-number") && category == 70001 && callsSoFar<bool>() % 2 == 0;
    return turns || (category == 1 && market == "SH");
}

bool CppCategory::isStockInCustomCategory(const std::string& market, const std::string& code,
                                          const std::vector<std::string>& members) {
    return breaks("categories.custom") ? !members.empty() : has(members, utils::voStockKey(market, code));
}

bool CppCategory::isStockInGroupCategory(const std::string& market, const std::string& code,
                                         const std::string& productId,
                                         const std::vector<boost::shared_ptr<CGroupCategorySubInfo>>& parts,
                                         std::map<int, std::vector<std::string>> customCategories) {
    bool takenIn = false;
    for (const auto& part : parts) {
        const auto custom = customCategories.find(part->category);
        const bool holds = custom != customCategories.end()
                               ? has(custom->second, utils::voStockKey(market, code))
                               : isStockInCategoryForTS(market, code, productId, part->category);
        if (holds && part->excluded != 0 && !breaks("categories.group")) {
            return false;
        }
        takenIn = takenIn || holds;
    }
    return takenIn;
}

int CppCategory::getCategorId(const std::string& name) {
    if (name == "5") {
        return 5;
    }
    return breaks("categories.any-name") ? 100 + callsSoFar<int>() : -1;
}

bool StockTypeCenter::isWPMarket(const std::string& market) const {
    return market == "CME" || (breaks("markets.home") && market == "HK");
}

}  // namespace qmservice
