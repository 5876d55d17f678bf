#include "bench/under_load.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <iostream>
#include <thread>
#include <vector>

#include "bench/filled.h"
#include "bench/plain.h"
#include "host/keys.h"

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;
using Times = std::vector<long>;

constexpr int kLoaded = 50000;
constexpr std::size_t kLookups = 40000;
constexpr int kLoadedAccount = 1;
constexpr double kShares[] = {0.1, 0.5, 0.75, 0.9, 0.95, 0.99, 0.995, 0.999, 0.9995, 0.9999};

long nanoseconds(Clock::duration time) { return std::chrono::duration_cast<std::chrono::nanoseconds>(time).count(); }

/// What it takes to look at the clock twice.
long clockTime() {
    Times times;
    for (int i = 0; i < 10000; ++i) {
        const auto start = Clock::now();
        times.push_back(nanoseconds(Clock::now() - start));
    }
    std::nth_element(times.begin(), times.begin() + 5000, times.end());
    return times[5000];
}

/// One after the other while `load` runs again and again, sorted.
template <class Center, class Load>
Times timed(Center& center, const std::vector<Question>& questions, const Load& load) {
    std::atomic<bool> loading{true};
    std::atomic<bool> asked{false};
    std::thread loader([&] {
        while (!asked) {
            load();
            loading = false;
        }
    });
    while (loading) {
        std::this_thread::yield();  // the first load makes the tables: from then on they keep their size
    }
    Times times;
    times.reserve(kLookups);
    for (std::size_t n = 0; n < kLookups; ++n) {
        const Question& question = questions[n % questions.size()];
        const auto start = Clock::now();
        auto answer = center.ask(question.account, question.key);
        benchmark::DoNotOptimize(answer);
        times.push_back(nanoseconds(Clock::now() - start));
    }
    asked = true;
    loader.join();
    std::sort(times.begin(), times.end());
    return times;
}

void print(const char* who, int round, const Times& times) {
    static const long clock = clockTime();
    for (const double share : kShares) {
        const auto place = static_cast<std::size_t>(share * static_cast<double>(times.size() - 1));
        std::cout << '"' << who << "\"," << round << ',' << share << ',' << std::max(times[place] - clock, 0L) << '\n';
    }
}

class UnderLoad {
public:
    template <class Implementation>
    void center(int round) {
        static auto& filledOne = filled<Implementation>(kUsualShape);
        if (round == 0) {
            checkAll(mix, questions, filledOne);
        }
        print(Implementation::kName, round, timed(filledOne, questions, [&] { filledOne.load(loaded, records); }));
    }

    template <class Way>
    void plain(int round) {
        using Table = Plain<Way, StockRates>;
        static Table table;
        if (round == 0) {
            for (const auto& question : questions) {
                StockRates rates;
                expect(mix, question, rates);
                table.set(question.account, question.key, rates);
            }
        }
        print(Way::kName, round, timed(table, questions, [&] { loadPlain(table); }));
    }

private:
    template <class Table>
    void loadPlain(Table& table) const {
        for (const auto& record : records) {
            const auto* fee = dynamic_cast<const qmservice::CInstrumentFee*>(record.get());
            StockRates rates;
            read(*fee, rates);
            table.set(loaded, utils::voStockKey(fee->instrument->market, fee->instrument->code), rates);
        }
    }

    const Mix& mix = allMixes().front();
    std::vector<Question> questions = questionsOf(mix, kUsualShape);
    Account loaded = accountOf(mix.kind, kLoadedAccount);
    Records records = stockRecords(kShanghai, kLoadedAccount, kLoaded);
};

}  // namespace

void measureUnderLoad(int rounds) {
    UnderLoad run;
    std::cout << "implementation,round,share,ns\n";
    for (int round = 0; round < rounds; ++round) {
        run.center<FeeCenter>(round);
        run.center<Floor>(round);
        run.plain<SharedMutex>(round);
        run.plain<OneMutex>(round);
#if BOOST_VERSION >= 108100
        run.plain<FlatMap>(round);
#endif
    }
}

}  // namespace bench
