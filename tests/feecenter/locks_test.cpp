#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "support/limit_family_fixture.h"
#include "support/lock_watch.h"

// Which lock each operation of the limit families holds, and when.

namespace {

using namespace qmservice;
using test::HeldLocks;
using test::LockWatch;

using Calls = std::set<std::string>;

template <class Family>
class LimitLocksTest : public test::LimitFamilyTest<Family> {
protected:
    /// The name of the family's lock.
    std::string ownLock() {
        for (const auto& named : test::allMutexes(this->center)) {
            if (named.mutex == &(this->center.*Family::mutex)) {
                return named.name;
            }
        }
        return "";
    }

    void expectNothingStored() {
        EXPECT_EQ(this->poolSize(), 0U);
        EXPECT_TRUE((this->center.*Family::table).empty());
    }

    /// Whether `work` gets through while this thread holds every lock but the family's and the `also` named.
    bool needsOwnLockOnly(const test::Work& work, Calls also = {}) {
        also.insert(ownLock());
        std::optional<HeldLocks> others(std::in_place, this->center, also);
        return test::getsThrough(work, [&others] { others.reset(); });
    }
};
TYPED_TEST_SUITE(LimitLocksTest, test::LimitFamilies, test::FamilyName);

TYPED_TEST(LimitLocksTest, LoadCallsTheHostUnderNoLock) {
    const auto a = this->instrument("A");
    const LockWatch watch(this->host, this->center);
    this->loadOne(a, this->limit(0.1));
    Calls expected = {"getTradeMinUnit: none", "voStockKey: none", "hash: none", "crc64: none"};
    if (std::is_base_of_v<test::StockSide, TypeParam>) {
        expected.insert("getRateLimitPtr: none");
    }
    EXPECT_EQ(watch.calls, expected);
}

TYPED_TEST(LimitLocksTest, UpdateCallsTheHostUnderNoLock) {
    this->instrument("A");
    this->instrument("B");
    const LockWatch watch(this->host, this->center);
    this->applyToAll(this->custom("5", 0.5));
    EXPECT_EQ(watch.calls, (Calls{"getInstrumentList: none", "isStockInCategoryForTS: none", "getTradeMinUnit: none",
                                  "voStockKey: none", "hash: none", "crc64: none"}));
}

TYPED_TEST(LimitLocksTest, GroupTestIsAskedUnderNoLock) {
    this->instrument("A");
    auto rates = this->custom("70001", 0.5);
    rates->groupCategories = {boost::make_shared<CGroupCategorySubInfo>()};
    const LockWatch watch(this->host, this->center);
    this->apply({rates});
    Calls expected = {"getInstrumentList: none", "isStockInCategoryForTS: none"};
    if (TypeParam::kind != test::Sgt::kind) {
        expected.insert("isStockInGroupCategory: none");
    }
    EXPECT_EQ(watch.calls, expected);
}

TYPED_TEST(LimitLocksTest, LookupFallbackAsksTheHostUnderTheFamilysLockShared) {
    const auto a = this->instrument("A");
    const uint64 key = test::instrumentKey(*a);
    const LockWatch watch(this->host, this->center);
    test::findFee<TypeParam>(this->center, 7, key);
    const std::string held = ": " + this->ownLock() + " shared";
    EXPECT_EQ(watch.calls, (Calls{"findInstrument" + held, TypeParam::askConfigured + held}));
}

TYPED_TEST(LimitLocksTest, EntryCallsTheHostUnderNoLockFromTheQuery) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    const LockWatch watch(this->host, this->center);
    this->center.getFee(this->account, "XX", "A");
    Calls expected = {"voStockKey: none", "hash: none", "findInstrument: none"};
    if (TypeParam::kind == 2 || TypeParam::kind == 3) {
        expected.insert({"splitVoStockKey: none", "getTradeMinUnit: none"});
    }
    EXPECT_EQ(watch.calls, expected);
}

TYPED_TEST(LimitLocksTest, QueryCallsTheHostUnderNoLockBeforeTheFamilyFallsBack) {
    this->instrument("A");
    const LockWatch watch(this->host, this->center);
    this->center.getFee(this->account, "XX", "A");
    const std::string held = ": " + this->ownLock() + " shared";
    Calls expected = {"voStockKey: none", "hash: none", "findInstrument: none", "findInstrument" + held,
                      TypeParam::askConfigured + held};
    if (TypeParam::kind == 2 || TypeParam::kind == 3) {
        expected.insert({"splitVoStockKey: none", "getTradeMinUnit: none"});
    }
    EXPECT_EQ(watch.calls, expected);
}

TYPED_TEST(LimitLocksTest, ListFindsInstrumentsUnderNoLock) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    const LockWatch watch(this->host, this->center);
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    this->list(fees);
    Calls expected = {"findInstrument: none"};
    if (TypeParam::kind == test::Neeq::kind) {
        // The stock lookup falls back under its own lock, the list's not being held.
        expected.insert({"findInstrument: stock shared", "getRateLimitPtr: stock shared"});
    }
    EXPECT_EQ(watch.calls, expected);
}

TYPED_TEST(LimitLocksTest, OperationsLeaveNoLockBehind) {
    const auto a = this->instrument("A");
    this->find(*a);
    this->loadOne(a, this->limit(0.1));
    this->applyToAll(this->custom("5", 0.5));
    this->find(*a);
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    this->list(fees);
    EXPECT_EQ(test::heldLocks(this->center), "");
}

TYPED_TEST(LimitLocksTest, LookupWaitsForNoOtherLock) {
    const auto a = this->instrument("A");
    const auto b = this->instrument("B");
    this->loadOne(a, this->limit(0.1));
    EXPECT_TRUE(this->needsOwnLockOnly([&] {
        EXPECT_EQ(this->limitOf(*a)->rate1, 0.1);
        EXPECT_EQ(this->limitOf(*b), this->fallback());
    }));
}

TYPED_TEST(LimitLocksTest, ListWaitsForNoOtherLock) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    const Calls also = TypeParam::kind == test::Neeq::kind ? Calls{"stock"} : Calls{};
    EXPECT_TRUE(this->needsOwnLockOnly([&] { this->list(fees); }, also));
    EXPECT_EQ(fees.size(), 1U);
}

TYPED_TEST(LimitLocksTest, LoadWaitsForNoOtherLock) {
    const auto a = this->instrument("A");
    EXPECT_TRUE(this->needsOwnLockOnly([&] { this->loadOne(a, this->limit(0.1)); }));
    EXPECT_EQ(this->storedRate(*a), 0.1);
}

TYPED_TEST(LimitLocksTest, UpdateWaitsForNoOtherLock) {
    const auto a = this->instrument("A");
    EXPECT_TRUE(this->needsOwnLockOnly([&] { this->applyToAll(this->custom("5", 0.5)); }));
    EXPECT_EQ(this->storedRate(*a), 0.5);
}

TYPED_TEST(LimitLocksTest, ReadersOfTheFamilyDoNotWaitForOneAnother) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    boost::shared_lock<boost::shared_mutex> reader(this->center.*TypeParam::mutex);
    EXPECT_TRUE(test::getsThrough([&] { this->find(*a); }, [&] { reader.unlock(); }));
}

TYPED_TEST(LimitLocksTest, LoadTakesTheFamilysLockExclusivelyBeforeItWritesATable) {
    const auto a = this->instrument("A");
    EXPECT_TRUE(test::waitsToWrite(
        this->center.*TypeParam::mutex, [&] { this->loadOne(a, this->limit(0.1)); },
        [&] { this->expectNothingStored(); }));
    EXPECT_EQ(this->storedRate(*a), 0.1);
}

TYPED_TEST(LimitLocksTest, UpdateTakesTheFamilysLockExclusivelyBeforeItWritesATable) {
    const auto a = this->instrument("A");
    EXPECT_TRUE(test::waitsToWrite(
        this->center.*TypeParam::mutex, [&] { this->applyToAll(this->custom("5", 0.5)); },
        [&] { this->expectNothingStored(); }));
    EXPECT_EQ(this->storedRate(*a), 0.5);
}

}  // namespace
