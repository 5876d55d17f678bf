#ifndef TESTS_HISTORIES_FOCUS_FIXTURE_H
#define TESTS_HISTORIES_FOCUS_FIXTURE_H

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <iostream>
#include <string>

#include "histories/given.h"
#include "histories/random_histories.h"

// What the tests that run random histories have in common.

namespace histories {

/// The focus as part of a test's name.
inline std::string testNameOf(const ::testing::TestParamInfo<Focus>& focus) { return nameOf(focus.param); }

/// How long random histories go on.
struct Until {
    int round;                            ///< histories of one seed
    std::function<std::uint64_t()> done;  ///< grows in every round
    std::uint64_t enough;
};

/// Expects that nothing is wrong with random histories, and prints the seed behind what `summary` says of them. A
/// history that the environment gives is tried in their place.
inline void expectHistories(const Trial& trial, const Until& until, const std::function<std::string()>& summary) {
    if (const auto given = givenHistory()) {
        if (given->focus != trial.focus) {
            GTEST_SKIP() << "FEECENTER_HISTORY is one of " << nameOf(given->focus);
        }
        EXPECT_EQ(trial.failureOf(given->history), "");
        return;
    }
    std::string failure;
    Seeds seeds(trial.focus);
    while (until.done() < until.enough && failure.empty()) {
        const std::uint64_t before = until.done();
        failure = firstFailure(seeds.take(), until.round, trial);
        ASSERT_TRUE(until.done() > before || !failure.empty()) << "the histories came to nothing";
    }
    std::cout << summary() << ", seed " << firstSeed() << " (" << nameOf(trial.focus) << ")\n";
    EXPECT_TRUE(failure.empty()) << failure;
}

}  // namespace histories

#endif  // TESTS_HISTORIES_FOCUS_FIXTURE_H
