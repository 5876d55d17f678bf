#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include "support/fee_center_fixture.h"
#include "support/lock_waiters.h"
#include "support/lock_watch.h"
#include "support/operations.h"
#include "support/table_checks.h"

// A host that is slow to answer: what waits for it is what shares a lock with the one that asked, and nothing else.

namespace {

using namespace qmservice;
using test::kBystander;
using test::kKnown;
using test::kNew;
using test::OpenFeeCenter;
using test::Operation;
using test::Scene;

struct SlowCall {
    const char* operation;  ///< the name of the operation that is kept waiting, for an account without entries
    const char* call;       ///< the call of the host that does not answer
    const char* lock;       ///< which lock the operation holds shared meanwhile; empty for none
    const char* name;
};

void PrintTo(const SlowCall& slow, std::ostream* out) { *out << slow.name; }

Operation operationCalled(const std::string& name) {
    for (const auto& operation : test::allOperations()) {
        if (operation.name == name) {
            return operation;
        }
    }
    ADD_FAILURE() << "no operation is called " << name;
    return {};
}

class BadHostSlowTest : public ::testing::TestWithParam<SlowCall> {
protected:
    BadHostSlowTest() {
        test::stageOperations(scene);
        scene.prepare(center);
        host.onCall = [this](const std::string& operation) {
            if (operation == GetParam().call && std::this_thread::get_id() == slowThread.load()) {
                slowThread = std::thread::id();
                reached.set_value();
                answered.wait();
            }
        };
    }
    ~BadHostSlowTest() override { host.reset(); }

    /// Runs the operation on a thread of its own up to the slow call.
    std::future<void> start() {
        auto slow = std::async(std::launch::async, [this] {
            slowThread = std::this_thread::get_id();
            answer = runFor(kNew, slowed);
        });
        expectReached(slow);
        return slow;
    }

    /// Waits until the operation is inside the slow call; fails when it ends without reaching it.
    void expectReached(std::future<void>& slow) {
        auto arrival = reached.get_future();
        EXPECT_TRUE(test::seenBefore(slow, [&] {
            return arrival.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        })) << "the slow call was not made";
    }

    std::string runFor(uint64 account, const Operation& which) {
        return which.run(scene, center, subjectOf(scene, which, account));
    }

    boost::shared_mutex& mutexCalled(const std::string& name) {
        for (const auto& named : test::allMutexes(center)) {
            if (named.name == name) {
                return *named.mutex;
            }
        }
        ADD_FAILURE() << "no lock is called " << name;
        return center.stockMutex;
    }

    /// Whether `work` gets through before the host answers.
    bool getsThrough(const test::Work& work) {
        return test::getsThroughUnaided(work, [this] { answerNow(); });
    }

    void answerNow() {
        if (!hasAnswered) {
            hasAnswered = true;
            release.set_value();
        }
    }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    Scene scene{{"A", "B", "C"}};
    OpenFeeCenter center;
    const Operation slowed = operationCalled(GetParam().operation);
    std::atomic<std::thread::id> slowThread{};
    std::promise<void> reached;
    std::promise<void> release;
    std::shared_future<void> answered = release.get_future().share();
    bool hasAnswered = false;
    std::string answer;
};

TEST_P(BadHostSlowTest, EveryOtherQueryGetsThrough) {
    const std::vector<std::vector<Operation>> queries = {test::lookups(), test::lists(), test::entryQueries()};
    std::vector<std::string> expected;
    const auto askAll = [&] {
        std::vector<std::string> answers;
        for (const auto& some : queries) {
            for (const auto& query : some) {
                for (const uint64 account : {kBystander, kKnown, kNew}) {
                    answers.push_back(runFor(account, query));
                }
            }
        }
        return answers;
    };
    expected = askAll();
    auto slow = start();
    EXPECT_EQ(test::heldLocks(center), GetParam().lock[0] == '\0' ? "" : std::string(GetParam().lock) + " shared");
    EXPECT_TRUE(getsThrough([&] { EXPECT_EQ(askAll(), expected); }));
    answerNow();
    slow.get();
    EXPECT_EQ(test::faultOf(center), "");
}

TEST_P(BadHostSlowTest, ChangesOfOtherFamiliesGetThroughAndThoseOfItsOwnWait) {
    const std::string lock = GetParam().lock;
    std::vector<Operation> own;
    auto slow = start();
    for (const auto& change : test::changes()) {
        if (change.exclusive.count(lock) != 0) {
            own.push_back(change);
        } else {
            EXPECT_TRUE(getsThrough([&] { runFor(kKnown, change); })) << change.name;
        }
    }
    EXPECT_EQ(own.empty(), lock.empty());
    if (!own.empty()) {
        EXPECT_TRUE(test::waitsFor(
            mutexCalled(lock), [&] { runFor(kKnown, own.front()); }, [&] { answerNow(); }));
    }
    answerNow();
    slow.get();
    // What it was asked before the changes it answers as if they had not been.
    OpenFeeCenter untouched;
    scene.prepare(untouched);
    EXPECT_EQ(answer, slowed.run(scene, untouched, subjectOf(scene, slowed, kNew)));
    EXPECT_EQ(test::faultOf(center), "");
}

const SlowCall kSlowCalls[] = {{"getStockFee", "findInstrument", "stock", "StockCatalogue"},
                               {"getStockFee", "getRateLimitPtr", "stock", "StockConfiguration"},
                               {"getCreditFee", "getRateLimitPtr", "credit", "CreditConfiguration"},
                               {"getNeeqFee", "getRateLimitPtr", "neeq", "NeeqConfiguration"},
                               {"getHgtFee", "getHGTExchangeRateLimitPtr", "hgt", "HgtConfiguration"},
                               {"getSgtFee", "getSgtExchangeRateLimitPtr", "sgt", "SgtConfiguration"},
                               {"getFutureFee", "findInstrument", "future", "FutureCatalogue"},
                               {"getFutureFee", "getAccountData", "future", "FutureAccounts"},
                               {"getFutureFee", "isSimulationPlatform", "future", "FuturePlatform"},
                               {"getFutureFee", "getOpenFee", "future", "FutureInstrument"},
                               {"getIncomeSwapFutureFee", "findInstrument", "future", "IncomeSwapCatalogue"},
                               {"getFeeOfKind1", "findInstrument", "", "EntryCatalogue"},
                               {"getFeeOfKind2", "getTradeMinUnit", "", "EntryTradeUnit"},
                               {"getPbFullFeeOfNoFamily", "isWPMarket", "", "PrimeBrokerageMarket"},
                               {"getPbFullFeeOfHongKong", "getHGTExchangeRateLimitPtr", "hgt", "HongKongFirst"},
                               {"getPbFullFeeOfHongKong", "getSgtExchangeRateLimitPtr", "sgt", "HongKongSecond"}};

INSTANTIATE_TEST_SUITE_P(Calls, BadHostSlowTest, ::testing::ValuesIn(kSlowCalls),
                         [](const auto& slow) { return std::string(slow.param.name); });

/// Changes that are kept waiting, by the calls that all families' changes make.
const SlowCall kSlowChanges[] = {{"doInitStockFee", "getRateLimitPtr", "", "LoadConfiguration"},
                                 {"doInitSgtFee", "getTradeMinUnit", "", "LoadTradeUnit"},
                                 {"doUpdateHgtCustomFee", "getInstrumentList", "", "UpdateCatalogue"},
                                 {"doUpdateStockCustomFee", "isStockInCategoryForTS", "", "UpdateCategory"},
                                 {"doUpdateStkOptionCustomFee", "getCategorId", "", "UpdateCategoryNumber"},
                                 {"doUpdateFutureCustomFee", "getInstrumentMap", "", "FutureUpdateCatalogue"},
                                 {"doUpdateFutureCustomFee", "isStockInGroupCategory", "", "FutureUpdateGroup"}};

class BadHostSlowChangeTest : public BadHostSlowTest {};

TEST_P(BadHostSlowChangeTest, EveryQueryGetsThroughAndTheNextJobWaits) {
    slowed.post(scene, center, subjectOf(scene, slowed, kNew));
    auto slow = std::async(std::launch::async, [this] {
        slowThread = std::this_thread::get_id();
        host.runJobs();
    });
    expectReached(slow);
    EXPECT_EQ(test::heldLocks(center), "");
    EXPECT_TRUE(getsThrough([&] {
        for (const auto& query : test::entryQueries()) {
            runFor(kKnown, query);
        }
        center.initFees(test::makeAccount(10, 4), scene.records(90));
        host.service().poll();
        EXPECT_EQ(center.neeqAccountTable.count(4), 0U) << "a second job while the slow one runs";
    }));
    answerNow();
    slow.get();
    host.runJobs();
    EXPECT_EQ(center.neeqAccountTable.at(4).size(), scene.instruments.size());
    EXPECT_EQ(test::faultOf(center), "");
}

INSTANTIATE_TEST_SUITE_P(Calls, BadHostSlowChangeTest, ::testing::ValuesIn(kSlowChanges),
                         [](const auto& slow) { return std::string(slow.param.name); });

}  // namespace
