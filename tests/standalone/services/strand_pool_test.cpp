// Engines of their own, besides the process-wide one.

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <system_error>

#include "standalone/services/strand_pool.h"

namespace {

using standalone::StrandPool;

TEST(EngineLife, EngineThatEndsFinishesTheJobsThatAreQueued) {
    std::atomic<int> ran{0};
    {
        StrandPool pool;
        pool.start(2);
        for (int i = 0; i < 100; ++i) {
            pool.strand("jobs")->post([&ran] { ++ran; });
        }
    }
    EXPECT_EQ(ran, 100);
}

TEST(EngineLife, EngineThatNeverStartedEndsWithItsJobsLost) {
    bool ran = false;
    {
        StrandPool pool;
        pool.strand("jobs")->post([&ran] { ran = true; });
    }
    EXPECT_FALSE(ran);
}

/// While it lives a new thread's stack is larger than all addresses, so that none can be made.
class NoMoreThreads {
public:
    NoMoreThreads() {
        pthread_getattr_default_np(&before);
        pthread_attr_t vast;
        pthread_attr_init(&vast);
        pthread_attr_setstacksize(&vast, std::size_t{1} << 56U);
        pthread_setattr_default_np(&vast);
        pthread_attr_destroy(&vast);
    }
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;
    ~NoMoreThreads() {
        pthread_setattr_default_np(&before);
        pthread_attr_destroy(&before);
    }

private:
    pthread_attr_t before{};
};

TEST(EngineLife, EngineThatGetsNoThreadIsNotRunningAndCanBeStartedLater) {
    StrandPool pool;
    {
        const NoMoreThreads limit;
        EXPECT_THROW(pool.start(2), std::system_error);
    }
    bool ran = false;
    pool.strand("jobs")->post([&ran] { ran = true; });
    pool.start(2);
    pool.stop();
    EXPECT_TRUE(ran);
}

}  // namespace
