// A host in one file: it loads the fee center, gives it the services that it asks for, and asks for one fee.
//
// The records' operations are given (feecenter::records). A host with record classes of its own defines those too; see
// ../host-own-records.

#include <algorithm>
#include <boost/asio/io_service.hpp>
#include <boost/asio/io_service_strand.hpp>
#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <exception>
#include <future>
#include <iostream>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "CFeeCenter.h"
#include "host/records.h"
#include "host/services.h"

using boost::make_shared;
using boost::shared_ptr;

// What this host knows: one account and one instrument. A client keeps thousands of them, and changes them under a
// lock; these are made before the first question and never written again.

namespace {

shared_ptr<qmservice::CAccountInfo> makeAccount() {
    const auto account = make_shared<qmservice::CAccountInfo>();
    account->accountId = "1000001";
    account->accountType = qmservice::kStockAccount;
    return account;
}

shared_ptr<qmservice::CInstrument> makeInstrument() {
    const auto instrument = make_shared<qmservice::CInstrument>();
    instrument->market = "SH";
    instrument->code = "600519";
    return instrument;
}

const shared_ptr<qmservice::CAccountInfo> theAccount = makeAccount();
const shared_ptr<qmservice::CInstrument> theInstrument = makeInstrument();

}  // namespace

// The keys. Any joined key and any hash will do, as long as equal texts give equal values.

namespace utils {

std::string voStockKey(const std::string& market, const std::string& code) { return market + ":" + code; }

void splitVoStockKey(const std::string& key, std::string& market, std::string& code) {
    const std::size_t colon = key.find(':');
    market = colon == std::string::npos ? "" : key.substr(0, colon);
    code = colon == std::string::npos ? key : key.substr(colon + 1);
}

qmservice::uint64 hash(const std::string& text) { return std::hash<std::string>()(text); }

}  // namespace utils

namespace qmservice {

uint64 crc64(uint64 seed, const char* data, std::size_t length) {
    uint64 sum = ~seed;
    for (std::size_t at = 0; at < length; ++at) {
        sum ^= static_cast<unsigned char>(data[at]);
        for (int bit = 0; bit < 8; ++bit) {
            sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? 0xC96C5795D7870F42U : 0U);
        }
    }
    return ~sum;
}

// The catalogue and the accounts. Both are called on any thread, and with a lock of the fee center held: they never
// call the fee center.

namespace {

class Catalogue : public IInstrumentCenter {
public:
    shared_ptr<CInstrument> findInstrument(uint64 instrumentKey) override {
        const uint64 known = utils::hash(utils::voStockKey(theInstrument->market, theInstrument->code));
        return instrumentKey == known ? theInstrument : nullptr;
    }

    void getInstrumentMap(int /*type*/, std::map<std::string, shared_ptr<CInstrument>>& instruments) override {
        instruments.clear();  // futures, of which this host has none
    }

    void getInstrumentList(std::vector<shared_ptr<CInstrument>>& instruments, int listMask) override {
        instruments.clear();
        if ((listMask & kStockList) != 0) {
            instruments.push_back(theInstrument);
        }
    }
};

class Accounts : public IDataCenter {
public:
    shared_ptr<CAccountData> getAccountData(uint64 accountKey) override {
        return accountKey == theAccount->getHashKey(0) ? make_shared<CAccountData>(theAccount) : nullptr;
    }
};

}  // namespace

shared_ptr<TraderCenter> TraderCenter::instance() {
    static const auto center = make_shared<TraderCenter>();
    return center;
}

IInstrumentCenter* TraderCenter::getInstCenter() const {
    static Catalogue catalogue;
    return &catalogue;
}

shared_ptr<IDataCenter> TraderCenter::getDataCenter() const {
    static const auto accounts = make_shared<Accounts>();
    return accounts;
}

// The configuration: nothing is configured here, so that the account's own rates and the built-in defaults answer.

int getTradeMinUnit(const std::string& /*market*/, const std::string& /*code*/) { return kUsualTradeUnit; }

shared_ptr<ConfigCollector> ConfigCollector::instance() {
    static const auto configuration = make_shared<ConfigCollector>();
    return configuration;
}

shared_ptr<CStkExchangeRateLimit> ConfigCollector::getRateLimitPtr(std::string /*market*/, std::string /*code*/) {
    return nullptr;
}

shared_ptr<CCustomHGTExchangeRateLimit> ConfigCollector::getHGTExchangeRateLimitPtr(std::string /*market*/,
                                                                                    std::string /*code*/) {
    return nullptr;
}

shared_ptr<CCustomSgtExchangeRateLimit> ConfigCollector::getSgtExchangeRateLimitPtr(std::string /*market*/,
                                                                                    std::string /*code*/) {
    return nullptr;
}

bool ConfigCollector::isSimulationPlatform(int /*platformId*/) const { return false; }

// The categories that custom fees are for. This host has no system categories; what a custom fee brings with it, a list
// of instruments or a group of such lists, is looked up in it.

bool CppCategory::isStockInCategoryForTS(const std::string& /*market*/, const std::string& /*code*/,
                                         const std::string& /*productId*/, int /*category*/) {
    return false;
}

bool CppCategory::isStockInCustomCategory(const std::string& market, const std::string& code,
                                          const std::vector<std::string>& members) {
    return std::find(members.begin(), members.end(), utils::voStockKey(market, code)) != members.end();
}

bool CppCategory::isStockInGroupCategory(const std::string& market, const std::string& code,
                                         const std::string& productId,
                                         const std::vector<shared_ptr<CGroupCategorySubInfo>>& parts,
                                         std::map<int, std::vector<std::string>> customCategories) {
    bool takenIn = false;
    for (const shared_ptr<CGroupCategorySubInfo>& part : parts) {
        if (!part) {
            continue;
        }
        const auto custom = customCategories.find(part->category);
        const bool holds = custom != customCategories.end()
                               ? isStockInCustomCategory(market, code, custom->second)
                               : isStockInCategoryForTS(market, code, productId, part->category);
        if (holds && part->excluded != 0) {
            return false;
        }
        takenIn = takenIn || holds;
    }
    return takenIn;
}

int CppCategory::getCategorId(const std::string& /*name*/) { return 0; }

bool StockTypeCenter::isWPMarket(const std::string& /*market*/) const { return false; }

}  // namespace qmservice

// The engine: one thread, which runs the jobs of all strands.

namespace {

class Engine {
public:
    Engine() : thread([this] { runJobs(); }) {}
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    ~Engine() { stop(); }

    shared_ptr<boost::asio::io_service::strand> strand(const std::string& name) {
        const std::lock_guard<std::mutex> lock(mutex);
        auto& found = strands[name];
        if (!found) {
            found = boost::make_shared<boost::asio::io_service::strand>(jobs);
        }
        return found;
    }

    /// Finishes what is queued.
    void stop() {
        waitsForMore.reset();
        if (thread.joinable()) {
            thread.join();
        }
    }

private:
    /// A job that throws ends by itself and not the others: a service of this host may throw inside it.
    void runJobs() {
        for (bool ended = false; !ended;) {
            try {
                jobs.run();
                ended = true;
            } catch (const std::exception& error) {
                std::cerr << "a job ended early: " << error.what() << '\n';
            }
        }
    }

    boost::asio::io_service jobs;
    std::unique_ptr<boost::asio::io_service::work> waitsForMore = std::make_unique<boost::asio::io_service::work>(jobs);
    std::mutex mutex;
    std::map<std::string, shared_ptr<boost::asio::io_service::strand>> strands;
    std::thread thread;  // last: the others exist when it begins
};

Engine& engine() {
    static Engine only;
    return only;
}

}  // namespace

shared_ptr<boost::asio::io_service::strand> net::RPCEngine::getStrand(const std::string& name) {
    return engine().strand(name);
}

// The three services that are found by their class.

namespace utils {

template <>
net::RPCEngine* CSingletonT<net::RPCEngine>::instance() {
    static net::RPCEngine only;
    return &only;
}

template <>
qmservice::CppCategory* CSingletonT<qmservice::CppCategory>::instance() {
    static qmservice::CppCategory only;
    return &only;
}

template <>
qmservice::StockTypeCenter* CSingletonT<qmservice::StockTypeCenter>::instance() {
    static qmservice::StockTypeCenter only;
    return &only;
}

}  // namespace utils

// The client.

namespace {

/// A fee record as a back end sends it.
shared_ptr<qmservice::IData> makeRecord() {
    const auto record = make_shared<qmservice::CInstrumentFee>();
    record->instrument = theInstrument;
    record->stkRateLimit = make_shared<qmservice::CStkExchangeRateLimit>();
    record->stkRateLimit->rate1 = 0.00025;
    return record;
}

/// Waits until all that has been posted to the strand has run. Never to be called on a thread of the engine.
void waitForStrand(const std::string& name) {
    const auto marker = std::make_shared<std::promise<void>>();
    std::future<void> reached = marker->get_future();
    engine().strand(name)->post([marker] { marker->set_value(); });
    reached.wait();
}

void show(qmservice::IFeeCenter& fees, const std::string& market, const std::string& code) {
    const auto fee = fees.getFee(theAccount, market, code);
    if (!fee) {
        std::cout << "the host knows no " << market << ':' << code << ": there is no fee, which is not a fee of zero\n";
        return;
    }
    std::cout << market << ':' << code << " for account " << fee->account->accountId << ": ";
    fee->stkRateLimit->toLogStream(std::cout);
    std::cout << '\n';
}

}  // namespace

int main() {
    qmservice::CFeeCenter fees("fees");
    fees.initFees(theAccount, {makeRecord()});  // queued on the strand "fees"; returns at once
    waitForStrand("fees");
    show(fees, "SH", "600519");
    show(fees, "SH", "600000");
    engine().stop();  // before the fee center ends: no job may run behind it
    return 0;
}
