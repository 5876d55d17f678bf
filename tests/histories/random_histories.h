#ifndef TESTS_HISTORIES_RANDOM_HISTORIES_H
#define TESTS_HISTORIES_RANDOM_HISTORIES_H

#include <cstdint>
#include <functional>
#include <string>

#include "histories/run_history.h"
#include "histories/world.h"

namespace histories {

/// What is done with a history.
struct Trial {
    Focus focus;
    const char* test;  ///< what to run for a given history, such as "some_test --gtest_filter='*Suite*'"
    std::function<std::string(const History&)> failureOf;  ///< what is wrong, in words; empty when nothing is
};

/// Tries `count` histories that the seed makes. The first with something wrong is made as short and simple as it can
/// be, which tries many others. What is wrong with that one is the result, with the line that runs it again; empty when
/// nothing is.
std::string firstFailure(std::uint64_t seed, int count, const Trial& trial);

struct Totals {
    std::uint64_t histories = 0;
    std::uint64_t steps = 0;
    std::uint64_t answers = 0;  ///< compared
    Reached reached;
};

/// Runs a history on the fee center and on the model, and adds to the totals what was done. What shrinking runs is not
/// counted. The totals must outlive the trial.
Trial sideBySide(Focus focus, Compare when, Totals& totals);

/// "histories: 1, steps: 2, answers compared: 3"
std::string describe(const Totals& totals);

}  // namespace histories

#endif  // TESTS_HISTORIES_RANDOM_HISTORIES_H
