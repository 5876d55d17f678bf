#include <gtest/gtest.h>

#include <vector>

#include "support/future_builders.h"

namespace {

using namespace qmservice;
using test::kAccount;
using test::kUnsetSlot;
using test::makeCommission;
using test::makeFutureFee;
using test::makeMargin;
using Fees = std::vector<boost::shared_ptr<CInstrumentFee>>;

class FutureLookupTest : public test::FutureTest {
protected:
    boost::shared_ptr<CInstrumentFee> find(uint64 accountKey = kAccount) {
        return center.getFutureFee(accountKey, rbKey);
    }

    boost::shared_ptr<CInstrument> rb = addFuture("rb2605");
    uint64 rbKey = test::instrumentKey(*rb);
};

TEST_F(FutureLookupTest, CommissionAloneGetsTheDefaultsOwnMargins) {
    load({makeFutureFee(rb, makeCommission(10))});
    const auto fee = find();
    EXPECT_EQ(fee->commissionDetail, storedCommission(*rb));
    ASSERT_EQ(fee->marginDetails.size(), 3U);
    EXPECT_EQ(fee->marginDetails, center.defaultFutureFee->marginDetails);
    fee->marginDetails.clear();
    EXPECT_EQ(center.defaultFutureFee->marginDetails.size(), 3U);
}

TEST_F(FutureLookupTest, UnsetSlotsAreEmptyEntries) {
    center.doUpdateFutureInstrumentFee(account, makeFutureFee(rb, makeCommission(10), {makeMargin('2', 20)}));
    const auto fee = find();
    ASSERT_EQ(fee->marginDetails.size(), 3U);
    EXPECT_FALSE(fee->marginDetails[0]);
    EXPECT_EQ(fee->marginDetails[1]->longMarginRatio, 21);
    EXPECT_FALSE(fee->marginDetails[2]);
}

TEST_F(FutureLookupTest, EmptyEntriesAloneCountAsMargins) {
    center.futureMarginKeys[kAccount][rbKey] = {kUnsetSlot, kUnsetSlot};
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_FALSE(fee->commissionDetail);
    EXPECT_EQ(fee->marginDetails, test::Margins(2));
}

TEST_F(FutureLookupTest, CommissionKeyWithoutRecordAndMarginsIsNoRateAtAll) {
    center.futureCommissionKeys[kAccount][rbKey] = 4711;
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_EQ(fee->commissionDetail->instrumentId, "rb2605");
    EXPECT_EQ(center.futureCommissionDetails.size(), 0U);
}

TEST_F(FutureLookupTest, CommissionKeyWithoutRecordAndWithMarginsYieldsAnEmptyCommission) {
    load({makeFutureFee(rb, nullptr, {makeMargin('1', 20)})});
    center.futureCommissionKeys[kAccount][rbKey] = 4711;
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_FALSE(fee->commissionDetail);
    EXPECT_EQ(fee->marginDetails.size(), 1U);
}

TEST_F(FutureLookupTest, EmptyKeyVectorIsNoMargin) {
    center.futureMarginKeys[kAccount][rbKey] = {};
    EXPECT_EQ(find()->commissionDetail->instrumentId, "rb2605");
}

TEST_F(FutureLookupTest, InstrumentUnknownToTheCatalogueStillHasTheAccountsRates) {
    load({makeFutureFee(rb, makeCommission(10))});
    host.removeInstrument(*rb);
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_FALSE(fee->instrument);
    EXPECT_EQ(fee->commissionDetail, storedCommission(*rb));
}

TEST_F(FutureLookupTest, DefaultIsMadeOutForTheInstrument) {
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_EQ(fee->instrument, rb);
    EXPECT_EQ(fee->commissionDetail->instrumentId, "rb2605");
    EXPECT_EQ(test::ratesOf(*fee->commissionDetail), std::vector<double>(8, 0));
    ASSERT_EQ(fee->marginDetails.size(), 3U);
    for (int slot = 0; slot < 3; ++slot) {
        const auto& margin = *fee->marginDetails[static_cast<std::size_t>(slot)];
        EXPECT_EQ(margin.hedgeFlag, '1' + slot);
        EXPECT_EQ(test::ratesOf(margin), std::vector<double>(6, 0));
    }
    EXPECT_FALSE(fee->account);
}

// Lists.

TEST_F(FutureLookupTest, ListOfAnAccountWithoutCommissionsIsFalseAndUntouched) {
    load({makeFutureFee(rb, nullptr, {makeMargin('1', 20)})});
    const auto earlier = boost::make_shared<CInstrumentFee>();
    Fees fees{earlier};
    EXPECT_FALSE(center.getFutureFees(account, fees));
    EXPECT_FALSE(center.getFutureFees(test::makeAccount(1, 777), fees));
    EXPECT_EQ(fees, Fees{earlier});
}

TEST_F(FutureLookupTest, ListSkipsInstrumentsWithMarginsOnly) {
    const auto cu = addFuture("cu2605");
    load({makeFutureFee(rb, makeCommission(10)), makeFutureFee(cu, nullptr, {makeMargin('1', 20)})});
    Fees fees;
    EXPECT_TRUE(center.getFutureFees(account, fees));
    ASSERT_EQ(fees.size(), 1U);
    EXPECT_EQ(fees[0]->instrument, rb);
}

TEST_F(FutureLookupTest, ListShowsTheDefaultForACommissionKeyWithoutRecord) {
    center.futureCommissionKeys[kAccount][rbKey] = 4711;
    Fees fees;
    EXPECT_TRUE(center.getFutureFees(account, fees));
    ASSERT_EQ(fees.size(), 1U);
    EXPECT_EQ(fees[0]->commissionDetail->instrumentId, "rb2605");
    EXPECT_EQ(fees[0]->account, account);
}

}  // namespace
