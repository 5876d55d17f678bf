#ifndef TESTS_HISTORIES_STEP_H
#define TESTS_HISTORIES_STEP_H

#include <functional>
#include <string>

#include "histories/bytes.h"
#include "histories/side_by_side.h"
#include "histories/world.h"

namespace histories {

/// What one step of a history does: a change of fees, a run of queued changes, or a change of what the host knows.
struct Operation {
    std::function<void(World&, SideBySide&)> apply;
    std::function<std::string()> describe;  ///< for a person
};

/// The operation that the bytes mean, in a world of these instruments and accounts; the world's facts do not
/// matter.
Operation operationOf(const Step& step, const World& world, Focus focus);

}  // namespace histories

#endif  // TESTS_HISTORIES_STEP_H
