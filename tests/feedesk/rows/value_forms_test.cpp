// What each form makes of a value: one row of this table for each kind of value and unit.
#include <gtest/gtest.h>

#include <limits>

#include "feedesk/rows/sinks.h"

namespace feedesk {
namespace {

struct ValueCase {
    const char* what;
    Unit unit;
    Value value;
    const char* csv;
    const char* json;
    const char* table;
};

const double kNan = std::numeric_limits<double>::quiet_NaN();

const ValueCase kCases[] = {
    {"Nothing", Unit::kText, Nothing(), "", "null", ""},
    {"NothingOfANumber", Unit::kFraction, Nothing(), "", "null", "-"},
    {"Text", Unit::kText, std::string("贵州"), "贵州", "\"贵州\"", "贵州"},
    {"TextWithCommaAndQuote", Unit::kText, std::string("a,\"b"), "\"a,\"\"b\"", R"("a,\"b")", "a,\"b"},
    {"TextWithLineEnd", Unit::kText, std::string("a\nb"), "\"a\nb\"", R"("a\nb")", "a\\nb"},
    {"TextThatATerminalObeys", Unit::kText, std::string("a\xC2\x9B"), "a\xC2\x9B", R"("a\u009B")", R"(a\xc2\x9b)"},
    {"TextThatIsNotUtf8", Unit::kText, std::string("a\x9B"), "a\x9B", R"("a\\x9b")", R"(a\x9b)"},
    {"Label", Unit::kText, Label{"own record", {"own record,", "ZERO MARGIN"}}, "own record", "\"own record\"",
     "own record, ZERO MARGIN"},
    {"Names", Unit::kText, Names{"not_set", "zero_margin"}, "not_set zero_margin", R"(["not_set","zero_margin"])",
     "not_set zero_margin"},
    {"NoNames", Unit::kText, Names(), "", "[]", ""},
    {"Fraction", Unit::kFraction, 2.3 / 10000, "0.00023", "0.00023", "0.023%"},
    {"FractionOfZero", Unit::kFraction, 0.0, "0", "0", "0"},
    {"Yuan", Unit::kYuan, 1.3, "1.3", "1.3", "1.3 yuan"},
    {"Number", Unit::kNumber, 9001.0, "9001", "9001", "9001"},
    {"NotANumber", Unit::kNumber, kNan, "nan", "null", "nan"},
    {"Count", Unit::kCount, std::size_t{61234}, "61234", "61234", "61,234"},
    {"Money", Unit::kNumber, Money{"-12345678901234567.89"}, "-12345678901234567.89", "-12345678901234567.89",
     "-12345678901234567.89"},
    {"RateOfTurnover", Unit::kNumber, Rate{"0.00025", Unit::kFraction}, "0.00025", "0.00025", "0.025%"},
    {"RateInYuan", Unit::kNumber, Rate{"1.3", Unit::kYuan}, "1.3", "1.3", "1.3 yuan"},
    {"RateOfADouble", Unit::kNumber, asRate(2.3 / 10000, Unit::kFraction), "0.00023", "0.00023", "0.023%"},
    {"RateThatIsNoNumber", Unit::kNumber, asRate(kNan, Unit::kFraction), "nan", "null", "nan"},
    {"Sources", Unit::kText, Sources{{"a.csv:1", "b.csv:2"}}, "a.csv:1 b.csv:2", R"(["a.csv:1","b.csv:2"])",
     "a.csv:1 b.csv:2"},
    {"Sentences", Unit::kText, Sentences{{"one, two", "three"}}, "\"one, two; three\"", R"(["one, two","three"])",
     "one, two; three"},
    {"NoSentences", Unit::kText, Sentences(), "", "[]", ""},
    {"Source", Unit::kText, Source{"fees/stock.csv:12"}, "fees/stock.csv:12", "\"fees/stock.csv:12\"",
     "fees/stock.csv:12"},
};

class ValueForms : public testing::TestWithParam<ValueCase> {
protected:
    /// What a sink writes for one row with the value behind a text.
    template <class... Width>
    std::string written(std::unique_ptr<RowSink> (*sinkFor)(Write, Width...), Width... width) const {
        std::string text;
        const auto sink = sinkFor([&text](const std::string& piece) { text += piece; }, width...);
        sink->begin({{"", {{"k", "K"}, {"v", "V", GetParam().unit}}}});
        sink->row({0, {std::string("x"), GetParam().value}, false});
        sink->end();
        return text;
    }
};

TEST_P(ValueForms, Csv) { EXPECT_EQ(written(csvSink), "k,v\nx," + std::string(GetParam().csv) + "\n"); }

TEST_P(ValueForms, Json) {
    EXPECT_EQ(written(jsonSink), "[\n{\"k\":\"x\",\"v\":" + std::string(GetParam().json) + "}\n]\n");
}

TEST_P(ValueForms, Table) {
    // The text is behind the title, wherever in its column it is.
    const std::string text = written(tableSink, std::size_t{80});
    std::string row = text.substr(text.find('\n') + 1);
    row.pop_back();
    const std::size_t value = row.find_first_not_of(' ', 1);
    EXPECT_EQ(value == std::string::npos ? "" : row.substr(value), GetParam().table) << text;
}

INSTANTIATE_TEST_SUITE_P(Rows, ValueForms, testing::ValuesIn(kCases),
                         [](const auto& each) { return std::string(each.param.what); });

}  // namespace
}  // namespace feedesk
