#ifndef TESTS_HISTORIES_FAULT_RUN_H
#define TESTS_HISTORIES_FAULT_RUN_H

#include <cstdint>
#include <string>

#include "histories/bytes.h"
#include "histories/trouble.h"
#include "histories/world.h"

namespace histories {

struct FaultTotals {
    std::uint64_t histories = 0;
    std::uint64_t steps = 0;
    std::uint64_t calls = 0;    ///< changes, queueings of changes and queries in which something went wrong
    std::uint64_t strikes = 0;  ///< how often something went wrong in them
    std::uint64_t answers = 0;  ///< compared with the model's
};

/// Runs a history in which the trouble strikes inside changes and queries. A change that was broken off must have
/// made the first of its stores, each whole, and no others; a query changes nothing; no lock stays held; and the
/// history goes on from there. The tables are compared after each step, every answer after each change that was broken
/// off and at the end. What is wrong first, with the history; empty when nothing is.
std::string runWithFaults(const History& history, Focus focus, Trouble& trouble, FaultTotals& totals);

/// "1 histories, 2 steps, 3 calls broken off, 4 answers compared"
std::string describe(const FaultTotals& totals);

}  // namespace histories

#endif  // TESTS_HISTORIES_FAULT_RUN_H
