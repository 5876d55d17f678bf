#ifndef TESTS_FEECENTER_SUPPORT_LOCK_WATCH_H
#define TESTS_FEECENTER_SUPPORT_LOCK_WATCH_H

#include <boost/thread/lock_types.hpp>
#include <boost/thread/shared_mutex.hpp>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "support/fake_host.h"
#include "support/lock_probe.h"
#include "support/open_fee_center.h"

namespace test {

/// Notes under which locks each host service and key function is called, as long as it lives.
class LockWatch {
public:
    LockWatch(FakeHost& watched, OpenFeeCenter& center) : host(watched) {
        host.onCall = [this, &center](const std::string& operation) {
            const std::string held = heldLocks(center);
            calls.insert(operation + ": " + (held.empty() ? "none" : held));
        };
        host.onKeyCall = host.onCall;
    }
    LockWatch(const LockWatch&) = delete;
    LockWatch& operator=(const LockWatch&) = delete;
    ~LockWatch() {
        host.onCall = nullptr;
        host.onKeyCall = nullptr;
    }

    /// Each as "operation: locks held", or "operation: none".
    std::set<std::string> calls;

private:
    FakeHost& host;
};

/// Holds locks exclusively until it goes.
class HeldLocks {
public:
    /// Every lock of the fee center but the named ones.
    HeldLocks(OpenFeeCenter& center, const std::set<std::string>& except) {
        for (const NamedMutex& named : allMutexes(center)) {
            if (except.count(named.name) == 0) {
                locks.emplace_back(*named.mutex);
            }
        }
    }

private:
    std::vector<boost::unique_lock<boost::shared_mutex>> locks;
};

using Work = std::function<void()>;

/// Whether `work` gets through on a thread of its own while this thread holds what it holds. The time limit is reached
/// only by work that waits for that; `rescue` is called then and must let it go on.
bool getsThroughUnaided(const Work& work, const Work& rescue);

/// The same; `release` is called in any case, once.
bool getsThrough(const Work& work, const Work& release);

/// Whether `work`, on a thread of its own, waits to hold `mutex` exclusively while another thread holds it shared. A
/// lock that somebody waits for so turns further readers away, and that is what is watched for. `whileItWaits` is
/// called on this thread, which then holds the mutex shared.
bool waitsToWrite(
    boost::shared_mutex& mutex, const Work& work, const Work& whileItWaits = [] {});

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_LOCK_WATCH_H
