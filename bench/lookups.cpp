#include "bench/lookups.h"

#include <atomic>
#include <boost/thread/barrier.hpp>
#include <memory>
#include <string>

#include "bench/contest.h"
#include "bench/turns.h"

namespace bench {
namespace {

constexpr std::size_t kAsked = 512;  ///< some 0.2 ms: most turns are over before the thread loses its processor
constexpr int kRoundsOfOne = 300;
constexpr int kRoundsOfSeveral = 15;

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

/// What the threads of a benchmark share: they ask one implementation together until the turn ends.
struct Together {
    explicit Together(int threads) : barrier(static_cast<unsigned>(threads)) {}

    boost::barrier barrier;
    std::atomic<long> asked{0};
    std::atomic<double> end{0};
};

constexpr std::size_t kAskedAtATime = 64;

/// Nanoseconds between two answers of all threads together, for the first thread; nothing for the others. Longer than
/// the turns of one thread, so that all threads run in it.
double askTogether(const Contestant& contestant, bool isFirst, std::size_t& next, Together& together) {
    constexpr double kTurn = 20e6;
    if (isFirst) {
        together.asked = 0;
        together.end = wallTime() + kTurn;
    }
    together.barrier.wait();
    long asked = 0;
    while (wallTime() < together.end) {
        contestant.ask(next, kAskedAtATime);
        next += kAskedAtATime;
        asked += kAskedAtATime;
    }
    together.asked += asked;
    together.barrier.wait();
    return kTurn / static_cast<double>(together.asked);
}

void askTogether(benchmark::State& state, const Contest& contest, Together& together) {
    const bool isFirst = state.thread_index() == 0;
    Turns turns;
    std::size_t next = contest.questions.size() / 8 * static_cast<std::size_t>(state.thread_index());
    std::size_t round = 0;
    for (auto _ : state) {
        forEachInTurn(contest.contestants, round++, [&](const auto& contestant) {
            const double spent = askTogether(contestant, isFirst, next, together);
            turns.add(contestant.name, spent);
        });
    }
    if (isFirst) {
        turns.report(state, 1);
    }
}

void add(const Mix& mix, Shape shape, int threads) {
    const std::string name =
        std::string("lookup/") + mix.name + "/" + std::to_string(shape.accounts) + "x" + std::to_string(shape.entries);
    const auto together = std::make_shared<Together>(threads);
    const auto run = [&mix, shape, threads, together](benchmark::State& state) {
        const Contest& contest = contestOf(mix, shape);
        threads == 1 ? askAlone(state, contest) : askTogether(state, contest, *together);
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
