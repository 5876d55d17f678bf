#include "histories/step.h"

#include <cstddef>

#include "histories/fee_change.h"
#include "histories/world_changes.h"

namespace histories {
namespace {

/// Queues a change and, unless it is left waiting, runs all that is queued.
Operation queueing(const FeeChange& change, bool leaveWaiting) {
    return {[=](World& /*world*/, SideBySide& both) {
                change.handTo(both);
                if (!leaveWaiting) {
                    both.runJobs();
                }
            },
            [=] { return change.describe() + (leaveWaiting ? ", left waiting" : ""); }};
}

bool chooseToWait(Bytes& bytes) { return bytes.oneIn(5); }

Operation worldChange(Bytes& bytes, const World& world) {
    const WorldChange change = chooseWorldChange(bytes, world);
    return {[=](World& changing, SideBySide& both) {
                change.apply(changing);
                both.publish();
            },
            change.describe};
}

}  // namespace

Operation operationOf(const Step& step, const World& world, Focus focus) {
    Bytes bytes(step);
    const auto& accounts = world.accounts(focus);
    const auto chooseAccount = [&]() -> const Account& { return accounts[bytes.pick(accounts.size())]; };
    const std::size_t choice = bytes.pick(16);
    if (choice == 0) {
        return {[](World& /*world*/, SideBySide& both) { both.runJobs(); }, [] { return "run what is queued"; }};
    }
    if (choice == 1) {
        return {[](World& /*world*/, SideBySide& both) { both.runJob(); }, [] { return "run the oldest change"; }};
    }
    if (choice > 12) {
        return worldChange(bytes, world);
    }
    const Account& account = chooseAccount();
    const bool wait = chooseToWait(bytes);
    return queueing(choice <= 6 ? chooseLoad(bytes, world, account) : chooseCustomFee(bytes, world, account), wait);
}

}  // namespace histories
