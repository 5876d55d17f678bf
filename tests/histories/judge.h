#ifndef TESTS_HISTORIES_JUDGE_H
#define TESTS_HISTORIES_JUDGE_H

#include <cstddef>
#include <string>
#include <vector>

#include "histories/answers.h"
#include "histories/sharing.h"
#include "histories/states.h"
#include "histories/world.h"

namespace histories {

/// What a query that ran during changes may have answered. A lookup under one lock answers from one state of the
/// window. A query that looks up several times answers from one state after the other, never from an older one again.
///
/// All that it refers to must outlive it, and answers are the caller's alone.
class Judge {
public:
    Judge(const States& allStates, const Sharing& knownRecords) : states(allStates), sharing(knownRecords) {}

    /// What is wrong with an answer of getFee; empty when it is right in some state of the window.
    [[nodiscard]] std::string complaintOfFee(const Account& account, const World::Question& question, Window window,
                                             const Fee& actual) const;

    /// What is wrong with an answer of getFees, whose fees are in the order of the lookups.
    [[nodiscard]] std::string complaintOfList(const Account& account, Window window, bool known,
                                              const std::vector<Fee>& actual) const;

private:
    [[nodiscard]] bool isOfTwoStates(const Account& account, const World::Question& question, Window window,
                                     const Fee& actual) const;
    [[nodiscard]] std::string complaintOfListed(const Account& account, Window window,
                                                const std::vector<Fee>& actual) const;

    const States& states;
    const Sharing& sharing;
};

}  // namespace histories

#endif  // TESTS_HISTORIES_JUDGE_H
