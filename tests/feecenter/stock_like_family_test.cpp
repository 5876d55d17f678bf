#include <gtest/gtest.h>

#include "support/limit_family_fixture.h"

// What the stock, credit and NEEQ families share and the connect channels do not.

namespace {

using namespace qmservice;
using test::customWith;
using test::makeLimit;

template <class Family>
class StockLikeFamilyTest : public test::LimitFamilyTest<Family> {
protected:
    boost::shared_ptr<CStkExchangeRateLimit> configure(const CInstrument& of, double rate1, int unitVolume) {
        auto rates = makeLimit(rate1);
        rates->unitVolume = unitVolume;
        this->configured(of) = rates;
        return rates;
    }
};
TYPED_TEST_SUITE(StockLikeFamilyTest, test::StockLikeFamilies, test::FamilyName);

TYPED_TEST(StockLikeFamilyTest, LoadPutsTheConfiguredLimitBeforeTheFeesOwn) {
    const auto a = this->instrument("A");
    this->configure(*a, 0.7, 100);
    this->loadOne(a, makeLimit(0.1));
    EXPECT_EQ(this->storedRate(*a), 0.7);
}

TYPED_TEST(StockLikeFamilyTest, ConfigurationChangedAfterTheLoadDoesNotChangeTheEntry) {
    const auto a = this->instrument("A");
    this->configure(*a, 0.7, 100);
    this->loadOne(a, nullptr);
    this->configure(*a, 0.8, 100);
    EXPECT_EQ(this->limitOf(*a)->rate1, 0.7);
}

TYPED_TEST(StockLikeFamilyTest, LoadFilesTheNameItAskedTheConfigurationFor) {
    const auto a = this->instrument("A");
    const auto record = this->record(a, makeLimit(0.1));
    this->host.tradeUnits[{"XX", "A"}] = 200;
    this->host.onCall = [&](const std::string& operation) {
        if (operation == "getRateLimitPtr") {
            a->market = "YY";
            a->code = "B";
            record->instrument = nullptr;
        }
    };
    this->load({record});
    this->host.onCall = nullptr;
    ASSERT_EQ(a->code, "B");
    const auto& entries = (this->center.*TypeParam::table).at(7);
    EXPECT_EQ(entries.size(), 1U);
    ASSERT_EQ(entries.count(test::instrumentKey("XX", "A")), 1U);
    EXPECT_EQ((this->center.*TypeParam::pool).begin()->second->unitVolume, 200);
}

TYPED_TEST(StockLikeFamilyTest, CustomLimitGivesItsSixRatesAndTheTradeUnitOnly) {
    const auto a = this->instrument("A");
    this->host.tradeUnits[{"XX", "A"}] = 200;
    auto entry = customWith<CCustomStkExchangeRateLimit>("5", 1);
    entry->unusedRate1 = 91;
    entry->rate2 = 2;
    entry->rate3 = 3;
    entry->rate4 = 4;
    entry->rate5 = 5;
    entry->rate6 = 6;
    entry->unusedRate2 = 92;
    entry->optionFee1 = 93;
    entry->optionFirstKeyCode = 94;
    this->applyToAll(entry);

    CStkExchangeRateLimit expected;
    expected.rate1 = 1;
    expected.rate2 = 2;
    expected.rate3 = 3;
    expected.rate4 = 4;
    expected.rate5 = 5;
    expected.rate6 = 6;
    expected.unitVolume = 200;
    EXPECT_TRUE(this->stored(*a)->isEqual(expected));
}

TYPED_TEST(StockLikeFamilyTest, CustomAndPlainLimitOfEqualRatesArePooledApart) {
    const auto a = this->instrument("A");
    this->loadOne(a, makeLimit(0.1));
    const auto plain = this->stored(*a);
    this->applyToAll(customWith<CCustomStkExchangeRateLimit>("5", 0.1));
    EXPECT_EQ(this->poolSize(), 2U);
    EXPECT_NE(this->stored(*a), plain);
    EXPECT_TRUE(this->stored(*a)->isEqual(*plain));
}

TYPED_TEST(StockLikeFamilyTest, DefaultOfAnotherTradeUnitIsAPrivateCopy) {
    const auto a = this->instrument("A");
    const auto rates = this->limitOf(*a, 200);
    EXPECT_NE(rates, this->fallback());
    EXPECT_EQ(rates->unitVolume, 200);
    EXPECT_EQ(rates->rate1, 0.00015);
    EXPECT_EQ(rates->rate6, 0.001);
    EXPECT_EQ(this->fallback()->unitVolume, 100);
    EXPECT_NE(this->limitOf(*a, 200), rates);
}

// The NEEQ list asks the stock lookup.
class NeeqListTest : public test::LimitFamilyTest<test::Neeq> {
protected:
    boost::shared_ptr<CStkExchangeRateLimit> listed() {
        Fees fees;
        EXPECT_TRUE(list(fees));
        return fees.size() == 1 ? fees[0]->stkRateLimit : boost::shared_ptr<CStkExchangeRateLimit>();
    }

    const boost::shared_ptr<CInstrument> a = instrument("A");
};

TEST_F(NeeqListTest, AnswersTheStockDefaultAndNotTheNeeqEntry) {
    loadOne(a, makeLimit(0.1));
    EXPECT_EQ(limitOf(*a)->rate1, 0.1);
    EXPECT_EQ(listed(), center.defaultStockRateLimit);
}

TEST_F(NeeqListTest, AnswersTheConfiguredLimitWithTheTradeUnit100) {
    loadOne(a, makeLimit(0.1));
    auto rates = makeLimit(0.7);
    rates->unitVolume = 200;
    configured(*a) = rates;
    ASSERT_TRUE(listed());
    EXPECT_EQ(listed()->rate1, 0.7);
    EXPECT_EQ(listed()->unitVolume, 100);
    EXPECT_EQ(rates->unitVolume, 200);
}

TEST_F(NeeqListTest, AnswersTheStockEntryOfTheSameAccountKey) {
    loadOne(a, makeLimit(0.1));
    center.doInitStockFee(account, {record(a, makeLimit(0.2))});
    EXPECT_EQ(listed(), center.stockRateLimitPool.begin()->second);
    EXPECT_EQ(listed()->rate1, 0.2);
}

}  // namespace
