#include "feedesk/text/numbers.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace feedesk {
namespace {

TEST(PlainNumber, HasNoExponent) {
    EXPECT_EQ(plainNumber(0.00001), "0.00001");
    EXPECT_EQ(plainNumber(0.0000341), "0.0000341");
    EXPECT_EQ(plainNumber(1e21), "1000000000000000000000");
}

TEST(PlainNumber, HasNoMoreDigitsThanItNeeds) {
    EXPECT_EQ(plainNumber(1.3), "1.3");
    EXPECT_EQ(plainNumber(0.1), "0.1");
    EXPECT_EQ(plainNumber(100), "100");
    EXPECT_EQ(plainNumber(123456.75), "123456.75");
}

TEST(PlainNumber, KeepsFifteenDigits) {
    EXPECT_EQ(plainNumber(0.123456789012345), "0.123456789012345");
    EXPECT_EQ(plainNumber(-123456.789012345), "-123456.789012345");
    EXPECT_EQ(plainNumber(9007199254740992), "9007199254740990");  // 2 to the power of 53 has sixteen
}

TEST(PlainNumber, RoundsTheNoiseOfArithmeticAway) {
    EXPECT_EQ(plainNumber(0.1 + 0.2), "0.3");
    EXPECT_EQ(plainNumber(2.3 / 10000), "0.00023");    // 0.00022999999999999998 to the last digit
    EXPECT_EQ(plainNumber(-1.1 * 1.1), "-1.21");       // -1.2100000000000002
    EXPECT_EQ(plainNumber(0.99999999999999989), "1");  // carries through every digit
    EXPECT_EQ(plainNumber(99999999999999.99), "100000000000000");
}

TEST(PlainNumber, WritesTheLargestAndTheSmallestNumbersOut) {
    // 1.7976931348623140e308 and 4.9406564584124654e-324.
    EXPECT_EQ(plainNumber(1.797693134862314e308), "179769313486231" + std::string(294, '0'));
    EXPECT_EQ(plainNumber(std::numeric_limits<double>::denorm_min()), "0." + std::string(323, '0') + "494065645841247");
}

TEST(PlainNumber, IsNeverRoundedToMoreThanTheLargestDouble) {
    // Fifteen digits would be 1.79769313486232e308, which reads back as infinity.
    const std::string largest = "17976931348623157" + std::string(292, '0');
    EXPECT_EQ(plainNumber(std::numeric_limits<double>::max()), largest);
    EXPECT_EQ(plainNumber(std::numeric_limits<double>::lowest()), "-" + largest);
    EXPECT_EQ(percent(std::numeric_limits<double>::max()), largest + "00%");
}

TEST(PlainNumber, HasNoSignAtZero) {
    EXPECT_EQ(plainNumber(0.0), "0");
    EXPECT_EQ(plainNumber(-0.0), "0");
}

TEST(PlainNumber, ReportsWhatIsNoNumber) {
    EXPECT_EQ(plainNumber(std::numeric_limits<double>::quiet_NaN()), "nan");
    EXPECT_EQ(plainNumber(-std::numeric_limits<double>::infinity()), "-inf");
}

TEST(Percent, MovesThePointOfTheDecimalText) {
    EXPECT_EQ(percent(0.00025), "0.025%");
    EXPECT_EQ(percent(0.0000341), "0.00341%");
    EXPECT_EQ(percent(0.0013), "0.13%");
    // 0.07 * 100 would be 7.000000000000001.
    EXPECT_EQ(percent(0.07), "7%");
    EXPECT_EQ(percent(0.144), "14.4%");
    EXPECT_EQ(percent(0.5), "50%");
    EXPECT_EQ(percent(1), "100%");
    EXPECT_EQ(percent(2.3 / 10000), "0.023%");
    EXPECT_EQ(percent(1.005), "100.5%");
    EXPECT_EQ(percent(12345), "1234500%");
    EXPECT_EQ(percent(-0.0001), "-0.01%");
    EXPECT_EQ(percent(0), "0%");
    EXPECT_EQ(percent(-0.0), "0%");
    EXPECT_EQ(percent(std::numeric_limits<double>::quiet_NaN()), "nan%");
}

TEST(Grouped, PutsACommaBetweenThousands) {
    EXPECT_EQ(grouped(0), "0");
    EXPECT_EQ(grouped(999), "999");
    EXPECT_EQ(grouped(1000), "1,000");
    EXPECT_EQ(grouped(61234), "61,234");
    EXPECT_EQ(grouped(1234567), "1,234,567");
}

TEST(Counted, PutsTheNounIntoThePlural) {
    EXPECT_EQ(counted(1, "error"), "1 error");
    EXPECT_EQ(counted(0, "error"), "0 errors");
    EXPECT_EQ(counted(1234, "error"), "1,234 errors");
}

}  // namespace
}  // namespace feedesk
