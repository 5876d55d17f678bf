#include <gtest/gtest.h>

#include <future>
#include <string>
#include <vector>

#include "support/fee_center_fixture.h"
#include "support/lock_waiters.h"
#include "support/operations.h"
#include "support/table_checks.h"
#include "support/tally.h"

// Every operation against every lock, held by another thread for reading and for writing: it goes through or waits, as
// its row in the table of operations says.

namespace {

using namespace qmservice;
using test::kKnown;
using test::kNew;
using test::Operation;
using test::Subject;

enum class Held { kShared, kExclusive };

const char* nameOf(Held held) { return held == Held::kShared ? "for reading" : "for writing"; }

void take(boost::shared_mutex& mutex, Held held) { held == Held::kShared ? mutex.lock_shared() : mutex.lock(); }

void giveBack(boost::shared_mutex& mutex, Held held) { held == Held::kShared ? mutex.unlock_shared() : mutex.unlock(); }

const std::string kGoes = "goes through";
const std::string kReads = "waits to read";
const std::string kWrites = "waits to write";

/// What `work` does on a thread of its own while this thread holds the lock.
template <class Work>
std::string verdict(boost::shared_mutex& mutex, Held held, const Work& work) {
    std::string seen = kGoes;
    take(mutex, held);
    std::future<void> done = std::async(std::launch::async, work);
    test::seenBefore(done, [&] {
        if (test::waitingReaders(mutex) > 0) {
            seen = kReads;
        } else if (test::waitingWriters(mutex) > 0) {
            seen = kWrites;
        }
        return seen != kGoes;
    });
    giveBack(mutex, held);
    done.get();
    return seen;
}

std::string expectedVerdict(const Operation& operation, const std::string& lock, Held held) {
    if (operation.exclusive.count(lock) != 0) {
        return kWrites;
    }
    return operation.shared.count(lock) != 0 && held == Held::kExclusive ? kReads : kGoes;
}

class LockMatrixTest : public ::testing::TestWithParam<Operation> {
protected:
    LockMatrixTest() {
        test::stageOperations(scene);
        scene.prepare(center);
    }
    ~LockMatrixTest() override { host.reset(); }

    /// With and without an entry for what is asked. A list of an account without entries looks nothing up.
    [[nodiscard]] std::vector<Subject> subjects() const {
        std::vector<Subject> all{subjectOf(scene, operation, kKnown)};
        if (operation.kind == Operation::Kind::kLookup) {
            all.push_back(subjectOf(scene, operation, kKnown, 2));
        }
        if (operation.kind != Operation::Kind::kList) {
            all.push_back(subjectOf(scene, operation, kNew));
        }
        return all;
    }

    /// `work(subject)` against every lock, held either way; `expected(lock, held)` says what it must do.
    template <class Work, class Expected>
    void tryEveryLock(const Work& work, const Expected& expected) {
        for (const Subject& subject : subjects()) {
            for (const auto& lock : test::allMutexes(center)) {
                for (const Held held : {Held::kShared, Held::kExclusive}) {
                    EXPECT_EQ(verdict(*lock.mutex, held, [&] { work(subject); }), expected(lock.name, held))
                        << lock.name << " held " << nameOf(held) << ", account " << subject.accountKey;
                    test::tally("lock verdicts", 1);
                }
            }
        }
        EXPECT_EQ(test::faultOf(center), "");
    }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    test::Scene scene{{"A", "B", "C"}};
    test::OpenFeeCenter center;
    const Operation& operation = GetParam();
};

TEST_P(LockMatrixTest, OperationWaitsForItsOwnLocksAndNoOthers) {
    tryEveryLock([&](const Subject& subject) { operation.run(scene, center, subject); },
                 [&](const char* lock, Held held) { return expectedVerdict(operation, lock, held); });
}

INSTANTIATE_TEST_SUITE_P(Operations, LockMatrixTest, ::testing::ValuesIn(test::allOperations()),
                         [](const auto& operation) { return operation.param.name; });

class PostLockMatrixTest : public LockMatrixTest {};

TEST_P(PostLockMatrixTest, ChangeIsQueuedWithoutAnyLock) {
    tryEveryLock([&](const Subject& subject) { operation.post(scene, center, subject); },
                 [](const char*, Held) { return kGoes; });
    EXPECT_GT(host.runJobs(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Changes, PostLockMatrixTest, ::testing::ValuesIn(test::changes()),
                         [](const auto& operation) { return operation.param.name; });

// The table itself: it names each family's lock for the operations that have to take it, and in no other row.

TEST(LockTableTest, EachChangeTakesTheLockOfItsFamilyAndStockOptionsThatOfStocks) {
    std::set<std::string> rows;
    for (const auto& change : test::changes()) {
        EXPECT_TRUE(change.shared.empty());
        for (const auto& lock : change.exclusive) {
            rows.insert(lock + " " + std::to_string(change.accountKind));
        }
    }
    EXPECT_EQ(rows, (std::set<std::string>{"stock 2", "stock 6", "stkOptionTable 6", "credit 3", "hgt 7", "sgt 11",
                                           "neeq 10", "future 1", "future 5", "future 12"}));
}

// What waits is seen to wait, and how.

class LockWaitersTest : public ::testing::Test {
protected:
    boost::shared_mutex mutex;
};

TEST_F(LockWaitersTest, ReaderIsSeenToWaitForAWriterOnly) {
    const auto read = [this] { const boost::shared_lock<boost::shared_mutex> lock(mutex); };
    EXPECT_EQ(verdict(mutex, Held::kShared, read), kGoes);
    EXPECT_EQ(verdict(mutex, Held::kExclusive, read), kReads);
    EXPECT_EQ(test::waitingReaders(mutex), 0);
}

TEST_F(LockWaitersTest, WriterIsSeenToWaitForReadersAndWriters) {
    const auto write = [this] { const boost::unique_lock<boost::shared_mutex> lock(mutex); };
    EXPECT_EQ(verdict(mutex, Held::kShared, write), kWrites);
    EXPECT_EQ(verdict(mutex, Held::kExclusive, write), kWrites);
    EXPECT_EQ(test::waitingWriters(mutex), 0);
}

TEST_F(LockWaitersTest, WorkThatTakesAnotherLockGoesThrough) {
    boost::shared_mutex other;
    const auto work = [&other] { const boost::unique_lock<boost::shared_mutex> lock(other); };
    EXPECT_EQ(verdict(mutex, Held::kShared, work), kGoes);
    EXPECT_EQ(verdict(mutex, Held::kExclusive, work), kGoes);
}

TEST_F(LockWaitersTest, AllWhoWaitAreCounted) {
    std::vector<std::future<void>> waiting;
    mutex.lock();
    for (int i = 0; i < 3; ++i) {
        waiting.push_back(std::async(std::launch::async, [this] { mutex.lock_shared(); }));
        EXPECT_TRUE(test::seenBefore(waiting.back(), [&] { return test::waitingReaders(mutex) == i + 1; }));
    }
    EXPECT_EQ(test::waitingWriters(mutex), 0);
    mutex.unlock();
    for (auto& reader : waiting) {
        reader.get();
        mutex.unlock_shared();
    }
    EXPECT_EQ(test::waitingReaders(mutex), 0);
}

}  // namespace
