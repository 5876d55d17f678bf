#include <gtest/gtest.h>

#include <string>

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

template <class Limit>
boost::shared_ptr<Limit> expectedConnectLimit() {
    auto limit = boost::make_shared<Limit>();
    limit->rate3 = 0.0013;
    limit->rate4 = 0.0013;
    return limit;
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

TEST_F(DefaultsTest, EveryOtherDefaultHasItsConstants) {
    EXPECT_TRUE(center.defaultStockRateLimit->isEqual(*expectedStockLimit()));
    EXPECT_TRUE(center.defaultCreditRateLimit->isEqual(*expectedStockLimit()));
    EXPECT_TRUE(center.defaultNeeqRateLimit->isEqual(*expectedStockLimit()));
    EXPECT_TRUE(center.defaultHgtRateLimit->isEqual(*expectedConnectLimit<CCustomHGTExchangeRateLimit>()));
    EXPECT_TRUE(center.defaultSgtRateLimit->isEqual(*expectedConnectLimit<CCustomSgtExchangeRateLimit>()));
    EXPECT_EQ(center.defaultStkOptionFeeRate->baseRate, 0.2);
    EXPECT_EQ(center.defaultStkOptionFeeRate->items.size(), 10U);
    EXPECT_TRUE(center.defaultIncomeSwapFutureFee->isEqual(*expectedFutureFee(0.01)));
}

TEST_F(DefaultsTest, FutureFeeHasThreeHedgeFlagsAndNoRate) {
    EXPECT_TRUE(center.defaultFutureFee->isEqual(*expectedFutureFee(0)));
}

}  // namespace
