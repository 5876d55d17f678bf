#ifndef COST_TIES_H
#define COST_TIES_H

#include <cstddef>
#include <string>
#include <vector>

#include "cost/place.h"

namespace cost {

// Equally specific terms with different patterns contradict each other only where one place matches both. The owner of
// the terms knows the places: it asks for the ties, looks for a place of each, and asks whether the tie is settled
// there.

/// Two terms for the same charge, side and day that are equally specific by texts of which one differs. Indices of the
/// list of terms.
struct Tie {
    std::size_t earlier = 0;
    std::size_t later = 0;
    std::vector<std::size_t> above;  ///< the more specific terms of the charge, which settle it where they apply
};

/// The ties between terms, ascending. Patterns that begin or end differently match no common text and make none.
std::vector<Tie> tiesOf(const std::vector<Term>& terms);

/// Whether on every common day and side of the tie's terms one of `applying`, terms of Tie::above, is in force.
bool isSettled(const std::vector<Term>& terms, const Tie& tie, const std::vector<std::size_t>& applying);

/// The fault of the tie's later term at a place that matches both, where the tie is not settled.
std::string tieSentence(const std::vector<Term>& terms, const Tie& tie, const Place& place);

}  // namespace cost

#endif  // COST_TIES_H
