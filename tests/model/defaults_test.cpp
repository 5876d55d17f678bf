#include "model/model_fixture.h"

namespace model {
namespace {

using namespace qmservice;

class Defaults : public ModelTest {};

TEST_F(Defaults, AreThreeSeparateStockLimitsWithEqualRates) {
    EXPECT_NE(model.stock.fallback, model.credit.fallback);
    EXPECT_NE(model.credit.fallback, model.neeq.fallback);
    EXPECT_NE(model.stock.fallback, model.neeq.fallback);
    for (const auto& limit : {model.stock.fallback, model.credit.fallback, model.neeq.fallback}) {
        EXPECT_EQ(
            (std::vector<double>{limit->rate1, limit->rate2, limit->rate3, limit->rate4, limit->rate5, limit->rate6}),
            (std::vector<double>{0.00015, 0, 0, 0, 0, 0.001}));
        EXPECT_EQ(limit->unitVolume, 100);
    }
}

TEST_F(Defaults, AreConnectLimitsOfThirteenTenThousandthsInTheThirdAndFourthRate) {
    const auto hgt = made<CCustomHGTExchangeRateLimit>([](auto& l) { l.rate3 = l.rate4 = 0.0013; });
    const auto sgt = made<CCustomSgtExchangeRateLimit>([](auto& l) { l.rate3 = l.rate4 = 0.0013; });
    EXPECT_TRUE(model.hgt.fallback->isEqual(*hgt));
    EXPECT_TRUE(model.sgt.fallback->isEqual(*sgt));
}

TEST_F(Defaults, HoldTenOptionItemsUnderTheirKeys) {
    const std::map<std::string, std::vector<double>> fees{
        {"000", {1.3, 0.3, 0, 0, 0}}, {"001", {0, 0, 0, 0, 0}},      {"010", {1.3, 0.3, 0, 0, 0}},
        {"011", {1.3, 0.3, 0, 0, 0}}, {"0D", {0, 0, 0.6, 0, 0}},     {"100", {3.0, 0.45, 0, 0, 0}},
        {"101", {0, 0, 0, 0, 0}},     {"110", {3.0, 0.45, 0, 0, 0}}, {"111", {3.0, 0.45, 0, 0, 0}},
        {"1D", {0, 0, 0.9, 0, 0}},
    };
    std::map<std::string, std::vector<double>> built;
    for (const auto& [key, item] : model.defaultOptionRate->items) {
        built[key] = {item->fee1, item->fee2, item->fee3, item->fee4, item->fee5};
    }
    EXPECT_EQ(built, fees);
    EXPECT_EQ(model.defaultOptionRate->baseRate, 0.2);
}

TEST_F(Defaults, KeepTheThirdCharacterOfAnItemWhoseKeyHasTwo) {
    const auto& item = *model.defaultOptionRate->items.at("0D");
    EXPECT_EQ(item.firstKeyCode, 48);
    EXPECT_EQ(item.secondKeyCode, 68);
    EXPECT_EQ(item.thirdKeyCode, 49);
    EXPECT_EQ(model.defaultOptionRate->items.at("1D")->thirdKeyCode, 49);
}

TEST_F(Defaults, AreFuturesFeesWithThreeHedgeFlags) {
    const std::pair<Fee, double> expected[] = {{model.defaultFutureFee, 0}, {model.defaultIncomeSwapFee, 0.01}};
    for (const auto& [fee, ratio] : expected) {
        EXPECT_TRUE(fee->commissionDetail->isEqual(CCommissionRateDetail()));
        ASSERT_EQ(fee->marginDetails.size(), 3U);
        for (int i = 0; i < 3; ++i) {
            CMarginRateDetail detail;
            detail.hedgeFlag = 49 + i;
            detail.longMarginRatio = detail.shortMarginRatio = ratio;
            EXPECT_TRUE(fee->marginDetails[static_cast<std::size_t>(i)]->isEqual(detail));
        }
    }
}

}  // namespace
}  // namespace model
