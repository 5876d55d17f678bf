#ifndef TESTS_HISTORIES_FAULT_FIXTURE_H
#define TESTS_HISTORIES_FAULT_FIXTURE_H

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "histories/fault_run.h"
#include "histories/focus_fixture.h"

namespace histories {

/// Runs random histories of the focus until so many calls have been broken off, and prints "name: 3, 1 histories ...".
/// `test` is what runs a given history.
inline void expectHistoriesWithFaults(Focus focus, Trouble& trouble, const std::string& name, const char* test,
                                      std::uint64_t calls) {
    constexpr int kRound = 2;
    FaultTotals totals;
    expectHistories(
        {focus, test, [&](const History& history) { return runWithFaults(history, focus, trouble, totals); }},
        {kRound, [&] { return totals.calls; }, calls},
        [&] { return name + ": " + std::to_string(totals.strikes) + ", " + describe(totals); });
}

}  // namespace histories

#endif  // TESTS_HISTORIES_FAULT_FIXTURE_H
