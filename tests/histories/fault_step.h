#ifndef TESTS_HISTORIES_FAULT_STEP_H
#define TESTS_HISTORIES_FAULT_STEP_H

#include <string>

#include "histories/bytes.h"
#include "histories/fee_change.h"
#include "histories/script.h"
#include "histories/world.h"

namespace histories {

/// When and how something goes wrong.
struct Fault {
    long before = 0;
    bool forGood = false;
};

/// What is done in one step. An ordinary one has no fault.
struct FaultyStep {
    enum class Kind { change, queueing, query, ordinary };

    Kind kind = Kind::change;
    Fault fault;
    FeeChange change;
    Query query;
    Step rest;
};

/// The step that the bytes mean, in a world of these instruments and accounts; the world's facts do not matter.
FaultyStep stepOf(const Step& bytesOfStep, const World& world, Focus focus);

/// For a person.
std::string describe(const FaultyStep& step, const World& world, Focus focus);

}  // namespace histories

#endif  // TESTS_HISTORIES_FAULT_STEP_H
