#ifndef TESTS_HISTORIES_SCRIPT_H
#define TESTS_HISTORIES_SCRIPT_H

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "histories/bytes.h"
#include "histories/fee_change.h"
#include "histories/side_by_side.h"
#include "histories/world.h"

namespace histories {

/// Does what the first quarter of the history says, to both sides, and leaves nothing waiting; what is wrong then, or
/// nothing. From there on the world stays as it is.
std::string prepare(World& world, SideBySide& both, const History& history, Focus focus);

struct ScriptedChange {
    std::size_t way = 0;  ///< 0 to 255: how the change is run
    FeeChange change;
};

/// The changes that the other three quarters mean.
std::vector<ScriptedChange> changesOf(const History& history, const World& world, Focus focus);

/// Both parts in words, one step a line.
std::string describeScript(const History& history, Focus focus);

/// Something that an account can be asked.
struct Query {
    Account account;
    const World::Question* question = nullptr;  ///< null for the list of all its fees
};

std::string describe(const Query& query);

/// The queries about accounts of these keys that the model answers with other values in the second state than in the
/// first.
std::vector<Query> changedQueries(const World& world, const std::set<model::uint64>& accountKeys,
                                  const model::Model& before, const model::Model& after);

}  // namespace histories

#endif  // TESTS_HISTORIES_SCRIPT_H
