#ifndef TESTS_FEECENTER_SUPPORT_LOCK_WAITERS_H
#define TESTS_FEECENTER_SUPPORT_LOCK_WAITERS_H

#include <gtest/gtest.h>

#include <boost/thread/shared_mutex.hpp>
#include <chrono>
#include <future>

namespace test {

/// How many threads wait for the lock at this moment, to read and to write. Safe from any thread. It looks into the
/// lock's condition variables, which is the one way to see a waiting reader: nothing in the lock's own answers shows
/// it. So it depends on the insides of Boost's mutex and of glibc's condition variable, as lock_waiters.cpp says; it
/// does not compile where they have other members, and LockWaitersTest fails where the members mean something else.
int waitingReaders(boost::shared_mutex& mutex);
int waitingWriters(boost::shared_mutex& mutex);

/// Whether `seen` came true before `done` did. Neither verdict depends on how long anything takes; the time limit is
/// reached only by work that neither ends nor is seen, and is a failure.
template <class Seen>
bool seenBefore(std::future<void>& done, const Seen& seen) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (done.wait_for(std::chrono::microseconds(50)) != std::future_status::ready) {
        if (seen()) {
            return true;
        }
        if (std::chrono::steady_clock::now() > limit) {
            ADD_FAILURE() << "neither done nor seen to wait";
            return true;
        }
    }
    return false;
}

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_LOCK_WAITERS_H
