#include "histories/fault_step.h"

#include <array>
#include <cstddef>

#include "histories/step.h"

namespace histories {
namespace {

/// A query has few occasions, a change many.
Fault chooseFault(Bytes& bytes, bool inQuery) {
    constexpr std::array<std::size_t, 4> kRanges{16, 64, 256, 256};
    constexpr std::size_t kFar = 8;
    const bool forGood = bytes.pick(2) == 1;
    const std::size_t range = inQuery ? 0 : bytes.pick(kRanges.size());
    const std::size_t before = bytes.pick(kRanges[range]) * (range == kRanges.size() - 1 ? kFar : 1);
    return {static_cast<long>(before), forGood};
}

std::string faultText(const Fault& fault) {
    return " with a fault after " + std::to_string(fault.before) + " occasions" +
           (fault.forGood ? " and for good" : "");
}

}  // namespace

FaultyStep stepOf(const Step& bytesOfStep, const World& world, Focus focus) {
    using Kind = FaultyStep::Kind;
    constexpr std::array<Kind, 8> kKinds{Kind::change, Kind::change, Kind::change,   Kind::change,
                                         Kind::query,  Kind::query,  Kind::queueing, Kind::ordinary};
    Bytes bytes(bytesOfStep);
    FaultyStep step;
    step.kind = bytes.of(kKinds);
    if (step.kind == Kind::ordinary) {
        step.rest.assign(bytesOfStep.begin() + (bytesOfStep.empty() ? 0 : 1), bytesOfStep.end());
        return step;
    }
    step.fault = chooseFault(bytes, step.kind == Kind::query);
    if (step.kind == Kind::query) {
        const auto& accounts = world.accounts(Focus::all);
        step.query.account = accounts[bytes.pick(accounts.size())];
        const std::size_t question = bytes.pick(world.questions.size() * 2);
        step.query.question = question < world.questions.size() ? &world.questions[question] : nullptr;
    } else {
        step.change = chooseFeeChange(bytes, world, focus);
    }
    return step;
}

std::string describe(const FaultyStep& step, const World& world, Focus focus) {
    switch (step.kind) {
        case FaultyStep::Kind::change:
            return step.change.describe() + faultText(step.fault);
        case FaultyStep::Kind::queueing:
            return "queueing " + step.change.describe() + faultText(step.fault);
        case FaultyStep::Kind::query:
            return describe(step.query) + faultText(step.fault);
        case FaultyStep::Kind::ordinary:
            break;
    }
    return operationOf(step.rest, world, focus).describe();
}

}  // namespace histories
