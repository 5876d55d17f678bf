#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "support/fee_center_fixture.h"

namespace {

using namespace qmservice;
using test::FeeCenterTest;

/// The CRC-64/XZ of the texts joined, worked out here from its definition and not by the library's or the host's code.
uint64 keyOf(const std::vector<std::string>& texts) {
    uint64 value = ~uint64{0};
    for (const std::string& text : texts) {
        for (const char c : text) {
            value ^= static_cast<unsigned char>(c);
            for (int bit = 0; bit < 8; ++bit) {
                value = (value >> 1U) ^ ((value & 1U) * 0xC96C5795D7870F42U);
            }
        }
    }
    return ~value;
}

class ContentKeyTest : public FeeCenterTest {
protected:
    /// The text that a rate folds as, seen through a limit whose other values are zero.
    bool foldsAs(double rate, const std::string& text) {
        return center.getHashKey(test::makeLimit(rate), 7) == keyOf({text, "0", "0", "0", "0", "0", "7"});
    }
};

TEST_F(ContentKeyTest, RateIsScaledByTenToTheEighth) {
    EXPECT_TRUE(foldsAs(0.0013, "130000"));
    EXPECT_TRUE(foldsAs(-0.5, "-50000000"));
    EXPECT_TRUE(foldsAs(0, "0"));
    EXPECT_TRUE(foldsAs(-0.0, "0"));
}

TEST_F(ContentKeyTest, ScaledRateIsTruncatedNotRounded) {
    // The double product is 14999.999999999998.
    EXPECT_TRUE(foldsAs(0.00015, "14999"));
    EXPECT_TRUE(foldsAs(-0.00015, "-14999"));
    EXPECT_TRUE(foldsAs(0.999e-8, "0"));
    EXPECT_TRUE(foldsAs(-0.999e-8, "0"));
}

TEST_F(ContentKeyTest, NoiseAcrossAStepSplitsRatesThatAreEqualButForIt) {
    EXPECT_TRUE(foldsAs(0.00015, "14999"));
    EXPECT_TRUE(foldsAs(0.0001500000001, "15000"));
}

TEST_F(ContentKeyTest, RateThatDoesNotFitFoldsAsTheSmallestInteger) {
    const std::string smallest = "-9223372036854775808";
    EXPECT_TRUE(foldsAs(std::numeric_limits<double>::quiet_NaN(), smallest));
    EXPECT_TRUE(foldsAs(std::numeric_limits<double>::infinity(), smallest));
    EXPECT_TRUE(foldsAs(-std::numeric_limits<double>::infinity(), smallest));
    EXPECT_TRUE(foldsAs(1e11, smallest));
    EXPECT_TRUE(foldsAs(-1e11, smallest));
    EXPECT_TRUE(foldsAs(std::numeric_limits<double>::max(), smallest));
}

TEST_F(ContentKeyTest, WholeRateNearTheLimitFoldsAsItself) {
    // 92233720368 * 1e8 is exact in a double.
    EXPECT_TRUE(foldsAs(92233720368.0, "9223372036800000000"));
    EXPECT_TRUE(foldsAs(-92233720368.0, "-9223372036800000000"));
}

// Doubles next to 2^63 / 1e8 = 92233720368.54775808, and what their products with 1e8 are as doubles, which lie 1024
// apart below 2^63 and 2048 apart above it.

TEST_F(ContentKeyTest, LargestRateThatFitsFoldsAsItself) {
    EXPECT_TRUE(foldsAs(92233720368.54774, "9223372036854774784"));    // 2^63 - 1024
    EXPECT_TRUE(foldsAs(-92233720368.54774, "-9223372036854774784"));  // -2^63 + 1024
    EXPECT_TRUE(foldsAs(-92233720368.54776, "-9223372036854775808"));  // -2^63
}

TEST_F(ContentKeyTest, FirstRatesThatDoNotFitFoldAsTheSmallestInteger) {
    const std::string smallest = "-9223372036854775808";
    EXPECT_TRUE(foldsAs(92233720368.54776, smallest));   // 2^63
    EXPECT_TRUE(foldsAs(92233720368.54778, smallest));   // 2^63 + 2048
    EXPECT_TRUE(foldsAs(-92233720368.54778, smallest));  // -2^63 - 2048
}

TEST_F(ContentKeyTest, DifferenceBelowTheEighthDecimalPlaceVanishes) {
    auto a = boost::make_shared<CStkExchangeRateLimit>();
    auto b = boost::make_shared<CStkExchangeRateLimit>();
    for (auto field : {&CStkExchangeRateLimit::rate1, &CStkExchangeRateLimit::rate2, &CStkExchangeRateLimit::rate3,
                       &CStkExchangeRateLimit::rate4, &CStkExchangeRateLimit::rate5, &CStkExchangeRateLimit::rate6}) {
        (*a).*field = 0.0012345612;
        (*b).*field = 0.0012345698;
    }
    EXPECT_EQ(center.getHashKey(a, 100), center.getHashKey(b, 100));
}

TEST_F(ContentKeyTest, StockLimitFoldsItsSixRatesThenTheTradeUnit) {
    auto limit = boost::make_shared<CStkExchangeRateLimit>();
    limit->rate1 = 1;
    limit->rate2 = 2;
    limit->rate3 = 3;
    limit->rate4 = 4;
    limit->rate5 = 5;
    limit->rate6 = 6;
    limit->unitVolume = 999;  // no part of the key
    EXPECT_EQ(center.getHashKey(limit, -200),
              keyOf({"100000000", "200000000", "300000000", "400000000", "500000000", "600000000", "-200"}));
}

TEST_F(ContentKeyTest, CustomStockLimitFoldsRatesOptionFeesAndScaledKeyCodes) {
    auto limit = boost::make_shared<CCustomStkExchangeRateLimit>();
    limit->category = "5";
    limit->rate1 = 1;
    limit->unusedRate1 = 77;
    limit->rate2 = 2;
    limit->rate3 = 3;
    limit->rate4 = 4;
    limit->rate5 = 5;
    limit->rate6 = 6;
    limit->unusedRate2 = 88;
    limit->optionFee1 = 11;
    limit->optionFee2 = 12;
    limit->optionFee3 = 13;
    limit->optionFee4 = 14;
    limit->optionFee5 = 15;
    limit->optionSecondKeyCode = 3;
    limit->optionThirdKeyCode = 4;
    limit->optionFirstKeyCode = 9;
    EXPECT_EQ(center.getHashKey(limit, 100), keyOf({"100000000", "200000000", "300000000", "400000000", "500000000",
                                                    "600000000", "1100000000", "1200000000", "1300000000", "1400000000",
                                                    "1500000000", "300000000", "400000000", "900000000", "100"}));
}

TEST_F(ContentKeyTest, CommissionFoldsOpenByVolumeTwice) {
    auto detail = boost::make_shared<CCommissionRateDetail>();
    detail->instrumentId = "rb2605";
    detail->openRatioByMoney = 1;
    detail->openRatioByVolume = 2;
    detail->closeRatioByMoney = 3;
    detail->closeRatioByVolume = 4;
    detail->closeTodayRatioByMoney = 5;
    detail->closeTodayRatioByVolume = 6;
    detail->commissionExtra1 = 7;
    detail->commissionExtra2 = 8;
    EXPECT_EQ(center.getHashKey(detail), keyOf({"200000000", "100000000", "200000000", "300000000", "400000000",
                                                "500000000", "600000000", "700000000", "800000000"}));
}

TEST_F(ContentKeyTest, FieldThatIsNotFoldedKeepsTheCommissionKey) {
    auto a = boost::make_shared<CCommissionRateDetail>();
    auto b = boost::make_shared<CCommissionRateDetail>();
    b->instrumentId = "cu2605";
    EXPECT_EQ(center.getHashKey(a), center.getHashKey(b));
}

TEST_F(ContentKeyTest, CustomCommissionWithEqualRatesHasThePlainKey) {
    auto plain = boost::make_shared<CCommissionRateDetail>();
    auto custom = boost::make_shared<CCustomCommissionRateDetail>();
    custom->categoryId = "12";
    plain->openRatioByMoney = custom->openRatioByMoney = 0.0001;
    plain->openRatioByVolume = custom->openRatioByVolume = 1.5;
    plain->closeRatioByMoney = custom->closeRatioByMoney = 0.0002;
    plain->closeRatioByVolume = custom->closeRatioByVolume = 2.5;
    plain->closeTodayRatioByMoney = custom->closeTodayRatioByMoney = 0.0003;
    plain->closeTodayRatioByVolume = custom->closeTodayRatioByVolume = 3.5;
    plain->commissionExtra1 = custom->commissionExtra1 = 4.5;
    plain->commissionExtra2 = custom->commissionExtra2 = 5.5;
    EXPECT_EQ(center.getHashKey(custom), keyOf({"150000000", "10000", "150000000", "20000", "250000000", "29999",
                                                "350000000", "450000000", "550000000"}));
    EXPECT_EQ(center.getHashKey(custom), center.getHashKey(plain));
}

template <class Detail>
boost::shared_ptr<Detail> makeMargin() {
    auto detail = boost::make_shared<Detail>();
    detail->hedgeFlag = '2';
    detail->longMarginRatio = 1;
    detail->longMarginRatioByVolume = 2;
    detail->shortMarginRatio = 3;
    detail->shortMarginRatioByVolume = 4;
    detail->marginMode = -6;
    detail->marginExtra1 = 5;
    detail->marginExtra2 = 7;
    return detail;
}

const std::vector<std::string> kMarginTexts = {"50",        "-6",        "100000000", "200000000",
                                               "300000000", "400000000", "500000000", "700000000"};

TEST_F(ContentKeyTest, MarginFoldsHedgeFlagAndModeAsPlainIntegersFirst) {
    EXPECT_EQ(center.getHashKey(makeMargin<CMarginRateDetail>()), keyOf(kMarginTexts));
}

TEST_F(ContentKeyTest, CustomMarginWithEqualValuesHasThePlainKey) {
    EXPECT_EQ(center.getHashKey(makeMargin<CCustomMarginRateDetail>()), keyOf(kMarginTexts));
}

template <class Limit>
boost::shared_ptr<Limit> makeConnectLimit() {
    auto limit = boost::make_shared<Limit>();
    limit->category = "3";
    limit->rate1 = 1;
    limit->rate2 = 2;
    limit->rate3 = 3;
    limit->rate4 = 4;
    limit->rate5 = 5;
    limit->rate6 = 6;
    limit->rate7 = 7;
    limit->rate8 = 8;
    limit->rate9 = 9;
    limit->rate10 = 10;
    limit->rate11 = 11;
    limit->rate12 = 12;
    limit->rate13 = 13;
    limit->rate14 = 14;
    limit->tradeMinUnit = 999;  // no part of the key
    return limit;
}

const std::vector<std::string> kConnectTexts = {"100000000",  "200000000",  "300000000",  "400000000",  "500000000",
                                                "600000000",  "700000000",  "800000000",  "900000000",  "1000000000",
                                                "1100000000", "1200000000", "1300000000", "1400000000", "500"};

TEST_F(ContentKeyTest, ShanghaiConnectLimitFoldsItsFourteenRatesThenTheTradeUnit) {
    EXPECT_EQ(center.getHashKey(makeConnectLimit<CCustomHGTExchangeRateLimit>(), 500), keyOf(kConnectTexts));
}

TEST_F(ContentKeyTest, ShenzhenConnectLimitFoldsItsFourteenRatesThenTheTradeUnit) {
    EXPECT_EQ(center.getHashKey(makeConnectLimit<CCustomSgtExchangeRateLimit>(), 500), keyOf(kConnectTexts));
}

// As the keys of two fee centers are on two threads, here at a place that is the same in each run.
TEST_F(ContentKeyTest, KeyMadeInTheMidstOfAnotherLeavesItAsItIs) {
    bool isInside = false;
    host.onKeyCall = [&](const std::string& call) {
        if (call == "crc64" && !isInside) {
            isInside = true;
            center.getHashKey(test::makeLimit(0.25), 9);
            isInside = false;
        }
    };
    EXPECT_TRUE(foldsAs(0.0013, "130000"));
}

TEST_F(ContentKeyTest, NoSeparatorIsBetweenValues) {
    // 1 then 23 and 12 then 3 give the same digits.
    auto a = boost::make_shared<CStkExchangeRateLimit>();
    a->rate5 = 1.5e-8;
    a->rate6 = 23.5e-8;
    auto b = boost::make_shared<CStkExchangeRateLimit>();
    b->rate5 = 12.5e-8;
    b->rate6 = 3.5e-8;
    EXPECT_EQ(center.getHashKey(a, 1), center.getHashKey(b, 1));
}

}  // namespace
