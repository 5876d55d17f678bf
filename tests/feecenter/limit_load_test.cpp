#include <gtest/gtest.h>

#include <cstddef>

#include "support/limit_family_fixture.h"

// Loads of the families that keep one limit per instrument.

namespace {

using namespace qmservice;
using test::instrumentKey;

template <class Family>
class LimitLoadTest : public test::LimitFamilyTest<Family> {};
TYPED_TEST_SUITE(LimitLoadTest, test::LimitFamilies, test::FamilyName);

TYPED_TEST(LimitLoadTest, StoresTheLimitThatCameWithTheFee) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    EXPECT_EQ(this->storedRate(*a), 0.1);
}

TYPED_TEST(LimitLoadTest, FilesTheEntryUnderAccountKeyAndInstrumentKey) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    const auto& table = this->center.*TypeParam::table;
    ASSERT_EQ(table.size(), 1U);
    ASSERT_EQ(table.count(7), 1U);
    EXPECT_EQ(table.at(7).size(), 1U);
    EXPECT_EQ(table.at(7).count(instrumentKey("XX", "A")), 1U);
}

TYPED_TEST(LimitLoadTest, PoolKeyIsTheContentKeyOfLimitAndTradeUnit) {
    const auto a = this->instrument("A");
    this->host.tradeUnits[{"XX", "A"}] = 200;
    const auto rates = this->limit(0.1);
    this->loadOne(a, rates);
    EXPECT_EQ((this->center.*TypeParam::pool).count(this->center.getHashKey(rates, 200)), 1U);
}

TYPED_TEST(LimitLoadTest, InstrumentNeedNotBeInTheCatalogue) {
    auto unlisted = boost::make_shared<CInstrument>();
    unlisted->market = "XX";
    unlisted->code = "gone";
    this->loadOne(unlisted, this->limit(0.1));
    EXPECT_EQ(this->storedRate(*unlisted), 0.1);
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

TYPED_TEST(LimitLoadTest, LoadWithNothingUsableMakesNoTable) {
    this->load({nullptr, boost::make_shared<CAccountInfo>()});
    EXPECT_TRUE((this->center.*TypeParam::table).empty());
    this->load({});
    EXPECT_TRUE((this->center.*TypeParam::table).empty());
}

TYPED_TEST(LimitLoadTest, EqualLimitsArePooledOnce) {
    const auto a = this->instrument("A");
    const auto b = this->instrument("B");
    this->load({this->record(a, this->limit(0.1)), this->record(b, this->limit(0.1))});
    EXPECT_EQ(this->poolSize(), 1U);
    EXPECT_EQ(this->stored(*a), this->stored(*b));
}

TYPED_TEST(LimitLoadTest, LimitsThatAgreeToTheEighthPlaceArePooledOnce) {
    const auto a = this->instrument("A");
    const auto b = this->instrument("B");
    this->load({this->record(a, this->limit(0.0012345612)), this->record(b, this->limit(0.0012345698))});
    EXPECT_EQ(this->poolSize(), 1U);
    EXPECT_EQ(this->storedRate(*b), 0.0012345612);
}

TYPED_TEST(LimitLoadTest, DifferentLimitsArePooledApart) {
    const auto a = this->instrument("A");
    const auto b = this->instrument("B");
    this->load({this->record(a, this->limit(0.1)), this->record(b, this->limit(0.2))});
    EXPECT_EQ(this->poolSize(), 2U);
    EXPECT_EQ(this->storedRate(*a), 0.1);
    EXPECT_EQ(this->storedRate(*b), 0.2);
}

TYPED_TEST(LimitLoadTest, TradeUnitSeparatesEqualLimits) {
    const auto a = this->instrument("A");
    const auto b = this->instrument("B");
    this->host.tradeUnits[{"XX", "B"}] = 200;
    this->load({this->record(a, this->limit(0.1)), this->record(b, this->limit(0.1))});
    EXPECT_EQ(this->poolSize(), 2U);
    EXPECT_EQ((*this->stored(*a)).*TypeParam::unit, 100);
    EXPECT_EQ((*this->stored(*b)).*TypeParam::unit, 200);
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

TYPED_TEST(LimitLoadTest, SecondLoadOverwritesTheEntryAndKeepsThePoolsRecord) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    const auto first = this->stored(*a);
    this->loadOne(a, this->limit(0.2));
    EXPECT_EQ(this->storedRate(*a), 0.2);
    EXPECT_EQ(this->poolSize(), 2U);
    EXPECT_EQ(first->rate1, 0.1);
}

TYPED_TEST(LimitLoadTest, LaterRecordOfOneLoadWins) {
    const auto a = this->instrument("A");
    this->load({this->record(a, this->limit(0.1)), this->record(a, this->limit(0.2))});
    EXPECT_EQ(this->storedRate(*a), 0.2);
}

TYPED_TEST(LimitLoadTest, ShorterSecondLoadKeepsTheEntriesThatItDoesNotName) {
    const auto a = this->instrument("A");
    const auto b = this->instrument("B");
    this->load({this->record(a, this->limit(0.1)), this->record(b, this->limit(0.2))});
    this->loadOne(a, this->limit(0.3));
    EXPECT_EQ(this->storedRate(*a), 0.3);
    EXPECT_EQ(this->storedRate(*b), 0.2);
}

TYPED_TEST(LimitLoadTest, AccountsAreApartAndShareThePool) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    const auto other = test::makeAccount(TypeParam::kind, 8);
    (this->center.*TypeParam::load)(other, {this->record(a, this->limit(0.2))});
    EXPECT_EQ(this->storedRate(*a), 0.1);
    EXPECT_EQ(this->poolSize(), 2U);
    (this->center.*TypeParam::load)(other, {this->record(a, this->limit(0.1))});
    EXPECT_EQ(this->poolSize(), 2U);
}

TYPED_TEST(LimitLoadTest, OnlyTheFamilysOwnTablesAreWritten) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    const auto& all = this->center;
    const std::size_t tables = all.stockAccountTable.size() + all.creditAccountTable.size() +
                               all.neeqAccountTable.size() + all.hgtAccountTable.size() + all.sgtAccountTable.size() +
                               all.stkOptionAccountTable.size() + all.futureCommissionKeys.size() +
                               all.futureMarginKeys.size();
    const std::size_t pooled = all.stockRateLimitPool.size() + all.creditRateLimitPool.size() +
                               all.neeqRateLimitPool.size() + all.hgtRateLimitPool.size() +
                               all.sgtRateLimitPool.size() + all.stkOptionItemPool.size() +
                               all.futureCommissionDetails.size() + all.futureMarginDetails.size();
    EXPECT_EQ(tables, 1U);
    EXPECT_EQ(pooled, 1U);
    EXPECT_EQ(this->poolSize(), 1U);
}

}  // namespace
