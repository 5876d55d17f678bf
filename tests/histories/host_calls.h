#ifndef TESTS_HISTORIES_HOST_CALLS_H
#define TESTS_HISTORIES_HOST_CALLS_H

#include <boost/thread/shared_mutex.hpp>
#include <functional>
#include <string>
#include <utility>

#include "support/fake_host.h"

// Looking at a fee center from inside the host's functions that it calls.

namespace histories {

/// Calls `visit` at every call of the host as long as it lives, but not at those that `visit` itself makes.
class HostCalls {
public:
    explicit HostCalls(std::function<void(const std::string&)> visit) {
        host.onCall = host.onKeyCall = [this, visit = std::move(visit)](const std::string& operation) {
            if (!visiting) {
                visiting = true;
                visit(operation);
                visiting = false;
            }
        };
    }
    HostCalls(const HostCalls&) = delete;
    HostCalls& operator=(const HostCalls&) = delete;
    ~HostCalls() { host.onCall = host.onKeyCall = nullptr; }

private:
    test::FakeHost& host = test::FakeHost::instance();
    bool visiting = false;
};

/// Whether the lock can be had at this moment, by a thread that may hold it itself.
inline bool mayRead(boost::shared_mutex& mutex) {
    const bool entered = mutex.try_lock_shared();
    if (entered) {
        mutex.unlock_shared();
    }
    return entered;
}

inline bool mayWrite(boost::shared_mutex& mutex) {
    const bool entered = mutex.try_lock();
    if (entered) {
        mutex.unlock();
    }
    return entered;
}

}  // namespace histories

#endif  // TESTS_HISTORIES_HOST_CALLS_H
