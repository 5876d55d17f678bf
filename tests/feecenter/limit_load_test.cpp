#include <gtest/gtest.h>

#include "support/limit_family_fixture.h"

// Loads of the families that keep one limit per instrument.

namespace {

using namespace qmservice;

template <class Family>
class LimitLoadTest : public test::LimitFamilyTest<Family> {};
TYPED_TEST_SUITE(LimitLoadTest, test::LimitFamilies, test::FamilyName);

TYPED_TEST(LimitLoadTest, PoolKeyIsTheContentKeyOfLimitAndTradeUnit) {
    const auto a = this->instrument("A");
    this->host.tradeUnits[{"XX", "A"}] = 200;
    const auto rates = this->limit(0.1);
    this->loadOne(a, rates);
    EXPECT_EQ((this->center.*TypeParam::pool).count(this->center.getHashKey(rates, 200)), 1U);
}

TYPED_TEST(LimitLoadTest, RecordsThatNameNoLimitArePassedOver) {
    const auto a = this->instrument("A");
    const auto b = this->instrument("B");
    this->load({nullptr, boost::make_shared<CAccountInfo>(), this->record(nullptr, this->limit(0.9)),
                this->record(b, nullptr), this->record(a, this->limit(0.1))});
    EXPECT_EQ(this->storedRate(*a), 0.1);
    EXPECT_EQ(this->storedRate(*b), -1);
    EXPECT_EQ(this->poolSize(), 1U);
    EXPECT_EQ((this->center.*TypeParam::table).at(7).size(), 1U);
}

TYPED_TEST(LimitLoadTest, PooledRecordIsAPrivateCopyWithTheTradeUnit) {
    const auto a = this->instrument("A");
    this->host.tradeUnits[{"XX", "A"}] = 200;
    const auto rates = this->limit(0.1);
    (*rates).*TypeParam::unit = 999;
    rates->rate6 = 0.6;
    this->loadOne(a, rates);
    const auto pooled = this->stored(*a);
    EXPECT_NE(pooled, rates);
    EXPECT_EQ(pooled->rate6, 0.6);
    EXPECT_EQ((*pooled).*TypeParam::unit, 200);
    EXPECT_EQ((*rates).*TypeParam::unit, 999);
    rates->rate1 = 0.9;
    EXPECT_EQ(this->storedRate(*a), 0.1);
}

TYPED_TEST(LimitLoadTest, PooledRecordIsKeptWhenAnEqualLimitComes) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    const auto first = this->stored(*a);
    this->loadOne(a, this->limit(0.1));
    EXPECT_EQ(this->stored(*a), first);
}

TYPED_TEST(LimitLoadTest, ShorterSecondLoadKeepsTheEntriesThatItDoesNotName) {
    const auto a = this->instrument("A");
    const auto b = this->instrument("B");
    this->load({this->record(a, this->limit(0.1)), this->record(b, this->limit(0.2))});
    this->loadOne(a, this->limit(0.3));
    EXPECT_EQ(this->storedRate(*a), 0.3);
    EXPECT_EQ(this->storedRate(*b), 0.2);
}

}  // namespace
