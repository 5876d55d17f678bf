#include <limits>

#include "model/futures_fixture.h"

namespace model {
namespace {

using namespace qmservice;

class FutureLookup : public FuturesTest {
protected:
    /// The open, close and close-today fees by money, then by volume, of the default on a simulation platform.
    std::vector<double> simulated(int type, double open, double close, double closeToday) {
        account->platformId = 5;
        facts.simulationPlatforms = {5};
        facts.accounts[account->getHashKey(0)] = boost::make_shared<CAccountData>(account);
        a->feeType = type;
        a->openFee = open;
        a->closeFee = close;
        a->closeTodayFee = closeToday;
        const auto d = ask(account, a)->commissionDetail;
        return {d->openRatioByMoney,  d->closeRatioByMoney,  d->closeTodayRatioByMoney,
                d->openRatioByVolume, d->closeRatioByVolume, d->closeTodayRatioByVolume};
    }
};

TEST_F(FutureLookup, SharesTheDefaultMarginsWithACommissionThatStandsAlone) {
    load(account, {fee(a, commission(1))});
    EXPECT_EQ(ask(account, a)->commissionDetail, model.commissions.begin()->second);
    EXPECT_EQ(ask(account, a)->marginDetails, model.defaultFutureFee->marginDetails);
}

TEST_F(FutureLookup, LeavesTheCommissionOfMarginsThatStandAloneEmpty) {
    load(account, {fee(a, nullptr, {margin('1', 1)})});
    EXPECT_FALSE(ask(account, a)->commissionDetail);
    EXPECT_EQ(ask(account, a)->marginDetails[0], model.margins.begin()->second);
    EXPECT_FALSE(knows(account));
}

TEST_F(FutureLookup, CopiesTheDefaultForAnInstrumentWithoutRates) {
    const Fee answer = ask(account, a);
    EXPECT_EQ(answer->commissionDetail->instrumentId, "rb2501");
    EXPECT_NE(answer->commissionDetail, model.defaultFutureFee->commissionDetail);
    EXPECT_EQ(model.defaultFutureFee->commissionDetail->instrumentId, "");
    EXPECT_EQ(answer->marginDetails.size(), 3U);
    EXPECT_NE(answer->commissionDetail, ask(account, a)->commissionDetail);
}

TEST_F(FutureLookup, TakesTheExchangesFeePerLotOnASimulationPlatform) {
    EXPECT_EQ(simulated(1, 1.5, 2.5, 3.5), (std::vector<double>{0, 0, 0, 1.5, 2.5, 3.5}));
    EXPECT_EQ(model.defaultFutureFee->commissionDetail->openRatioByVolume, 0);
}

TEST_F(FutureLookup, TakesTheExchangesFeeInTenThousandthsOfTurnover) {
    EXPECT_EQ(simulated(2, 0.5, -1.0, 10), (std::vector<double>{0.00005, 0, 0.001, 0, 0, 0}));
}

TEST_F(FutureLookup, TakesAFeeNearMinusOneForUnset) {
    EXPECT_EQ(simulated(1, -1.000009, -0.999991, -1.00002), (std::vector<double>{0, 0, 0, 0, 0, -1.00002}));
}

TEST_F(FutureLookup, ChangesNothingForOtherFeeTypes) {
    EXPECT_EQ(simulated(0, 1, 1, 1), std::vector<double>(6));
    EXPECT_EQ(simulated(3, 1, 1, 1), std::vector<double>(6));
}

TEST_F(FutureLookup, NeedsTheStoredAccountsPlatformToBeSimulated) {
    ASSERT_EQ(simulated(1, 1, 1, 1)[3], 1);
    facts.accounts[account->getHashKey(0)] = boost::make_shared<CAccountData>(accountOf(1));
    EXPECT_EQ(ask(account, a)->commissionDetail->openRatioByVolume, 0);
    facts.accounts[account->getHashKey(0)] = boost::make_shared<CAccountData>(nullptr);
    EXPECT_EQ(ask(account, a)->commissionDetail->openRatioByVolume, 0);
    facts.accounts[account->getHashKey(0)] = nullptr;
    EXPECT_EQ(ask(account, a)->commissionDetail->openRatioByVolume, 0);
    facts.accounts.clear();
    EXPECT_EQ(ask(account, a)->commissionDetail->openRatioByVolume, 0);
}

TEST_F(FutureLookup, ListsInstrumentsWithACommission) {
    EXPECT_FALSE(knows(account));
    const auto b = instrument("SHFE", "zn2501");
    load(account, {fee(a, commission(1)), fee(b, nullptr, {margin('1', 1)})});
    ASSERT_EQ(listed(account).size(), 1U);
    EXPECT_EQ(listed(account)[0]->instrument, a);
    EXPECT_EQ(listed(account)[0]->account, account);
}

TEST_F(FutureLookup, GivesIncomeSwapAccountsNoDefaultMarginsBesideACommission) {
    load(account, {fee(a, commission(1))});
    const auto swap = accountOf(16);
    EXPECT_EQ(ask(swap, a)->commissionDetail, ask(account, a)->commissionDetail);
    EXPECT_TRUE(ask(swap, a)->marginDetails.empty());
}

TEST_F(FutureLookup, GivesIncomeSwapAccountsADefaultThatNoPlatformAdjusts) {
    ASSERT_EQ(simulated(1, 1, 1, 1)[3], 1);
    const Fee answer = ask(accountOf(16), a);
    EXPECT_EQ(answer->commissionDetail->openRatioByVolume, 0);
    EXPECT_EQ(answer->commissionDetail->instrumentId, "rb2501");
    ASSERT_EQ(answer->marginDetails.size(), 3U);
    EXPECT_EQ(answer->marginDetails[2]->shortMarginRatio, 0.01);
}

}  // namespace
}  // namespace model
