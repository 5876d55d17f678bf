#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/future_builders.h"

namespace {

using namespace qmservice;
using test::kAccount;
using test::makeCommission;
using test::makeFutureFee;

class IncomeSwapTest : public test::FutureTest {
protected:
    boost::shared_ptr<CInstrumentFee> find() {
        return center.getIncomeSwapFutureFee(kAccount, test::instrumentKey(*rb));
    }

    boost::shared_ptr<CInstrument> rb = addFuture("rb2605");
};

TEST_F(IncomeSwapTest, CommissionAloneLeavesTheMarginsEmpty) {
    load({makeFutureFee(rb, makeCommission(10))});
    const auto fee = find();
    ASSERT_TRUE(fee);
    EXPECT_EQ(fee->commissionDetail, storedCommission(*rb));
    EXPECT_TRUE(fee->marginDetails.empty());
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

}  // namespace
