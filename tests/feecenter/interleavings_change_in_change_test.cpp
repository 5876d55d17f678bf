#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <string>

#include "support/interleaving_fixture.h"
#include "support/table_checks.h"
#include "support/tally.h"

// A change posted at each call that another one makes of the host: the strand runs it afterwards.

namespace {

using test::FeeState;
using test::kKnown;
using test::Names;
using test::Operation;
using test::Subject;

class StrandInterleavingTest : public test::InterleavingTest {};

TEST_P(StrandInterleavingTest, ChangePostedAtEveryCallRunsAfterTheOneThatIsRunning) {
    const Subject subject = subjectOf(scene, first, kKnown);
    const Names alone = callsOf(subject);
    for (const Operation& second : test::changes()) {
        const Subject about = subjectOf(scene, second, kKnown);
        Prepared expected(scene);
        first.run(scene, expected.center, subject);
        second.run(scene, expected.center, about);
        for (const std::size_t step : stepsAmong(alone, first, second)) {
            SCOPED_TRACE(second.name + " at call " + std::to_string(step) + ", " + alone[step]);
            Prepared fees(scene);
            std::size_t ranInside = 1;
            atEachCall([&](std::size_t call) {
                if (call == step) {
                    ranInside = std::async(std::launch::async, [&] {
                                    second.post(scene, fees.center, about);
                                    return host.service().poll();
                                }).get();
                }
            });
            first.post(scene, fees.center, subject);
            host.runJobs();
            ignoreCalls();
            host.runJobs();
            ASSERT_EQ(ranInside, 0U);
            ASSERT_GT(calls.size() + 1, alone.size());
            ASSERT_TRUE(std::equal(alone.begin(), alone.end(), calls.begin())) << "mixed with the other's calls";
            ASSERT_EQ(test::differences(fees.center, expected.center), "");
            ASSERT_EQ(test::faultOf(fees.center), "");
            test::tally("interleavings stepped", 1);
        }
        const FeeState last = statesThrough(statesThrough(before, first).back(), second).back();
        for (const Operation& query : test::familyQueries()) {
            for (std::size_t i = 0; i < FeeState::kInstruments; ++i) {
                ASSERT_EQ(query.run(scene, expected.center, subjectOf(scene, query, kKnown, i)),
                          answerIn(last, query, i))
                    << query.name << " after " << second.name;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Changes, StrandInterleavingTest, ::testing::ValuesIn(test::changes()),
                         [](const auto& operation) { return operation.param.name; });

}  // namespace
