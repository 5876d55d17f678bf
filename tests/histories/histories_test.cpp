#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>

#include "histories/focus_fixture.h"
#include "histories/random_histories.h"
#include "histories/run_history.h"

namespace histories {
namespace {

// Of each focus. Sanitizers make an answer many times slower.
#ifdef HISTORIES_ANSWERS
constexpr std::uint64_t kAnswers = HISTORIES_ANSWERS;
#else
constexpr std::uint64_t kAnswers = 600'000;
#endif
#ifdef HISTORIES_OF_A_SEED
constexpr int kHistoriesOfASeed = HISTORIES_OF_A_SEED;
#else
constexpr int kHistoriesOfASeed = 8;
#endif

class RandomHistories : public ::testing::TestWithParam<Focus> {};

TEST_P(RandomHistories, AnswerAsTheModelDoes) {
    Totals totals;
    expectHistories(sideBySide(GetParam(), Compare::eachStep, totals),
                    {kHistoriesOfASeed, [&] { return totals.answers; }, kAnswers}, [&] { return describe(totals); });
}

INSTANTIATE_TEST_SUITE_P(Focus, RandomHistories, ::testing::ValuesIn(kFocuses), &testNameOf);

TEST(HistoryText, ComesBackAsTheHistory) {
    const History history{{0, 1, 0xab}, {}, {0xff}};
    EXPECT_EQ(toText(history), "0001ab..ff.");
    EXPECT_EQ(fromText(toText(history)), history);
}

TEST(HistoryText, IsRefusedWhenItIsNone) {
    EXPECT_FALSE(fromText("0"));
    EXPECT_FALSE(fromText("0g."));
    EXPECT_FALSE(fromText("00"));
    EXPECT_FALSE(fromText("0.0."));
}

TEST(HistoryText, IsGivenWithItsFocus) {
    const auto given = parseHistory("Futures:0001ab..ff.");
    EXPECT_EQ(given.focus, Focus::futures);
    EXPECT_EQ(given.history, (History{{0, 1, 0xab}, {}, {0xff}}));
    EXPECT_EQ(parseHistory("AllKinds:").history, History());
}

TEST(HistoryText, IsRefusedWithoutItsFocus) {
    for (const char* text :
         {"", "Futures", "0001.", ":0001.", "futures:0001.", "Futures:1.", "Futures:x", "Futures.00."}) {
        EXPECT_THROW(parseHistory(text), std::invalid_argument) << text;
    }
}

TEST(HistorySeed, IsAWholeNumber) {
    EXPECT_EQ(parseSeed("0"), 0U);
    EXPECT_EQ(parseSeed("999999999999999999"), 999999999999999999U);
    for (const char* text : {"", "abc", "-1", "1.5", "7x", " 7", "1000000000000000000"}) {
        EXPECT_THROW(parseSeed(text), std::invalid_argument) << text;
    }
}

TEST(HistoryBytes, AreCutByTheLengthBeforeEachStep) {
    const std::uint8_t bytes[] = {2, 7, 8, 0, 64 + 1, 9, 5, 1};
    EXPECT_EQ(historyFrom(bytes, sizeof bytes), (History{{7, 8}, {}, {9}, {1}}));
    EXPECT_EQ(historyFrom(bytes, 0), History());
}

TEST(HistoryBytes, GiveTheFirstChoiceWhenTheyHaveRunOut) {
    Bytes bytes({0xff});
    EXPECT_EQ(bytes.pick(3), 2U);
    EXPECT_EQ(bytes.pick(3), 0U);
    EXPECT_FALSE(bytes.oneIn(2));
}

TEST(RunHistory, FindsNoDifferenceInAnEmptyHistory) { EXPECT_EQ(runHistory({}), std::nullopt); }

}  // namespace
}  // namespace histories
