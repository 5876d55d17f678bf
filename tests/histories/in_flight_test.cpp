#include "histories/in_flight.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <functional>
#include <iostream>
#include <string>

#include "histories/focus_test.h"
#include "histories/random_histories.h"
#include "histories/stepped.h"

// Random histories with queries in flight: on real threads, and stepped by hand from one call of the host to the next.

namespace histories {
namespace {

using ::testing::HasSubstr;

// Of each focus. Sanitizers make a query many times slower.
#ifdef IN_FLIGHT_QUERIES
constexpr std::uint64_t kQueries = IN_FLIGHT_QUERIES;
#else
constexpr std::uint64_t kQueries = 60'000;
#endif
constexpr std::uint64_t kSteppedQueries = kQueries;
constexpr std::uint64_t kChangesInside = kQueries / 600;

class InFlightTest : public ::testing::TestWithParam<Focus> {
protected:
    /// Seeds of different focuses do not meet.
    std::uint64_t next = firstSeed() * kFocuses.size() + static_cast<std::uint64_t>(GetParam());

    std::uint64_t takeSeed() { return std::exchange(next, next + kFocuses.size()); }
};

TEST_P(InFlightTest, AnswersAreRightInAStateThatTheHistoryAllows) {
    const Focus focus = GetParam();
    const InFlight run;
    InFlightTotals totals;
    std::string failure;
    while (totals.queries < kQueries && failure.empty()) {
        const auto before = totals.queries;
        failure = runInFlight(takeSeed(), focus, run, totals);
        ASSERT_TRUE(totals.queries > before || !failure.empty()) << "no query was in flight";
    }
    std::cout << describe(totals, run) << ", seed " << firstSeed() << " (" << nameOf(focus) << ")\n";
    EXPECT_TRUE(failure.empty()) << failure << "FEECENTER_SEED=" << firstSeed();
    EXPECT_GT(totals.later, 0U) << "no query met a change";
}

TEST_P(InFlightTest, SteppedAnswersAreThoseOfTheStoresMade) {
    const Focus focus = GetParam();
    constexpr int kRound = 1;
    SteppedTotals totals;
    std::string failure;
    while ((totals.queries < kSteppedQueries || totals.changesInside < kChangesInside) && failure.empty()) {
        const auto before = totals.queries;
        failure = firstFailure(takeSeed(), kRound,
                               [&](const History& history) { return runStepped(history, focus, totals); });
        ASSERT_TRUE(totals.queries > before || !failure.empty()) << "no query was in flight";
    }
    std::cout << describe(totals) << ", seed " << firstSeed() << " (" << nameOf(focus) << ")\n";
    EXPECT_TRUE(failure.empty()) << failure << "FEECENTER_SEED=" << firstSeed();
    EXPECT_GT(totals.stops, 0U) << "no change was stopped";
}

INSTANTIATE_TEST_SUITE_P(Focus, InFlightTest, ::testing::ValuesIn(kFocuses), &testNameOf);

// That wrong answers are seen when they come from readers' threads.

/// What is wrong with the first of a few histories in which `spoil` does its work.
std::string failureWith(Focus focus, const std::function<void(const Query&, Fee&)>& spoil) {
    InFlight run;
    run.spoil = spoil;
    InFlightTotals totals;
    constexpr std::uint64_t kHistories = 8;
    std::string failure;
    for (std::uint64_t seed = 1; seed <= kHistories && failure.empty(); ++seed) {
        failure = runInFlight(seed, focus, run, totals);
    }
    return failure;
}

TEST(InFlightChecksTest, SeeAnEqualRecordInThePlaceOfTheSharedOne) {
    const auto failure = failureWith(Focus::connect, [](const Query&, Fee& fee) {
        if (fee && fee->hgtRateLimit) {
            fee->hgtRateLimit = boost::make_shared<qmservice::CCustomHGTExchangeRateLimit>(*fee->hgtRateLimit);
        }
    });
    EXPECT_THAT(failure, HasSubstr("right in no state from"));
    EXPECT_THAT(failure, HasSubstr("it is not the shared record it must be"));
}

}  // namespace
}  // namespace histories
