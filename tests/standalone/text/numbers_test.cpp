// Numbers in texts.

#include "standalone/text/numbers.h"

#include <gtest/gtest.h>

namespace standalone {
namespace {

TEST(Numbers, WholeTextIsTheNumber) {
    EXPECT_EQ(numberIn<int>("-42"), -42);
    EXPECT_EQ(numberIn<double>("2.5e-4"), 0.00025);
    for (const char* text : {"", " 1", "1 ", "+1", "1,5", "1x", "-"}) {
        EXPECT_FALSE(numberIn<int>(text)) << text;
    }
}

TEST(Numbers, NumberThatDoesNotFitIsDistinguishedFromATextThatIsNone) {
    int value = 7;
    EXPECT_EQ(readNumberIn("2147483648", value), std::errc::result_out_of_range);
    EXPECT_EQ(readNumberIn("2147483648x", value), std::errc::invalid_argument);
    EXPECT_EQ(readNumberIn("many", value), std::errc::invalid_argument);
    EXPECT_EQ(value, 7);
    EXPECT_FALSE(numberIn<int>("2147483648"));
}

TEST(Numbers, DigitsAreOneOrMoreAndNothingElse) {
    EXPECT_TRUE(isDigits("007"));
    for (const char* text : {"", "-1", "1.0", "１"}) {
        EXPECT_FALSE(isDigits(text)) << text;
    }
}

}  // namespace
}  // namespace standalone
