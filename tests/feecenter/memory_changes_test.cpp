#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/entry_mixes.h"
#include "support/family_marks.h"
#include "support/memory_fixture.h"

// Memory runs out inside a job that changes the tables: the same job gets through afterwards.

namespace {

using namespace qmservice;
using test::differences;
using test::faultOf;
using test::kKnown;
using test::kNew;
using test::lossesOf;
using test::OpenFeeCenter;
using test::Scene;
using test::strays;

using Account = boost::shared_ptr<CAccountInfo>;

class MemoryChangeTest : public test::MemoryTest {
protected:
    /// A change: what was there stays, no entry points anywhere but where it did or is to, and the same call then leads
    /// to where it leads without a shortage.
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
                                  EXPECT_EQ(strays(center, before, expected), "");
                                  run(center);
                                  EXPECT_EQ(differences(center, expected), "");
                                  EXPECT_EQ(faultOf(center), "");
                              }),
                      0);
        }
    }

    /// The change asks for a custom list that the entry lacks: the entry has it or not, and is nothing else than it
    /// was.
    template <class Fee, class Member, class Entry>
    void expectListIsInsertedOrNot(Member member, const boost::shared_ptr<Fee>& fee,
                                   const boost::shared_ptr<Entry>& entry) {
        scene.host.inCustomCategory = [](auto&&...) { return true; };
        for (int number = -10002; number < 0; ++number) {
            entry->customCategories[number];
        }
        const Entry without(*entry);
        Entry with(without);
        with.customCategories[10001];
        const auto account = test::makeAccount(0, kNew);
        expectChangeSurvives([&](OpenFeeCenter& center) {
            EXPECT_TRUE(entry->isEqual(without) || entry->isEqual(with));
            entry->customCategories.erase(10001);
            (center.*member)(account, fee);
            EXPECT_TRUE(entry->isEqual(with));
        });
    }

    template <class Fee, class Member>
    void expectUpdateSurvives(Member member, const boost::shared_ptr<Fee>& fee) {
        for (const uint64 key : {kKnown, kNew}) {
            const auto account = test::makeAccount(0, key);
            expectChangeSurvives([&](OpenFeeCenter& center) { (center.*member)(account, fee); });
        }
    }
};

struct NamedLoad {
    const char* name;
    void (*run)(OpenFeeCenter&, const Account&, const std::vector<boost::shared_ptr<IData>>&);
};
void PrintTo(const NamedLoad& load, std::ostream* out) { *out << load.name; }

class MemoryLoadTest : public MemoryChangeTest, public ::testing::WithParamInterface<NamedLoad> {};

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

TEST_F(MemoryChangeTest, CustomFeeOfAStockFamilyThatFailedIsRepeated) {
    const auto fee = Scene::stockCustom(70, '1');
    expectUpdateSurvives(&OpenFeeCenter::doUpdateStockCustomFee, fee);
    expectUpdateSurvives(&OpenFeeCenter::doUpdateCreditCustomFee, fee);
    expectUpdateSurvives(&OpenFeeCenter::doUpdateNeeqCustomFee, fee);
}

TEST_F(MemoryChangeTest, CustomFeeOfStockOptionsThatFailedIsRepeated) {
    expectUpdateSurvives(&OpenFeeCenter::doUpdateStkOptionCustomFee, Scene::stockCustom(70, '1'));
    expectUpdateSurvives(&OpenFeeCenter::doUpdateStkOptionCustomFee, Scene::stockCustom(70, '0'));
}

TEST_F(MemoryChangeTest, CustomFeeOfAConnectChannelThatFailedIsRepeated) {
    const auto hgt = test::markedLimit<CCustomHGTExchangeRateLimit>(70);
    const auto sgt = test::markedLimit<CCustomSgtExchangeRateLimit>(70);
    hgt->category = sgt->category = "5";
    expectUpdateSurvives(&OpenFeeCenter::doUpdateHgtCustomFee, test::makeCustomFee<CCustomHGTInstrumentFee>(hgt));
    expectUpdateSurvives(&OpenFeeCenter::doUpdateSgtCustomFee, test::makeCustomFee<CCustomSgtInstrumentFee>(sgt));
}

TEST_F(MemoryChangeTest, CustomFeeOfFuturesThatFailedIsRepeated) {
    expectUpdateSurvives(
        &OpenFeeCenter::doUpdateFutureCustomFee,
        test::makeCustomFutureFee({test::makeCustomCommission("5", 70)}, {test::makeCustomMargin("5", '2', 70)}));
}

TEST_F(MemoryChangeTest, CustomFeeThatGetsAnEmptyListAndFailedIsRepeated) {
    const auto stock = Scene::stockCustom(70, '1');
    stock->rateLimits.front()->category = "10001";
    expectListIsInsertedOrNot(&OpenFeeCenter::doUpdateStockCustomFee, stock, stock->rateLimits.front());
    const auto commission = test::makeCustomCommission("10001", 70);
    expectListIsInsertedOrNot(&OpenFeeCenter::doUpdateFutureCustomFee, test::makeCustomFutureFee({commission}, {}),
                              commission);
}

TEST_F(MemoryChangeTest, InstrumentUpdateThatFailedIsRepeated) {
    for (const auto& instrument : scene.instruments) {
        expectUpdateSurvives(&OpenFeeCenter::doUpdateFutureInstrumentFee, Scene::fullFee(instrument, 70));
    }
}

}  // namespace
