#include "cost/decimal.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "cost/support/builders.h"

namespace {

using namespace cost;  // NOLINT(google-build-using-namespace): what is tested
using cost_test::number;

struct Written {
    std::string text;
    std::string shortest;
};

class DecimalText : public testing::TestWithParam<Written> {};

TEST_P(DecimalText, IsReadExactly) {
    const auto read = Decimal::parse(GetParam().text);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->text(), GetParam().shortest);
}

INSTANTIATE_TEST_SUITE_P(
    , DecimalText,
    testing::Values(Written{"0", "0"}, Written{"1488.50", "1488.5"}, Written{".5", "0.5"}, Written{"-.5", "-0.5"},
                    Written{"+7", "7"}, Written{"-0", "0"}, Written{"-0.00", "0"}, Written{"007", "7"},
                    Written{"100", "100"}, Written{"0.000000000000000001", "0.000000000000000001"},
                    Written{"999999999999999999.999999999999999999", "999999999999999999.999999999999999999"}));

class NoDecimal : public testing::TestWithParam<std::string> {};

TEST_P(NoDecimal, IsNotRead) { EXPECT_FALSE(Decimal::parse(GetParam())); }

INSTANTIATE_TEST_SUITE_P(, NoDecimal,
                         testing::Values("", "-", "+", ".", "5.", "-.", "1e3", "1,000", " 1", "1 ", "--1", "1.2.3",
                                         "0x1", "nan", "1000000000000000000", "0.0000000000000000001", "１"));

struct RateText {
    double rate;
    std::string text;
};

class RateDecimal : public testing::TestWithParam<RateText> {};

TEST_P(RateDecimal, HasFifteenSignificantDigits) {
    const auto rate = Decimal::fromRate(GetParam().rate);
    ASSERT_TRUE(rate);
    EXPECT_EQ(rate->text(), GetParam().text);
}

// The quotients are not the decimals that they stand for: 0.3 / 3 is below 0.1, 2.3 / 100000 is above 0.000023.
INSTANTIATE_TEST_SUITE_P(, RateDecimal,
                         testing::Values(RateText{0, "0"}, RateText{-0.0, "0"}, RateText{0.00025, "0.00025"},
                                         RateText{0.0000341, "0.0000341"}, RateText{0.0000015, "0.0000015"},
                                         RateText{0.3 / 3, "0.1"}, RateText{2.3 / 100000, "0.000023"},
                                         RateText{1.0 / 3, "0.333333333333333"}, RateText{-1.3, "-1.3"},
                                         RateText{123456789012345, "123456789012345"},
                                         RateText{1e-20, "0.00000000000000000001"}, RateText{2, "2"}));

TEST(Decimal, OfWhatIsNoRateIsEmpty) {
    using Limits = std::numeric_limits<double>;
    for (const double rate : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), 1e15, 999999999999999.9,
                              -1e15, 1e300, 9e-21, Limits::denorm_min()}) {
        EXPECT_FALSE(Decimal::fromRate(rate)) << rate;
    }
}

TEST(Decimal, ShowsAtLeastTheDecimalsThatAreAskedFor) {
    EXPECT_EQ(number("4.5").text(2), "4.50");
    EXPECT_EQ(number("4.505").text(2), "4.505");
    EXPECT_EQ(number("5").text(2), "5.00");
    EXPECT_EQ(number("-0.001").text(2), "-0.001");
    EXPECT_EQ(Decimal().text(2), "0.00");
}

TEST(Decimal, CalculatesWithoutRounding) {
    EXPECT_EQ((number("0.1") + number("0.2")).text(), "0.3");
    EXPECT_EQ((number("1") - number("0.000000000001")).text(), "0.999999999999");
    EXPECT_EQ((number("-1.5") * number("0.00025")).text(), "-0.000375");
    EXPECT_EQ((-number("2.50")).text(), "-2.5");
    EXPECT_EQ((number("123456789.123456789") * number("987654321.987654321")).text(),
              "121932631356500531.347203169112635269");
}

TEST(Decimal, IsComparedByItsValue) {
    EXPECT_EQ(number("4.5"), number("4.50"));
    EXPECT_EQ(number("4.5") * number("10"), number("45"));
    EXPECT_NE(number("4.5"), number("4.51"));
    EXPECT_LT(number("-2"), number("-1.99"));
    EXPECT_LE(number("2"), number("2.0"));
    EXPECT_GT(number("0.1"), number("0.09999"));
    EXPECT_GE(number("10"), number("9.9"));
}

TEST(Decimal, KnowsWhatIsWhole) {
    EXPECT_TRUE(number("3").isWhole());
    EXPECT_TRUE((number("0.5") * number("4")).isWhole());
    EXPECT_FALSE(number("2.5").isWhole());
}

TEST(Decimal, OverflowsAloud) {
    Decimal large = number("999999999999999999");
    large *= large;
    EXPECT_THROW(large * large * large, std::overflow_error);
    const Decimal tiny = number("0.000000000000000001");
    const Decimal tinier = tiny * tiny * tiny * tiny;
    EXPECT_THROW(large * large + tinier * tiny, std::overflow_error);
}

struct Rounded {
    std::string amount;
    std::string rounding;
    std::string result;
};

class RoundingTo : public testing::TestWithParam<Rounded> {};

TEST_P(RoundingTo, TheStepGoesTheWayOfItsMode) {
    const auto rounding = Rounding::parse(GetParam().rounding);
    ASSERT_TRUE(rounding);
    EXPECT_EQ(rounding->rounded(number(GetParam().amount)).text(), GetParam().result) << GetParam().amount;
}

INSTANTIATE_TEST_SUITE_P(
    , RoundingTo,
    testing::Values(Rounded{"0.005", "0.01 half_up", "0.01"}, Rounded{"0.004999", "0.01 half_up", "0"},
                    Rounded{"-0.005", "0.01 half_up", "-0.01"}, Rounded{"0.015", "0.01 half_even", "0.02"},
                    Rounded{"0.025", "0.01 half_even", "0.02"}, Rounded{"0.0250001", "0.01 half_even", "0.03"},
                    Rounded{"-0.025", "0.01 half_even", "-0.02"}, Rounded{"0.0100001", "0.01 up", "0.02"},
                    Rounded{"0.02", "0.01 up", "0.02"}, Rounded{"-0.011", "0.01 up", "-0.02"},
                    Rounded{"0.0199", "0.01 down", "0.01"}, Rounded{"-0.0199", "0.01 down", "-0.01"},
                    Rounded{"0", "1 up", "0"}, Rounded{"0.0001", "1 up", "1"}, Rounded{"1", "1 up", "1"},
                    Rounded{"1.10", "0.25 half_up", "1"}, Rounded{"1.125", "0.25 half_up", "1.25"},
                    Rounded{"1.125", "0.25 half_even", "1"}, Rounded{"10", "3 half_up", "9"},
                    Rounded{"10.5", "3 half_up", "12"}, Rounded{"7", "0.3 down", "6.9"}));

TEST(Rounding, IsWrittenAsItIsRead) {
    for (const std::string text : {"0.01 half_up", "1 up", "0.05 down", "10 half_even"}) {
        const auto rounding = Rounding::parse(text);
        ASSERT_TRUE(rounding) << text;
        EXPECT_EQ(rounding->text(), text);
    }
}

TEST(Rounding, OfOtherTextsIsNotRead) {
    for (const std::string text :
         {"", "0.01", "half_up", "0.01  half_up", "0.01 nearest", "0 up", "-1 up", "0.01 up ", " 0.01 up", "0.01,up"}) {
        EXPECT_FALSE(Rounding::parse(text)) << text;
    }
}

TEST(Quotient, CountsHowOftenANumberGoesIntoAnother) {
    EXPECT_EQ(number("10").quotient(number("3"), RoundingMode::kDown).text(), "3");
    EXPECT_EQ(number("10").quotient(number("3"), RoundingMode::kUp).text(), "4");
    EXPECT_EQ(number("0.9").quotient(number("0.3"), RoundingMode::kUp).text(), "3");
    EXPECT_EQ(number("-10").quotient(number("4"), RoundingMode::kHalfUp).text(), "-3");
    EXPECT_EQ(number("-10").quotient(number("-4"), RoundingMode::kHalfEven).text(), "2");
}

}  // namespace
