#include "bench/lookups.h"

#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <tuple>
#include <vector>

#include "bench/filled.h"
#include "bench/plain.h"

namespace bench {
namespace {

/// The object that `make` makes under this name, made once. Safe from any thread.
template <class T, class Make>
T& once(const Mix& mix, Shape shape, const Make& make) {
    static std::mutex mutex;
    static std::map<std::tuple<std::string, int, int>, std::unique_ptr<T>> all;
    const std::lock_guard<std::mutex> lock(mutex);
    auto& made = all[{mix.name, shape.accounts, shape.entries}];
    if (!made) {
        made = std::make_unique<T>(make());
    }
    return *made;
}

const std::vector<Question>& questionsFor(const Mix& mix, Shape shape) {
    return once<std::vector<Question>>(mix, shape, [&] { return questionsOf(mix, shape); });
}

/// Asks in turn, each thread from a place of its own.
template <class Center>
void ask(benchmark::State& state, const std::vector<Question>& questions, Center& center) {
    const std::size_t size = questions.size();
    std::size_t next = size / 8 * static_cast<std::size_t>(state.thread_index());
    for (auto _ : state) {
        const Question& question = questions[next++ % size];
        benchmark::DoNotOptimize(center.ask(question.account, question.key));
    }
    state.SetItemsProcessed(state.iterations());
}

template <class Implementation>
void lookup(benchmark::State& state, const Mix& mix, Shape shape) {
    const auto& questions = questionsFor(mix, shape);
    auto& center = filled<Implementation>(shape);
    struct Checked {};
    once<std::pair<Implementation*, Checked>>(mix, shape, [&] {
        checkAll(mix, questions, center);
        return std::make_pair(&center, Checked());
    });
    ask(state, questions, center);
}

/// What the plain alternative is filled with: each account's rates of every instrument that a question may be about.
template <class Way, class Rates>
void fillPlain(const Mix& mix, Shape shape, Plain<Way, Rates>& plain) {
    if (mix.answer == Answer::kNothing) {
        return;
    }
    const int count = mix.source == Source::kOwn ? shape.entries : kOthers;
    for (int number = 0; number < shape.accounts; ++number) {
        const Account account = accountOf(mix.kind, number);
        for (int n = 0; n < count; ++n) {
            Question question{
                account, utils::voStockKey(mix.market, codeOf(mix.listing, mix.source, n)), number, n, {}};
            Rates rates;
            expect(mix, question, rates);
            plain.set(account, question.key, rates);
        }
    }
}

template <class Way, class Rates>
void plainLookup(benchmark::State& state, const Mix& mix, Shape shape) {
    using Table = Plain<Way, Rates>;
    const auto& questions = questionsFor(mix, shape);
    auto& plain = *once<std::unique_ptr<Table>>(mix, shape, [&] {
        auto table = std::make_unique<Table>();
        fillPlain(mix, shape, *table);
        for (const auto& question : questions) {
            Rates wanted;
            expect(mix, question, wanted);
            const auto given = table->ask(question.account, question.key);
            if (mix.answer == Answer::kNothing ? given.has_value() : !given || !(*given == wanted)) {
                fail(std::string("wrong answer of ") + Way::kName + " in \"" + mix.name + "\" for " + question.key);
            }
        }
        return table;
    });
    ask(state, questions, plain);
}

using Run = std::function<void(benchmark::State&)>;

void add(const Mix& mix, Shape shape, const std::vector<int>& threads, const char* who, const Run& run) {
    const std::string name = std::string("lookup/") + mix.name + "/" + who + "/" + std::to_string(shape.accounts) +
                             "x" + std::to_string(shape.entries);
    auto* added = benchmark::RegisterBenchmark(name.c_str(), run);
    for (const int count : threads) {
        added->Threads(count);
    }
    added->UseRealTime();
}

template <class Implementation>
void addCenter(const Mix& mix, Shape shape, const std::vector<int>& threads) {
    add(mix, shape, threads, Implementation::kName,
        [&mix, shape](auto& state) { lookup<Implementation>(state, mix, shape); });
}

template <class Way>
void addPlain(const Mix& mix, Shape shape, const std::vector<int>& threads) {
    withRates(mix, [&](auto rates) {
        add(mix, shape, threads, Way::kName,
            [&mix, shape](auto& state) { plainLookup<Way, decltype(rates)>(state, mix, shape); });
    });
}

void addAll(const Mix& mix, Shape shape, const std::vector<int>& threads) {
    addCenter<FeeCenter>(mix, shape, threads);
    addCenter<Floor>(mix, shape, threads);
    addPlain<SharedMutex>(mix, shape, threads);
    addPlain<OneMutex>(mix, shape, threads);
#if BOOST_VERSION >= 108100
    addPlain<FlatMap>(mix, shape, threads);
#endif
}

}  // namespace

void registerLookups() {
    for (const Mix& mix : allMixes()) {
        addAll(mix, kUsualShape, mix.isHit ? std::vector<int>{1, 2, 4} : std::vector<int>{1});
    }
    const Mix& stockHit = allMixes().front();
    // 50 thousand and 1 million entries; 1, 100 and 1,000 accounts of as many entries each.
    for (const Shape shape :
         {Shape{1, 50000}, Shape{100, 10000}, Shape{1, 1000}, Shape{100, 1000}, Shape{1000, 1000}}) {
        addAll(stockHit, shape, {1});
    }
}

}  // namespace bench
