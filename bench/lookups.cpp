#include "bench/lookups.h"

#include <boost/thread/barrier.hpp>
#include <memory>
#include <string>

#include "bench/contest.h"
#include "bench/turns.h"

namespace bench {
namespace {

constexpr std::size_t kAsked = 512;  ///< some 0.2 ms: most turns are over before the thread loses its processor
constexpr int kRoundsOfOne = 300;
constexpr int kRoundsOfSeveral = 100;

/// A turn of one of them. It asks other questions first: what the one before it has pushed out of the caches, or left
/// in them, is then of no account.
void takeTurn(Turns& turns, const Contestant& contestant, double (*clock)(), std::size_t& next) {
    contestant.ask(next, kAsked);
    turns.take(contestant.name, clock, [&] { contestant.ask(next + kAsked, kAsked); });
    next += 2 * kAsked;
}

void askAlone(benchmark::State& state, const Contest& contest) {
    Turns turns;
    std::size_t next = 0;
    std::size_t round = 0;
    for (auto _ : state) {
        forEachInTurn(contest.contestants, round++,
                      [&](const auto& contestant) { takeTurn(turns, contestant, processorTime, next); });
    }
    turns.report(state, kAsked);
}

/// All threads ask the same implementation at the same time, each from a place of its own.
void askTogether(benchmark::State& state, const Contest& contest, boost::barrier& barrier) {
    Turns turns;
    std::size_t next = contest.questions.size() / 8 * static_cast<std::size_t>(state.thread_index());
    std::size_t round = 0;
    for (auto _ : state) {
        forEachInTurn(contest.contestants, round++, [&](const auto& contestant) {
            barrier.wait();
            takeTurn(turns, contestant, wallTime, next);
        });
    }
    turns.report(state, kAsked);
}

void add(const Mix& mix, Shape shape, int threads) {
    const std::string name =
        std::string("lookup/") + mix.name + "/" + std::to_string(shape.accounts) + "x" + std::to_string(shape.entries);
    const auto barrier = std::make_shared<boost::barrier>(static_cast<unsigned>(threads));
    const auto run = [&mix, shape, threads, barrier](benchmark::State& state) {
        const Contest& contest = contestOf(mix, shape);
        threads == 1 ? askAlone(state, contest) : askTogether(state, contest, *barrier);
    };
    benchmark::RegisterBenchmark(name.c_str(), run)
        ->Threads(threads)
        ->Iterations(threads == 1 ? kRoundsOfOne : kRoundsOfSeveral)
        ->UseRealTime();
}

}  // namespace

void registerLookups() {
    for (const Mix& mix : allMixes()) {
        for (const int threads : {1, 2, 4}) {
            if (threads == 1 || mix.isHit) {
                add(mix, kUsualShape, threads);
            }
        }
    }
    const Mix& stockHit = allMixes().front();
    // 50 thousand and 1 million entries; 1, 100 and 1,000 accounts of as many entries each.
    for (const Shape shape :
         {Shape{1, 50000}, Shape{100, 10000}, Shape{1, 1000}, Shape{100, 1000}, Shape{1000, 1000}}) {
        add(stockHit, shape, 1);
    }
}

}  // namespace bench
