#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "support/fee_center_fixture.h"
#include "support/lock_watch.h"

// Stock-option queries and updates take different locks, so that neither waits for the other.

namespace {

using namespace qmservice;
using test::getsThrough;
using test::HeldLocks;
using test::instrumentKey;
using test::LockWatch;

using Calls = std::set<std::string>;

class StockOptionLocksTest : public test::FeeCenterTest {
protected:
    static boost::shared_ptr<CCustomStkExchangeRateLimit> limit() {
        auto limit = boost::make_shared<CCustomStkExchangeRateLimit>();
        limit->category = "all";
        limit->optionFirstKeyCode = limit->optionSecondKeyCode = limit->optionThirdKeyCode = '0';
        return limit;
    }

    void update() { center.doUpdateStkOptionCustomFee(account, test::makeCustomFee(limit())); }

    bool list() {
        std::vector<boost::shared_ptr<CInstrumentFee>> fees;
        return center.getStkOptionFees(account, fees);
    }

    void expectNothingStored() {
        EXPECT_TRUE(center.stkOptionItemPool.empty());
        EXPECT_TRUE(center.stkOptionAccountTable.empty());
    }

    std::size_t itemCount() { return center.getStkOptionFee(7, key)->stkOptionFeeRate->items.size(); }

    /// Whether `work` gets through while this thread holds every lock but the named ones.
    bool needsOnly(const Calls& locks, const test::Work& work) {
        std::optional<HeldLocks> others(std::in_place, center, locks);
        return getsThrough(work, [&others] { others.reset(); });
    }

    const boost::shared_ptr<CAccountInfo> account = test::makeAccount(6, 7);
    const boost::shared_ptr<CInstrument> option = host.addInstrument("SHO", "10000001", 32);
    const uint64 key = instrumentKey(*option);
    const bool allMatch = [this] {
        host.categoryNumbers["all"] = 5;
        return host.systemMembers.insert({5, {"SHO", "10000001"}}).second;
    }();
};

TEST_F(StockOptionLocksTest, UpdateCallsTheHostUnderNoLock) {
    const LockWatch watch(host, center);
    update();
    EXPECT_EQ(watch.calls, (Calls{"getInstrumentList: none", "getCategorId: none", "isStockInCategoryForTS: none",
                                  "getTradeMinUnit: none", "voStockKey: none", "hash: none", "crc64: none"}));
}

TEST_F(StockOptionLocksTest, LookupCallsNoHost) {
    const LockWatch watch(host, center);
    itemCount();
    EXPECT_TRUE(watch.calls.empty());
}

TEST_F(StockOptionLocksTest, ListFindsInstrumentsUnderNoLock) {
    update();
    const LockWatch watch(host, center);
    EXPECT_TRUE(list());
    EXPECT_EQ(watch.calls, Calls{"findInstrument: none"});
}

TEST_F(StockOptionLocksTest, TablesLockIsHeldDuringNoCallOfTheHost) {
    const auto stock = host.addInstrument("SH", "600000", 1 | 32);
    host.systemMembers.insert({5, {"SH", "600000"}});
    const auto custom = [](std::int32_t third) {
        auto limit = boost::make_shared<CCustomStkExchangeRateLimit>();
        limit->category = "all";
        limit->optionFirstKeyCode = limit->optionSecondKeyCode = '0';
        limit->optionThirdKeyCode = third;
        return test::makeCustomFee(limit);
    };
    const LockWatch watch(host, center);
    // A new account, a further item of stored instruments, and an item that is stored already.
    for (const std::int32_t third : {'0', '1', '1'}) {
        center.updateCustomFee(account, custom(third));
    }
    host.runJobs();
    for (const int kind : {6, 12}) {
        for (const auto& instrument : {option, stock}) {
            const auto fee = center.getFee(test::makeAccount(kind, 7), instrument->market, instrument->code);
            EXPECT_EQ(fee->stkOptionFeeRate->items.size(), 2U);
        }
    }
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    EXPECT_TRUE(center.getFees(account, fees));
    EXPECT_EQ(fees.size(), 2U);
    EXPECT_EQ(watch.calls,
              (Calls{"getInstrumentList: none", "getCategorId: none", "isStockInCategoryForTS: none",
                     "getTradeMinUnit: none", "voStockKey: none", "hash: none", "crc64: none", "findInstrument: none",
                     "findInstrument: stock shared", "getRateLimitPtr: stock shared"}));
}

TEST_F(StockOptionLocksTest, OperationsLeaveNoLockBehind) {
    update();
    itemCount();
    list();
    EXPECT_EQ(test::heldLocks(center), "");
}

TEST_F(StockOptionLocksTest, QueryGetsThroughWhileTheStockLockIsHeld) {
    update();
    boost::unique_lock<boost::shared_mutex> held(center.stockMutex);
    EXPECT_TRUE(getsThrough([&] { EXPECT_EQ(itemCount(), 1U); }, [&] { held.unlock(); }));
}

TEST_F(StockOptionLocksTest, UpdateGetsThroughWhileTheStockOptionLockIsHeld) {
    boost::unique_lock<boost::shared_mutex> held(center.stkOptionMutex);
    EXPECT_TRUE(getsThrough([&] { update(); }, [&] { held.unlock(); }));
    EXPECT_EQ(itemCount(), 1U);
}

TEST_F(StockOptionLocksTest, QueryNeedsNoLockButTheOptionFamilysAndTheTables) {
    update();
    EXPECT_TRUE(needsOnly({"stkOption", "stkOptionTable"}, [&] {
        EXPECT_EQ(itemCount(), 1U);
        EXPECT_TRUE(list());
    }));
}

TEST_F(StockOptionLocksTest, UpdateNeedsNoLockButTheStockFamilysAndTheTables) {
    EXPECT_TRUE(needsOnly({"stock", "stkOptionTable"}, [&] { update(); }));
    EXPECT_EQ(itemCount(), 1U);
}

TEST_F(StockOptionLocksTest, LoadNeedsNoLock) {
    EXPECT_TRUE(
        needsOnly({}, [&] { center.doInitStkOptionFee(account, {test::makeFee(option, test::makeLimit(0.1))}); }));
}

TEST_F(StockOptionLocksTest, UpdateTakesTheStockLockExclusivelyBeforeItWritesATable) {
    EXPECT_TRUE(test::waitsToWrite(
        center.stockMutex, [&] { update(); }, [&] { expectNothingStored(); }));
    EXPECT_EQ(itemCount(), 1U);
}

TEST_F(StockOptionLocksTest, UpdateTakesTheTablesLockExclusivelyBeforeItWritesATable) {
    EXPECT_TRUE(test::waitsToWrite(
        center.stkOptionTableMutex, [&] { update(); }, [&] { expectNothingStored(); }));
    EXPECT_EQ(itemCount(), 1U);
}

TEST_F(StockOptionLocksTest, UpdateThatWaitedTakesTheItemThatWasPooledMeanwhile) {
    auto item = boost::make_shared<CStockOptionFeeItem>();
    item->firstKeyCode = item->secondKeyCode = item->thirdKeyCode = '7';
    EXPECT_TRUE(test::waitsToWrite(
        center.stockMutex, [&] { update(); },
        [&] { center.stkOptionItemPool[center.getHashKey(limit(), 100)] = item; }));
    EXPECT_EQ(center.getStkOptionFee(7, key)->stkOptionFeeRate->items.at("777"), item);
}

TEST_F(StockOptionLocksTest, QueriesDoNotWaitForOneAnother) {
    update();
    boost::shared_lock<boost::shared_mutex> family(center.stkOptionMutex);
    boost::shared_lock<boost::shared_mutex> tables(center.stkOptionTableMutex);
    EXPECT_TRUE(getsThrough([&] { itemCount(); },
                            [&] {
                                tables.unlock();
                                family.unlock();
                            }));
}

TEST_F(StockOptionLocksTest, FullDefaultOfAMarketWithoutAFamilyIsReadUnderNoLock) {
    const auto foreign = host.addInstrument("XX", "A");
    EXPECT_TRUE(needsOnly({}, [&] {
        const auto fee = center.getPbFullFee(7, instrumentKey(*foreign), 100);
        EXPECT_EQ(fee->stkRateLimit, center.defaultStockRateLimit);
        EXPECT_EQ(fee->stkOptionFeeRate, center.defaultStkOptionFeeRate);
        EXPECT_EQ(fee->hgtRateLimit, center.defaultHgtRateLimit);
        EXPECT_EQ(fee->sgtRateLimit, center.defaultSgtRateLimit);
    }));
}

TEST_F(StockOptionLocksTest, ChangesAreQueuedUnderNoLock) {
    EXPECT_TRUE(needsOnly({}, [&] {
        for (const int kind : {1, 2, 3, 5, 6, 7, 10, 11}) {
            center.initFees(test::makeAccount(kind, 7), {test::makeFee(option, test::makeLimit(0.1))});
        }
        center.updateCustomFee(test::makeAccount(2, 7), test::makeCustomFee(test::makeCustomLimit("5", 0.2)));
    }));
    EXPECT_GT(host.runJobs(), 0U);
}

}  // namespace
