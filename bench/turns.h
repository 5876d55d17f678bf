#ifndef BENCH_TURNS_H
#define BENCH_TURNS_H

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <string>
#include <vector>

namespace bench {

/// Processor time of this thread, in nanoseconds: what else runs on the machine is not in it.
inline double processorTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return 1e9 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec);
}

/// Time of the clock on the wall, in nanoseconds.
inline double wallTime() {
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

inline double medianOf(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Calls `use` for each element; another one is the first in each round.
template <class Elements, class Use>
void forEachInTurn(const Elements& elements, std::size_t round, const Use& use) {
    for (std::size_t i = 0; i < elements.size(); ++i) {
        use(elements[(round + i) % elements.size()]);
    }
}

/// The times of implementations that take turns, each turn so short that whatever else the machine does meets all
/// alike: the ratio of two medians then says something even on a busy machine. For one thread.
class Turns {
public:
    /// How long `run` takes by the clock, as the turn of `name`.
    template <class Run>
    void take(const char* name, double (*clock)(), const Run& run) {
        const double start = clock();
        run();
        const double spent = clock() - start;
        add(name, spent);
    }

    /// The same for a turn whose time is known.
    void add(const char* name, double spent) { timesOf(name).push_back(spent); }

    /// Reports each implementation's median, divided by what a turn holds of what is measured, under its name.
    void report(benchmark::State& state, int inATurn) const {
        for (const Times& one : all) {
            state.counters[one.name] = medianOf(one.spent) / inATurn;
        }
    }

private:
    struct Times {
        std::string name;
        std::vector<double> spent;
    };

    std::vector<double>& timesOf(const char* name) {
        const auto found = std::find_if(all.begin(), all.end(), [&](const Times& one) { return one.name == name; });
        if (found != all.end()) {
            return found->spent;
        }
        all.push_back({name, {}});
        return all.back().spent;
    }

    std::vector<Times> all;
};

}  // namespace bench

#endif  // BENCH_TURNS_H
