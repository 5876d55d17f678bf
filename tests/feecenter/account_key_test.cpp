#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "support/future_builders.h"

// An account's key is what its getHashKey answers to 0; other arguments may give other keys.

namespace {

using namespace qmservice;
using test::makeCustomFee;
using Seeds = std::set<uint64>;

class NotingAccount : public CAccountInfo {
public:
    explicit NotingAccount(int kind) { accountType = kind; }

    [[nodiscard]] uint64 getHashKey(uint64 seed) const override {
        seeds.insert(seed);
        return 7;
    }

    mutable Seeds seeds;
};

class AccountKeyTest : public test::FeeCenterTest {
protected:
    AccountKeyTest() {
        host.inSystemCategory = [](auto&&...) { return true; };
    }

    /// With what the account's key was asked while `run(account)` and the jobs that it posted ran.
    template <class Run>
    Seeds seedsDuring(int kind, const Run& run) {
        const auto account = boost::make_shared<NotingAccount>(kind);
        run(account);
        host.runJobs();
        return account->seeds;
    }

    /// Carries what each family looks for.
    [[nodiscard]] boost::shared_ptr<CInstrumentFee> feeOfEveryFamily() const {
        auto fee = test::makeFutureFee(instrument, test::makeCommission(10), {test::makeMargin('1', 20)});
        fee->stkRateLimit = test::makeLimit(0.1);
        fee->hgtRateLimit = boost::make_shared<CCustomHGTExchangeRateLimit>();
        fee->sgtRateLimit = boost::make_shared<CCustomSgtExchangeRateLimit>();
        return fee;
    }

    static boost::shared_ptr<IData> customFeeOf(int kind) {
        switch (kind) {
            case 1:
            case 5:
            case 12:
                return test::makeCustomFutureFee({test::makeCustomCommission("5", 10)}, {});
            case 7:
                return makeCustomFee<CCustomHGTInstrumentFee>(boost::make_shared<CCustomHGTExchangeRateLimit>());
            case 11:
                return makeCustomFee<CCustomSgtInstrumentFee>(boost::make_shared<CCustomSgtExchangeRateLimit>());
            default:
                return makeCustomFee(test::makeCustomLimit("5", 0.1));
        }
    }

    /// In the list of every kind mask and in both futures maps.
    const boost::shared_ptr<CInstrument> instrument = host.addInstrument("SH", "600000", -1, 2 | 1024);
};

TEST_F(AccountKeyTest, LoadAsksWithZero) {
    for (const int kind : {1, 2, 3, 5, 7, 10, 11}) {
        EXPECT_EQ(seedsDuring(kind, [&](const auto& account) { center.initFees(account, {feeOfEveryFamily()}); }),
                  Seeds{0})
            << "account kind " << kind;
    }
}

TEST_F(AccountKeyTest, CustomFeeAsksWithZero) {
    for (const int kind : {1, 2, 3, 5, 6, 7, 10, 11, 12}) {
        EXPECT_EQ(seedsDuring(kind, [&](const auto& account) { center.updateCustomFee(account, customFeeOf(kind)); }),
                  Seeds{0})
            << "account kind " << kind;
    }
}

TEST_F(AccountKeyTest, InstrumentUpdateAsksWithZero) {
    EXPECT_EQ(seedsDuring(1, [&](const auto& account) { center.updateCustomFee(account, feeOfEveryFamily()); }),
              Seeds{0});
}

TEST_F(AccountKeyTest, QueryAsksWithZero) {
    for (const int kind : {1, 2, 3, 5, 6, 7, 8, 10, 11, 12, 16}) {
        EXPECT_EQ(seedsDuring(kind, [&](const auto& account) { EXPECT_TRUE(center.getFee(account, "SH", "600000")); }),
                  Seeds{0})
            << "account kind " << kind;
    }
}

TEST_F(AccountKeyTest, ListAsksWithZero) {
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    for (const int kind : {1, 2, 3, 5, 6, 7, 10, 11}) {
        EXPECT_EQ(seedsDuring(kind, [&](const auto& account) { center.getFees(account, fees); }), Seeds{0})
            << "account kind " << kind;
    }
}

}  // namespace
