// What one query costs, by mix and number of threads, on the bundled market.
//
//   hit      an instrument that the account has an entry for
//   miss     one that it has not: the fallback through catalogue and configuration
//   hot      the same instrument over and over
//   update   hits while custom fees are applied to the same account
//   plain    the alternative: the same rates in one hash table under one mutex, without a host
//
// Every answer is checked once before anything is timed.

#include <benchmark/benchmark.h>

#include <atomic>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#include "CFeeCenter.h"
#include "host/services.h"
#include "standalone/host.h"
#include "standalone/loader.h"

namespace {

using boost::shared_ptr;
using qmservice::CInstrumentFee;

[[noreturn]] void fail(const std::string& what) {
    std::cerr << "lookup_bench: " << what << '\n';
    std::exit(1);
}

/// The market, a fee center with its first stock account, and the account's keys, hits and misses apart.
class Fixture {
public:
    Fixture() : market(loadBundled()) {
        standalone::install(market);
        standalone::startEngine(market.engineThreads);
        center = new qmservice::CFeeCenter("bench");
        for (const auto& candidate : market.accounts) {
            if (candidate.record->accountType == qmservice::kStockAccount && !candidate.fees.empty() &&
                account == nullptr) {
                account = &candidate;
            }
        }
        if (account == nullptr) {
            fail("the bundled market has no stock account with fee records");
        }
        standalone::feed(*center, *account);
        standalone::waitForStrand("bench");
        sortKeys();
    }

    const standalone::Market market;
    qmservice::CFeeCenter* center = nullptr;  ///< lives as long as the process, like a client's
    const standalone::Account* account = nullptr;
    std::vector<std::string> hits;
    std::vector<std::string> misses;
    std::mutex plainMutex;
    std::unordered_map<std::string, shared_ptr<qmservice::CStkExchangeRateLimit>> plain;

private:
    static standalone::Market loadBundled() {
        auto result = standalone::loadMarket(BUNDLED_MARKET);
        if (!result.ok()) {
            fail(result.errors.front().text());
        }
        return std::move(result.market);
    }

    void sortKeys() {
        std::vector<shared_ptr<CInstrumentFee>> fees;
        center->getFees(account->record, fees);
        for (const auto& fee : fees) {
            const std::string key = utils::voStockKey(fee->instrument->market, fee->instrument->code);
            plain[key] = fee->stkRateLimit;
        }
        for (const auto& listed : market.instruments) {
            const std::string key = utils::voStockKey(listed.record->market, listed.record->code);
            const auto fee = center->getFee(account->record, key);
            if (!fee || !fee->stkRateLimit || fee->instrument != listed.record) {
                fail("no answer for " + key);
            }
            const auto own = plain.find(key);
            if (own != plain.end() && own->second != fee->stkRateLimit) {
                fail("the list and the query disagree on " + key);
            }
            (own != plain.end() ? hits : misses).push_back(key);
        }
        if (hits.empty() || misses.empty()) {
            fail("the account has no hits or no misses");
        }
    }
};

Fixture& fixture() {
    static Fixture instance;
    return instance;
}

/// Asks for the keys in turn, each thread from a place of its own.
void ask(benchmark::State& state, const std::vector<std::string>& keys) {
    Fixture& f = fixture();
    std::size_t next = static_cast<std::size_t>(state.thread_index()) * keys.size() / 8;
    for (auto _ : state) {
        benchmark::DoNotOptimize(f.center->getFee(f.account->record, keys[next % keys.size()]));
        ++next;
    }
    state.SetItemsProcessed(state.iterations());
}

void hit(benchmark::State& state) { ask(state, fixture().hits); }

void miss(benchmark::State& state) { ask(state, fixture().misses); }

void hot(benchmark::State& state) { ask(state, {fixture().hits.front()}); }

void update(benchmark::State& state) {
    Fixture& f = fixture();
    static std::atomic<bool> running;
    std::thread writer;
    if (state.thread_index() == 0) {
        running = true;
        writer = std::thread([&f] {
            while (running) {
                standalone::feed(*f.center, *f.account);
                standalone::waitForStrand("bench");
            }
        });
    }
    ask(state, f.hits);
    if (state.thread_index() == 0) {
        running = false;
        writer.join();
    }
}

void plain(benchmark::State& state) {
    Fixture& f = fixture();
    std::size_t next = 0;
    for (auto _ : state) {
        const std::lock_guard<std::mutex> lock(f.plainMutex);
        auto fee = boost::make_shared<CInstrumentFee>();
        fee->stkRateLimit = f.plain.find(f.hits[next % f.hits.size()])->second;
        benchmark::DoNotOptimize(fee);
        ++next;
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(hit)->ThreadRange(1, 4)->UseRealTime();
BENCHMARK(miss)->ThreadRange(1, 4)->UseRealTime();
BENCHMARK(hot)->ThreadRange(1, 4)->UseRealTime();
BENCHMARK(update)->ThreadRange(1, 4)->UseRealTime();
BENCHMARK(plain)->ThreadRange(1, 4)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
