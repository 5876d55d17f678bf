#ifndef TESTS_HISTORIES_STATES_H
#define TESTS_HISTORIES_STATES_H

#include <cstddef>
#include <deque>
#include <vector>

#include "histories/fee_change.h"
#include "model/model.h"

namespace histories {

/// States one after the other, the first and the last included.
struct Window {
    std::size_t first = 0;
    std::size_t last = 0;
};

/// Every state that changes lead a fee center through, by the model alone: one before the first change and one after
/// each store. The states share their records.
///
/// The model's facts must not change meanwhile. Once no more changes are added, any threads may look.
class States {
public:
    /// No change may be queued in the model.
    explicit States(const model::Model& start);

    /// Leads on through the change. Its records become what the model makes of them: they are to be the model's alone.
    void add(const FeeChange& change);

    [[nodiscard]] std::size_t count() const { return states.size(); }
    [[nodiscard]] const model::Model& at(std::size_t state) const { return states[state]; }
    [[nodiscard]] const model::Model& last() const { return states.back(); }

    [[nodiscard]] std::size_t changes() const { return ends.size() - 1; }
    /// The state when so many changes have been made.
    [[nodiscard]] std::size_t after(std::size_t changesMade) const { return ends[changesMade]; }
    /// From the state when `made` changes were finished to the last that `begun` changes lead to.
    [[nodiscard]] Window between(std::size_t made, std::size_t begun) const { return {after(made), after(begun)}; }
    [[nodiscard]] Window whole() const { return {0, count() - 1}; }
    /// The first and the last alone: what there is to see of changes that nobody meets halfway.
    [[nodiscard]] States firstAndLast() const;

private:
    std::deque<model::Model> states;
    std::vector<std::size_t> ends;  ///< after 0, 1, 2 ... changes
};

}  // namespace histories

#endif  // TESTS_HISTORIES_STATES_H
