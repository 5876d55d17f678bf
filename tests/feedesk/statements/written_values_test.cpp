#include <gtest/gtest.h>

#include <vector>

#include "feedesk/statements/written_values.h"

namespace feedesk::test {
namespace {

struct Number {
    const char* text;
    const char* value;  ///< empty: no number
};

TEST(StatementNumber, IsReadAsBrokersWriteIt) {
    for (const Number& each : std::vector<Number>{{".5", "0.5"},
                                                  {"-.5", "-0.5"},
                                                  {"5.", "5"},
                                                  {"5.000", "5"},
                                                  {"1,234.50", "1234.5"},
                                                  {"-1,234,567", "-1234567"},
                                                  {"", "0"},
                                                  {"--", "0"},
                                                  {"+3", "3"},
                                                  {"1 234.50", "1234.5"},
                                                  {"- 1 234 567.8", "-1234567.8"},
                                                  {"1, 234", "1234"},
                                                  {"¥1,234.50", "1234.5"},
                                                  {"￥ -507.01", "-507.01"},
                                                  {"-￥507.01", "-507.01"},
                                                  {"１，２３４．５０", "1234.5"},
                                                  {"－５．２", "-5.2"},
                                                  {"−5", "-5"},
                                                  {"——", "0"},
                                                  {"1\xC2\xA0"
                                                   "234",
                                                   "1234"},
                                                  {"12 34", ""},
                                                  {"1 2", ""},
                                                  {"--5", ""},
                                                  {"¥", ""},
                                                  {"¥¥5", ""},
                                                  {"5¥", ""},
                                                  {"12,34", ""},
                                                  {"1234,567", ""},
                                                  {",123", ""},
                                                  {"1.234,5", ""},
                                                  {"1E+05", ""},
                                                  {"100股", ""},
                                                  {".", ""}}) {
        const auto number = statedNumber(each.text);
        EXPECT_EQ(number ? number->text() : "", each.value) << each.text;
    }
}

TEST(StatementDay, IsReadAsBrokersWriteIt) {
    for (const char* text : {"20210304", "2021-03-04", "2021/3/4", "2021.03.04", "2021-03-04 09:31:00",
                             "20210304T093100", "2021年3月4日", "2021年03月04日 09:31", "２０２１／３／４"}) {
        const auto day = statedDay(text);
        EXPECT_EQ(day ? day->text() : "", "2021-03-04") << text;
    }
    for (const char* text : {"", "2021", "2021-13-04", "2021-03/04", "3/4/2021 x", "合计", "2021年3月", "3月4日"}) {
        EXPECT_FALSE(statedDay(text)) << text;
    }
}

TEST(StatementCode, IsReadInFullWidthToo) {
    EXPECT_EQ(statedCode("６００５１９"), "600519");
    EXPECT_EQ(statedCode("ｒｂ2610"), "rb2610");
}

}  // namespace
}  // namespace feedesk::test
