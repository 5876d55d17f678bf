#include "model/content_text.h"

#include <limits>

#include "model/model_fixture.h"

namespace model {
namespace {

using namespace qmservice;

TEST(ContentText, JoinsTheTruncatedRatesAndTheUnitWithoutSeparators) {
    const auto limit = made<CStkExchangeRateLimit>([](auto& l) {
        l.rate1 = 0.00015;
        l.rate2 = -0.5;
        l.rate6 = 0.0013;
    });
    EXPECT_EQ(contentText(*limit, 100), "14999-50000000000130000100");
}

TEST(ContentText, IgnoresDifferencesBelowTheEighthPlace) {
    EXPECT_EQ(contentText(*limitOf(0.00012), 100), contentText(*limitOf(0.000120004), 100));
    EXPECT_NE(contentText(*limitOf(0.00012), 100), contentText(*limitOf(0.00012002), 100));
}

TEST(ContentText, IsOneForDigitsThatJoinAlike) {
    const auto one = made<CStkExchangeRateLimit>([](auto& l) { l.rate5 = 0.00000001, l.rate6 = 0.5; });
    const auto other = made<CStkExchangeRateLimit>([](auto& l) { l.rate5 = 0.15; });
    EXPECT_EQ(contentText(*one, 7), "00001500000007");
    EXPECT_EQ(contentText(*other, 7), "00001500000007");
}

TEST(ContentText, FoldsWhatDoesNotFitAsTheSmallestInteger) {
    const std::string smallest = "-9223372036854775808";
    for (const double rate : {1e11, -1e11, std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(contentText(*limitOf(rate), 100), smallest + "00000100") << rate;
    }
}

TEST(ContentText, HoldsWholeRatesUpToTheLargestInteger) {
    EXPECT_EQ(contentText(*limitOf(92233720368.0), 100), "922337203680000000000000100");
    EXPECT_EQ(contentText(*limitOf(-92233720368.0), 100), "-922337203680000000000000100");
    EXPECT_EQ(contentText(*limitOf(92233720369.0), 100), "-922337203685477580800000100");
    EXPECT_EQ(contentText(*limitOf(-92233720369.0), 100), "-922337203685477580800000100");
}

TEST(ContentText, IsAZeroWithoutASignForLessThanAHundredMillionth) {
    for (const double rate : {0.0, -0.0, 0.5e-8, -0.5e-8, std::numeric_limits<double>::denorm_min()}) {
        EXPECT_EQ(contentText(*limitOf(rate), 100), "000000100") << rate;
    }
    EXPECT_EQ(contentText(*limitOf(-1.5e-8), 100), "-100000100");
}

TEST(ContentText, MultipliesRatesInADouble) {
    // The double of 0.0013 is 6e-20 below it, too little to be seen in a product near 130000.
    EXPECT_EQ(contentText(*limitOf(0.0013), 100), "13000000000100");
}

TEST(ContentText, CountsTheOpeningFeeByVolumeTwice) {
    const auto detail = made<CCommissionRateDetail>([](auto& d) {
        d.openRatioByMoney = 1;
        d.openRatioByVolume = 2;
        d.closeRatioByMoney = 3;
        d.closeRatioByVolume = 4;
        d.closeTodayRatioByMoney = 5;
        d.closeTodayRatioByVolume = 6;
        d.commissionExtra1 = 7;
        d.commissionExtra2 = 8;
    });
    EXPECT_EQ(contentText(*detail),
              "200000000100000000200000000300000000400000000500000000600000000700000000800000000");
}

TEST(ContentText, LeavesTheInstrumentOfACommissionOut) {
    const auto detail = made<CCommissionRateDetail>([](auto& d) { d.instrumentId = "rb2501"; });
    EXPECT_EQ(contentText(*detail), "000000000");
}

TEST(ContentText, TakesHedgeFlagAndModeOfAMarginAsTheyAre) {
    const auto detail = made<CMarginRateDetail>([](auto& d) {
        d.hedgeFlag = '1';
        d.marginMode = -7;
        d.longMarginRatio = 1;
        d.longMarginRatioByVolume = 2;
        d.shortMarginRatio = 3;
        d.shortMarginRatioByVolume = 4;
        d.marginExtra1 = 5;
        d.marginExtra2 = 6;
    });
    EXPECT_EQ(contentText(*detail), "49-7100000000200000000300000000400000000500000000600000000");
}

TEST(ContentText, IsOneForCustomAndPlainDetailsWithEqualRates) {
    const auto commission = [](auto& d) { d.closeRatioByMoney = 0.0001, d.commissionExtra2 = 1; };
    EXPECT_EQ(contentText(*made<CCommissionRateDetail>(commission)),
              contentText(*made<CCustomCommissionRateDetail>(commission)));
    const auto margin = [](auto& d) { d.hedgeFlag = '2', d.marginMode = 3, d.shortMarginRatio = 0.08; };
    EXPECT_EQ(contentText(*made<CMarginRateDetail>(margin)), contentText(*made<CCustomMarginRateDetail>(margin)));
}

TEST(ContentText, ScalesTheKeyCodesOfACustomLimitAndSkipsItsUnusedRates) {
    const auto limit = made<CCustomStkExchangeRateLimit>([](auto& l) {
        l.rate1 = 1;
        l.unusedRate1 = 99;
        l.rate2 = 2;
        l.rate6 = 6;
        l.unusedRate2 = 99;
        l.optionFee1 = 7;
        l.optionFee5 = 8;
        l.optionSecondKeyCode = 3;
        l.optionThirdKeyCode = 49;
        l.optionFirstKeyCode = -48;
    });
    EXPECT_EQ(contentText(*limit, 10),
              "100000000200000000000600000000"
              "700000000000800000000"
              "3000000004900000000-480000000010");
}

TEST(ContentText, TakesFourteenRatesOfAConnectLimitAndTheUnitThatIsGiven) {
    const auto fill = [](auto& l) {
        l.rate1 = 1;
        l.rate7 = 7;
        l.rate14 = 14;
        l.tradeMinUnit = 555;
        l.category = "5";
    };
    const std::string expected =
        "100000000"
        "00000"
        "700000000"
        "000000"
        "1400000000"
        "20";
    EXPECT_EQ(contentText(*made<CCustomHGTExchangeRateLimit>(fill), 20), expected);
    EXPECT_EQ(contentText(*made<CCustomSgtExchangeRateLimit>(fill), 20), expected);
}

}  // namespace
}  // namespace model
