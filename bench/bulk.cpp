#include "bench/bulk.h"

#include <algorithm>
#include <functional>

#include "bench/turns.h"

namespace bench {
namespace {

const Mix& mixCalled(const std::string& name) {
    const auto& mixes = allMixes();
    return *std::find_if(mixes.begin(), mixes.end(), [&](const Mix& mix) { return mix.name == name; });
}

constexpr int kRounds = 20;

template <class Implementation>
void takeTurn(Turns& turns, BulkRun<Implementation>& run) {
    run.reset();
    run.run();  // the caches and the allocator are its own from here on
    run.reset();
    turns.take(Implementation::kName, processorTime, [&] { run.run(); });
}

void work(benchmark::State& state, const Bulk& bulk) {
    std::unique_ptr<BulkRun<FeeCenter>> center;
    std::unique_ptr<BulkRun<Floor>> byHand;
    if (tossCoin()) {
        byHand = std::make_unique<BulkRun<Floor>>(bulk);
    }
    center = std::make_unique<BulkRun<FeeCenter>>(bulk);
    if (!byHand) {
        byHand = std::make_unique<BulkRun<Floor>>(bulk);
    }
    Turns turns;
    const std::vector<std::function<void()>> both = {[&] { takeTurn(turns, *center); },
                                                     [&] { takeTurn(turns, *byHand); }};
    std::size_t round = 0;
    for (auto _ : state) {
        forEachInTurn(both, round++, [](const auto& turn) { turn(); });
    }
    turns.report(state, kBulkEntries);
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
        const std::string name = std::string("bulk/") + bulk.name;
        benchmark::RegisterBenchmark(name.c_str(), [&bulk](auto& state) { work(state, bulk); })
            ->Iterations(kRounds)
            ->UseRealTime();
    }
}

}  // namespace bench
