#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

#include "support/fickle_fixture.h"
#include "support/table_checks.h"

// Configuration, accounts and category tests that change their mind: each answer is used where it was asked for, and
// nothing is torn between two of them.

namespace {

using namespace qmservice;
using test::answerText;
using test::kDefaultMargins;
using test::kNew;
using test::kSimulationFee;
using test::Scene;

class BadHostMindTest : public test::FickleTest {};

// Configuration and accounts that change.

TEST_F(BadHostMindTest, ConfiguredLimitThatChangesIsAskedForOnceByEachLookup) {
    const std::string expected[] = {"limit 50;", "limit default;", "limit 51;"};
    for (const int kind : {2, 3, 10}) {
        std::size_t asked = 0;
        host.onCall = [&](const std::string& operation) {
            if (operation == "getRateLimitPtr") {
                host.rateLimits.clear();
                if (asked != 1) {
                    configureStock("SH", asked == 0 ? 50 : 51);
                }
                ++asked;
            }
        };
        for (const auto& answer : expected) {
            EXPECT_EQ(answerText(center.getFee(test::makeAccount(kind, kNew), "SH", "A")), answer) << kind;
        }
        EXPECT_EQ(asked, 3U);
    }
}

TEST_F(BadHostMindTest, EachRecordOfALoadIsStoredByTheConfigurationOfItsMoment) {
    const auto& a = scene.instruments.front();
    for (const int kind : {2, 3, 10}) {
        for (std::size_t last = 1; last <= 3; ++last) {
            std::size_t asked = 0;
            host.onCall = [&](const std::string& operation) {
                if (operation == "getRateLimitPtr") {
                    host.rateLimits.clear();
                    if (asked != 1) {
                        configureStock("SH", asked == 0 ? 50 : 51);
                    }
                    ++asked;
                }
            };
            const std::vector<Scene::Record> records(last, Scene::fullFee(a, 70));
            center.initFees(test::makeAccount(kind, kNew), records);
            host.runJobs();
            host.onCall = nullptr;
            const std::string expected = last == 1 ? "limit 50;" : last == 2 ? "limit 70;" : "limit 51;";
            EXPECT_EQ(answerText(center.getFee(test::makeAccount(kind, kNew), "SH", "A")), expected);
            EXPECT_EQ(test::faultOf(center), "");
        }
    }
}

TEST_F(BadHostMindTest, RecordIsPooledUnderTheTradeUnitThatItCarries) {
    int unit = 0;
    host.onCall = [&](const std::string& operation) {
        if (operation == "getTradeMinUnit") {
            ++unit;
            host.tradeUnits[{"SH", "A"}] = host.tradeUnits[{"SH", "B"}] = host.tradeUnits[{"SH", "C"}] = unit;
        }
    };
    // A stock custom limit's key is made of more than the pooled record holds: loads, and the connect updates.
    for (const auto& change : test::changes()) {
        if (change.kind == test::Operation::Kind::kLoad || change.accountKind == 7 || change.accountKind == 11) {
            change.run(scene, center, subjectOf(scene, change, kNew));
        }
    }
    EXPECT_EQ(unit, 21) << "three instruments, five loads and two updates";
    for (const auto* pool : {&center.stockRateLimitPool, &center.creditRateLimitPool, &center.neeqRateLimitPool}) {
        for (const auto& record : *pool) {
            EXPECT_EQ(center.getHashKey(record.second, record.second->unitVolume), record.first);
        }
    }
    for (const auto& record : center.hgtRateLimitPool) {
        EXPECT_EQ(center.getHashKey(record.second, record.second->tradeMinUnit), record.first);
    }
    for (const auto& record : center.sgtRateLimitPool) {
        EXPECT_EQ(center.getHashKey(record.second, record.second->tradeMinUnit), record.first);
    }
}

TEST_F(BadHostMindTest, AccountThatTheHostLosesIsOnNoSimulation) {
    const auto ask = [&] { return answerText(center.getFee(test::makeAccount(1, kNew), "SH", "A")); };
    const auto data = host.accounts.at(kNew);
    const std::string plain = "commission default;" + kDefaultMargins;
    EXPECT_EQ(ask(), kSimulationFee);
    host.accounts.erase(kNew);
    EXPECT_EQ(ask(), plain);
    host.accounts[kNew] = nullptr;
    EXPECT_EQ(ask(), plain);
    host.accounts[kNew] = boost::make_shared<CAccountData>(boost::shared_ptr<CAccountInfo>());
    EXPECT_EQ(ask(), plain);
    host.accounts[kNew] = data;
    host.simulationPlatforms.clear();
    EXPECT_EQ(ask(), plain);
    host.simulationPlatforms = {9};
    EXPECT_EQ(ask(), kSimulationFee);
}

// Category tests that change their mind.

struct FickleFamily {
    int kind;
    std::string field;
};

void PrintTo(const FickleFamily& family, std::ostream* out) { *out << "kind " << family.kind; }

class BadHostFickleCategoryTest : public BadHostMindTest, public ::testing::WithParamInterface<FickleFamily> {
protected:
    /// Category tests answer by the bits of `answers`, the lowest first.
    void answerCategoriesBy(unsigned answers) {
        asked = 0;
        host.inSystemCategory = [this, answers](auto&&...) { return (answers >> asked++ & 1U) != 0; };
    }

    std::string ask(const std::string& code) {
        return answerText(center.getFee(test::makeAccount(GetParam().kind, kNew), "SH", code));
    }

    /// The rate of the first of two custom entries that the next answers accept; 0 for none.
    static int nextMatch(unsigned answers, unsigned& used) {
        for (const int rate : {70, 80}) {
            if ((answers >> used++ & 1U) != 0) {
                return rate;
            }
        }
        return 0;
    }

    unsigned asked = 0;
};

TEST_P(BadHostFickleCategoryTest, EachAnswerCountsForTheEntryThatItWasAskedFor) {
    const auto& family = GetParam();
    boost::shared_ptr<IData> fee;
    if (family.kind == 7 || family.kind == 11) {
        const auto a = Scene::fullFee(nullptr, 70);
        const auto b = Scene::fullFee(nullptr, 80);
        fee = family.kind == 7 ? boost::shared_ptr<IData>(
                                     test::makeCustomFee<CCustomHGTInstrumentFee>(a->hgtRateLimit, b->hgtRateLimit))
                               : test::makeCustomFee<CCustomSgtInstrumentFee>(a->sgtRateLimit, b->sgtRateLimit);
    } else {
        const auto stock = Scene::stockCustom(70, '0');
        stock->rateLimits.push_back(Scene::stockCustom(80, '0')->rateLimits.front());
        fee = stock;
    }
    for (unsigned answers = 0; answers < 64; ++answers) {
        SCOPED_TRACE(answers);
        center.stockAccountTable.erase(kNew);
        center.creditAccountTable.erase(kNew);
        center.neeqAccountTable.erase(kNew);
        center.hgtAccountTable.erase(kNew);
        center.sgtAccountTable.erase(kNew);
        center.stkOptionAccountTable.erase(kNew);
        answerCategoriesBy(answers);
        center.updateCustomFee(test::makeAccount(family.kind, kNew), fee);
        host.runJobs();
        unsigned used = 0;
        for (const char* code : {"A", "B", "C"}) {
            const int rate = nextMatch(answers, used);
            const std::string item = family.kind == 6 ? "000 " : "";
            const std::string end = family.kind == 6 ? ",;" : ";";
            EXPECT_EQ(ask(code),
                      rate == 0 ? family.field + " default;" : family.field + " " + item + std::to_string(rate) + end);
        }
        EXPECT_EQ(asked, used);
        EXPECT_EQ(test::faultOf(center), "");
    }
}

const FickleFamily kFickleFamilies[] = {{2, "limit"}, {3, "limit"},  {6, "option"},
                                        {7, "hgt"},   {10, "limit"}, {11, "sgt"}};

INSTANTIATE_TEST_SUITE_P(Kinds, BadHostFickleCategoryTest, ::testing::ValuesIn(kFickleFamilies),
                         [](const auto& family) { return "Kind" + std::to_string(family.param.kind); });

class BadHostFickleFutureCategoryTest : public BadHostFickleCategoryTest {};

TEST_P(BadHostFickleFutureCategoryTest, EachAnswerCountsForTheDetailThatItWasAskedFor) {
    host.removeInstrument(*scene.instruments.back());
    const auto fee =
        test::makeCustomFutureFee({test::makeCustomCommission("5", 70), test::makeCustomCommission("5", 80)},
                                  {test::makeCustomMargin("5", '1', 70), test::makeCustomMargin("5", '1', 80)});
    for (unsigned answers = 0; answers < 256; ++answers) {
        SCOPED_TRACE(answers);
        center.futureCommissionKeys.erase(kNew);
        center.futureMarginKeys.erase(kNew);
        answerCategoriesBy(answers);
        center.updateCustomFee(test::makeAccount(GetParam().kind, kNew), fee);
        host.runJobs();
        unsigned used = 0;
        for (const char* code : {"A", "B"}) {
            const int commission = nextMatch(answers, used);
            const int margin = nextMatch(answers, used);
            std::string expected = commission == 0 ? "" : "commission " + std::to_string(commission + 1) + ";";
            expected += margin == 0 ? kDefaultMargins : "margin " + std::to_string(margin + 1) + ";margin -;margin -;";
            EXPECT_EQ(ask(code), commission + margin == 0 ? kSimulationFee : expected);
        }
        EXPECT_EQ(asked, used);
        EXPECT_EQ(test::faultOf(center), "");
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, BadHostFickleFutureCategoryTest,
                         ::testing::Values(FickleFamily{1, ""}, FickleFamily{5, ""}),
                         [](const auto& family) { return "Kind" + std::to_string(family.param.kind); });

}  // namespace
