#ifndef TESTS_HISTORIES_FAULT_TEST_H
#define TESTS_HISTORIES_FAULT_TEST_H

#include <gtest/gtest.h>

#include <cstdint>
#include <iostream>
#include <string>

#include "histories/fault_run.h"
#include "histories/focus_test.h"
#include "histories/random_histories.h"

namespace histories {

/// Runs random histories of the focus until so many calls have been broken off, and prints "name: 3, 1 histories ...".
inline void expectHistoriesWithFaults(Focus focus, Trouble& trouble, const char* name, std::uint64_t calls) {
    constexpr int kRound = 2;
    FaultTotals totals;
    std::string failure;
    // Seeds of different focuses do not meet.
    std::uint64_t next = firstSeed() * kFocuses.size() + static_cast<std::uint64_t>(focus);
    while (totals.calls < calls && failure.empty()) {
        const auto before = totals.calls;
        failure = firstFailure(next, kRound,
                               [&](const History& history) { return runWithFaults(history, focus, trouble, totals); });
        ASSERT_TRUE(totals.calls > before || !failure.empty()) << "nothing went wrong";
        next += kFocuses.size();
    }
    std::cout << name << ": " << totals.strikes << ", " << describe(totals) << ", seed " << firstSeed() << " ("
              << nameOf(focus) << ")\n";
    EXPECT_TRUE(failure.empty()) << failure << "FEECENTER_SEED=" << firstSeed();
}

}  // namespace histories

#endif  // TESTS_HISTORIES_FAULT_TEST_H
