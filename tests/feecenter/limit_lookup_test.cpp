#include <gtest/gtest.h>

#include "support/limit_family_fixture.h"

// Lookups and lists of the families that keep one limit per instrument.

namespace {

using namespace qmservice;

template <class Family>
class LimitLookupTest : public test::LimitFamilyTest<Family> {};
TYPED_TEST_SUITE(LimitLookupTest, test::LimitFamilies, test::FamilyName);

TYPED_TEST(LimitLookupTest, EntryIsAnsweredWithItsOwnTradeUnitWhateverIsAsked) {
    const auto a = this->instrument("A");
    this->host.tradeUnits[{"XX", "A"}] = 200;
    this->loadOne(a, this->limit(0.1));
    EXPECT_EQ(this->limitOf(*a, 300), this->stored(*a));
    EXPECT_EQ((*this->limitOf(*a, 300)).*TypeParam::unit, 200);
}

TYPED_TEST(LimitLookupTest, EntryIsAnsweredEvenWhenTheCatalogueForgotTheInstrument) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    this->host.removeInstrument(*a);
    EXPECT_EQ(this->limitOf(*a)->rate1, 0.1);
}

TYPED_TEST(LimitLookupTest, AccountWithoutATableFallsBackToTheConfiguredRecordItself) {
    const auto a = this->instrument("A");
    const auto rates = this->limit(0.7);
    (*rates).*TypeParam::unit = 100;
    this->configured(*a) = rates;
    EXPECT_EQ(this->limitOf(*a), rates);
}

TYPED_TEST(LimitLookupTest, FallbackAsksTheConfigurationAnewEachTime) {
    const auto a = this->instrument("A");
    for (const double rate : {0.7, 0.8}) {
        this->configured(*a) = this->limit(rate);
        EXPECT_EQ(this->limitOf(*a)->rate1, rate);
    }
    this->configured(*a) = nullptr;
    EXPECT_EQ(this->limitOf(*a), this->fallback());
}

TYPED_TEST(LimitLookupTest, WithNothingConfiguredTheDefaultRecordItselfIsAnswered) {
    const auto a = this->instrument("A");
    EXPECT_EQ(this->limitOf(*a), this->fallback());
}

TYPED_TEST(LimitLookupTest, InstrumentUnknownToTheCatalogueGetsTheDefaultThoughConfigured) {
    const auto a = this->instrument("A");
    this->configured(*a) = this->limit(0.7);
    this->host.removeInstrument(*a);
    EXPECT_EQ(this->limitOf(*a), this->fallback());
}

TYPED_TEST(LimitLookupTest, EntryWhoseRecordIsNotPooledIsAnsweredWithoutLimitAndPoolsNone) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    (this->center.*TypeParam::pool).clear();
    const auto fee = this->find(*a);
    ASSERT_TRUE(fee);
    EXPECT_FALSE((*fee).*TypeParam::slot);
    EXPECT_TRUE((this->center.*TypeParam::pool).empty());
}

template <class Family>
class LimitListTest : public test::LimitFamilyTest<Family> {
protected:
    using Fees = typename test::LimitFamilyTest<Family>::Fees;
};
TYPED_TEST_SUITE(LimitListTest, test::LimitFamilies, test::FamilyName);

TYPED_TEST(LimitListTest, AccountWithoutATableGetsFalseAndAnUntouchedVector) {
    const auto kept = boost::make_shared<CInstrumentFee>();
    typename TestFixture::Fees fees = {kept};
    EXPECT_FALSE(this->list(fees));
    ASSERT_EQ(fees.size(), 1U);
    EXPECT_EQ(fees[0], kept);
}

TYPED_TEST(LimitListTest, FeesAreAppended) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    const auto kept = boost::make_shared<CInstrumentFee>();
    typename TestFixture::Fees fees = {kept};
    EXPECT_TRUE(this->list(fees));
    ASSERT_EQ(fees.size(), 2U);
    EXPECT_EQ(fees[0], kept);
    EXPECT_EQ(fees[1]->instrument, a);
    EXPECT_TRUE(this->list(fees));
    EXPECT_EQ(fees.size(), 3U);
}

TYPED_TEST(LimitListTest, InstrumentThatTheCatalogueForgotIsLeftOut) {
    const auto a = this->instrument("A");
    const auto b = this->instrument("B");
    this->load({this->record(a, this->limit(0.1)), this->record(b, this->limit(0.2))});
    this->host.removeInstrument(*a);
    typename TestFixture::Fees fees;
    EXPECT_TRUE(this->list(fees));
    ASSERT_EQ(fees.size(), 1U);
    EXPECT_EQ(fees[0]->instrument, b);
}

TYPED_TEST(LimitListTest, ListWithNothingToAppendIsStillTrue) {
    const auto a = this->instrument("A");
    this->loadOne(a, this->limit(0.1));
    this->host.removeInstrument(*a);
    typename TestFixture::Fees fees;
    EXPECT_TRUE(this->list(fees));
    EXPECT_TRUE(fees.empty());
}

TYPED_TEST(LimitListTest, RoomIsMadeForEveryEntryOfTheTableBeforeAnyIsLeftOut) {
    for (const char* code : {"A", "B", "C"}) {
        const auto instrument = this->instrument(code);
        this->loadOne(instrument, this->limit(0.1));
        this->host.removeInstrument(*instrument);
    }
    typename TestFixture::Fees fees;
    EXPECT_TRUE(this->list(fees));
    EXPECT_TRUE(fees.empty());
    EXPECT_GE(fees.capacity(), 3U);
}

/// The families whose list asks their own lookup: all but NEEQ.
template <class Family>
class OwnListTest : public test::LimitFamilyTest<Family> {};
using OwnListFamilies = ::testing::Types<test::Stock, test::Credit, test::Hgt, test::Sgt>;
TYPED_TEST_SUITE(OwnListTest, OwnListFamilies, test::FamilyName);

}  // namespace
