#include <gtest/gtest.h>

#include <algorithm>
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

TEST_F(FutureLookupTest, StoredRecordsThemselvesAreHandedOutInANewFee) {
    const auto first = makeMargin('1', 20);
    const auto second = makeMargin('2', 30);
    load({makeFutureFee(rb, makeCommission(10), {second, first})});
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_EQ(fee->commissionDetail, storedCommission(*rb));
    EXPECT_EQ(fee->marginDetails, (test::Margins{center.futureMarginDetails.at(center.getHashKey(second)),
                                                 center.futureMarginDetails.at(center.getHashKey(first))}));
    EXPECT_EQ(fee->instrument, rb);
    EXPECT_NE(find(), fee);
}

TEST_F(FutureLookupTest, FieldsOfOtherFamiliesStayEmpty) {
    load({makeFutureFee(rb, makeCommission(10))});
    const auto fee = find();
    EXPECT_FALSE(fee->account);
    EXPECT_FALSE(fee->stkRateLimit);
    EXPECT_FALSE(fee->stkOptionFeeRate);
    EXPECT_FALSE(fee->hgtRateLimit);
    EXPECT_FALSE(fee->sgtRateLimit);
}

TEST_F(FutureLookupTest, CommissionAloneGetsTheDefaultsOwnMargins) {
    load({makeFutureFee(rb, makeCommission(10))});
    const auto fee = find();
    EXPECT_EQ(fee->commissionDetail, storedCommission(*rb));
    ASSERT_EQ(fee->marginDetails.size(), 3U);
    EXPECT_EQ(fee->marginDetails, center.defaultFutureFee->marginDetails);
    fee->marginDetails.clear();
    EXPECT_EQ(center.defaultFutureFee->marginDetails.size(), 3U);
}

TEST_F(FutureLookupTest, MarginsAloneLeaveTheCommissionEmpty) {
    const auto margin = makeMargin('1', 20);
    load({makeFutureFee(rb, nullptr, {margin})});
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_FALSE(fee->commissionDetail);
    EXPECT_EQ(fee->marginDetails, test::Margins{center.futureMarginDetails.at(center.getHashKey(margin))});
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

TEST_F(FutureLookupTest, CommissionKeyWithoutRecordBesideMarginsYieldsAnEmptyCommission) {
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

TEST_F(FutureLookupTest, LookupsAddNothingToTheTables) {
    center.doUpdateFutureInstrumentFee(account, makeFutureFee(rb, makeCommission(10), {makeMargin('2', 20)}));
    center.futureCommissionKeys[kAccount][test::instrumentKey(*addFuture("cu2605"))] = 4711;
    const auto sizes = tableSizes();
    for (const uint64 accountKey : {kAccount, uint64{777}}) {
        for (const uint64 key : {rbKey, test::instrumentKey("SHFE", "cu2605"), uint64{1234}}) {
            center.getFutureFee(accountKey, key);
            center.getIncomeSwapFutureFee(accountKey, key);
        }
    }
    Fees fees;
    center.getFutureFees(account, fees);
    center.getFutureFees(test::makeAccount(1, 778), fees);
    EXPECT_EQ(tableSizes(), sizes);
}

TEST_F(FutureLookupTest, InstrumentUnknownToTheCatalogueStillHasTheAccountsRates) {
    load({makeFutureFee(rb, makeCommission(10))});
    host.removeInstrument(*rb);
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_FALSE(fee->instrument);
    EXPECT_EQ(fee->commissionDetail, storedCommission(*rb));
}

TEST_F(FutureLookupTest, InstrumentUnknownToTheCatalogueHasNoDefault) {
    host.removeInstrument(*rb);
    EXPECT_FALSE(find());
}

TEST_F(FutureLookupTest, RatesOfAnotherAccountOrInstrumentDoNotCount) {
    const auto cu = addFuture("cu2605");
    load({makeFutureFee(cu, makeCommission(10), {makeMargin('1', 20)})});
    EXPECT_EQ(find()->commissionDetail->openRatioByMoney, 0);
    const auto other = center.getFutureFee(777, test::instrumentKey(*cu));
    EXPECT_EQ(other->commissionDetail->openRatioByMoney, 0);
    EXPECT_EQ(other->marginDetails.size(), 3U);
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

TEST_F(FutureLookupTest, ListAppendsEachCommissionStampedWithAccountAndInstrument) {
    const auto cu = addFuture("cu2605");
    load({makeFutureFee(rb, makeCommission(10)), makeFutureFee(cu, makeCommission(40), {makeMargin('1', 20)})});
    const auto earlier = boost::make_shared<CInstrumentFee>();
    Fees fees{earlier};
    ASSERT_TRUE(center.getFutureFees(account, fees));
    ASSERT_EQ(fees.size(), 3U);
    EXPECT_EQ(fees[0], earlier);
    if (fees[1]->instrument != rb) {
        std::swap(fees[1], fees[2]);
    }
    EXPECT_EQ(fees[1]->instrument, rb);
    EXPECT_EQ(fees[1]->account, account);
    EXPECT_EQ(fees[1]->commissionDetail, storedCommission(*rb));
    EXPECT_EQ(fees[1]->marginDetails, center.defaultFutureFee->marginDetails);
    EXPECT_EQ(fees[2]->instrument, cu);
    EXPECT_EQ(fees[2]->account, account);
    EXPECT_EQ(fees[2]->commissionDetail, storedCommission(*cu));
    EXPECT_EQ(fees[2]->marginDetails.size(), 1U);
}

TEST_F(FutureLookupTest, ListSkipsInstrumentsWithMarginsOnly) {
    const auto cu = addFuture("cu2605");
    load({makeFutureFee(rb, makeCommission(10)), makeFutureFee(cu, nullptr, {makeMargin('1', 20)})});
    Fees fees;
    EXPECT_TRUE(center.getFutureFees(account, fees));
    ASSERT_EQ(fees.size(), 1U);
    EXPECT_EQ(fees[0]->instrument, rb);
}

TEST_F(FutureLookupTest, ListSkipsInstrumentsUnknownToTheCatalogue) {
    const auto cu = addFuture("cu2605");
    load({makeFutureFee(rb, makeCommission(10)), makeFutureFee(cu, makeCommission(40))});
    host.removeInstrument(*rb);
    Fees fees;
    EXPECT_TRUE(center.getFutureFees(account, fees));
    ASSERT_EQ(fees.size(), 1U);
    EXPECT_EQ(fees[0]->instrument, cu);
}

TEST_F(FutureLookupTest, ListOfUnknownInstrumentsOnlyIsTrueAndAddsNothing) {
    load({makeFutureFee(rb, makeCommission(10))});
    host.removeInstrument(*rb);
    Fees fees;
    EXPECT_TRUE(center.getFutureFees(account, fees));
    EXPECT_TRUE(fees.empty());
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
