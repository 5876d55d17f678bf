#include <gtest/gtest.h>

#include "feedesk/rows/sinks.h"
#include "feedesk/text/text.h"

namespace feedesk {
namespace {

std::string sectionTable(const Section& section, const std::vector<Row>& rows, std::size_t width) {
    std::string text;
    const auto sink = tableSink([&text](const std::string& piece) { text += piece; }, width);
    sink->begin({section});
    for (const Row& row : rows) {
        sink->row(row);
    }
    sink->end();
    return text;
}

Field rate(const std::string& title, const std::string& name) {
    return Field{name, title, Unit::kFraction}.when(title == name ? WhenZero::kLeftOut : WhenZero::kNamed);
}

const Field kTradeUnit = Field{"trade_unit", "Trade unit", Unit::kCount}.when(WhenZero::kLeftOut);

/// A row for SH:1 with these values, below fields that follow "Instrument".
std::string table(std::vector<Field> fields, std::vector<Value> values, std::size_t width = 80) {
    fields.insert(fields.begin(), forPeople("Instrument"));
    values.insert(values.begin(), std::string("SH:1"));
    return sectionTable({"", fields}, {{0, values, false}}, width);
}

TEST(TableSink, HasAColumnForEachOfTwoRatesOfOneTitle) {
    EXPECT_EQ(table({rate("Fee", "fee_buy"), rate("Fee", "fee_sell")}, {0.01, 0.02}),
              "Instrument  Fee  Fee\n"
              "SH:1         1%   2%\n");
}

TEST(TableSink, HasOneColumnForRatesThatAreAdded) {
    const std::vector<Field> fields = {rate("Open", "by_money"),
                                       Field{"by_volume", "Open", Unit::kYuan}.with(&Field::added, true)};
    EXPECT_EQ(table(fields, {0.01, 3.0}), "Instrument         Open\nSH:1        1% + 3 yuan\n");
    EXPECT_EQ(table(fields, {0.01, 3.0}, 20), "Instrument      Open\nSH:1              1%\n            + 3 yuan\n");
}

TEST(TableSink, LeavesOutOfASumWhatIsZero) {
    const std::vector<Field> fields = {Field{"by_money", "Open", Unit::kFraction},
                                       Field{"by_volume", "Open", Unit::kYuan}.with(&Field::added, true)};
    EXPECT_EQ(table(fields, {0.01, 0.0}), "Instrument  Open\nSH:1          1%\n");
    EXPECT_EQ(table(fields, {0.0, 3.0}), "Instrument    Open\nSH:1        3 yuan\n");
    EXPECT_EQ(table(fields, {0.0, 0.0}), "Instrument  Open\nSH:1           0\n");
    EXPECT_EQ(table(fields, {Nothing(), Nothing()}), "Instrument  Open\nSH:1           -\n");
}

TEST(TableSink, NamesTheRatesThatAreZeroBelowIt) {
    EXPECT_EQ(
        table({rate("Fee", "fee"), rate("Tax", "tax"), rate("rate2", "rate2"), kTradeUnit}, {0.01, 0.0, 0.0, 0.0}),
        "Instrument  Fee\n"
        "SH:1         1%\n"
        "Rates not shown are 0: Tax.\n");
}

TEST(TableSink, ShowsTheNamedRatesWhereAllAreZero) {
    EXPECT_EQ(table({rate("Fee", "fee"), rate("rate2", "rate2"), kTradeUnit}, {0.0, 0.0, 100.0}),
              "Instrument  Fee  Trade unit\n"
              "SH:1          0         100\n");
}

TEST(TableSink, ShowsEveryRateWhereAllAreZeroAndNoneIsNamed) {
    EXPECT_EQ(table({rate("rate1", "rate1"), rate("rate2", "rate2"), kTradeUnit}, {0.0, 0.0, 0.0}),
              "Instrument  rate1  rate2\n"
              "SH:1            0      0\n");
}

TEST(TableSink, DoesNotCallZeroWhatIsNotThere) {
    EXPECT_EQ(table({rate("Fee", "fee"), rate("Tax", "tax")}, {0.01, Nothing()}), "Instrument  Fee\nSH:1         1%\n");
}

TEST(TableSink, EscapesAControlCharacterInATitle) {
    EXPECT_EQ(table({rate("F\xE2\x80\xAE"
                          "e\ne",
                          "fee")},
                    {0.01}),
              "Instrument  F\\xe2\\x80\\xaee\\ne\n"
              "SH:1                       1%\n");
}

/// Level and source come last although programs get them first.
const Section kSourced = {"Rates",
                          {Field{"level", "Level"}.at(ShownAt::kLast),
                           Field{"source", "Source"}.at(ShownAt::kLast).when(WhenZero::kLeftOut),
                           {"code", "Code"},
                           rate("Fee", "fee")}};

Row sourced(const std::string& code, const std::string& source) {
    return {0, {std::string("own"), source.empty() ? Value(Nothing()) : Source{source}, code, 0.01}, false};
}

TEST(TableSink, HasSourcesInAColumnWhereThereIsRoom) {
    EXPECT_EQ(sectionTable(kSourced, {sourced("a", "f.csv:2"), sourced("b", "")}, 80),
              "Rates\n"
              "Code  Fee  Level  Source\n"
              "a      1%  own    f.csv:2\n"
              "b      1%  own\n");
}

TEST(TableSink, HasNoSourceColumnWhereNoRowHasOne) {
    EXPECT_EQ(sectionTable(kSourced, {sourced("a", "")}, 80), "Rates\nCode  Fee  Level\na      1%  own\n");
}

TEST(TableSink, NumbersTheSourcesWhereRoomIsShort) {
    EXPECT_EQ(sectionTable(kSourced, {sourced("a", "f.csv:2"), sourced("b", "f.csv:3"), sourced("c", "f.csv:2")}, 22),
              "Rates\n"
              "Code  Fee  Level\n"
              "a      1%  own [1]\n"
              "b      1%  own [2]\n"
              "c      1%  own [1]\n"
              "[1] f.csv:2\n"
              "[2] f.csv:3\n");
}

TEST(TableSink, IsTurnedWhereItDoesNotFit) {
    EXPECT_EQ(sectionTable(kSourced, {sourced("a", "f.csv:2")}, 10),
              "Rates\n"
              "Code    a\n"
              "Fee     1%\n"
              "Level   own\n"
              "Source  f.csv:2\n");
}

TEST(TableSink, HasOneHeadingForTheRowsOfAnInstrument) {
    const Section section = {"", {forPeople("Instrument").at(ShownAt::kHeading), {"item", "Item"}}};
    const auto row = [](const char* instrument, const char* item, bool isMarked) {
        return Row{0, {std::string(instrument), std::string(item)}, isMarked};
    };
    EXPECT_EQ(sectionTable(section, {row("one", "1", false), row("one", "2", true), row("two", "1", false)}, 80),
              "Item\none\n  1\n" + marked("  2") + "\ntwo\n  1\n");
}

}  // namespace
}  // namespace feedesk
