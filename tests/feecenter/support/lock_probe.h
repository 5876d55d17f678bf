#ifndef TESTS_FEECENTER_SUPPORT_LOCK_PROBE_H
#define TESTS_FEECENTER_SUPPORT_LOCK_PROBE_H

#include <boost/thread/shared_mutex.hpp>
#include <future>
#include <string>
#include <vector>

#include "support/open_fee_center.h"

namespace test {

struct NamedMutex {
    const char* name;
    boost::shared_mutex* mutex;
};

/// The fee center's locks, the stock-option tables' last.
inline std::vector<NamedMutex> allMutexes(OpenFeeCenter& center) {
    return {{"stock", &center.stockMutex},
            {"credit", &center.creditMutex},
            {"hgt", &center.hgtMutex},
            {"sgt", &center.sgtMutex},
            {"stkOption", &center.stkOptionMutex},
            {"future", &center.futureMutex},
            {"neeq", &center.neeqMutex},
            {"stkOptionTable", &center.stkOptionTableMutex}};
}

/// How somebody holds the lock: "shared", "exclusive", or nothing when it is free. It is found out by trying to take
/// the lock: nobody may take it or give it back meanwhile.
inline std::string holdOf(boost::shared_mutex& mutex) {
    if (mutex.try_lock()) {
        mutex.unlock();
        return "";
    }
    if (mutex.try_lock_shared()) {
        mutex.unlock_shared();
        return "shared";
    }
    return "exclusive";
}

/// The locks that other threads hold, each as "name shared" or "name exclusive", joined by commas; empty when all are
/// free. This thread must hold none, and the others must not run meanwhile.
inline std::string locksHeldByOthers(OpenFeeCenter& center) {
    std::string held;
    for (const auto& named : allMutexes(center)) {
        const std::string hold = holdOf(*named.mutex);
        if (!hold.empty()) {
            held += (held.empty() ? "" : ",") + std::string(named.name) + " " + hold;
        }
    }
    return held;
}

/// The same, asked from a thread that holds nothing: this thread's locks are among them.
inline std::string heldLocks(OpenFeeCenter& center) {
    return std::async(std::launch::async, [&center] { return locksHeldByOthers(center); }).get();
}

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_LOCK_PROBE_H
