#ifndef TESTS_HISTORIES_IN_FLIGHT_H
#define TESTS_HISTORIES_IN_FLIGHT_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "histories/answers.h"
#include "histories/script.h"
#include "histories/world.h"

namespace histories {

struct InFlight {
    std::size_t steps = 96;  ///< of a history; a quarter of them before queries begin
    int readers = 3;
    int writers = 2;
    /// What becomes of each fee of an answer before it is judged; for a test of the judging. Called from the readers'
    /// threads.
    std::function<void(const Query&, Fee&)> spoil;
};

struct InFlightTotals {
    std::uint64_t histories = 0;
    std::uint64_t queries = 0;  ///< begun while changes were under way, and judged
    std::uint64_t open = 0;     ///< of these, those for which the history allowed more than one state
    std::uint64_t later = 0;    ///< of those, the ones whose answer is wrong in the first state that it allowed
};

/// Runs one history that the seed makes on real threads: writers run the changes, one at a time, while readers ask.
/// Every answer must be right in a state that the fee center may have been in, and in the end everything is compared.
/// The first wrong answer in words, with the history; empty when there is none. Adds to the totals what was done.
///
/// What the threads do in which order is not the seed's to choose: the same seed may fail in one run and not in
/// another.
std::string runInFlight(std::uint64_t seed, Focus focus, const InFlight& run, InFlightTotals& totals);

/// "in flight: 1 histories, 9 queries (5 with several states allowed, 2 right in a later one alone), 3 readers, 2
/// writers"
std::string describe(const InFlightTotals& totals, const InFlight& run);

}  // namespace histories

#endif  // TESTS_HISTORIES_IN_FLIGHT_H
