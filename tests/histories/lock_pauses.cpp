#include "histories/lock_pauses.h"

#include <dlfcn.h>
#include <pthread.h>

#include <chrono>
#include <thread>

#if defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define HISTORIES_NO_PAUSES
#endif
#endif
#ifdef __SANITIZE_THREAD__
#define HISTORIES_NO_PAUSES
#endif

namespace {

thread_local bool pausing = false;

}  // namespace

namespace histories {

void pauseAfterUnlocks() { pausing = true; }

}  // namespace histories

// ThreadSanitizer has an unlock of its own in the place of the C library's.
#ifndef HISTORIES_NO_PAUSES

namespace {

using Unlock = int (*)(pthread_mutex_t*);

Unlock realUnlock() {
    static const auto unlock = reinterpret_cast<Unlock>(dlsym(RTLD_NEXT, "pthread_mutex_unlock"));
    return unlock;
}

}  // namespace

// In the place of the C library's, which it calls.
extern "C" int pthread_mutex_unlock(pthread_mutex_t* mutex) {
    constexpr unsigned kTurn = 3;
    constexpr std::chrono::microseconds kPause(20);
    thread_local unsigned calls = 0;
    const int result = realUnlock()(mutex);
    if (pausing && ++calls % kTurn == 0) {
        std::this_thread::sleep_for(kPause);
    }
    return result;
}

#endif
