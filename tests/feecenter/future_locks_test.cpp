#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <ostream>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "support/family_marks.h"
#include "support/lock_probe.h"
#include "support/lock_watch.h"

// Which lock is held while the host is called, and that a writer waits for readers.

namespace {

using namespace qmservice;
using test::heldLocks;
using test::kAccount;
using test::makeCommission;
using test::makeCustomCommission;
using test::makeCustomFutureFee;
using test::makeCustomMargin;
using test::makeFutureFee;
using test::makeMargin;
using Held = std::vector<std::string>;

class FutureLocksTest : public test::FutureTest {
protected:
    /// What the host sees of the locks during `run`: one "operation: locks" for each of its calls.
    template <class Run>
    Held heldDuring(const Run& run) {
        Held held;
        host.onCall = [&](const std::string& operation) { held.push_back(operation + ": " + heldLocks(center)); };
        run();
        host.onCall = nullptr;
        EXPECT_EQ(heldLocks(center), "");
        return held;
    }

    boost::shared_ptr<CInstrument> rb = addFuture("rb2605");
    uint64 rbKey = test::instrumentKey(*rb);
};

/// An instrument that tells when its fee type is asked for.
class WatchedInstrument : public CInstrument {
public:
    [[nodiscard]] std::int32_t getFeeType() const override {
        onAsked();
        return 0;
    }
    std::function<void()> onAsked;
};

TEST_F(FutureLocksTest, LookupHoldsTheLockSharedWhileTheFallbackAsksTheHost) {
    account->platformId = 9;
    host.simulationPlatforms = {9};
    host.accounts[kAccount] = boost::make_shared<CAccountData>(account);
    const auto watched = boost::make_shared<WatchedInstrument>();
    watched->market = "SHFE";
    watched->code = "cu2605";
    std::string heldWhenAsked = "not asked";
    watched->onAsked = [&] { heldWhenAsked = heldLocks(center); };
    host.add(watched, 0, 2);
    EXPECT_EQ(heldDuring([&] { center.getFutureFee(kAccount, test::instrumentKey(*watched)); }),
              (Held{"findInstrument: future shared", "getAccountData: future shared",
                    "isSimulationPlatform: future shared"}));
    EXPECT_EQ(heldWhenAsked, "future shared");
}

TEST_F(FutureLocksTest, LookupOfStoredRatesHoldsTheLockShared) {
    load({makeFutureFee(rb, makeCommission(10))});
    EXPECT_EQ(heldDuring([&] { center.getFutureFee(kAccount, rbKey); }), Held{"findInstrument: future shared"});
}

TEST_F(FutureLocksTest, IncomeSwapLookupHoldsTheLockShared) {
    EXPECT_EQ(heldDuring([&] { center.getIncomeSwapFutureFee(kAccount, rbKey); }),
              Held{"findInstrument: future shared"});
}

/// A default that tells when it is copied.
class WatchedFee : public CInstrumentFee {
public:
    WatchedFee(const CInstrumentFee& fee, std::function<void()> tell)
        : CInstrumentFee(fee), onCopied(std::move(tell)) {}
    [[nodiscard]] boost::shared_ptr<IData> copy() const override {
        onCopied();
        return CInstrumentFee::copy();
    }

private:
    std::function<void()> onCopied;
};

TEST_F(FutureLocksTest, LookupsHoldTheLockSharedWhileTheDefaultIsCopied) {
    Held held;
    for (auto* original : {&center.defaultFutureFee, &center.defaultIncomeSwapFutureFee}) {
        *original = boost::make_shared<WatchedFee>(**original, [&] { held.push_back(heldLocks(center)); });
    }
    EXPECT_TRUE(center.getFutureFee(kAccount, rbKey));
    EXPECT_TRUE(center.getIncomeSwapFutureFee(kAccount, rbKey));
    EXPECT_EQ(held, (Held{"future shared", "future shared"}));
}

TEST_F(FutureLocksTest, QueryHoldsNothingBeforeTheLookup) {
    EXPECT_EQ(heldDuring([&] { center.getFee(account, "SHFE", "rb2605"); }),
              (Held{"findInstrument: ", "findInstrument: future shared", "getAccountData: future shared"}));
}

TEST_F(FutureLocksTest, ListHoldsNothingBetweenItsEntries) {
    const auto cu = addFuture("cu2605");
    load({makeFutureFee(rb, makeCommission(10)), makeFutureFee(cu, makeCommission(40))});
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    EXPECT_EQ(heldDuring([&] { center.getFutureFees(account, fees); }),
              (Held{"findInstrument: ", "findInstrument: future shared",
                    "findInstrument: ", "findInstrument: future shared"}));
}

TEST_F(FutureLocksTest, ListOfAnUnknownAccountReleasesTheLock) {
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    EXPECT_FALSE(center.getFutureFees(account, fees));
    EXPECT_EQ(heldLocks(center), "");
}

TEST_F(FutureLocksTest, CustomFeeHoldsNothingDuringCatalogueAndCategoryCalls) {
    auto list = makeCustomCommission("10001", 10);
    for (int number = 0; number < 10002; ++number) {
        list->customCategories[number] = {};
    }
    auto group = makeCustomMargin("70001", '1', 20);
    group->groupCategories = {boost::make_shared<CGroupCategorySubInfo>()};
    host.groupMembers.insert({"SHFE", "rb2605"});
    const auto held = heldDuring([&] {
        center.doUpdateFutureCustomFee(account, makeCustomFutureFee({list, makeCustomCommission("5", 30)}, {group}));
    });
    EXPECT_EQ(held,
              (Held{"getInstrumentMap: ", "getInstrumentMap: ", "isStockInCategoryForTS: ", "isStockInCustomCategory: ",
                    "isStockInCategoryForTS: ", "isStockInCategoryForTS: ", "isStockInGroupCategory: "}));
    EXPECT_EQ(marginKeys(*rb).size(), 3U);
}

TEST_F(FutureLocksTest, CustomFeeReleasesTheLockBetweenInstruments) {
    addFuture("cu2605");
    host.inSystemCategory = [](auto&&...) { return true; };
    const auto held = heldDuring([&] {
        center.doUpdateFutureCustomFee(
            account, makeCustomFutureFee({makeCustomCommission("5", 10)}, {makeCustomMargin("5", '1', 20)}));
    });
    EXPECT_EQ(held, (Held{"getInstrumentMap: ", "getInstrumentMap: ", "isStockInCategoryForTS: ",
                          "isStockInCategoryForTS: ", "isStockInCategoryForTS: ", "isStockInCategoryForTS: "}));
}

// Key functions too.

using Calls = std::set<std::string>;

TEST_F(FutureLocksTest, LoadMakesTheCommissionsKeyUnderNoLock) {
    const test::LockWatch watch(host, center);
    load({makeFutureFee(rb, makeCommission(10))});
    EXPECT_EQ(watch.calls, (Calls{"voStockKey: none", "hash: none", "crc64: none"}));
}

TEST_F(FutureLocksTest, LoadMakesTheMarginsKeysAndNothingElseUnderTheLock) {
    const test::LockWatch watch(host, center);
    load({makeFutureFee(rb, nullptr, {makeMargin('1', 20), makeMargin('2', 30)})});
    EXPECT_EQ(watch.calls, (Calls{"voStockKey: none", "hash: none", "crc64: future exclusive"}));
}

TEST_F(FutureLocksTest, InstrumentUpdateMakesEveryKeyUnderNoLock) {
    const test::LockWatch watch(host, center);
    center.doUpdateFutureInstrumentFee(
        account, makeFutureFee(rb, makeCommission(10), {makeMargin('1', 20), makeMargin('3', 30)}));
    EXPECT_EQ(watch.calls, (Calls{"voStockKey: none", "hash: none", "crc64: none"}));
    EXPECT_EQ(marginKeys(*rb).size(), 3U);
}

TEST_F(FutureLocksTest, CustomFeeMakesEveryKeyUnderNoLock) {
    host.inSystemCategory = [](auto&&...) { return true; };
    const test::LockWatch watch(host, center);
    center.doUpdateFutureCustomFee(
        account, makeCustomFutureFee({makeCustomCommission("5", 10)}, {makeCustomMargin("5", '1', 20)}));
    EXPECT_EQ(watch.calls, (Calls{"getInstrumentMap: none", "isStockInCategoryForTS: none", "voStockKey: none",
                                  "hash: none", "crc64: none"}));
    EXPECT_EQ(marginKeys(*rb).size(), 3U);
}

// Prime brokerage: never more than the lock of the lookup that is running.

struct PrimeBrokerageLocks {
    const char* market;
    Held held;
};

TEST_F(FutureLocksTest, PrimeBrokerageTakesNoLockOfItsOwn) {
    const std::string find = "findInstrument: ";
    const std::vector<PrimeBrokerageLocks> expected = {
        {"SH", {find, find + "stock shared", "getRateLimitPtr: stock shared"}},
        {"DCE", {find, find + "future shared", "getAccountData: future shared"}},
        {"SSEHKEX", {find, find + "hgt shared", "getHGTExchangeRateLimitPtr: hgt shared"}},
        {"SZSEHKEX", {find, find + "sgt shared", "getSgtExchangeRateLimitPtr: sgt shared"}},
        {"HK",
         {find, find + "hgt shared", "getHGTExchangeRateLimitPtr: hgt shared", find + "sgt shared",
          "getSgtExchangeRateLimitPtr: sgt shared"}},
        {"SHO", {find}},
        {"CMEO", {find, "isWPMarket: ", find + "future shared"}},
        {"NEEQ", {find, "isWPMarket: ", find + "neeq shared", "getRateLimitPtr: neeq shared"}},
        {"XX", {find, "isWPMarket: "}}};
    for (const auto& row : expected) {
        const uint64 key = test::instrumentKey(*host.addInstrument(row.market, "1"));
        EXPECT_EQ(heldDuring([&] { EXPECT_TRUE(center.getPbFullFee(kAccount, key, 100)); }), row.held) << row.market;
    }
}

// Writers.

struct Write {
    const char* name;
    void (*run)(test::OpenFeeCenter& center, const boost::shared_ptr<CInstrument>& instrument);
};

void PrintTo(const Write& write, std::ostream* out) { *out << write.name; }

class FutureWriteLockTest : public FutureLocksTest, public ::testing::WithParamInterface<Write> {};

TEST_P(FutureWriteLockTest, WriterWaitsUntilNoReaderHoldsTheLock) {
    host.inSystemCategory = [](auto&&...) { return true; };
    std::atomic<bool> finished{false};
    center.futureMutex.lock_shared();
    std::thread writer([&] {
        GetParam().run(center, rb);
        finished = true;
    });
    // The lock refuses further readers from the moment a writer waits for it.
    while (!finished && center.futureMutex.try_lock_shared()) {
        center.futureMutex.unlock_shared();
        std::this_thread::yield();
    }
    const bool wroteUnderAReader = finished;
    const auto sizesUnderAReader = wroteUnderAReader ? std::vector<std::size_t>() : tableSizes();
    center.futureMutex.unlock_shared();
    writer.join();
    EXPECT_FALSE(wroteUnderAReader);
    EXPECT_EQ(sizesUnderAReader, emptyTables);
    EXPECT_NE(tableSizes(), emptyTables);
    EXPECT_EQ(heldLocks(center), "");
}

const Write kWrites[] = {
    {"LoadOfACommission",
     [](auto& center, const auto& rb) {
         center.doInitFutureFee(test::makeAccount(1, kAccount), {makeFutureFee(rb, makeCommission(10))});
     }},
    {"LoadOfMargins",
     [](auto& center, const auto& rb) {
         center.doInitFutureFee(test::makeAccount(1, kAccount), {makeFutureFee(rb, nullptr, {makeMargin('1', 20)})});
     }},
    {"InstrumentUpdate",
     [](auto& center, const auto& rb) {
         center.doUpdateFutureInstrumentFee(test::makeAccount(1, kAccount), makeFutureFee(rb, makeCommission(10)));
     }},
    {"CustomCommission",
     [](auto& center, const auto&) {
         center.doUpdateFutureCustomFee(test::makeAccount(1, kAccount),
                                        makeCustomFutureFee({makeCustomCommission("5", 10)}, {}));
     }},
    {"CustomMargin", [](auto& center, const auto&) {
         center.doUpdateFutureCustomFee(test::makeAccount(1, kAccount),
                                        makeCustomFutureFee({}, {makeCustomMargin("5", '1', 20)}));
     }}};

INSTANTIATE_TEST_SUITE_P(Writes, FutureWriteLockTest, ::testing::ValuesIn(kWrites),
                         [](const auto& write) { return std::string(write.param.name); });

}  // namespace
