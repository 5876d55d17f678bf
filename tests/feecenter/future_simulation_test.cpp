#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "support/future_builders.h"

// On a simulation platform the futures default takes the exchange's own fees.

namespace {

using namespace qmservice;
using test::kAccount;
using Rates = std::vector<double>;

constexpr int kSimulation = 9;

/// An instrument that answers the fee queries itself, whatever its fields hold.
class QuotedInstrument : public CInstrument {
public:
    QuotedInstrument(std::int32_t type, double open, double close, double closeToday)
        : quotedType(type), quotedOpen(open), quotedClose(close), quotedCloseToday(closeToday) {
        market = "SHFE";
        code = "rb2605";
    }
    [[nodiscard]] std::int32_t getFeeType() const override { return quotedType; }
    [[nodiscard]] double getOpenFee() const override { return quotedOpen; }
    [[nodiscard]] double getCloseFee() const override { return quotedClose; }
    [[nodiscard]] double getCloseTodayFee() const override { return quotedCloseToday; }

private:
    std::int32_t quotedType;
    double quotedOpen;
    double quotedClose;
    double quotedCloseToday;
};

class FutureSimulationTest : public test::FutureTest {
protected:
    FutureSimulationTest() {
        account->platformId = kSimulation;
        host.simulationPlatforms = {kSimulation};
        host.accounts[kAccount] = boost::make_shared<CAccountData>(account);
        // A default whose rates are not zero, so that what is set and what is left can be distinguished.
        center.defaultFutureFee->commissionDetail = test::makeCommission(10);
    }

    void quote(std::int32_t type, double open, double close, double closeToday) {
        instrument = host.add(boost::make_shared<QuotedInstrument>(type, open, close, closeToday), 0, 2);
    }

    Rates answer() {
        const auto fee = center.getFutureFee(kAccount, test::instrumentKey("SHFE", "rb2605"));
        return fee ? test::ratesOf(*fee->commissionDetail) : Rates();
    }

    boost::shared_ptr<CInstrument> instrument;
    const Rates unadjusted{11, 12, 13, 14, 15, 16, 17, 18};
};

TEST_F(FutureSimulationTest, FeePerLotSetsByVolumeUnchangedAndByMoneyToZero) {
    quote(1, 3.5, 4.5, -5.5);
    EXPECT_EQ(answer(), (Rates{0, 3.5, 0, 4.5, 0, -5.5, 17, 18}));
}

TEST_F(FutureSimulationTest, FeeByTurnoverSetsByMoneyInTenThousandthsAndByVolumeToZero) {
    quote(2, 0.5, 2.5, 10);
    EXPECT_EQ(answer(), (Rates{0.00005, 0, 0.00025, 0, 0.001, 0, 17, 18}));
}

TEST_F(FutureSimulationTest, OtherFeeTypesChangeNothing) {
    for (const int type : {0, 3, -1, 257}) {
        quote(type, 3.5, 4.5, 5.5);
        EXPECT_EQ(answer(), unadjusted) << type;
    }
}

TEST_F(FutureSimulationTest, FeeThatIsNotANumberIsSet) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const int type : {1, 2}) {
        for (std::size_t which = 0; which < 3; ++which) {
            quote(type, which == 0 ? none : 1, which == 1 ? none : 1, which == 2 ? none : 1);
            const Rates rates = answer();
            const std::size_t first = type == 1 ? 1 : 0;  // by volume or by money
            for (std::size_t i = 0; i < 3; ++i) {
                EXPECT_EQ(std::isnan(rates.at(first + 2 * i)), i == which) << "type " << type << ", fee " << i;
            }
        }
    }
}

TEST_F(FutureSimulationTest, ToleranceIsOneHundredThousandth) {
    // Distances from -1: 0.99995e-5 on either side, and 1.00005e-5.
    quote(1, -0.9999900005, -1.0000099995, -0.9999899995);
    EXPECT_EQ(answer(), (Rates{0, 0, 0, 0, 0, -0.9999899995, 17, 18}));
    quote(1, -1.0000100005, 0, 0);
    EXPECT_EQ(answer(), (Rates{0, -1.0000100005, 0, 0, 0, 0, 17, 18}));
}

TEST_F(FutureSimulationTest, AccountUnknownToTheDataCenterIsNotAdjusted) {
    quote(1, 3.5, 4.5, 5.5);
    host.accounts.clear();
    EXPECT_EQ(answer(), unadjusted);
}

TEST_F(FutureSimulationTest, AccountDataWithoutAccountIsNotAdjusted) {
    quote(1, 3.5, 4.5, 5.5);
    host.accounts[kAccount] = boost::make_shared<CAccountData>(nullptr);
    EXPECT_EQ(answer(), unadjusted);
}

TEST_F(FutureSimulationTest, AccountsOwnRatesAreNotAdjusted) {
    quote(1, 3.5, 4.5, 5.5);
    load({test::makeFutureFee(instrument, test::makeCommission(40))});
    EXPECT_EQ(answer(), (Rates{41, 42, 43, 44, 45, 46, 47, 48}));
}

}  // namespace
