// Engines of their own, beside the process-wide one.

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <system_error>

#include "standalone/engine.h"

namespace {

using standalone::Engine;

TEST(EngineLife, EngineThatEndsFinishesTheJobsThatAreQueued) {
    std::atomic<int> ran{0};
    {
        Engine engine;
        engine.start(2);
        for (int i = 0; i < 100; ++i) {
            engine.strand("jobs")->post([&ran] { ++ran; });
        }
    }
    EXPECT_EQ(ran, 100);
}

TEST(EngineLife, EngineThatNeverStartedEndsWithItsJobsLost) {
    bool ran = false;
    {
        Engine engine;
        engine.strand("jobs")->post([&ran] { ran = true; });
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
    Engine engine;
    {
        const NoMoreThreads limit;
        EXPECT_THROW(engine.start(2), std::system_error);
    }
    bool ran = false;
    engine.strand("jobs")->post([&ran] { ran = true; });
    engine.start(2);
    engine.stop();
    EXPECT_TRUE(ran);
}

}  // namespace
