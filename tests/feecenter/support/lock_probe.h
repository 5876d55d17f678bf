#ifndef TESTS_FEECENTER_SUPPORT_LOCK_PROBE_H
#define TESTS_FEECENTER_SUPPORT_LOCK_PROBE_H

#include <boost/thread/shared_mutex.hpp>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "support/open_fee_center.h"

namespace test {

/// How the mutex is held at this moment, asked from a thread that holds nothing: "free", "shared" or "exclusive". The
/// holder must stand still meanwhile.
inline std::string heldMode(boost::shared_mutex& mutex) {
    std::string mode = "exclusive";
    std::thread([&] {
        if (mutex.try_lock()) {
            mutex.unlock();
            mode = "free";
        } else if (mutex.try_lock_shared()) {
            mutex.unlock_shared();
            mode = "shared";
        }
    }).join();
    return mode;
}

/// The locks that are held, each as "name mode", joined by commas; empty when all are free.
inline std::string heldLocks(OpenFeeCenter& center) {
    const std::pair<const char*, boost::shared_mutex*> locks[] = {
        {"stock", &center.stockMutex},      {"credit", &center.creditMutex},
        {"hgt", &center.hgtMutex},          {"sgt", &center.sgtMutex},
        {"option", &center.stkOptionMutex}, {"future", &center.futureMutex},
        {"neeq", &center.neeqMutex},        {"option tables", &center.stkOptionTableMutex}};
    std::string held;
    for (const auto& lock : locks) {
        const std::string mode = heldMode(*lock.second);
        if (mode != "free") {
            held += (held.empty() ? "" : ",") + std::string(lock.first) + " " + mode;
        }
    }
    return held;
}

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_LOCK_PROBE_H
