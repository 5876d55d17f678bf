#include <gtest/gtest.h>

#include "feedesk/rows/sinks.h"

namespace feedesk {
namespace {

/// Two sections that share a field; the second one's own field comes before it.
Sections sections() {
    return {{"One", {{"code", "Code"}, Field{"fee", "Fee", Unit::kFraction}.in("rates")}},
            {"Two", {Field{"margin", "Margin", Unit::kFraction}.in("rates"), {"code", "Code"}, forPeople("Seen")}}};
}

Row one(const std::string& code, const Value& fee) { return {0, {code, fee}, false}; }
Row two(const Value& margin, const std::string& code) { return {1, {margin, code, std::string("by people")}, false}; }

void giveRows(RowSink& sink) {
    sink.begin(sections());
    sink.row(one("a", 0.5));
    sink.row(two(0.25, "b"));
    sink.row(one("c", Nothing()));
    sink.end();
}

/// What a sink writes, piece by piece.
class Written {
public:
    Write write() {
        return [this](const std::string& piece) {
            text += piece;
            ++pieces;
        };
    }

    std::string text;
    std::size_t pieces = 0;
};

TEST(CsvSink, HasEachFieldOnceAndACellForWhatARowHas) {
    Written written;
    const auto sink = csvSink(written.write());
    giveRows(*sink);
    EXPECT_EQ(written.text, "code,fee,margin\na,0.5,\nb,,0.25\nc,,\n");
}

TEST(CsvSink, KeepsFieldsOfOneNameInSeveralGroupsApart) {
    Written written;
    const auto sink = csvSink(written.write());
    sink->begin({{"", {{"name", ""}, Field{"name", ""}.in("rates")}}});
    sink->row({0, {std::string("x"), 1.0}, false});
    sink->end();
    EXPECT_EQ(written.text, "name,name\nx,1\n");
}

TEST(JsonSink, KeepsTheOrderOfTheFieldsAndLeavesOutWhatAGroupHasNot) {
    Written written;
    const auto sink = jsonSink(written.write());
    giveRows(*sink);
    EXPECT_EQ(written.text,
              "[\n{\"code\":\"a\",\"rates\":{\"fee\":0.5}},\n{\"rates\":{\"margin\":0.25},\"code\":\"b\"},\n"
              "{\"code\":\"c\",\"rates\":{}}\n]\n");
}

TEST(JsonSink, HasAnEmptyObjectForAGroupWithoutFields) {
    Written written;
    const auto sink = jsonSink(written.write());
    sink->begin({{"", {{"code", ""}, beginOf("rates")}}});
    sink->row({0, {std::string("a"), Nothing()}, false});
    sink->end();
    EXPECT_EQ(written.text, "[\n{\"code\":\"a\",\"rates\":{}}\n]\n");
}

TEST(JsonSink, IsAnEmptyArrayWithoutRows) {
    Written written;
    const auto sink = jsonSink(written.write());
    sink->begin(sections());
    sink->end();
    EXPECT_EQ(written.text, "[]\n");
}

TEST(TableSink, HasATableForEachSection) {
    Written written;
    const auto sink = tableSink(written.write(), 80);
    giveRows(*sink);
    EXPECT_EQ(written.text,
              "One\nCode  Fee\na     50%\nc       -\n"
              "\nTwo\nMargin  Code  Seen\n   25%  b     by people\n");
}

TEST(TableSink, HasItsTitlesWhereThereAreNoRows) {
    Written written;
    const auto sink = tableSink(written.write(), 80);
    sink->begin({{"", {{"code", "Code"}, {"kind", "Kind"}}}});
    sink->end();
    EXPECT_EQ(written.text, "Code  Kind\n");
}

/// How many of the rows' bytes a sink has not handed on.
void expectToStream(std::unique_ptr<RowSink> (*sinkFor)(Write)) {
    Written written;
    const auto sink = sinkFor(written.write());
    sink->begin(sections());
    std::size_t given = 0;
    for (const std::string code(100, 'x'); given < 1'000'000; given += code.size()) {
        sink->row(one(code, 0.5));
        ASSERT_LT(given, written.text.size() + 100'000);
    }
    EXPECT_LT(written.pieces, 100U);
    const std::size_t before = written.text.size();
    sink->end();
    EXPECT_GT(written.text.size(), before);
    EXPECT_GT(written.text.size(), given);
}

TEST(CsvSink, HandsRowsOnAsTheyCome) { expectToStream(csvSink); }

TEST(JsonSink, HandsRowsOnAsTheyCome) { expectToStream(jsonSink); }

}  // namespace
}  // namespace feedesk
