#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "support/fee_center_test.h"
#include "support/fee_state.h"
#include "support/holds.h"
#include "support/lock_waiters.h"
#include "support/operations.h"
#include "support/table_checks.h"
#include "support/tally.h"

// Each pair of operations, one stopped at each call that it makes of the host in turn, the other run at that moment on
// another thread: to its end, or until it waits for a lock that the first one holds. Nothing depends on how long
// anything takes.

namespace {

using namespace qmservice;
using test::FeeState;
using test::Hold;
using test::kKnown;
using test::Names;
using test::OpenFeeCenter;
using test::Operation;
using test::Subject;

/// The locks that are held, asked from a thread that holds none.
std::string heldNow(OpenFeeCenter& center) {
    std::string held;
    for (const auto& named : test::allMutexes(center)) {
        if (named.mutex->try_lock()) {
            named.mutex->unlock();
        } else if (named.mutex->try_lock_shared()) {
            named.mutex->unlock_shared();
            held += std::string(named.name) + " shared";
        } else {
            held += std::string(named.name) + " exclusive";
        }
    }
    return held;
}

bool somebodyWaits(OpenFeeCenter& center) {
    const auto locks = test::allMutexes(center);
    return std::any_of(locks.begin(), locks.end(), [](const auto& named) {
        return test::waitingReaders(*named.mutex) + test::waitingWriters(*named.mutex) > 0;
    });
}

bool haveALockInCommon(const Operation& one, const Operation& other) {
    const auto takes = [](const Operation& operation, const std::string& lock) {
        return operation.shared.count(lock) != 0 || operation.exclusive.count(lock) != 0;
    };
    for (const char* lock : {"stock", "credit", "neeq", "hgt", "sgt", "future", "stkOption", "stkOptionTable"}) {
        if (takes(one, lock) && takes(other, lock)) {
            return true;
        }
    }
    return false;
}

/// At which of the calls the other operation is run. Where the two have no lock in common, one call stands for a run of
/// crc64.
std::vector<std::size_t> stepsAmong(const Names& calls, const Operation& first, const Operation& second) {
    const bool all = haveALockInCommon(first, second);
    std::vector<std::size_t> steps;
    for (std::size_t step = 0; step < calls.size(); ++step) {
        if (all || step == 0 || calls[step] != "crc64" || calls[step - 1] != "crc64") {
            steps.push_back(step);
        }
    }
    return steps;
}

/// A fee center with the scene's fees.
struct Prepared {
    explicit Prepared(const test::Scene& scene) { scene.prepare(center); }
    OpenFeeCenter center;
};

class InterleavingTest : public ::testing::TestWithParam<Operation> {
protected:
    /// What was seen of the second operation while the first one stood still, and what both answered.
    struct Seen {
        Names calls;  ///< of the first, the last being the one at which it stood still
        std::string held;
        bool waited = false;
        std::string first;
        std::string second;
    };

    InterleavingTest() { test::stageOperations(scene); }
    ~InterleavingTest() override { host.reset(); }

    /// Calls `visit` at each call that this thread makes of the host, with how many went before it.
    template <class Visit>
    void atEachCall(const Visit& visit) {
        const auto self = std::this_thread::get_id();
        host.onCall = [this, self, visit](const std::string& name) {
            if (std::this_thread::get_id() == self) {
                calls.push_back(name);
                visit(calls.size() - 1);
            }
        };
        host.onKeyCall = host.onCall;
        calls.clear();
    }

    void ignoreCalls() { host.onCall = host.onKeyCall = nullptr; }

    Names callsOf(const Subject& subject) {
        Prepared fees(scene);
        atEachCall([](std::size_t) {});
        first.run(scene, fees.center, subject);
        ignoreCalls();
        return calls;
    }

    Seen interleave(OpenFeeCenter& center, const Subject& subject, const Operation& second, const Subject& about,
                    std::size_t step) {
        Seen seen;
        std::future<void> done;
        atEachCall([&](std::size_t call) {
            if (call == step) {
                seen.calls = calls;
                const std::string expected = test::heldAt(first, calls).text();
                done = std::async(std::launch::async, [&, expected] {
                    seen.held = heldNow(center);
                    if (seen.held == expected) {  // else the two might wait for each other for ever
                        seen.second = second.run(scene, center, about);
                    }
                });
                seen.waited = test::seenBefore(done, [&] { return somebodyWaits(center); });
            }
        });
        seen.first = first.run(scene, center, subject);
        done.get();
        ignoreCalls();
        test::tally("interleavings stepped", 1);
        return seen;
    }

    [[nodiscard]] const OpenFeeCenter& after(const Operation& change) {
        auto& known = outcomes[change.name];
        if (!known) {
            known = std::make_unique<Prepared>(scene);
            change.run(scene, known->center, subjectOf(scene, change, kKnown));
        }
        return known->center;
    }

    static std::vector<Operation> queries() {
        std::vector<Operation> all = test::lookups();
        all.insert(all.end(), test::lists().begin(), test::lists().end());
        return all;
    }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    test::Scene scene{{"A", "B", "C"}};
    const Operation& first = GetParam();
    const FeeState before = test::preparedState();
    Names calls;
    std::map<std::string, std::unique_ptr<Prepared>> outcomes;
};

// A change, and a query inside it.

class ChangeInterleavingTest : public InterleavingTest {
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
    for (const Operation& query : queries()) {
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
    for (const Operation& query : queries()) {
        for (std::size_t i = 0; i < FeeState::kInstruments; ++i) {
            EXPECT_EQ(query.run(scene, fees.center, subjectOf(scene, query, kKnown, i)),
                      answerIn(states.back(), query, i))
                << query.name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Changes, ChangeInterleavingTest, ::testing::ValuesIn(test::changes()),
                         [](const auto& operation) { return operation.param.name; });

// A change, and another one posted inside it.

class StrandInterleavingTest : public InterleavingTest {};

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
        for (const Operation& query : queries()) {
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

// A query, and a change or another query inside it.

class QueryInterleavingTest : public InterleavingTest {
protected:
    using Answers = std::set<std::string>;

    /// What a lookup may answer when the tables went through the states of a change while it stood still.
    [[nodiscard]] Answers lookupAnswers(const Seen& seen, const std::vector<FeeState>& states,
                                        std::size_t instrument) const {
        if (test::heldAt(first, seen.calls).lock.empty()) {
            return {answerIn(states.back(), first, instrument)};  // the tables were still to be read
        }
        Answers answers{answerIn(before, first, instrument)};
        for (const FeeState& state : states) {
            // A stock of prime brokerage reads the options when it has given back the stock lock, for which a change
            // may have waited.
            FeeState mixed = before;
            mixed.option = seen.waited ? state.option : before.option;
            answers.insert(answerIn(mixed, first, instrument));
        }
        return answers;
    }

    /// The same for a list: the instruments are those of the moment at which it read them, each entry is of the moment
    /// at which it was looked up.
    [[nodiscard]] Answers listAnswers(const Seen& seen, const std::vector<FeeState>& states) const {
        const std::size_t finds = test::countOf(seen.calls, "findInstrument");
        if (finds == 0) {
            return {answerIn(states.back(), first, 0)};
        }
        const bool isFuture = first.shared.count("future") != 0;
        const std::size_t lookedUp = isFuture ? finds / 2 : finds - 1;
        const auto listed = listedIn(before, first);
        // A change that had to wait is seen by each later lookup in whatever state it is in, else in the last.
        std::vector<FeeState> later = states;
        if (!seen.waited) {
            later = {states.back()};
        }
        Answers answers;
        for (unsigned old = 0; old < 1U << listed.size(); ++old) {
            if (bitsIn(old) == lookedUp) {
                addLists(answers, "", listed, old, later);
            }
        }
        return answers;
    }

    static std::size_t bitsIn(unsigned set) {
        std::size_t count = 0;
        for (; set != 0; set &= set - 1) {
            ++count;
        }
        return count;
    }

    /// Adds every list that begins with `text` and goes on with the rest of the instruments: those in the set `old` as
    /// they were before, the others in any of the states.
    void addLists(Answers& answers, const std::string& text, std::vector<std::size_t> listed, unsigned old,
                  const std::vector<FeeState>& states) const {
        if (listed.empty()) {
            answers.insert(text.empty() ? "no list" : text);
            return;
        }
        const std::size_t instrument = listed.front();
        listed.erase(listed.begin());
        if ((old & 1U) != 0) {
            addLists(answers, text + entryIn(before, first, instrument), listed, old >> 1U, states);
            return;
        }
        for (const FeeState& state : states) {
            addLists(answers, text + entryIn(state, first, instrument), listed, old >> 1U, states);
        }
    }

    [[nodiscard]] Answers answersBeside(const Operation& second, const Seen& seen, std::size_t instrument) const {
        if (!second.isChange()) {
            return {answerIn(before, first, instrument)};
        }
        const auto states = statesThrough(before, second);
        return first.kind == Operation::Kind::kList ? listAnswers(seen, states)
                                                    : lookupAnswers(seen, states, instrument);
    }

    void stepThrough(const Operation& second, std::size_t instrument) {
        const Subject subject = subjectOf(scene, first, kKnown, instrument);
        const Names alone = callsOf(subject);
        for (std::size_t step = 0; step < alone.size(); ++step) {
            SCOPED_TRACE(second.name + " at call " + std::to_string(step) + ", " + alone[step]);
            const std::size_t other = step % FeeState::kInstruments;
            Prepared fees(scene);
            const Seen seen = interleave(fees.center, subject, second, subjectOf(scene, second, kKnown, other), step);
            const Hold hold = test::heldAt(first, seen.calls);
            ASSERT_EQ(seen.held, hold.text());
            ASSERT_EQ(seen.waited, hold.stops(second));
            ASSERT_EQ(answersBeside(second, seen, instrument).count(seen.first), 1U) << seen.first;
            if (second.isChange()) {
                ASSERT_EQ(test::differences(fees.center, after(second)), "");
            } else {
                ASSERT_EQ(seen.second, answerIn(before, second, other));
                ASSERT_EQ(test::differences(fees.center, prepared.center), "");
            }
            ASSERT_EQ(test::faultOf(fees.center), "");
        }
    }

    const Prepared prepared{scene};
};

TEST_P(QueryInterleavingTest, OtherOperationAtEveryCallLeavesBothAnswersWhole) {
    std::vector<Operation> others = queries();
    others.insert(others.end(), test::changes().begin(), test::changes().end());
    for (const Operation& second : others) {
        stepThrough(second, 0);
        if (first.kind == Operation::Kind::kLookup) {
            stepThrough(second, 2);
        }
    }
}

std::vector<Operation> allQueries() {
    std::vector<Operation> all;
    for (const auto& operation : test::allOperations()) {
        if (!operation.isChange()) {
            all.push_back(operation);
        }
    }
    return all;
}

INSTANTIATE_TEST_SUITE_P(Queries, QueryInterleavingTest, ::testing::ValuesIn(allQueries()),
                         [](const auto& operation) { return operation.param.name; });

}  // namespace
