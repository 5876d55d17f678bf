#include "support/interleaving_fixture.h"

#include <algorithm>
#include <future>
#include <thread>

#include "support/lock_probe.h"
#include "support/lock_waiters.h"
#include "support/tally.h"

namespace test {
namespace {

bool somebodyWaits(OpenFeeCenter& center) {
    const auto locks = allMutexes(center);
    return std::any_of(locks.begin(), locks.end(), [](const auto& named) {
        return waitingReaders(*named.mutex) + waitingWriters(*named.mutex) > 0;
    });
}

bool haveALockInCommon(const Operation& one, const Operation& other) {
    Operation::Locks locks = one.shared;
    locks.insert(one.exclusive.begin(), one.exclusive.end());
    return std::any_of(locks.begin(), locks.end(), [&other](const std::string& lock) {
        return other.shared.count(lock) != 0 || other.exclusive.count(lock) != 0;
    });
}

}  // namespace

std::vector<Operation> familyQueries() {
    std::vector<Operation> all = lookups();
    all.insert(all.end(), lists().begin(), lists().end());
    return all;
}

std::vector<std::size_t> stepsAmong(const Names& calls, const Operation& first, const Operation& second) {
    const bool all = haveALockInCommon(first, second);
    std::vector<std::size_t> steps;
    for (std::size_t step = 0; step < calls.size(); ++step) {
        if (all || step == 0 || calls[step] != "crc64" || calls[step - 1] != "crc64") {
            steps.push_back(step);
        }
    }
    return steps;
}

void InterleavingTest::atEachCall(const std::function<void(std::size_t)>& visit) {
    const auto self = std::this_thread::get_id();
    host.onCall = [this, self, visit](const std::string& name) {
        if (std::this_thread::get_id() == self) {
            calls.push_back(name);
            visit(calls.size() - 1);
        }
    };
    host.onKeyCall = host.onCall;
    calls.clear();
}

Names InterleavingTest::callsOf(const Subject& subject) {
    Prepared fees(scene);
    atEachCall([](std::size_t) {});
    first.run(scene, fees.center, subject);
    ignoreCalls();
    return calls;
}

InterleavingTest::Seen InterleavingTest::interleave(OpenFeeCenter& center, const Subject& subject,
                                                    const Operation& second, const Subject& about, std::size_t step) {
    Seen seen;
    std::future<void> done;
    atEachCall([&](std::size_t call) {
        if (call == step) {
            seen.calls = calls;
            const std::string expected = heldAt(first, calls).text();
            done = std::async(std::launch::async, [&, expected] {
                seen.held = locksHeldByOthers(center);
                if (seen.held == expected) {  // else the two might wait for each other for ever
                    seen.second = second.run(scene, center, about);
                }
            });
            seen.waited = seenBefore(done, [&] { return somebodyWaits(center); });
        }
    });
    seen.first = first.run(scene, center, subject);
    done.get();
    ignoreCalls();
    tally("interleavings stepped", 1);
    return seen;
}

const OpenFeeCenter& InterleavingTest::after(const Operation& change) {
    auto& known = outcomes[change.name];
    if (!known) {
        known = std::make_unique<Prepared>(scene);
        change.run(scene, known->center, subjectOf(scene, change, kKnown));
    }
    return known->center;
}

}  // namespace test
