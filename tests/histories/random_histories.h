#ifndef TESTS_HISTORIES_RANDOM_HISTORIES_H
#define TESTS_HISTORIES_RANDOM_HISTORIES_H

#include <cstdint>
#include <functional>
#include <string>

#include "histories/bytes.h"
#include "histories/world.h"

namespace histories {

/// Runs `count` histories that the seed makes. `failureOf` runs one and says what is wrong with it; nothing when it is
/// empty. The first history with something wrong is made as short and simple as it can be, which runs many others, and
/// what is wrong with that one is the result; empty when nothing is.
std::string firstFailure(std::uint64_t seed, int count, const std::function<std::string(const History&)>& failureOf);

struct Totals {
    std::uint64_t histories = 0;
    std::uint64_t steps = 0;
    std::uint64_t answers = 0;  ///< compared
};

/// Runs `count` histories that the seed makes, and adds to the totals what was done. The first history that shows a
/// difference is made as short and simple as it can be and described; empty when none does. What shrinking runs is not
/// counted.
std::string runRandomHistories(std::uint64_t seed, Focus focus, int count, Totals& totals);

/// "histories: 1, steps: 2, answers compared: 3"
std::string describe(const Totals& totals);

}  // namespace histories

#endif  // TESTS_HISTORIES_RANDOM_HISTORIES_H
