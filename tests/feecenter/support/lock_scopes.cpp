#include "support/lock_scopes.h"

#include <dlfcn.h>
#include <pthread.h>

#include <boost/thread/mutex.hpp>
#include <limits>
#include <utility>

#include "support/shortage.h"

namespace test {
namespace {

thread_local LockScopes* watching = nullptr;

// The mutex under which a lock keeps its state is private. An explicit instantiation may name it all the same.

using StateMutex = boost::mutex boost::shared_mutex::*;

template <StateMutex Member>
struct Opened {
    friend StateMutex stateMutex() { return Member; }
};

StateMutex stateMutex();

template struct Opened<&boost::shared_mutex::state_change>;

}  // namespace

LockScopes::LockScopes(OpenFeeCenter& center, Visit visitor) : visit(std::move(visitor)) {
    for (const auto& named : allMutexes(center)) {
        locks.push_back({named, (named.mutex->*stateMutex()).native_handle(), holdOf(*named.mutex)});
    }
    Shortage::ofThisThread().begin(std::numeric_limits<long>::max(), false);
    watching = this;
}

LockScopes::~LockScopes() {
    watching = nullptr;
    Shortage::ofThisThread().end();
}

long LockScopes::allocationsOutside() const {
    return outside + (held == 0 ? Shortage::ofThisThread().made() - seen : 0);
}

void LockScopes::unlocked(const void* mutex) {
    if (looking) {
        return;
    }
    looking = true;
    outside = allocationsOutside();
    for (Watched& watched : locks) {
        if (mutex == watched.state) {
            const std::string hold = holdOf(*watched.named.mutex);
            if (hold != watched.hold) {
                note(watched, hold);
            }
        }
    }
    seen = Shortage::ofThisThread().made();
    looking = false;
}

void LockScopes::note(Watched& watched, const std::string& hold) {
    if (watched.hold.empty()) {
        text += (held != 0 ? "{" : "") + std::string(watched.named.name) + " " + hold;
        ++held;
    } else {
        text += held > 1 ? "}" : "; ";
        --held;
    }
    watched.hold = hold;
    visit(watched.named.name, hold);
}

}  // namespace test

// In the place of the C library's, which it calls.
extern "C" int pthread_mutex_unlock(pthread_mutex_t* mutex) {
    using Unlock = int (*)(pthread_mutex_t*);
    static const auto real = reinterpret_cast<Unlock>(dlsym(RTLD_NEXT, "pthread_mutex_unlock"));
    const int result = real(mutex);
    if (test::watching != nullptr) {
        test::watching->unlocked(mutex);
    }
    return result;
}
