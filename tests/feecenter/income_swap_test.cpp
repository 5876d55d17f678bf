#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/future_builders.h"

namespace {

using namespace qmservice;
using test::kAccount;
using test::kUnsetSlot;
using test::makeCommission;
using test::makeFutureFee;
using test::makeMargin;

class IncomeSwapTest : public test::FutureTest {
protected:
    boost::shared_ptr<CInstrumentFee> find() {
        return center.getIncomeSwapFutureFee(kAccount, test::instrumentKey(*rb));
    }

    boost::shared_ptr<CInstrument> rb = addFuture("rb2605");
};

TEST_F(IncomeSwapTest, StoredFuturesRecordsThemselvesAreHandedOutInANewFee) {
    const auto margin = makeMargin('1', 20);
    load({makeFutureFee(rb, makeCommission(10), {margin})});
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_EQ(fee->instrument, rb);
    EXPECT_FALSE(fee->account);
    EXPECT_EQ(fee->commissionDetail, storedCommission(*rb));
    EXPECT_EQ(fee->marginDetails, test::Margins{center.futureMarginDetails.at(center.getHashKey(margin))});
    EXPECT_NE(find(), fee);
}

TEST_F(IncomeSwapTest, CommissionAloneLeavesTheMarginsEmpty) {
    load({makeFutureFee(rb, makeCommission(10))});
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_EQ(fee->commissionDetail, storedCommission(*rb));
    EXPECT_TRUE(fee->marginDetails.empty());
}

TEST_F(IncomeSwapTest, MarginsAloneLeaveTheCommissionEmpty) {
    load({makeFutureFee(rb, nullptr, {makeMargin('1', 20)})});
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_FALSE(fee->commissionDetail);
    EXPECT_EQ(fee->marginDetails.size(), 1U);
}

TEST_F(IncomeSwapTest, UnsetSlotsAreEmptyEntries) {
    center.futureMarginKeys[kAccount][test::instrumentKey(*rb)] = {kUnsetSlot, kUnsetSlot, kUnsetSlot};
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_FALSE(fee->commissionDetail);
    EXPECT_EQ(fee->marginDetails, test::Margins(3));
}

TEST_F(IncomeSwapTest, InstrumentUnknownToTheCatalogueStillHasTheAccountsRates) {
    load({makeFutureFee(rb, makeCommission(10))});
    host.removeInstrument(*rb);
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_FALSE(fee->instrument);
}

TEST_F(IncomeSwapTest, InstrumentUnknownToTheCatalogueHasNoDefault) {
    host.removeInstrument(*rb);
    EXPECT_FALSE(find());
}

TEST_F(IncomeSwapTest, DefaultHasOnePercentMarginsAndTheInstrumentsCode) {
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_EQ(fee->instrument, rb);
    EXPECT_EQ(fee->commissionDetail->instrumentId, "rb2605");
    EXPECT_EQ(test::ratesOf(*fee->commissionDetail), std::vector<double>(8, 0));
    ASSERT_EQ(fee->marginDetails.size(), 3U);
    for (int slot = 0; slot < 3; ++slot) {
        const auto& margin = *fee->marginDetails[static_cast<std::size_t>(slot)];
        EXPECT_EQ(margin.hedgeFlag, '1' + slot);
        EXPECT_EQ(test::ratesOf(margin), (std::vector<double>{0.01, 0, 0.01, 0, 0, 0}));
    }
    EXPECT_EQ(center.defaultIncomeSwapFutureFee->commissionDetail->instrumentId, "");
    EXPECT_FALSE(center.defaultIncomeSwapFutureFee->instrument);
}

TEST_F(IncomeSwapTest, DefaultIsNotAdjustedOnASimulationPlatformNorTheAccountAskedFor) {
    rb->feeType = 1;
    rb->openFee = 3.5;
    account->platformId = 9;
    host.simulationPlatforms = {9};
    host.accounts[kAccount] = boost::make_shared<CAccountData>(account);
    std::vector<std::string> calls;
    host.onCall = [&](const std::string& operation) { calls.push_back(operation); };
    const auto fee = find();
    EXPECT_EQ(test::ratesOf(*fee->commissionDetail), std::vector<double>(8, 0));
    EXPECT_EQ(calls, std::vector<std::string>{"findInstrument"});
}

TEST_F(IncomeSwapTest, LookupAddsNothingToTheTables) {
    center.futureCommissionKeys[kAccount][test::instrumentKey(*rb)] = 4711;
    const auto sizes = tableSizes();
    EXPECT_EQ(find()->commissionDetail->instrumentId, "rb2605");
    EXPECT_EQ(tableSizes(), sizes);
}

}  // namespace
