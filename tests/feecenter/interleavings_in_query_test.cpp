#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "support/interleaving_fixture.h"
#include "support/table_checks.h"

// A change or another query at each call that a query makes of the host: each entry is answered as it was at some
// moment of the query, and whole.

namespace {

using test::FeeState;
using test::Hold;
using test::kKnown;
using test::Names;
using test::Operation;
using test::Subject;

class QueryInterleavingTest : public test::InterleavingTest {
protected:
    using Answers = std::set<std::string>;

    /// What a lookup may answer when the tables went through the states of a change while it was paused.
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
    std::vector<Operation> others = test::familyQueries();
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
