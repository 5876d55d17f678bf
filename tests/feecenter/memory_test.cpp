#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <new>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "support/family_marks.h"
#include "support/lock_watch.h"

// Memory runs out at every single allocation of every operation, for once and for good. What leaves the call is
// std::bad_alloc; the tables stay whole, no lock stays behind, and the same call gets through afterwards.

namespace {

/// Which allocation of this thread fails.
class Shortage {
public:
    /// The allocation after `allocations` others fails; all that follow do too where it is for good.
    void begin(long allocations, bool forGood) {
        left = allocations;
        lasting = forGood;
        active = true;
        struck = false;
    }

    /// Whether an allocation failed.
    bool end() {
        active = false;
        return struck;
    }

    bool fails() {
        if (!active || left-- > 0) {
            return false;
        }
        struck = true;
        active = lasting;
        return true;
    }

private:
    long left = 0;
    bool lasting = false;
    bool active = false;
    bool struck = false;
};

thread_local Shortage shortage;

void* allocate(std::size_t size) noexcept { return shortage.fails() ? nullptr : std::malloc(size != 0 ? size : 1); }

void* allocateOrThrow(std::size_t size) {
    void* memory = allocate(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

}  // namespace

void* operator new(std::size_t size) { return allocateOrThrow(size); }
void* operator new[](std::size_t size) { return allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }

namespace {

using namespace qmservice;
using test::OpenFeeCenter;

constexpr uint64 kBystander = 1;  ///< an account that no operation changes
constexpr uint64 kKnown = 2;      ///< has entries before the operation
constexpr uint64 kNew = 3;        ///< has none

/// Calls `visit(name, pool, table, pool, table)` with each family's of the one fee center and then of the other.
template <class Visit>
void forEachFamily(const OpenFeeCenter& one, const OpenFeeCenter& other, const Visit& visit) {
    const auto both = [&](const char* name, auto pool, auto table) {
        visit(name, one.*pool, one.*table, other.*pool, other.*table);
    };
    both("stock", &OpenFeeCenter::stockRateLimitPool, &OpenFeeCenter::stockAccountTable);
    both("credit", &OpenFeeCenter::creditRateLimitPool, &OpenFeeCenter::creditAccountTable);
    both("hgt", &OpenFeeCenter::hgtRateLimitPool, &OpenFeeCenter::hgtAccountTable);
    both("sgt", &OpenFeeCenter::sgtRateLimitPool, &OpenFeeCenter::sgtAccountTable);
    both("option", &OpenFeeCenter::stkOptionItemPool, &OpenFeeCenter::stkOptionAccountTable);
    both("commission", &OpenFeeCenter::futureCommissionDetails, &OpenFeeCenter::futureCommissionKeys);
    both("margin", &OpenFeeCenter::futureMarginDetails, &OpenFeeCenter::futureMarginKeys);
    both("neeq", &OpenFeeCenter::neeqRateLimitPool, &OpenFeeCenter::neeqAccountTable);
}

std::vector<uint64> keysIn(uint64 entry) { return {entry}; }

std::vector<uint64> keysIn(const std::vector<uint64>& slots) {
    std::vector<uint64> keys;
    for (const uint64 key : slots) {
        if (key != test::kUnsetSlot) {
            keys.push_back(key);
        }
    }
    return keys;
}

std::vector<uint64> keysIn(const std::map<std::string, uint64>& items) {
    std::vector<uint64> keys;
    for (const auto& item : items) {
        keys.push_back(item.second);
    }
    return keys;
}

/// What is wrong with one family's tables by themselves; empty when nothing is.
template <class Pool, class Table>
std::string faultOf(const Pool& pool, const Table& table) {
    for (const auto& record : pool) {
        if (!record.second) {
            return "an empty record in the pool";
        }
    }
    for (const auto& account : table) {
        if (account.second.empty()) {
            return "an account without instruments";
        }
        for (const auto& entry : account.second) {
            const auto keys = keysIn(entry.second);
            if (keys.empty()) {
                return "an instrument without records";
            }
            for (const uint64 key : keys) {
                if (pool.count(key) == 0) {
                    return "an entry whose record is not in the pool";
                }
            }
        }
    }
    return "";
}

/// What is wrong with the tables and locks by themselves.
std::string faultOf(OpenFeeCenter& center) {
    for (const auto& named : test::allMutexes(center)) {
        if (!named.mutex->try_lock()) {
            return std::string(named.name) + ": the lock is held";
        }
        named.mutex->unlock();
    }
    std::string fault;
    forEachFamily(center, center, [&](const std::string& name, const auto& pool, const auto& table, auto&&...) {
        const std::string own = faultOf(pool, table);
        fault += own.empty() ? "" : name + ": " + own + "; ";
    });
    return fault;
}

template <class Pool>
bool poolHolds(const Pool& pool, const Pool& part) {
    for (const auto& record : part) {
        const auto found = pool.find(record.first);
        if (found == pool.end() || !found->second || !found->second->isEqual(*record.second)) {
            return false;
        }
    }
    return true;
}

/// Whether the bystander's entries are the same and no other account has lost an instrument.
template <class Table>
bool tableKeeps(const Table& table, const Table& before) {
    for (const auto& account : before) {
        const auto found = table.find(account.first);
        if (found == table.end() || (account.first == kBystander && found->second != account.second)) {
            return false;
        }
        for (const auto& entry : account.second) {
            if (found->second.count(entry.first) == 0) {
                return false;
            }
        }
    }
    return true;
}

/// The families in which something that was there before is gone or changed.
std::string lossesOf(const OpenFeeCenter& center, const OpenFeeCenter& before) {
    std::string families;
    forEachFamily(center, before,
                  [&](const std::string& name, const auto& pool, const auto& table, const auto& poolBefore,
                      const auto& tableBefore) {
                      families += poolHolds(pool, poolBefore) && tableKeeps(table, tableBefore) ? "" : name + " ";
                  });
    return families;
}

/// The families whose tables are not the same, record for record.
std::string differences(const OpenFeeCenter& center, const OpenFeeCenter& expected) {
    std::string families;
    forEachFamily(center, expected,
                  [&](const std::string& name, const auto& pool, const auto& table, const auto& expectedPool,
                      const auto& expectedTable) {
                      const bool same =
                          table == expectedTable && pool.size() == expectedPool.size() && poolHolds(pool, expectedPool);
                      families += same ? "" : name + " ";
                  });
    return families;
}

using Account = boost::shared_ptr<CAccountInfo>;

class MemoryTest : public ::testing::Test {
protected:
    using Run = std::function<void(OpenFeeCenter&)>;

    MemoryTest() {
        host.inSystemCategory = [](auto&&...) { return true; };
        host.categoryNumbers["5"] = 5;
        for (const char* code : {"A", "B"}) {
            instruments.push_back(host.addInstrument("SH", code, ~0, 2));
        }
    }
    ~MemoryTest() override { host.reset(); }

    /// A record with a rate for every family.
    static boost::shared_ptr<CInstrumentFee> makeFullFee(const boost::shared_ptr<CInstrument>& instrument,
                                                         double rate) {
        auto fee = test::makeFutureFee(
            instrument, test::makeCommission(rate),
            {test::makeMargin('1', rate), test::makeMargin('2', rate), test::makeMargin('3', rate)});
        fee->stkRateLimit = test::makeLimit(rate);
        fee->hgtRateLimit = test::markedLimit<CCustomHGTExchangeRateLimit>(rate);
        fee->sgtRateLimit = test::markedLimit<CCustomSgtExchangeRateLimit>(rate);
        return fee;
    }

    [[nodiscard]] std::vector<boost::shared_ptr<IData>> makeRecords(double rate) const {
        std::vector<boost::shared_ptr<IData>> records;
        for (const auto& instrument : instruments) {
            records.push_back(makeFullFee(instrument, rate++));
        }
        return records;
    }

    static boost::shared_ptr<CCustomStockInstrumentFee> makeStockCustom(double rate, std::int32_t thirdCode) {
        auto limit = test::makeCustomLimit("5", rate);
        limit->optionFee1 = rate;
        limit->optionFirstKeyCode = limit->optionSecondKeyCode = '0';
        limit->optionThirdKeyCode = thirdCode;
        return test::makeCustomFee(limit);
    }

    /// The bystander has every family's rates of both instruments, the known account those of the first.
    void prepare(OpenFeeCenter& center) const {
        for (const uint64 key : {kBystander, kKnown}) {
            auto records = makeRecords(10 * static_cast<double>(key));
            if (key == kKnown) {
                records.pop_back();
            }
            const auto account = test::makeAccount(0, key);
            center.doInitStockFee(account, records);
            center.doInitCreditFee(account, records);
            center.doInitNeeqFee(account, records);
            center.doInitHgtFee(account, records);
            center.doInitSgtFee(account, records);
            center.doInitFutureFee(account, records);
            center.doUpdateStkOptionCustomFee(account, makeStockCustom(0.1, '0'));
        }
    }

    /// Runs `run` under a shortage at each of its allocations in turn, on a new fee center each time. `check` is
    /// called with the fee center after a run that failed, and how many allocations there are is the result.
    template <class Check>
    long exhaust(const Run& run, bool forGood, const Check& check) {
        for (long allocations = 0;; ++allocations) {
            OpenFeeCenter center;
            prepare(center);
            bool threw = false;
            shortage.begin(allocations, forGood);
            try {
                run(center);
            } catch (const std::bad_alloc&) {
                threw = true;
            }
            if (!shortage.end()) {
                EXPECT_FALSE(threw);
                host.runJobs();  // a job that was queued holds the fee center
                return allocations;
            }
            EXPECT_EQ(faultOf(center), "") << "allocation " << allocations << (forGood ? " and all after it" : "");
            check(center);
            if (::testing::Test::HasFailure()) {
                return 0;
            }
        }
    }

    /// A change: what was there stays, and the same call then leads to where it leads without a shortage.
    void expectChangeSurvives(const Run& run) {
        OpenFeeCenter before;
        prepare(before);
        OpenFeeCenter expected;
        prepare(expected);
        run(expected);
        ASSERT_NE(differences(expected, before), "");
        for (const bool forGood : {false, true}) {
            EXPECT_GT(exhaust(run, forGood,
                              [&](OpenFeeCenter& center) {
                                  EXPECT_EQ(lossesOf(center, before), "");
                                  run(center);
                                  EXPECT_EQ(differences(center, expected), "");
                                  EXPECT_EQ(faultOf(center), "");
                              }),
                      0);
        }
    }

    /// A query changes nothing, and `answers` holds when it is asked again.
    void expectQuerySurvives(const Run& run, const std::function<bool(OpenFeeCenter&)>& answers) {
        OpenFeeCenter before;
        prepare(before);
        for (const bool forGood : {false, true}) {
            EXPECT_GT(exhaust(run, forGood,
                              [&](OpenFeeCenter& center) {
                                  EXPECT_EQ(differences(center, before), "");
                                  EXPECT_TRUE(answers(center));
                              }),
                      0);
        }
    }

    template <class Fee, class Member>
    void expectUpdateSurvives(Member member, const boost::shared_ptr<Fee>& fee) {
        for (const uint64 key : {kKnown, kNew}) {
            const auto account = test::makeAccount(0, key);
            expectChangeSurvives([&](OpenFeeCenter& center) { (center.*member)(account, fee); });
        }
    }

    void expectFeeSurvives(int kind, uint64 accountKey, const std::string& market, const std::string& code) {
        SCOPED_TRACE("kind " + std::to_string(kind) + " account " + std::to_string(accountKey) + " " + market);
        const auto account = test::makeAccount(kind, accountKey);
        const auto ask = [&](OpenFeeCenter& center) { return center.getFee(account, market, code); };
        OpenFeeCenter plain;
        prepare(plain);
        const std::string expected = test::describe(ask(plain));
        ASSERT_NE(expected, test::kNone);
        expectQuerySurvives([&](OpenFeeCenter& center) { ask(center); },
                            [&](OpenFeeCenter& center) { return test::describe(ask(center)) == expected; });
    }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    std::vector<boost::shared_ptr<CInstrument>> instruments;
};

TEST_F(MemoryTest, ShortageStrikesTheChosenAllocation) {
    for (const bool forGood : {false, true}) {
        shortage.begin(1, forGood);
        bool results[3] = {};
        for (bool& result : results) {
            result = shortage.fails();
        }
        EXPECT_TRUE(shortage.end());
        EXPECT_FALSE(results[0]);
        EXPECT_TRUE(results[1]);
        EXPECT_EQ(results[2], forGood);
    }
    shortage.begin(1, true);
    EXPECT_FALSE(shortage.end());
}

TEST_F(MemoryTest, CheckerNoticesBrokenTables) {
    OpenFeeCenter center;
    prepare(center);
    ASSERT_EQ(faultOf(center), "");
    center.stockAccountTable[kNew];
    EXPECT_EQ(faultOf(center), "stock: an account without instruments; ");
    center.stockAccountTable[kNew][1] = 99;
    EXPECT_EQ(faultOf(center), "stock: an entry whose record is not in the pool; ");
    center.stockAccountTable.erase(kNew);
    center.futureMarginKeys[kNew][1];
    EXPECT_EQ(faultOf(center), "margin: an instrument without records; ");
    center.futureMarginKeys.erase(kNew);
    center.hgtRateLimitPool[99];
    EXPECT_EQ(faultOf(center), "hgt: an empty record in the pool; ");
    center.hgtRateLimitPool.erase(99);
    ASSERT_EQ(faultOf(center), "");
    center.sgtMutex.lock_shared();
    EXPECT_EQ(faultOf(center), "sgt: the lock is held");
    center.sgtMutex.unlock_shared();

    OpenFeeCenter before;
    prepare(before);
    ASSERT_EQ(lossesOf(center, before) + differences(center, before), "");
    center.neeqAccountTable[kBystander].begin()->second = center.neeqAccountTable[kKnown].begin()->second;
    EXPECT_EQ(lossesOf(center, before), "neeq ");
    center.creditAccountTable.erase(kKnown);
    EXPECT_EQ(lossesOf(center, before), "credit neeq ");
    center.futureCommissionDetails.begin()->second = test::makeCommission(999);
    EXPECT_EQ(lossesOf(center, before), "credit commission neeq ");
    EXPECT_EQ(differences(center, before), "credit commission neeq ");
}

/// std::optional destroys what it holds through its own class: it is to be the last one.
class LastFeeCenter final : public OpenFeeCenter {
public:
    using OpenFeeCenter::OpenFeeCenter;
};

TEST_F(MemoryTest, ConstructionThatFailedIsRepeated) {
    for (const bool forGood : {false, true}) {
        long allocations = 0;
        for (bool struck = true; struck; ++allocations) {
            std::optional<LastFeeCenter> center;
            host.reset();  // the strand is made anew
            shortage.begin(allocations, forGood);
            try {
                center.emplace("fees");
            } catch (const std::bad_alloc&) {
            }
            struck = shortage.end();
            EXPECT_EQ(center.has_value(), !struck);
            center.reset();
            EXPECT_TRUE(center.emplace("fees").defaultIncomeSwapFutureFee);
        }
        EXPECT_GT(allocations, 8) << "each default is an allocation of its own at least";
    }
}

// Changes.

struct NamedLoad {
    const char* name;
    void (*run)(OpenFeeCenter&, const Account&, const std::vector<boost::shared_ptr<IData>>&);
};
void PrintTo(const NamedLoad& load, std::ostream* out) { *out << load.name; }

class MemoryLoadTest : public MemoryTest, public ::testing::WithParamInterface<NamedLoad> {};

TEST_P(MemoryLoadTest, LoadThatFailedIsRepeated) {
    const auto records = makeRecords(70);
    for (const uint64 key : {kKnown, kNew}) {
        const auto account = test::makeAccount(0, key);
        expectChangeSurvives([&](OpenFeeCenter& center) { GetParam().run(center, account, records); });
    }
}

const NamedLoad kLoads[] = {
    {"Stock", [](auto& center, const auto& account, const auto& records) { center.doInitStockFee(account, records); }},
    {"Credit",
     [](auto& center, const auto& account, const auto& records) { center.doInitCreditFee(account, records); }},
    {"Neeq", [](auto& center, const auto& account, const auto& records) { center.doInitNeeqFee(account, records); }},
    {"Hgt", [](auto& center, const auto& account, const auto& records) { center.doInitHgtFee(account, records); }},
    {"Sgt", [](auto& center, const auto& account, const auto& records) { center.doInitSgtFee(account, records); }},
    {"Future",
     [](auto& center, const auto& account, const auto& records) { center.doInitFutureFee(account, records); }}};

INSTANTIATE_TEST_SUITE_P(Loads, MemoryLoadTest, ::testing::ValuesIn(kLoads),
                         [](const auto& load) { return std::string(load.param.name); });

TEST_F(MemoryTest, CustomFeeOfAStockFamilyThatFailedIsRepeated) {
    const auto fee = makeStockCustom(70, '1');
    expectUpdateSurvives(&OpenFeeCenter::doUpdateStockCustomFee, fee);
    expectUpdateSurvives(&OpenFeeCenter::doUpdateCreditCustomFee, fee);
    expectUpdateSurvives(&OpenFeeCenter::doUpdateNeeqCustomFee, fee);
}

TEST_F(MemoryTest, CustomFeeOfStockOptionsThatFailedIsRepeated) {
    expectUpdateSurvives(&OpenFeeCenter::doUpdateStkOptionCustomFee, makeStockCustom(70, '1'));
    expectUpdateSurvives(&OpenFeeCenter::doUpdateStkOptionCustomFee, makeStockCustom(70, '0'));
}

TEST_F(MemoryTest, CustomFeeOfAConnectChannelThatFailedIsRepeated) {
    const auto hgt = test::markedLimit<CCustomHGTExchangeRateLimit>(70);
    const auto sgt = test::markedLimit<CCustomSgtExchangeRateLimit>(70);
    expectUpdateSurvives(&OpenFeeCenter::doUpdateHgtCustomFee, test::makeCustomFee<CCustomHGTInstrumentFee>(hgt));
    expectUpdateSurvives(&OpenFeeCenter::doUpdateSgtCustomFee, test::makeCustomFee<CCustomSgtInstrumentFee>(sgt));
}

TEST_F(MemoryTest, CustomFeeOfFuturesThatFailedIsRepeated) {
    expectUpdateSurvives(
        &OpenFeeCenter::doUpdateFutureCustomFee,
        test::makeCustomFutureFee({test::makeCustomCommission("5", 70)}, {test::makeCustomMargin("5", '2', 70)}));
}

TEST_F(MemoryTest, InstrumentUpdateThatFailedIsRepeated) {
    for (const auto& instrument : instruments) {
        expectUpdateSurvives(&OpenFeeCenter::doUpdateFutureInstrumentFee, makeFullFee(instrument, 70));
    }
}

// Posting: nothing is queued by a call that failed, one job by one that did not.

TEST_F(MemoryTest, PostingThatFailedQueuesNothing) {
    const auto records = makeRecords(70);
    const auto fee = makeFullFee(instruments.front(), 70);
    const std::vector<Run> posts = {
        [&, account = test::makeAccount(2, kNew)](OpenFeeCenter& center) { center.initFees(account, records); },
        [&, account = test::makeAccount(1, kNew)](OpenFeeCenter& center) { center.updateCustomFee(account, fee); },
        [custom = makeStockCustom(70, '1'), account = test::makeAccount(6, kNew)](OpenFeeCenter& center) {
            center.updateCustomFee(account, custom);
        }};
    for (const Run& post : posts) {
        for (const bool forGood : {false, true}) {
            EXPECT_GT(exhaust(post, forGood,
                              [&](OpenFeeCenter& center) {
                                  EXPECT_EQ(host.runJobs(), 0U);
                                  post(center);
                                  EXPECT_EQ(host.runJobs(), 1U);
                                  EXPECT_EQ(faultOf(center), "");
                              }),
                      0);
        }
    }
}

// Queries.

TEST_F(MemoryTest, FeeOfEachKindThatFailedIsAskedAgain) {
    for (const int kind : {1, 2, 3, 5, 6, 7, 8, 10, 11, 12, 16}) {
        for (const uint64 key : {kBystander, kNew}) {
            expectFeeSurvives(kind, key, "SH", "A");
        }
    }
}

TEST_F(MemoryTest, IncomeSwapFeeOfAFutureThatFailedIsAskedAgain) {
    host.addInstrument("SHFE", "rb2605");
    expectFeeSurvives(8, kNew, "SHFE", "rb2605");
}

TEST_F(MemoryTest, FeeOnASimulationThatFailedIsAskedAgain) {
    const auto account = test::makeAccount(1, kNew);
    account->platformId = 9;
    host.simulationPlatforms = {9};
    host.accounts[kNew] = boost::make_shared<CAccountData>(account);
    expectFeeSurvives(1, kNew, "SH", "A");
}

TEST_F(MemoryTest, PrimeBrokerageFeeOfEachMarketThatFailedIsAskedAgain) {
    for (const char* market : {"SHFE", "INE", "SSEHKEX", "SZSEHKEX", "HK", "SHO", "CMEO", "NEEQ", "XX"}) {
        host.addInstrument(market, "1");
        expectFeeSurvives(12, kBystander, market, "1");
    }
}

TEST_F(MemoryTest, ListOfEachKindThatFailedIsAskedAgain) {
    for (const int kind : {1, 2, 3, 5, 6, 7, 10, 11}) {
        SCOPED_TRACE("kind " + std::to_string(kind));
        const auto account = test::makeAccount(kind, kBystander);
        std::vector<boost::shared_ptr<CInstrumentFee>> fees;
        expectQuerySurvives(
            [&](OpenFeeCenter& center) {
                fees = {};
                center.getFees(account, fees);
            },
            [&](OpenFeeCenter& center) {
                bool whole = fees.size() < 3;  // what was appended before memory ran out
                for (const auto& fee : fees) {
                    whole = whole && fee && fee->account == account && fee->instrument;
                }
                fees = {};
                return whole && center.getFees(account, fees) && fees.size() == 2;
            });
    }
}

}  // namespace
