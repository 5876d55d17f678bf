#include "support/faulty_host.h"

#include <boost/smart_ptr/make_shared.hpp>
#include <exception>
#include <utility>

#include "host/services.h"

namespace test {
namespace {

using namespace qmservice;

FaultyHost* living = nullptr;
thread_local bool isEngineThread = false;

/// An account whose key is no good where the fault says so.
class FaultyAccount : public CAccountInfo {
public:
    [[nodiscard]] uint64 getHashKey(uint64 seed) const override {
        if (FaultyHost::breaks("accounts.keys-differ")) {
            return 7;
        }
        const uint64 key = CAccountInfo::getHashKey(seed);
        return FaultyHost::breaks("accounts.key-stays") ? key + ++calls % 2 : key;
    }

private:
    mutable uint64 calls = 0;
};

boost::shared_ptr<CAccountInfo> accountOf(const std::string& id) {
    auto account = boost::make_shared<FaultyAccount>();
    account->accountId = id;
    account->accountType = kStockAccount;
    return account;
}

}  // namespace

FaultyHost::FaultyHost(std::string faultOrLiberty) : fault(std::move(faultOrLiberty)) {
    living = this;
    add("SH", "600519", kStockList, 0);
    add("SZ", "000001", kCreditList, 0);
    add("HK", "00700", kHgtList | kSgtList, 0);
    add("SHFE", "rb2610", 0, kFuturesType);
    add("BJ", "430047", 0, 0);
    // One code in two markets, one of each type; and an instrument of both types.
    add("SHFE", "bc2610", 0, kFuturesType);
    add("INE", "bc2610", 0, kFuturesExtraType);
    add("INE", "sc2610", 0, kFuturesType | kFuturesExtraType);
    instruments[3].instrument->feeType = kPerLotFee;
    instruments[3].instrument->openFee = breaks("catalogue.exchange-fees") ? -3 : 1;
    instruments[3].instrument->closeFee = -1;
    accounts = {accountOf("30001"), accountOf("30002")};
    if (!breaks("engine.runs-jobs")) {
        threads.emplace_back([this] { work(); });
        threads.emplace_back([this] { work(); });
    }
}

FaultyHost::~FaultyHost() {
    keepsRunning.reset();
    for (std::thread& thread : threads) {
        thread.join();
    }
    living = nullptr;
}

FaultyHost& FaultyHost::current() { return *living; }

bool FaultyHost::breaks(const char* fault) { return living != nullptr && living->fault == fault; }

bool FaultyHost::onEngine() { return isEngineThread; }

conformance::Sample FaultyHost::sample() const {
    conformance::Sample sample;
    sample.instruments = {{"SH", "600519", kStockList, 0},
                          {"HK", "00700", kHgtList | kSgtList, 0},
                          {"SHFE", "rb2610", 0, kFuturesType},
                          {"BJ", "430047"}};
    sample.accounts = accounts;
    sample.crc64OfDigits = 0x995DC9BBDF1939FA;
    sample.engineOutlivesExceptions = true;
    sample.hold = std::chrono::milliseconds(1);
    return sample;
}

boost::shared_ptr<CInstrument> FaultyHost::find(const std::string& market, const std::string& code) const {
    for (const Listed& listed : instruments) {
        if (listed.instrument->market == market && listed.instrument->code == code) {
            return listed.instrument;
        }
    }
    return {};
}

boost::shared_ptr<boost::asio::io_service::strand> FaultyHost::strand(const std::string& name) {
    if (breaks("engine.one-strand-of-a-name")) {
        return boost::make_shared<boost::asio::io_service::strand>(io);
    }
    const std::lock_guard<std::mutex> lock(strandsMutex);
    auto& known = strands[name];
    if (!known) {
        known = boost::make_shared<boost::asio::io_service::strand>(io);
    }
    return known;
}

void FaultyHost::add(const std::string& market, const std::string& code, int lists, int types) {
    auto instrument = boost::make_shared<CInstrument>();
    instrument->market = market;
    instrument->code = code;
    instruments.push_back({std::move(instrument), lists, types});
}

void FaultyHost::work() {
    isEngineThread = true;
    for (;;) {
        try {
            io.run();
            return;
        } catch (const std::exception&) {
            if (breaks("engine.outlives-exceptions")) {
                io.stop();
                return;
            }
        }
    }
}

}  // namespace test
