#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/interleaving_fixture.h"
#include "support/table_checks.h"

// A query at each call that a change makes of the host: it sees what the change has written by then.

namespace {

using test::FeeState;
using test::Hold;
using test::kKnown;
using test::Names;
using test::Operation;
using test::Subject;

class ChangeInterleavingTest : public test::InterleavingTest {
protected:
    /// The earliest state not before `oldest` in which the query answers so; too large when there is none.
    static std::size_t stateOf(const std::vector<FeeState>& states, std::size_t oldest, const Operation& query,
                               std::size_t instrument, const std::string& answer) {
        std::size_t state = oldest;
        while (state < states.size() && answerIn(states[state], query, instrument) != answer) {
            ++state;
        }
        return state;
    }
};

TEST_P(ChangeInterleavingTest, QueryAtEveryCallSeesTheWritesUpToThenAndNothingElse) {
    const Subject subject = subjectOf(scene, first, kKnown);
    const auto states = statesThrough(before, first);
    const Names alone = callsOf(subject);
    for (const Operation& query : test::familyQueries()) {
        std::size_t oldest = 0;
        for (const std::size_t step : stepsAmong(alone, first, query)) {
            SCOPED_TRACE(query.name + " at call " + std::to_string(step) + ", " + alone[step]);
            const std::size_t instrument = step % FeeState::kInstruments;
            Prepared fees(scene);
            const Seen seen =
                interleave(fees.center, subject, query, subjectOf(scene, query, kKnown, instrument), step);
            const Hold hold = test::heldAt(first, seen.calls);
            ASSERT_EQ(seen.held, hold.text());
            ASSERT_EQ(seen.waited, hold.stops(query));
            const std::size_t state = stateOf(states, oldest, query, instrument, seen.second);
            ASSERT_LT(state, states.size()) << seen.second;
            if (step == 0) {
                ASSERT_EQ(state, 0U) << "written before the first call";
            }
            if (step + 1 == alone.size()) {
                // Only the last entry is still to come, whose key is just being made.
                ASSERT_LT(stateOf(states, states.size() - std::min<std::size_t>(2, states.size()), query, instrument,
                                  seen.second),
                          states.size());
            }
            oldest = seen.waited ? oldest : state;
            ASSERT_EQ(test::differences(fees.center, after(first)), "");
            ASSERT_EQ(test::faultOf(fees.center), "");
        }
    }
    // And the change did what it is to do.
    Prepared fees(scene);
    first.run(scene, fees.center, subject);
    for (const Operation& query : test::familyQueries()) {
        for (std::size_t i = 0; i < FeeState::kInstruments; ++i) {
            EXPECT_EQ(query.run(scene, fees.center, subjectOf(scene, query, kKnown, i)),
                      answerIn(states.back(), query, i))
                << query.name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Changes, ChangeInterleavingTest, ::testing::ValuesIn(test::changes()),
                         [](const auto& operation) { return operation.param.name; });

}  // namespace
