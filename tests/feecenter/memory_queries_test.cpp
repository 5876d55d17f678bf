#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/family_marks.h"
#include "support/memory_fixture.h"

// Memory runs out inside a query: it has changed nothing, and answers when it is asked again.

namespace {

using namespace qmservice;
using test::differences;
using test::kBystander;
using test::kNew;
using test::OpenFeeCenter;

class MemoryQueryTest : public test::MemoryTest {
protected:
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
};

TEST_F(MemoryQueryTest, FeeOfEachKindThatFailedIsAskedAgain) {
    for (const int kind : test::kAnsweredKinds) {
        for (const uint64 key : {kBystander, kNew}) {
            expectFeeSurvives(kind, key, "SH", "A");
        }
    }
}

TEST_F(MemoryQueryTest, IncomeSwapFeeOfAFutureThatFailedIsAskedAgain) {
    host.addInstrument("SHFE", "rb2605");
    expectFeeSurvives(8, kNew, "SHFE", "rb2605");
}

TEST_F(MemoryQueryTest, FeeOnASimulationThatFailedIsAskedAgain) {
    const auto account = test::makeAccount(1, kNew);
    account->platformId = 9;
    host.simulationPlatforms = {9};
    host.accounts[kNew] = boost::make_shared<CAccountData>(account);
    expectFeeSurvives(1, kNew, "SH", "A");
}

TEST_F(MemoryQueryTest, PrimeBrokerageFeeOfEachMarketThatFailedIsAskedAgain) {
    for (const char* market : {"SHFE", "INE", "SSEHKEX", "SZSEHKEX", "HK", "SHO", "CMEO", "NEEQ", "XX"}) {
        host.addInstrument(market, "1");
        expectFeeSurvives(12, kBystander, market, "1");
    }
}

TEST_F(MemoryQueryTest, ListOfEachKindThatFailedIsAskedAgain) {
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
