#include "bench/parts.h"

#include <benchmark/benchmark.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <boost/thread/lock_types.hpp>
#include <boost/thread/shared_mutex.hpp>
#include <shared_mutex>
#include <string>

#include "bench/mixes.h"
#include "host/services.h"

namespace bench {
namespace {

template <class Lock>
void takeLock(benchmark::State& state) {
    static typename Lock::mutex_type mutex;
    for (auto _ : state) {
        const Lock lock(mutex);
        benchmark::ClobberMemory();
    }
}

void makeAnswer(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(boost::make_shared<qmservice::CInstrumentFee>());
    }
}

/// The account and the instrument are one object for all threads, and so are their counts.
void shareRecords(benchmark::State& state) {
    static const Account account = accountOf(qmservice::kStockAccount, 0);
    static const auto instrument = instrumentOf(kShanghai, Source::kOwn, 0);
    for (auto _ : state) {
        benchmark::DoNotOptimize(Account(account));
        benchmark::DoNotOptimize(boost::shared_ptr<qmservice::CInstrument>(instrument));
    }
}

const std::string& stockKey() {
    static const std::string key = utils::voStockKey(kShanghai.market, codeOf(kShanghai, Source::kOwn, 0));
    return key;
}

void askForInstrument(benchmark::State& state) {
    for (auto _ : state) {
        const auto key = utils::hash(stockKey());
        benchmark::DoNotOptimize(qmservice::TraderCenter::instance()->getInstCenter()->findInstrument(key));
    }
}

void askForTradeUnit(benchmark::State& state) {
    for (auto _ : state) {
        std::string market;
        std::string code;
        utils::splitVoStockKey(stockKey(), market, code);
        benchmark::DoNotOptimize(qmservice::getTradeMinUnit(market, code));
    }
}

benchmark::internal::Benchmark* add(const char* name, void (*part)(benchmark::State&)) {
    return benchmark::RegisterBenchmark((std::string("part/") + name).c_str(), part);
}

}  // namespace

void registerParts() {
    add("boost::shared_mutex, taken shared", takeLock<boost::shared_lock<boost::shared_mutex>>);
    add("std::shared_mutex, taken shared", takeLock<std::shared_lock<std::shared_mutex>>);
    add("boost::shared_mutex, two threads together", takeLock<boost::shared_lock<boost::shared_mutex>>)
        ->Threads(2)
        ->UseRealTime();
    add("std::shared_mutex, two threads together", takeLock<std::shared_lock<std::shared_mutex>>)
        ->Threads(2)
        ->UseRealTime();
    add("an answer made and freed", makeAnswer);
    add("account and instrument shared", shareRecords);
    add("host: hash and instrument", askForInstrument);
    add("host: split and trade unit", askForTradeUnit);
}

}  // namespace bench
