#include "histories/in_flight.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <boost/make_shared.hpp>
#include <functional>
#include <iostream>
#include <string>

#include "histories/focus_fixture.h"
#include "histories/stepped.h"

// Random histories with queries in flight: on real threads, and stepped by hand from one call of the host to the next.

namespace histories {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

// Of each focus. Sanitizers make a query many times slower.
#ifdef IN_FLIGHT_QUERIES
constexpr std::uint64_t kQueries = IN_FLIGHT_QUERIES;
#else
constexpr std::uint64_t kQueries = 60'000;
#endif
constexpr std::uint64_t kSteppedQueries = kQueries;
constexpr std::uint64_t kChangesInside = kQueries / 600;

class InFlightTest : public ::testing::TestWithParam<Focus> {};

TEST_P(InFlightTest, AnswersAreRightInAStateThatTheHistoryAllows) {
    const Focus focus = GetParam();
    const InFlight run;
    InFlightTotals totals;
    Seeds seeds(focus);
    std::string failure;
    while (totals.queries < kQueries && failure.empty()) {
        const auto before = totals.queries;
        failure = runInFlight(seeds.take(), focus, run, totals);
        ASSERT_TRUE(totals.queries > before || !failure.empty()) << "no query was in flight";
    }
    std::cout << describe(totals, run) << ", seed " << firstSeed() << " (" << nameOf(focus) << ")\n";
    EXPECT_TRUE(failure.empty()) << failure << "FEECENTER_SEED=" << firstSeed();
    EXPECT_GT(totals.later, 0U) << "no query met a change";
}

class SteppedTest : public ::testing::TestWithParam<Focus> {};

TEST_P(SteppedTest, AnswersAreThoseOfTheStoresMade) {
    const Focus focus = GetParam();
    constexpr int kRound = 1;
    SteppedTotals totals;
    // Both are wanted: the first that is there in plenty does not make up for the other.
    const auto done = [&] {
        return std::min(totals.queries, kSteppedQueries) + std::min(totals.changesInside, kChangesInside);
    };
    expectHistories({focus, "in_flight_test --gtest_filter='*SteppedTest*'",
                     [&](const History& history) { return runStepped(history, focus, totals); }},
                    {kRound, done, kSteppedQueries + kChangesInside}, [&] { return describe(totals); });
}

INSTANTIATE_TEST_SUITE_P(Focus, SteppedTest, ::testing::ValuesIn(kFocuses), &testNameOf);
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

/// The same, when fees of lists, or of single answers, get an equal record in the place of the shared one.
std::string failureWithCopies(bool ofLists) {
    return failureWith(Focus::connect, [=](const Query& query, Fee& fee) {
        if ((query.question == nullptr) == ofLists && fee && fee->hgtRateLimit) {
            fee->hgtRateLimit = boost::make_shared<qmservice::CCustomHGTExchangeRateLimit>(*fee->hgtRateLimit);
        }
    });
}

TEST(InFlightChecksTest, SeeAnEqualRecordInThePlaceOfTheSharedOne) {
    EXPECT_THAT(failureWithCopies(false), AllOf(HasSubstr("getFee of"), HasSubstr("right in no state from"),
                                                HasSubstr("it is not the shared record it must be")));
}

TEST(InFlightChecksTest, SeeItInAListToo) {
    EXPECT_THAT(failureWithCopies(true), AllOf(HasSubstr("getFees of"), HasSubstr("right in no state from"),
                                               HasSubstr("it is not the shared record it must be")));
}

}  // namespace
}  // namespace histories
