#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "support/family_marks.h"
#include "support/scene.h"
#include "support/shortage.h"
#include "support/table_checks.h"
#include "support/tally.h"

// Memory runs out at every single allocation of every operation, for once and for good. What leaves the call is
// std::bad_alloc; the tables stay whole, no lock stays behind, and the same call gets through afterwards.

namespace {

using namespace qmservice;
using test::differences;
using test::faultOf;
using test::kBystander;
using test::kKnown;
using test::kNew;
using test::lossesOf;
using test::OpenFeeCenter;
using test::Scene;

using Account = boost::shared_ptr<CAccountInfo>;

class MemoryTest : public ::testing::Test {
protected:
    using Run = std::function<void(OpenFeeCenter&)>;

    ~MemoryTest() override { host.reset(); }

    test::Shortage& shortage = test::Shortage::ofThisThread();

    /// Runs `run` under a shortage at each of its allocations in turn, on a new fee center each time. `check` is
    /// called with the fee center after a run that failed, and how many allocations there are is the result.
    template <class Check>
    long exhaust(const Run& run, bool forGood, const Check& check) {
        for (long allocations = 0;; ++allocations) {
            OpenFeeCenter center;
            scene.prepare(center);
            bool threw = false;
            shortage.begin(allocations, forGood);
            try {
                run(center);
            } catch (const std::bad_alloc&) {
                threw = true;
            }
            const long failed = shortage.end();
            test::tally("allocations failed", failed);
            if (failed == 0) {
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
        scene.prepare(before);
        OpenFeeCenter expected;
        scene.prepare(expected);
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
        scene.prepare(before);
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
        scene.prepare(plain);
        const std::string expected = test::describe(ask(plain));
        ASSERT_NE(expected, test::kNone);
        expectQuerySurvives([&](OpenFeeCenter& center) { ask(center); },
                            [&](OpenFeeCenter& center) { return test::describe(ask(center)) == expected; });
    }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    const Scene scene{{"A", "B"}};
};

TEST_F(MemoryTest, ShortageStrikesTheChosenAllocation) {
    for (const bool forGood : {false, true}) {
        shortage.begin(1, forGood);
        bool results[3] = {};
        for (bool& result : results) {
            result = shortage.fails();
        }
        EXPECT_GT(shortage.end(), 0);
        EXPECT_FALSE(results[0]);
        EXPECT_TRUE(results[1]);
        EXPECT_EQ(results[2], forGood);
    }
    shortage.begin(1, true);
    EXPECT_EQ(shortage.end(), 0);
}

TEST_F(MemoryTest, CheckerNoticesBrokenTables) {
    OpenFeeCenter center;
    scene.prepare(center);
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
    scene.prepare(before);
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
            const long failed = shortage.end();
            test::tally("allocations failed", failed);
            struck = failed > 0;
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
    const auto records = scene.records(70);
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
    const auto fee = Scene::stockCustom(70, '1');
    expectUpdateSurvives(&OpenFeeCenter::doUpdateStockCustomFee, fee);
    expectUpdateSurvives(&OpenFeeCenter::doUpdateCreditCustomFee, fee);
    expectUpdateSurvives(&OpenFeeCenter::doUpdateNeeqCustomFee, fee);
}

TEST_F(MemoryTest, CustomFeeOfStockOptionsThatFailedIsRepeated) {
    expectUpdateSurvives(&OpenFeeCenter::doUpdateStkOptionCustomFee, Scene::stockCustom(70, '1'));
    expectUpdateSurvives(&OpenFeeCenter::doUpdateStkOptionCustomFee, Scene::stockCustom(70, '0'));
}

TEST_F(MemoryTest, CustomFeeOfAConnectChannelThatFailedIsRepeated) {
    const auto hgt = test::markedLimit<CCustomHGTExchangeRateLimit>(70);
    const auto sgt = test::markedLimit<CCustomSgtExchangeRateLimit>(70);
    hgt->category = sgt->category = "5";
    expectUpdateSurvives(&OpenFeeCenter::doUpdateHgtCustomFee, test::makeCustomFee<CCustomHGTInstrumentFee>(hgt));
    expectUpdateSurvives(&OpenFeeCenter::doUpdateSgtCustomFee, test::makeCustomFee<CCustomSgtInstrumentFee>(sgt));
}

TEST_F(MemoryTest, CustomFeeOfFuturesThatFailedIsRepeated) {
    expectUpdateSurvives(
        &OpenFeeCenter::doUpdateFutureCustomFee,
        test::makeCustomFutureFee({test::makeCustomCommission("5", 70)}, {test::makeCustomMargin("5", '2', 70)}));
}

TEST_F(MemoryTest, InstrumentUpdateThatFailedIsRepeated) {
    for (const auto& instrument : scene.instruments) {
        expectUpdateSurvives(&OpenFeeCenter::doUpdateFutureInstrumentFee, Scene::fullFee(instrument, 70));
    }
}

// Posting: nothing is queued by a call that failed, one job by one that did not.

TEST_F(MemoryTest, PostingThatFailedQueuesNothing) {
    const auto records = scene.records(70);
    const auto fee = Scene::fullFee(scene.instruments.front(), 70);
    const std::vector<Run> posts = {
        [&, account = test::makeAccount(2, kNew)](OpenFeeCenter& center) { center.initFees(account, records); },
        [&, account = test::makeAccount(1, kNew)](OpenFeeCenter& center) { center.updateCustomFee(account, fee); },
        [custom = Scene::stockCustom(70, '1'), account = test::makeAccount(6, kNew)](OpenFeeCenter& center) {
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
