#ifndef TESTS_HISTORIES_STEPPED_H
#define TESTS_HISTORIES_STEPPED_H

#include <cstdint>
#include <string>

#include "histories/bytes.h"
#include "histories/world.h"

namespace histories {

struct SteppedTotals {
    std::uint64_t histories = 0;
    std::uint64_t stops = 0;          ///< calls of the host inside a change at which queries were let in
    std::uint64_t changesInside = 0;  ///< changes that ran inside a query
    std::uint64_t queries = 0;        ///< asked inside changes, or with a change inside
};

/// Changes and queries in flight on one thread, from one call of the host to the next: inside a change queries are
/// asked, and inside a query that holds no lock a change is run. Always the same from run to run.
///
/// Inside a change the tables say how many of its stores have been made, at most one more from call to call, and every
/// answer must be the model's at this store. What is wrong first, in words; empty when nothing is.
std::string runStepped(const History& history, Focus focus, SteppedTotals& totals);

/// "in flight, stepped: 1 histories, 2 stops, 3 changes inside a query, 4 queries"
std::string describe(const SteppedTotals& totals);

}  // namespace histories

#endif  // TESTS_HISTORIES_STEPPED_H
