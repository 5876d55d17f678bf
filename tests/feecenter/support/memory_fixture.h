#ifndef TESTS_FEECENTER_SUPPORT_MEMORY_FIXTURE_H
#define TESTS_FEECENTER_SUPPORT_MEMORY_FIXTURE_H

#include <gtest/gtest.h>

#include <functional>
#include <new>

#include "support/fee_center_fixture.h"
#include "support/held_answers.h"
#include "support/scene.h"
#include "support/shortage.h"
#include "support/table_checks.h"
#include "support/tally.h"

namespace test {

/// Memory runs out at every single allocation of an operation, for once and for good. What leaves the call is
/// std::bad_alloc; the tables stay whole, no lock stays behind, and no answer that somebody holds changes.
class MemoryTest : public ::testing::Test {
protected:
    using Run = std::function<void(OpenFeeCenter&)>;

    ~MemoryTest() override { host.reset(); }

    Shortage& shortage = Shortage::ofThisThread();

    /// Runs `run` under a shortage at each of its allocations in turn, on a new fee center each time. `check` is
    /// called with the fee center after a run that failed, and how many allocations there are is the result.
    template <class Check>
    long exhaust(const Run& run, bool forGood, const Check& check) {
        for (long allocations = 0;; ++allocations) {
            OpenFeeCenter center;
            scene.prepare(center);
            const HeldAnswers held(center);
            bool threw = false;
            shortage.begin(allocations, forGood);
            try {
                run(center);
            } catch (const std::bad_alloc&) {
                threw = true;
            }
            const long failed = shortage.end();
            tally("allocations failed", failed);
            EXPECT_EQ(threw, failed > 0);
            EXPECT_EQ(held.difference(), "");
            if (failed == 0) {
                host.runJobs();  // a job that was queued holds the fee center
                return allocations;
            }
            EXPECT_EQ(faultOf(center), "") << "allocation " << allocations << (forGood ? " and all after it" : "");
            check(center);
            EXPECT_EQ(held.difference(), "");
            if (HasFailure()) {
                return 0;
            }
        }
    }

    FreshHost freshHost;
    FakeHost& host = FakeHost::instance();
    Scene scene{{"A", "B"}};
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_MEMORY_FIXTURE_H
