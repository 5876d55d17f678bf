#include "bench/bulk.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>

namespace bench {
namespace {

const Mix& mixCalled(const std::string& name) {
    const auto& mixes = allMixes();
    return *std::find_if(mixes.begin(), mixes.end(), [&](const Mix& mix) { return mix.name == name; });
}

/// Processor time of this thread: what else runs on the machine is not in it.
double secondsSpent() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

template <class Implementation>
void work(benchmark::State& state, const Bulk& bulk) {
    BulkRun<Implementation> run(bulk);
    for (auto _ : state) {
        run.reset();
        const double start = secondsSpent();
        run.run();
        state.SetIterationTime(secondsSpent() - start);
    }
    state.SetItemsProcessed(state.iterations() * kBulkEntries);
}

template <class Implementation>
void add(const Bulk& bulk) {
    const std::string name = std::string("bulk/") + bulk.name + "/" + Implementation::kName;
    benchmark::RegisterBenchmark(name.c_str(), [&bulk](auto& state) {
        work<Implementation>(state, bulk);
    })->UseManualTime();
}

}  // namespace

const std::vector<Bulk>& allBulks() {
    static const Mix& stock = mixCalled("stock hit");
    static const Mix& futures = mixCalled("futures hit");
    static const std::vector<Bulk> bulks = {
        {"stock load", Work::kLoad, stock},     {"futures load", Work::kLoad, futures},
        {"stock list", Work::kList, stock},     {"futures list", Work::kList, futures},
        {"stock update", Work::kUpdate, stock}, {"futures update", Work::kUpdate, futures},
    };
    return bulks;
}

void registerBulks() {
    for (const Bulk& bulk : allBulks()) {
        add<FeeCenter>(bulk);
        add<Floor>(bulk);
    }
}

}  // namespace bench
