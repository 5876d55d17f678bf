#ifndef TESTS_FEECENTER_SUPPORT_FEE_STATE_H
#define TESTS_FEECENTER_SUPPORT_FEE_STATE_H

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "support/operations.h"

namespace test {

/// What the tables hold for the known account of a scene with the instruments "A", "B" and "C", in the words of
/// answerText(): worked out from the scene's and the operations' rates, without a fee center.
struct FeeState {
    static constexpr std::size_t kInstruments = 3;
    using Row = std::array<std::string, kInstruments>;  ///< by instrument; empty where there is no entry

    Row stock;
    Row credit;
    Row neeq;
    Row hgt;
    Row sgt;
    Row option;
    Row commission;
    std::array<std::vector<std::string>, kInstruments> margins;  ///< a text for each slot
};

/// After Scene::prepare().
FeeState preparedState();

/// The states that a change leads through, one for each write of the tables: `before` first, the final one last.
std::vector<FeeState> statesThrough(const FeeState& before, const Operation& change);

/// What a query answers about the instrument; a list's answer, whatever the instrument.
std::string answerIn(const FeeState& state, const Operation& query, std::size_t instrument);

/// The instruments that a list is about.
std::vector<std::size_t> listedIn(const FeeState& state, const Operation& list);

/// A list's answer about one instrument, as part of the whole answer.
std::string entryIn(const FeeState& state, const Operation& list, std::size_t instrument);

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_FEE_STATE_H
