#ifndef TESTS_FEECENTER_SUPPORT_INTERLEAVING_FIXTURE_H
#define TESTS_FEECENTER_SUPPORT_INTERLEAVING_FIXTURE_H

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/fee_center_fixture.h"
#include "support/fee_state.h"
#include "support/holds.h"
#include "support/operations.h"

namespace test {

/// The family lookups and lists.
std::vector<Operation> familyQueries();

/// At which of the calls of `first` the other operation is run. Where the two have no lock in common, one call is
/// enough for a run of crc64.
std::vector<std::size_t> stepsAmong(const Names& calls, const Operation& first, const Operation& second);

/// A pair of operations: the first one, which is the parameter, is stopped at a call that it makes of the host, and the
/// second one is run at that moment on another thread: to its end, or until it waits for a lock that the first one
/// holds. Nothing depends on how long anything takes.
class InterleavingTest : public ::testing::TestWithParam<Operation> {
protected:
    /// A fee center with the scene's fees.
    struct Prepared {
        explicit Prepared(const Scene& scene) { scene.prepare(center); }
        OpenFeeCenter center;
    };

    /// What was seen of the second operation while the first one was paused, and what both answered.
    struct Seen {
        Names calls;  ///< of the first, the last being the one at which it was paused
        std::string held;
        bool waited = false;
        std::string first;
        std::string second;
    };

    InterleavingTest() { stageOperations(scene); }
    ~InterleavingTest() override { host.reset(); }

    /// Calls `visit` at each call that this thread makes of the host, with how many went before it.
    void atEachCall(const std::function<void(std::size_t)>& visit);
    void ignoreCalls() { host.onCall = host.onKeyCall = nullptr; }

    /// The calls that the first operation makes of the host.
    Names callsOf(const Subject& subject);

    /// Runs `second`, which is about `about`, at the call number `step` of the first operation.
    Seen interleave(OpenFeeCenter& center, const Subject& subject, const Operation& second, const Subject& about,
                    std::size_t step);

    /// The scene's fees after this change alone.
    [[nodiscard]] const OpenFeeCenter& after(const Operation& change);

    FreshHost freshHost;
    FakeHost& host = FakeHost::instance();
    Scene scene{{"A", "B", "C"}};
    const Operation& first = GetParam();
    const FeeState before = preparedState();
    Names calls;  ///< since atEachCall()

private:
    std::map<std::string, std::unique_ptr<Prepared>> outcomes;
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_INTERLEAVING_FIXTURE_H
