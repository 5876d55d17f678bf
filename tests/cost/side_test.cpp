#include "cost/side.h"

#include <gtest/gtest.h>

#include <string>

#include "cost/term.h"

namespace {

using namespace cost;  // NOLINT(google-build-using-namespace): what is tested

/// "open: open_long open_short": the sides that a term side covers.
std::string coveredBy(TermSide term) {
    std::string list(wordFor(term));
    for (std::size_t i = 0; i < kSideCount; ++i) {
        if (covers(term, sideAt(i))) {
            list += ' ' + std::string(wordFor(sideAt(i)));
        }
    }
    return list;
}

TEST(TermSide, CoversTheSidesThatItsWordNames) {
    EXPECT_EQ(coveredBy(TermSide::kBoth), "both buy sell");
    EXPECT_EQ(coveredBy(TermSide::kOpen), "open open_long open_short");
    EXPECT_EQ(coveredBy(TermSide::kClose), "close close_long close_short");
    EXPECT_EQ(coveredBy(TermSide::kCloseToday), "close_today close_today_long close_today_short");
}

TEST(TermSide, OfOneSideCoversThatSideAlone) {
    for (std::size_t i = 0; i < kSideCount; ++i) {
        const std::string word(wordFor(sideAt(i)));
        const auto term = fromWord<TermSide>(word);
        ASSERT_TRUE(term) << word;
        EXPECT_TRUE(namesOneSide(*term)) << word;
        EXPECT_EQ(coveredBy(*term), word + ' ' + word);
    }
    EXPECT_FALSE(namesOneSide(TermSide::kBoth));
    EXPECT_FALSE(namesOneSide(TermSide::kCloseToday));
}

TEST(Family, HasItsOwnSides) {
    for (const Family family : {Family::kStock, Family::kCredit, Family::kNeeq, Family::kHgt, Family::kSgt}) {
        EXPECT_EQ(sidesOf(family), "buy, sell");
        EXPECT_EQ(termSidesOf(family), "both, buy, sell");
    }
    EXPECT_EQ(sidesOf(Family::kOption), "open_long, open_short, close_long, close_short, exercise");
    EXPECT_EQ(termSidesOf(Family::kOption), "open, close, open_long, open_short, close_long, close_short, exercise");
    EXPECT_EQ(sidesOf(Family::kFutures),
              "open_long, open_short, close_long, close_short, close_today_long, close_today_short");
    EXPECT_EQ(termSidesOf(Family::kFutures),
              "open, close, close_today, open_long, open_short, close_long, close_short, close_today_long, "
              "close_today_short");
}

TEST(Words, AreReadAsTheyAreWritten) {
    EXPECT_EQ(fromWord<Family>("futures"), Family::kFutures);
    EXPECT_EQ(wordFor(Basis::kOrder), "order");
    EXPECT_EQ(fromWord<Per>("day"), Per::kDay);
    EXPECT_FALSE(fromWord<Side>("both"));
    EXPECT_FALSE(fromWord<Family>("Stock"));
    EXPECT_FALSE(fromWord<Family>(""));
    EXPECT_EQ(allWords<Basis>(), "turnover, quantity, order, day");
}

}  // namespace
