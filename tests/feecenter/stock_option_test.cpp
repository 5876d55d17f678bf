#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "support/call_log.h"
#include "support/fee_center_fixture.h"

namespace {

using namespace qmservice;
using test::instrumentKey;
using test::makeCustomFee;

class StockOptionTest : public test::FeeCenterTest {
protected:
    using Custom = boost::shared_ptr<CCustomStkExchangeRateLimit>;
    using Fees = std::vector<boost::shared_ptr<CInstrumentFee>>;

    /// A custom limit of the category "all" for the item that the three characters make.
    static Custom item(const std::string& characters, double fee1) {
        auto limit = boost::make_shared<CCustomStkExchangeRateLimit>();
        limit->category = "all";
        limit->optionFee1 = fee1;
        limit->optionFirstKeyCode = characters[0];
        limit->optionSecondKeyCode = characters[1];
        limit->optionThirdKeyCode = characters[2];
        return limit;
    }

    template <class... Limits>
    void apply(const Limits&... limits) {
        center.doUpdateStkOptionCustomFee(account, makeCustomFee(limits...));
    }

    boost::shared_ptr<CStockOptionFeeRate> rate(const CInstrument& of) {
        return center.getStkOptionFee(7, instrumentKey(of))->stkOptionFeeRate;
    }

    /// fee1 of each item of the answer.
    std::map<std::string, double> items(const CInstrument& of) {
        std::map<std::string, double> fees;
        const auto answered = rate(of);
        for (const auto& entry : answered->items) {
            fees[entry.first] = entry.second->fee1;
        }
        return fees;
    }

    using Items = std::map<std::string, double>;

    const boost::shared_ptr<CAccountInfo> account = test::makeAccount(6, 7);
    const boost::shared_ptr<CInstrument> option = host.addInstrument("SHO", "10000001", 32);
    const bool allMatch = [this] {
        host.categoryNumbers["all"] = 5;
        host.inSystemCategory = [](const auto&, const auto&, const auto&, int number) { return number == 5; };
        return true;
    }();
};

TEST_F(StockOptionTest, LoadChangesNothing) {
    center.doInitStkOptionFee(account, {test::makeFee(option, test::makeLimit(0.1))});
    EXPECT_TRUE(center.stkOptionAccountTable.empty());
    EXPECT_TRUE(center.stkOptionItemPool.empty());
    EXPECT_TRUE(center.stockAccountTable.empty());
    EXPECT_EQ(rate(*option), center.defaultStkOptionFeeRate);
}

TEST_F(StockOptionTest, LoadAsksTheHostNothing) {
    const test::CallLog log(host);
    center.doInitStkOptionFee(account, {test::makeFee(option, test::makeLimit(0.1))});
    EXPECT_TRUE(log.calls().empty());
}

TEST_F(StockOptionTest, WithoutAnEntryTheDefaultRateItselfIsAnswered) {
    const auto other = host.addInstrument("SHO", "10000002", 32);
    EXPECT_EQ(rate(*option), center.defaultStkOptionFeeRate);
    host.systemMembers = {{5, {"SHO", "10000001"}}};
    host.inSystemCategory = nullptr;
    apply(item("000", 1.5));
    EXPECT_NE(rate(*option), center.defaultStkOptionFeeRate);
    EXPECT_EQ(rate(*other), center.defaultStkOptionFeeRate);
}

TEST_F(StockOptionTest, ItemWhoseSecondCharacterIsDHasAKeyOfTwoCharacters) {
    apply(item("0D1", 1.5));
    EXPECT_EQ(items(*option), (Items{{"0D", 1.5}}));
    EXPECT_EQ(rate(*option)->items.at("0D")->thirdKeyCode, 49);
}

TEST_F(StockOptionTest, EmptyPointersAmongLimitsAndInstrumentsArePassedOver) {
    host.instruments.insert(host.instruments.begin(), {nullptr, 32, 0});
    apply(Custom(), item("000", 1.5), Custom());
    EXPECT_EQ(items(*option), (Items{{"000", 1.5}}));
}

TEST_F(StockOptionTest, ItemsOfSuccessiveCustomFeesAddUp) {
    apply(item("000", 1.5));
    apply(item("0D1", 1.6));
    apply(item("110", 1.7));
    EXPECT_EQ(items(*option), (Items{{"000", 1.5}, {"0D", 1.6}, {"110", 1.7}}));
}

TEST_F(StockOptionTest, TwoItemsThatDifferInAnUnusedThirdCharacterShareTheKey) {
    apply(item("0D1", 1.5));
    apply(item("0D0", 1.6));
    EXPECT_EQ(items(*option), (Items{{"0D", 1.6}}));
    EXPECT_EQ(rate(*option)->items.at("0D")->thirdKeyCode, 48);
}

TEST_F(StockOptionTest, CategoryIsTakenByNameAndNotAsANumber) {
    std::vector<int> asked;
    host.inSystemCategory = [&](const auto&, const auto&, const auto&, int number) {
        asked.push_back(number);
        return false;
    };
    host.categoryNumbers["12"] = 34;
    auto byDigits = item("000", 1.5);
    byDigits->category = "12";
    auto unknown = item("000", 1.5);
    unknown->category = "17";
    apply(item("000", 1.5), byDigits, unknown);
    EXPECT_EQ(asked, (std::vector<int>{5, 34, -1}));
}

TEST_F(StockOptionTest, PoolKeyIsTheContentKeyOfCustomLimitAndTradeUnit) {
    host.tradeUnits[{"SHO", "10000001"}] = 10;
    const auto limit = item("000", 1.5);
    apply(limit);
    ASSERT_EQ(center.stkOptionItemPool.size(), 1U);
    EXPECT_EQ(center.stkOptionItemPool.count(center.getHashKey(limit, 10)), 1U);
}

TEST_F(StockOptionTest, EntryIsFiledUnderTheKeyOfThePooledItemThoughTheLimitsCodesDiffer) {
    auto pooled = item("000", 0.5);
    pooled->optionFee5 = 1.5e-8;
    auto same = item("000", 0.5);
    same->optionFee5 = 14.5e-8;
    same->optionSecondKeyCode = 8;
    // Fifth fee and second code: "1" then "4800000000", and "14" then "800000000".
    ASSERT_EQ(center.getHashKey(pooled, 100), center.getHashKey(same, 100));
    apply(pooled);
    apply(same);
    EXPECT_EQ(items(*option), (Items{{"000", 0.5}}));
    EXPECT_EQ(rate(*option)->items.at("000")->fee5, 1.5e-8);
}

TEST_F(StockOptionTest, BaseRateOfAnEntryIsZeroAndNotTheDefaults) {
    apply(item("000", 1.5));
    EXPECT_EQ(rate(*option)->baseRate, 0);
    EXPECT_EQ(center.defaultStkOptionFeeRate->baseRate, 0.2);
}

TEST_F(StockOptionTest, BaseRateTableIsFilledByNothing) {
    apply(item("000", 1.5));
    rate(*option);
    EXPECT_TRUE(center.stkOptionBaseRateTable.empty());
}

TEST_F(StockOptionTest, BaseRateOfTheTableIsAnsweredForItsInstrumentAndAccount) {
    const auto second = host.addInstrument("SHO", "10000002", 32);
    apply(item("000", 1.5));
    center.stkOptionBaseRateTable[7][instrumentKey(*option)] = 0.35;
    center.stkOptionBaseRateTable[8][instrumentKey(*second)] = 0.45;
    EXPECT_EQ(rate(*option)->baseRate, 0.35);
    EXPECT_EQ(rate(*second)->baseRate, 0);
}

TEST_F(StockOptionTest, BaseRateTableDoesNotTurnTheDefaultAnswerIntoAnEntry) {
    center.stkOptionBaseRateTable[7][instrumentKey(*option)] = 0.35;
    EXPECT_EQ(rate(*option), center.defaultStkOptionFeeRate);
    EXPECT_EQ(rate(*option)->baseRate, 0.2);
}

}  // namespace
