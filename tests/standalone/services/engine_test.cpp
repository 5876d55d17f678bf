#include "host/engine.h"

#include <gtest/gtest.h>

#include <atomic>
#include <boost/shared_ptr.hpp>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <numeric>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "host/singleton.h"
#include "standalone/host.h"

namespace {

using standalone::startEngine;
using standalone::stopEngine;
using standalone::waitForStrand;
using Strand = boost::shared_ptr<boost::asio::io_service::strand>;

Strand strandOf(const std::string& name) { return utils::CSingletonT<net::RPCEngine>::instance()->getStrand(name); }

/// Nobody passes before `count` threads have arrived.
class Meeting {
public:
    explicit Meeting(int count) : missing(count) {}

    void arriveAndWait() {
        std::unique_lock<std::mutex> lock(mutex);
        --missing;
        changed.notify_all();
        changed.wait(lock, [this] { return missing <= 0; });
    }

private:
    std::mutex mutex;
    std::condition_variable changed;
    int missing;
};

/// What each operation says on one of the engine's own threads; empty where it says nothing.
std::string complaintOnOwnThread(const std::function<void()>& operation) {
    std::string complaint;
    strandOf("own thread")->post([&] {
        try {
            operation();
        } catch (const std::logic_error& error) {
            complaint = error.what();
        }
    });
    waitForStrand("own thread");
    return complaint;
}

class EngineTest : public testing::Test {
protected:
    ~EngineTest() override { stopEngine(); }

    /// The threads on which `count` strands run one job each, all at the same time.
    std::set<std::thread::id> threadsOfJobsThatMeet(int count) {
        Meeting meeting(count);
        std::mutex mutex;
        std::set<std::thread::id> threads;
        for (int each = 0; each < count; ++each) {
            strandOf("meeting " + std::to_string(each))->post([&] {
                meeting.arriveAndWait();
                const std::lock_guard<std::mutex> lock(mutex);
                threads.insert(std::this_thread::get_id());
            });
        }
        for (int each = 0; each < count; ++each) {
            waitForStrand("meeting " + std::to_string(each));
        }
        return threads;
    }
};

TEST_F(EngineTest, SameNameGivesTheSameStrand) { EXPECT_EQ(strandOf("fees"), strandOf("fees")); }

TEST_F(EngineTest, OtherNameGivesAnotherStrand) {
    EXPECT_NE(strandOf("fees"), strandOf("Fees"));
    EXPECT_TRUE(strandOf(""));
}

TEST_F(EngineTest, ThreadsThatAskAtOnceGetTheSameStrand) {
    std::vector<Strand> found(4);
    Meeting meeting(4);
    std::vector<std::thread> askers;
    for (Strand& each : found) {
        askers.emplace_back([&each, &meeting] {
            meeting.arriveAndWait();
            each = strandOf("asked at once");
        });
    }
    for (std::thread& asker : askers) {
        asker.join();
    }
    EXPECT_EQ(found, std::vector<Strand>(4, strandOf("asked at once")));
}

TEST_F(EngineTest, JobsOfOneStrandRunOneAtATimeInTheOrderOfTheirPosting) {
    startEngine(3);
    std::vector<int> ran;  // no lock: the strand is the lock
    for (int job = 0; job < 1000; ++job) {
        strandOf("order")->post([&ran, job] { ran.push_back(job); });
    }
    waitForStrand("order");
    std::vector<int> expected(1000);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(ran, expected);
}

TEST_F(EngineTest, JobNeverRunsInsideThePost) {
    startEngine(2);
    std::vector<std::string> ran;
    strandOf("inside")->post([&ran] {
        strandOf("inside")->post([&ran] { ran.push_back("posted job"); });
        ran.push_back("rest of the posting job");
    });
    waitForStrand("inside");
    waitForStrand("inside");
    EXPECT_EQ(ran, (std::vector<std::string>{"rest of the posting job", "posted job"}));
}

TEST_F(EngineTest, JobsOfDifferentStrandsRunAtTheSameTime) {
    startEngine(2);
    EXPECT_EQ(threadsOfJobsThatMeet(2).size(), 2U);
}

TEST_F(EngineTest, HasAsManyThreadsAsAskedFor) {
    startEngine(5);
    const std::set<std::thread::id> threads = threadsOfJobsThatMeet(5);
    EXPECT_EQ(threads.size(), 5U);
    EXPECT_EQ(threads.count(std::this_thread::get_id()), 0U);
}

TEST_F(EngineTest, WithOneThreadRunsEveryStrandOnIt) {
    startEngine(1);
    std::set<std::thread::id> threads;
    for (int job = 0; job < 100; ++job) {
        strandOf("one of " + std::to_string(job % 10))->post([&] { threads.insert(std::this_thread::get_id()); });
    }
    stopEngine();
    EXPECT_EQ(threads.size(), 1U);
}

TEST_F(EngineTest, JobWaitsUntilTheEngineStarts) {
    bool ran = false;
    strandOf("early")->post([&ran] { ran = true; });
    EXPECT_FALSE(ran);
    startEngine(1);
    waitForStrand("early");
    EXPECT_TRUE(ran);
}

TEST_F(EngineTest, StopFinishesTheJobsThatAreQueued) {
    std::atomic<int> ran{0};
    for (int job = 0; job < 1000; ++job) {
        strandOf("queue " + std::to_string(job % 7))->post([&ran] { ++ran; });
    }
    startEngine(2);
    stopEngine();
    EXPECT_EQ(ran, 1000);
}

TEST_F(EngineTest, StopFinishesWhatQueuedJobsPost) {
    int ran = 0;
    std::function<void()> job = [&] {
        if (++ran < 50) {
            strandOf("chain")->post(job);
        }
    };
    strandOf("chain")->post(job);
    startEngine(2);
    stopEngine();
    EXPECT_EQ(ran, 50);
}

TEST_F(EngineTest, StrandOutlivesAStopAndItsJobsWaitForTheNextStart) {
    startEngine(2);
    const Strand strand = strandOf("again");
    stopEngine();
    bool ran = false;
    strand->post([&ran] { ran = true; });
    EXPECT_FALSE(ran);
    startEngine(1);
    waitForStrand("again");
    EXPECT_TRUE(ran);
    EXPECT_EQ(strandOf("again"), strand);
}

TEST_F(EngineTest, RestartMayHaveAnotherNumberOfThreads) {
    startEngine(1);
    stopEngine();
    startEngine(3);
    EXPECT_EQ(threadsOfJobsThatMeet(3).size(), 3U);
}

TEST_F(EngineTest, StopDoesNothingWhenTheEngineDoesNotRun) {
    stopEngine();
    startEngine(1);
    stopEngine();
    EXPECT_NO_THROW(stopEngine());
}

TEST_F(EngineTest, SecondStartIsRefusedAndTheFirstGoesOn) {
    startEngine(1);
    EXPECT_THROW(startEngine(1), std::logic_error);
    EXPECT_EQ(threadsOfJobsThatMeet(1).size(), 1U);
}

TEST_F(EngineTest, StartWithoutThreadsIsRefused) {
    EXPECT_THROW(startEngine(0), std::invalid_argument);
    EXPECT_THROW(startEngine(-1), std::invalid_argument);
    EXPECT_NO_THROW(startEngine(1));
}

TEST_F(EngineTest, WaitThatWouldNeverEndIsRefused) {
    EXPECT_THROW(waitForStrand("asleep"), std::logic_error);
    startEngine(2);
    EXPECT_EQ(complaintOnOwnThread([] { waitForStrand("another"); }),
              "engine: asked to wait for a strand on one of its own threads; ask from another thread");
}

TEST_F(EngineTest, StartAndStopOnAnOwnThreadAreRefused) {
    startEngine(1);
    EXPECT_EQ(complaintOnOwnThread([] { stopEngine(); }),
              "engine: asked to stop on one of its own threads; ask from another thread");
    EXPECT_EQ(complaintOnOwnThread([] { startEngine(1); }),
              "engine: asked to start on one of its own threads; ask from another thread");
}

TEST_F(EngineTest, ExceptionOfAJobIsReportedAndTheNextJobRuns) {
    bool ran = false;
    strandOf("fault")->post([] { throw std::runtime_error("no such fee"); });
    strandOf("fault")->post([&ran] { ran = true; });
    testing::internal::CaptureStderr();
    startEngine(1);
    stopEngine();
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "engine: a job ended with an exception (no such fee); the rest of that job is lost, the next one runs\n");
    EXPECT_TRUE(ran);
}

TEST_F(EngineTest, ExceptionOfAnUnknownClassIsReportedToo) {
    bool ran = false;
    strandOf("odd fault")->post([] { throw 42; });
    strandOf("odd fault")->post([&ran] { ran = true; });
    testing::internal::CaptureStderr();
    startEngine(1);
    stopEngine();
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "engine: a job ended with an exception (of an unknown class); the rest of that job is lost, the next one "
              "runs\n");
    EXPECT_TRUE(ran);
}

TEST_F(EngineTest, EveryThreadSurvivesTheExceptionsOfItsJobs) {
    testing::internal::CaptureStderr();
    startEngine(2);
    for (int job = 0; job < 20; ++job) {
        strandOf("faults " + std::to_string(job % 2))->post([] { throw std::runtime_error("again"); });
    }
    waitForStrand("faults 0");
    waitForStrand("faults 1");
    EXPECT_EQ(threadsOfJobsThatMeet(2).size(), 2U);
    testing::internal::GetCapturedStderr();
}

}  // namespace
