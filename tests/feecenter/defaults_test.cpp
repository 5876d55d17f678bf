#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "support/fee_center_fixture.h"

namespace {

using namespace qmservice;

class DefaultsTest : public test::FeeCenterTest {};

boost::shared_ptr<CStkExchangeRateLimit> expectedStockLimit() {
    auto limit = boost::make_shared<CStkExchangeRateLimit>();
    limit->rate1 = 0.00015;
    limit->rate2 = 0;
    limit->rate3 = 0;
    limit->rate4 = 0;
    limit->rate5 = 0;
    limit->rate6 = 0.001;
    limit->unitVolume = 100;
    return limit;
}

TEST_F(DefaultsTest, StockLimitHasItsConstants) {
    EXPECT_TRUE(center.defaultStockRateLimit->isEqual(*expectedStockLimit()));
}

TEST_F(DefaultsTest, CreditLimitHasTheStockConstants) {
    EXPECT_TRUE(center.defaultCreditRateLimit->isEqual(*expectedStockLimit()));
}

TEST_F(DefaultsTest, NeeqLimitHasTheStockConstants) {
    EXPECT_TRUE(center.defaultNeeqRateLimit->isEqual(*expectedStockLimit()));
}

TEST_F(DefaultsTest, ThreeStockLikeLimitsAreThreeObjects) {
    EXPECT_NE(center.defaultStockRateLimit, center.defaultCreditRateLimit);
    EXPECT_NE(center.defaultStockRateLimit, center.defaultNeeqRateLimit);
    EXPECT_NE(center.defaultCreditRateLimit, center.defaultNeeqRateLimit);
}

template <class Limit>
boost::shared_ptr<Limit> expectedConnectLimit() {
    auto limit = boost::make_shared<Limit>();
    limit->rate3 = 0.0013;
    limit->rate4 = 0.0013;
    return limit;
}

TEST_F(DefaultsTest, ShanghaiConnectLimitSetsItsThirdAndFourthRateOnly) {
    EXPECT_TRUE(center.defaultHgtRateLimit->isEqual(*expectedConnectLimit<CCustomHGTExchangeRateLimit>()));
}

TEST_F(DefaultsTest, ShenzhenConnectLimitSetsItsThirdAndFourthRateOnly) {
    EXPECT_TRUE(center.defaultSgtRateLimit->isEqual(*expectedConnectLimit<CCustomSgtExchangeRateLimit>()));
}

TEST_F(DefaultsTest, OptionBaseRateIsAFifth) { EXPECT_EQ(center.defaultStkOptionFeeRate->baseRate, 0.2); }

TEST_F(DefaultsTest, OptionItemsAreTheTenKeysInOrder) {
    std::vector<std::string> keys;
    for (const auto& item : center.defaultStkOptionFeeRate->items) {
        keys.push_back(item.first);
    }
    EXPECT_EQ(keys, (std::vector<std::string>{"000", "001", "010", "011", "0D", "100", "101", "110", "111", "1D"}));
}

struct OptionRow {
    std::string key;
    double fee1;
    double fee2;
    double fee3;
    int firstCode;
    int secondCode;
    int thirdCode;
};

class DefaultOptionItemTest : public test::FeeCenterTest, public ::testing::WithParamInterface<OptionRow> {};

TEST_P(DefaultOptionItemTest, HasItsFeesAndCharacterCodes) {
    const OptionRow& row = GetParam();
    const auto& item = center.defaultStkOptionFeeRate->items.at(row.key);
    EXPECT_EQ(item->fee1, row.fee1);
    EXPECT_EQ(item->fee2, row.fee2);
    EXPECT_EQ(item->fee3, row.fee3);
    EXPECT_EQ(item->fee4, 0.0);
    EXPECT_EQ(item->fee5, 0.0);
    EXPECT_EQ(item->firstKeyCode, row.firstCode);
    EXPECT_EQ(item->secondKeyCode, row.secondCode);
    EXPECT_EQ(item->thirdKeyCode, row.thirdCode);
}

// The third code of the "D" keys is that of '1', though the key does not show it.
INSTANTIATE_TEST_SUITE_P(
    Rows, DefaultOptionItemTest,
    ::testing::Values(OptionRow{"000", 1.3, 0.3, 0.0, 48, 48, 48}, OptionRow{"011", 1.3, 0.3, 0.0, 48, 49, 49},
                      OptionRow{"001", 0.0, 0.0, 0.0, 48, 48, 49}, OptionRow{"010", 1.3, 0.3, 0.0, 48, 49, 48},
                      OptionRow{"0D", 0.0, 0.0, 0.6, 48, 68, 49}, OptionRow{"100", 3.0, 0.45, 0.0, 49, 48, 48},
                      OptionRow{"111", 3.0, 0.45, 0.0, 49, 49, 49}, OptionRow{"101", 0.0, 0.0, 0.0, 49, 48, 49},
                      OptionRow{"110", 3.0, 0.45, 0.0, 49, 49, 48}, OptionRow{"1D", 0.0, 0.0, 0.9, 49, 68, 49}),
    [](const auto& row) { return row.param.key; });

TEST_F(DefaultsTest, OptionItemsAreTenObjects) {
    std::set<const CStockOptionFeeItem*> items;
    for (const auto& item : center.defaultStkOptionFeeRate->items) {
        items.insert(item.second.get());
    }
    EXPECT_EQ(items.size(), 10U);
}

boost::shared_ptr<CInstrumentFee> expectedFutureFee(double marginRatio) {
    auto fee = boost::make_shared<CInstrumentFee>();
    fee->commissionDetail = boost::make_shared<CCommissionRateDetail>();
    for (const int hedgeFlag : {49, 50, 51}) {
        auto margin = boost::make_shared<CMarginRateDetail>();
        margin->hedgeFlag = hedgeFlag;
        margin->longMarginRatio = marginRatio;
        margin->shortMarginRatio = marginRatio;
        fee->marginDetails.push_back(margin);
    }
    return fee;
}

TEST_F(DefaultsTest, FutureFeeHasThreeHedgeFlagsAndNoRate) {
    EXPECT_TRUE(center.defaultFutureFee->isEqual(*expectedFutureFee(0)));
}

TEST_F(DefaultsTest, IncomeSwapFutureFeeHasOnePercentMarginBothWays) {
    EXPECT_TRUE(center.defaultIncomeSwapFutureFee->isEqual(*expectedFutureFee(0.01)));
}

TEST_F(DefaultsTest, TwoFutureFeesShareNoRecord) {
    const auto& one = *center.defaultFutureFee;
    const auto& other = *center.defaultIncomeSwapFutureFee;
    EXPECT_NE(&one, &other);
    EXPECT_NE(one.commissionDetail, other.commissionDetail);
    std::set<const CMarginRateDetail*> margins;
    for (const auto* fee : {&one, &other}) {
        for (const auto& margin : fee->marginDetails) {
            margins.insert(margin.get());
        }
    }
    EXPECT_EQ(margins.size(), 6U);
}

TEST_F(DefaultsTest, FeeCentersShareNoDefault) {
    const test::OpenFeeCenter other;
    EXPECT_NE(center.defaultStockRateLimit, other.defaultStockRateLimit);
    EXPECT_NE(center.defaultCreditRateLimit, other.defaultCreditRateLimit);
    EXPECT_NE(center.defaultNeeqRateLimit, other.defaultNeeqRateLimit);
    EXPECT_NE(center.defaultHgtRateLimit, other.defaultHgtRateLimit);
    EXPECT_NE(center.defaultSgtRateLimit, other.defaultSgtRateLimit);
    EXPECT_NE(center.defaultStkOptionFeeRate, other.defaultStkOptionFeeRate);
    EXPECT_NE(center.defaultFutureFee, other.defaultFutureFee);
    EXPECT_NE(center.defaultIncomeSwapFutureFee, other.defaultIncomeSwapFutureFee);
}

TEST_F(DefaultsTest, QueriesOfEveryKindLeaveTheDefaultsAsTheyWere) {
    const std::vector<boost::shared_ptr<IData>> defaults = {
        center.defaultStockRateLimit, center.defaultCreditRateLimit,    center.defaultNeeqRateLimit,
        center.defaultHgtRateLimit,   center.defaultSgtRateLimit,       center.defaultStkOptionFeeRate,
        center.defaultFutureFee,      center.defaultIncomeSwapFutureFee};
    std::vector<boost::shared_ptr<IData>> before;
    before.reserve(defaults.size());
    for (const auto& record : defaults) {
        before.push_back(record->copy());
    }

    for (const char* market : {"SH", "HK", "SHFE", "SHO", "NEEQ", "XX"}) {
        host.addInstrument(market, "A");
        host.tradeUnits[{market, "A"}] = 300;
        for (int kind = 0; kind <= 17; ++kind) {
            center.getFee(test::makeAccount(kind, 7), market, "A");
        }
    }

    for (std::size_t i = 0; i < defaults.size(); ++i) {
        EXPECT_TRUE(defaults[i]->isEqual(*before[i])) << "default " << i;
    }
    EXPECT_EQ(center.defaultStockRateLimit, defaults[0]);
    EXPECT_EQ(center.defaultFutureFee, defaults[6]);
}

}  // namespace
