#include "support/lock_watch.h"

#include <chrono>
#include <future>

namespace test {

bool getsThroughUnaided(const Work& work, const Work& rescue) {
    auto done = std::async(std::launch::async, work);
    const bool through = done.wait_for(std::chrono::seconds(60)) == std::future_status::ready;
    if (!through) {
        rescue();
    }
    done.get();
    return through;
}

bool getsThrough(const Work& work, const Work& release) {
    const bool through = getsThroughUnaided(work, release);
    if (through) {
        release();
    }
    return through;
}

bool waitsToWrite(boost::shared_mutex& mutex, const Work& work, const Work& whileItWaits) {
    boost::shared_lock<boost::shared_mutex> reader(mutex);
    auto done = std::async(std::launch::async, work);
    bool waits = false;
    while (!waits && done.wait_for(std::chrono::milliseconds(0)) != std::future_status::ready) {
        waits = !std::async(std::launch::async, [&mutex] {
                     const bool entered = mutex.try_lock_shared();
                     if (entered) {
                         mutex.unlock_shared();
                     }
                     return entered;
                 }).get();
    }
    if (waits) {
        whileItWaits();
    }
    reader.unlock();
    done.get();
    return waits;
}

}  // namespace test
