#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <ostream>
#include <string>
#include <vector>

#include "support/fee_center_fixture.h"
#include "support/future_builders.h"
#include "support/lock_scopes.h"
#include "support/operations.h"
#include "support/passing_entries.h"
#include "support/table_checks.h"

// From where to where each operation holds its locks: how often it takes them, what it writes under them, and that what
// it answers was read under them.

namespace {

using namespace qmservice;
using test::kKnown;
using test::kNew;
using test::LockScopes;
using test::OpenFeeCenter;
using test::Operation;
using test::PassingEntries;
using test::uint64;
using Kind = Operation::Kind;

class LockScopesTest : public ::testing::TestWithParam<Operation> {
protected:
    LockScopesTest() {
        stageOperations(scene);
        scene.prepare(center);
    }
    ~LockScopesTest() override { host.reset(); }

    std::string run(uint64 account) { return operation.run(scene, center, subjectOf(scene, operation, account)); }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    test::Scene scene{{"A", "B", "C"}};
    OpenFeeCenter center;
    const Operation& operation = GetParam();
};

// How often. That the stock-option tables have a lock of their own, stkOptionTable, the last to be taken, is this
// library's design; all other holds are what is required. How often an update takes that one is its own affair.

/// The scene's instruments, which every update reaches.
constexpr std::size_t kInstruments = 3;
/// Of how many the known account has entries: Scene::prepare() leaves the last one out, but in stock options.
constexpr std::size_t kEntries = kInstruments - 1;
constexpr std::size_t kOptionEntries = kInstruments;

std::string times(std::size_t count, const std::string& text) {
    std::string all;
    while (count-- != 0) {
        all += text;
    }
    return all;
}

/// The text without the holds of stkOptionTable inside of others.
std::string withoutTableHolds(std::string text) {
    for (const std::string hold : {"{stkOptionTable shared}", "{stkOptionTable exclusive}"}) {
        for (std::size_t at = 0; (at = text.find(hold)) != std::string::npos;) {
            text.erase(at, hold.size());
        }
    }
    return text;
}

/// A change holds the lock once for each entry that it writes.
std::string holdsOfChange(const Operation& change) {
    if (change.name == "doUpdateFutureInstrumentFee") {
        return times(4, "future exclusive; ");  // a commission and three margins
    }
    if (change.exclusive.empty()) {
        return "";
    }
    // The options' update has two, of which the stock family's is the one that counts here.
    const std::string lock = change.exclusive.count("stock") != 0 ? "stock" : *change.exclusive.begin();
    const std::size_t perInstrument = lock == "future" ? 2 : 1;  // futures: a commission and a margin
    return times(kInstruments * perInstrument, lock + " exclusive; ");
}

/// A lookup holds each of its families' locks once.
std::string holdsOfLookup(const Operation& lookup) {
    std::string holds;
    for (const char* lock : {"stock", "credit", "neeq", "hgt", "sgt", "future"}) {
        holds += lookup.shared.count(lock) != 0 ? lock + std::string(" shared; ") : "";
    }
    return holds + (lookup.shared.count("stkOption") != 0 ? "stkOption shared{stkOptionTable shared}; " : "");
}

/// A list holds the lock once for itself, and each of its lookups once more.
std::string holdsOfList(const Operation& list) {
    const std::size_t listed = list.shared.count("stkOption") != 0 ? kOptionEntries : kEntries;
    if (list.shared.count("neeq") != 0) {
        return "neeq shared; " + times(listed, "stock shared; ");
    }
    return times(1 + listed, holdsOfLookup(list));
}

std::string expectedHolds(const Operation& operation) {
    if (operation.isChange()) {
        return holdsOfChange(operation);
    }
    return operation.kind == Kind::kList ? holdsOfList(operation) : holdsOfLookup(operation);
}

TEST_P(LockScopesTest, EachLockIsHeldOnceForEachStepAndGivenBack) {
    const LockScopes scopes(center);
    run(kKnown);
    EXPECT_EQ(operation.isChange() ? withoutTableHolds(scopes.holds()) : scopes.holds(), expectedHolds(operation));
}

INSTANTIATE_TEST_SUITE_P(Operations, LockScopesTest, ::testing::ValuesIn(test::allOperations()),
                         [](const auto& operation) { return operation.param.name; });

// What is written.

/// The keys of every pool and table.
std::string keysText(const OpenFeeCenter& center) {
    std::string text;
    test::forEachFamily(center, center, [&](const char* name, const auto& pool, const auto& table, auto&&...) {
        text += name + std::string(":");
        for (const auto& record : pool) {
            text += " " + std::to_string(record.first);
        }
        for (const auto& account : table) {
            for (const auto& entry : account.second) {
                text += "; " + std::to_string(account.first) + " " + std::to_string(entry.first);
                for (const uint64 key : test::keysIn(entry.second)) {
                    text += " " + std::to_string(key);
                }
            }
        }
        text += "\n";
    });
    return text;
}

class WritesTest : public LockScopesTest {};

TEST_P(WritesTest, TablesChangeOnlyWhileEachLockOfTheChangeIsHeldExclusively) {
    for (const std::string& watched : operation.exclusive) {
        for (const uint64 account : {kKnown, kNew}) {
            OpenFeeCenter fees;
            scene.prepare(fees);
            const std::string before = keysText(fees);
            std::string seen = before;
            std::string held;
            const LockScopes scopes(fees, [&](const std::string& lock, const std::string& hold) {
                if (lock == watched) {
                    EXPECT_TRUE(held == "exclusive" || keysText(fees) == seen)
                        << "written while " << lock << " was held " << (held.empty() ? "not at all" : held);
                    seen = keysText(fees);
                    held = hold;
                }
            });
            operation.run(scene, fees, subjectOf(scene, operation, account));
            EXPECT_EQ(keysText(fees), seen) << "written after " << watched << " was given back";
            EXPECT_NE(before, seen) << "nothing was written";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Changes, WritesTest, ::testing::ValuesIn(test::changes()),
                         [](const auto& change) { return change.param.name; });

TEST(PoolWriteTest, OptionItemThatWasPooledBeforeTheStockLockWasTakenIsKept) {
    const test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    OpenFeeCenter center;
    const auto option = host.addInstrument("SHO", "10000001", 32);
    host.inSystemCategory = [](auto&&...) { return true; };
    const auto limit = boost::make_shared<qmservice::CCustomStkExchangeRateLimit>();
    limit->optionFirstKeyCode = limit->optionSecondKeyCode = limit->optionThirdKeyCode = '0';
    const auto pooled = boost::make_shared<qmservice::CStockOptionFeeItem>();
    pooled->firstKeyCode = pooled->secondKeyCode = pooled->thirdKeyCode = '7';
    const uint64 key = center.getHashKey(limit, 100);
    {
        const LockScopes scopes(center, [&](const std::string& lock, const std::string& hold) {
            if (lock == "stock" && !hold.empty()) {
                center.stkOptionItemPool[key] = pooled;
            }
        });
        center.doUpdateStkOptionCustomFee(test::makeAccount(6, kNew), test::makeCustomFee(limit));
    }
    const auto fee = center.getStkOptionFee(kNew, test::instrumentKey(*option));
    EXPECT_EQ(fee->stkOptionFeeRate->items.at("777"), pooled);
}

// A change with nothing to store takes no lock, so that it does not stop the readers, and makes no key.

constexpr int kFlagsWithoutASlot[] = {0, '0', '4'};

using NothingToStoreTest = test::FutureTest;

TEST_F(NothingToStoreTest, FuturesChangeTakesNoLockAndMakesNoKey) {
    const auto rb = addFuture("rb2605");
    host.inSystemCategory = [](auto&&...) { return true; };
    std::string keyCalls;
    host.onKeyCall = [&](const std::string& operation) { keyCalls += operation == "crc64" ? "crc64 " : ""; };
    const LockScopes scopes(center);
    load({test::makeFutureFee(rb, nullptr)});
    for (const int hedgeFlag : kFlagsWithoutASlot) {
        const auto margin = test::makeCustomMargin("5", hedgeFlag, 20);
        center.doUpdateFutureCustomFee(account, test::makeCustomFutureFee({}, {margin}));
    }
    EXPECT_EQ(scopes.holds(), "");
    EXPECT_EQ(keyCalls, "");
    EXPECT_EQ(tableSizes(), emptyTables);
}

// A reader between two holds sees a new commission with old margins, never the reverse.

using StoringOrderTest = test::FutureTest;

TEST_F(StoringOrderTest, CommissionOfAnInstrumentIsStoredBeforeItsMargins) {
    const auto rb = addFuture("rb2605");
    std::vector<std::vector<std::size_t>> stored;
    const LockScopes scopes(center, [&](const std::string& lock, const std::string& hold) {
        if (lock == "future" && hold.empty()) {
            stored.push_back(tableSizes());
        }
    });
    center.doUpdateFutureInstrumentFee(account,
                                       test::makeFutureFee(rb, test::makeCommission(10), {test::makeMargin('1', 20)}));
    const std::vector<std::vector<std::size_t>> expected{{1, 1, 1, 0, 0, 0}, {1, 1, 1, 1, 1, 1}};
    EXPECT_EQ(stored, expected);
}

// What is read.

class ReadsTest : public LockScopesTest {
protected:
    /// The accounts get entries in the market where the operation looks as well.
    ReadsTest() {
        if (!operation.market.empty()) {
            test::Scene there = scene;
            for (auto& instrument : there.instruments) {
                instrument = host.catalogue.at(test::instrumentKey(operation.market, instrument->code));
                host.add(instrument, ~0, 0);
            }
            there.prepare(center);
        }
    }
};

TEST_P(ReadsTest, AnswerIsMadeOfWhatTheTablesHoldWhileTheLockIsHeld) {
    PassingEntries entries(center);
    for (const std::string& watched : operation.shared) {
        for (const std::string& lock : operation.shared) {
            entries.appear(lock);
        }
        const std::string expected = run(kNew);
        entries.vanish(watched);
        // Hong Kong's two answers are dropped, whatever they are.
        ASSERT_EQ(run(kNew) == expected, operation.market == "HK");
        {
            const LockScopes scopes(center, [&](const std::string& lock, const std::string& hold) {
                if (lock == watched) {
                    hold.empty() ? entries.vanish(lock) : entries.appear(lock);
                }
            });
            EXPECT_EQ(run(kNew), expected) << watched;
        }
        entries.appear(watched);
    }
}

std::vector<Operation> queries() {
    std::vector<Operation> all;
    for (const auto& operation : test::allOperations()) {
        if (!operation.isChange() && !operation.shared.empty()) {
            all.push_back(operation);
        }
    }
    return all;
}

INSTANTIATE_TEST_SUITE_P(Queries, ReadsTest, ::testing::ValuesIn(queries()),
                         [](const auto& query) { return query.param.name; });

// What is made.

struct Lookup {
    const char* name;
    boost::shared_ptr<CInstrumentFee> (*find)(OpenFeeCenter& center, uint64 accountKey, uint64 instrumentKey);
};

void PrintTo(const Lookup& lookup, std::ostream* out) { *out << lookup.name; }

const Lookup kLookups[] = {
    {"Stock", [](auto& center, uint64 account, uint64 key) { return center.getStockFee(account, key, 200); }},
    {"Credit", [](auto& center, uint64 account, uint64 key) { return center.getCreditFee(account, key, 200); }},
    {"Neeq", [](auto& center, uint64 account, uint64 key) { return center.getNeeqFee(account, key, 200); }},
    {"StkOption", [](auto& center, uint64 account, uint64 key) { return center.getStkOptionFee(account, key); }},
    {"Hgt", [](auto& center, uint64 account, uint64 key) { return center.getHgtFee(account, key); }},
    {"Sgt", [](auto& center, uint64 account, uint64 key) { return center.getSgtFee(account, key); }},
    {"Future", [](auto& center, uint64 account, uint64 key) { return center.getFutureFee(account, key); }},
    {"IncomeSwap",
     [](auto& center, uint64 account, uint64 key) { return center.getIncomeSwapFutureFee(account, key); }}};

class AnswerTest : public ::testing::TestWithParam<Lookup> {
protected:
    ~AnswerTest() override { host.reset(); }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
};

TEST_P(AnswerTest, LookupMakesItsWholeAnswerUnderTheLock) {
    const test::Scene scene{{"A", "B"}};
    OpenFeeCenter center;
    scene.prepare(center);
    for (const uint64 account : {kKnown, kNew}) {
        const LockScopes scopes(center);
        const auto fee = GetParam().find(center, account, test::instrumentKey("SH", "A"));
        EXPECT_EQ(scopes.allocationsOutside(), 0);
        EXPECT_TRUE(fee);
    }
}

INSTANTIATE_TEST_SUITE_P(Lookups, AnswerTest, ::testing::ValuesIn(kLookups),
                         [](const auto& lookup) { return std::string(lookup.param.name); });

// The means themselves.

TEST(LockScopesMeansTest, HoldsAndAllocationsAreSeenAsTheyAre) {
    const test::FreshHost freshHost;
    OpenFeeCenter center;
    std::vector<std::string> moments;
    LockScopes scopes(center,
                      [&](const std::string& lock, const std::string& hold) { moments.push_back(lock + ":" + hold); });
    ::operator delete(::operator new(1));
    center.stockMutex.lock();
    ::operator delete(::operator new(1));
    center.hgtMutex.lock_shared();
    center.hgtMutex.unlock_shared();
    center.stockMutex.unlock();
    ::operator delete(::operator new(1));
    EXPECT_EQ(scopes.allocationsOutside(), 2);
    EXPECT_EQ(scopes.holds(), "stock exclusive{hgt shared}; ");
    EXPECT_EQ(moments, (std::vector<std::string>{"stock:exclusive", "hgt:shared", "hgt:", "stock:"}));
}

}  // namespace
