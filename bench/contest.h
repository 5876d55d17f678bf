#ifndef BENCH_CONTEST_H
#define BENCH_CONTEST_H

#include <functional>
#include <vector>

#include "bench/mixes.h"

namespace bench {

/// One way to answer a mix. Its answers have been checked.
struct Contestant {
    const char* name;
    /// Asks `count` questions from the `first` on, and begins again at the end of them. Safe from any thread.
    std::function<void(std::size_t first, std::size_t count)> ask;
};

/// A mix and all who answer it: the fee center, the floor and the plain alternatives, in this order.
struct Contest {
    std::vector<Question> questions;
    std::vector<Contestant> contestants;
};

/// The contest of a mix on tables of a shape, made when it is first asked for. Ends the program where an answer is
/// wrong. Safe from any thread.
const Contest& contestOf(const Mix& mix, Shape shape);

}  // namespace bench

#endif  // BENCH_CONTEST_H
