#ifndef TESTS_FEECENTER_SUPPORT_LOCK_SCOPES_H
#define TESTS_FEECENTER_SUPPORT_LOCK_SCOPES_H

#include <boost/thread/shared_mutex.hpp>
#include <functional>
#include <string>
#include <vector>

#include "support/lock_probe.h"

namespace test {

/// Sees, as long as it lives, each moment at which this thread takes a lock of the fee center or gives it back, so that
/// a test can act at that moment, on the same thread. No other thread may use the fee center meanwhile. One at a time
/// on a thread.
///
/// A program that is linked with it has pthread_mutex_unlock replaced: Boost's mutex keeps its state under one of the C
/// library's, and changes nowhere else. ThreadSanitizer has an unlock of its own and lets nobody see.
///
/// Nor can memory run short meanwhile: it counts the thread's allocations by Shortage.
class LockScopes {
public:
    /// Called after the lock was taken, with how it is held, "shared" or "exclusive", or given back, with nothing.
    using Visit = std::function<void(const std::string& lock, const std::string& hold)>;

    explicit LockScopes(
        OpenFeeCenter& center, Visit visitor = [](const std::string&, const std::string&) {});
    LockScopes(const LockScopes&) = delete;
    LockScopes& operator=(const LockScopes&) = delete;
    ~LockScopes();

    /// Each hold in order, "stock shared; hgt shared; "; a hold inside of another in braces: "stock
    /// exclusive{stkOptionTable exclusive}; ".
    [[nodiscard]] const std::string& holds() const { return text; }

    /// How many allocations this thread has made while it held no lock.
    [[nodiscard]] long allocationsOutside() const;

    /// For pthread_mutex_unlock: a mutex of this thread's was given back.
    void unlocked(const void* mutex);

private:
    struct Watched {
        NamedMutex named;
        const void* state;  ///< the mutex under which it changes
        std::string hold;
    };

    void note(Watched& watched, const std::string& hold);

    std::vector<Watched> locks;
    Visit visit;
    std::string text;
    int held = 0;
    long outside = 0;
    long seen = 0;         ///< the allocations that are counted, inside and outside
    bool looking = false;  ///< what it does itself is not watched
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_LOCK_SCOPES_H
