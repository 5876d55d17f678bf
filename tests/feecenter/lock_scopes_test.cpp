#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <ostream>
#include <string>
#include <vector>

#include "support/fee_center_test.h"
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

// How often.

std::string times(std::size_t count, const std::string& text) {
    std::string all;
    while (count-- != 0) {
        all += text;
    }
    return all;
}

/// A change holds the lock once for each entry that it writes.
std::string holdsOfChange(const Operation& change) {
    if (change.name == "doUpdateStkOptionCustomFee") {
        return times(3, "stock exclusive{stkOptionTable exclusive}; ");
    }
    if (change.name == "doUpdateFutureInstrumentFee") {
        return times(4, "future exclusive; ");  // a commission and three margins
    }
    if (change.exclusive.empty()) {
        return "";
    }
    const std::string& lock = *change.exclusive.begin();
    return times(lock == "future" ? 6 : 3, lock + " exclusive; ");  // futures: a commission and a margin
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
    const std::size_t listed = list.shared.count("stkOption") != 0 ? 3 : 2;
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
    EXPECT_EQ(scopes.holds(), expectedHolds(operation));
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

TEST_P(WritesTest, TablesChangeUnderEachLockOfTheChangeAlone) {
    for (const std::string& watched : operation.exclusive) {
        for (const uint64 account : {kKnown, kNew}) {
            OpenFeeCenter fees;
            scene.prepare(fees);
            const std::string before = keysText(fees);
            std::string given = before;
            const LockScopes scopes(fees, [&](const std::string& lock, bool taken) {
                if (lock == watched) {
                    EXPECT_TRUE(!taken || keysText(fees) == given) << "written while " << lock << " was not held";
                    given = keysText(fees);
                }
            });
            operation.run(scene, fees, subjectOf(scene, operation, account));
            EXPECT_EQ(keysText(fees), given) << "written after " << watched << " was given back";
            EXPECT_NE(before, given) << "nothing was written";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Changes, WritesTest, ::testing::ValuesIn(test::changes()),
                         [](const auto& change) { return change.param.name; });

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
            const LockScopes scopes(center, [&](const std::string& lock, bool taken) {
                if (lock == watched) {
                    taken ? entries.appear(lock) : entries.vanish(lock);
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
                      [&](const std::string& lock, bool taken) { moments.push_back((taken ? "+" : "-") + lock); });
    ::operator delete(::operator new(1));
    center.stockMutex.lock();
    ::operator delete(::operator new(1));
    center.hgtMutex.lock_shared();
    center.hgtMutex.unlock_shared();
    center.stockMutex.unlock();
    ::operator delete(::operator new(1));
    EXPECT_EQ(scopes.allocationsOutside(), 2);
    EXPECT_EQ(scopes.holds(), "stock exclusive{hgt shared}; ");
    EXPECT_EQ(moments, (std::vector<std::string>{"+stock", "+hgt", "-hgt", "-stock"}));
}

}  // namespace
