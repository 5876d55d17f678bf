#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#include "histories/focus_test.h"
#include "histories/random_histories.h"
#include "histories/run_history.h"

namespace histories {
namespace {

// Of each focus. Sanitizers make an answer many times slower.
#ifdef HISTORIES_ANSWERS
constexpr std::uint64_t kAnswers = HISTORIES_ANSWERS;
#else
constexpr std::uint64_t kAnswers = 1'500'000;
#endif
constexpr int kRound = 8;  ///< histories of one seed

/// FEECENTER_HISTORY runs one history alone, as a failure prints it.
void replay(const std::string& text, Focus focus) {
    const auto history = fromText(text);
    ASSERT_TRUE(history) << "FEECENTER_HISTORY is not a history";
    const auto outcome = runHistory(*history, focus);
    std::cout << describe(*history, focus);
    EXPECT_FALSE(outcome.difference) << *outcome.difference;
}

class RandomHistories : public ::testing::TestWithParam<Focus> {};

TEST_P(RandomHistories, AnswerAsTheModelDoes) {
    const Focus focus = GetParam();
    if (const char* history = std::getenv("FEECENTER_HISTORY")) {
        return replay(history, focus);
    }
    // Seeds of different focuses do not meet.
    const std::uint64_t seed = firstSeed();
    std::uint64_t next = seed * kFocuses.size() + static_cast<std::uint64_t>(focus);
    Totals totals;
    std::string failure;
    for (; totals.answers < kAnswers && failure.empty(); next += kFocuses.size()) {
        const std::uint64_t before = totals.answers;
        failure = runRandomHistories(next, focus, kRound, totals);
        ASSERT_TRUE(totals.answers > before || !failure.empty()) << "no answers were compared";
    }
    std::cout << describe(totals) << ", seed " << seed << " (" << nameOf(focus) << ")\n";
    ASSERT_TRUE(failure.empty()) << failure << "FEECENTER_SEED=" << seed;
    EXPECT_GE(totals.answers, kAnswers);
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
