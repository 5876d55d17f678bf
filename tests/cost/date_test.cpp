#include "cost/date.h"

#include <gtest/gtest.h>

#include <string>

#include "cost/support/builders.h"

namespace {

using cost::Date;
using cost::DateRange;
using cost_test::date;

TEST(Date, IsReadFromIsoAndCompactText) {
    const auto day = Date::parse("2023-08-28");
    ASSERT_TRUE(day);
    EXPECT_EQ(day->year(), 2023);
    EXPECT_EQ(day->month(), 8);
    EXPECT_EQ(day->day(), 28);
    EXPECT_EQ(day->text(), "2023-08-28");
    EXPECT_EQ(Date::parseCompact("20230828"), day);
    EXPECT_EQ(date("0001-01-01").text(), "0001-01-01");
}

TEST(Date, OfOtherTextsIsNotRead) {
    for (const std::string text : {"", "2023-8-28", "20230828", "2023/08/28", "2023-08-28 ", "2023-08-2x", "-023-08-28",
                                   "2023-00-01", "2023-13-01", "2023-04-31", "2023-01-00", "0000-01-01"}) {
        EXPECT_FALSE(Date::parse(text)) << text;
    }
    for (const std::string text : {"", "2023-08-28", "2023828", "202308280", "20230832", "2023x828"}) {
        EXPECT_FALSE(Date::parseCompact(text)) << text;
    }
}

TEST(Date, KnowsLeapYears) {
    EXPECT_TRUE(Date::of(2024, 2, 29));
    EXPECT_TRUE(Date::of(2000, 2, 29));
    EXPECT_FALSE(Date::of(2023, 2, 29));
    EXPECT_FALSE(Date::of(1900, 2, 29));
}

TEST(Date, HasANextAndAPreviousDay) {
    const struct {
        const char* day;
        const char* next;
    } rows[] = {{"2023-08-27", "2023-08-28"}, {"2023-08-31", "2023-09-01"}, {"2023-12-31", "2024-01-01"},
                {"2024-02-28", "2024-02-29"}, {"2024-02-29", "2024-03-01"}, {"2023-02-28", "2023-03-01"}};
    for (const auto& row : rows) {
        EXPECT_EQ(date(row.day).next(), date(row.next)) << row.day;
        EXPECT_EQ(date(row.next).previous(), date(row.day)) << row.next;
    }
    EXPECT_FALSE(date("9999-12-31").next());
    EXPECT_FALSE(date("0001-01-01").previous());
}

TEST(Date, IsOrderedByTheCalendar) {
    EXPECT_LT(date("2022-12-31"), date("2023-01-01"));
    EXPECT_LT(date("2023-08-31"), date("2023-09-01"));
    EXPECT_GE(date("2023-09-01"), date("2023-09-01"));
}

TEST(DateRange, ContainsBothItsEnds) {
    const DateRange range{date("2022-04-29"), date("2023-08-27")};
    EXPECT_FALSE(range.contains(date("2022-04-28")));
    EXPECT_TRUE(range.contains(date("2022-04-29")));
    EXPECT_TRUE(range.contains(date("2023-08-27")));
    EXPECT_FALSE(range.contains(date("2023-08-28")));
}

TEST(DateRange, WithoutAnEndIsUnbounded) {
    EXPECT_TRUE((DateRange{{}, date("2023-08-27")}.contains(date("0001-01-01"))));
    EXPECT_TRUE((DateRange{date("2023-08-28"), {}}.contains(date("9999-12-31"))));
    EXPECT_TRUE(DateRange().contains(date("2023-08-28")));
}

TEST(DateRange, OverlapsWhatSharesADay) {
    const DateRange early{{}, date("2023-08-27")};
    const DateRange late{date("2023-08-28"), {}};
    const DateRange across{date("2023-08-27"), date("2023-08-28")};
    EXPECT_FALSE(early.overlaps(late));
    EXPECT_FALSE(late.overlaps(early));
    EXPECT_TRUE(early.overlaps(across));
    EXPECT_TRUE(late.overlaps(across));
    EXPECT_TRUE(across.overlaps(late));
    EXPECT_TRUE(DateRange().overlaps(early));
}

TEST(DateRange, IsSaidInWords) {
    EXPECT_EQ((DateRange{date("2022-04-29"), date("2023-08-27")}.text()), "from 2022-04-29 until 2023-08-27");
    EXPECT_EQ((DateRange{date("2023-08-28"), {}}.text()), "from 2023-08-28 on");
    EXPECT_EQ((DateRange{{}, date("2022-04-28")}.text()), "until 2022-04-28");
    EXPECT_EQ(DateRange().text(), "of every day");
}

}  // namespace
