#include <gtest/gtest.h>

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "histories/focus_fixture.h"
#include "histories/record_fields.h"

// That random histories come to everything they are there for: another choice of values could quietly leave out a
// class, a category range or a kind of answer, and every comparison would still agree.

namespace histories {
namespace {

/// What must be counted at least once.
class Goals {
public:
    void want(const std::vector<int>& kinds, std::string_view what, const std::vector<std::string_view>& each) {
        for (const int kind : kinds) {
            for (const std::string_view which : each) {
                goals.push_back({kind, what, which});
            }
        }
    }

    /// Those that histories did not come to, in words.
    [[nodiscard]] std::string missedBy(const Reached& reached) const {
        std::string text;
        for (const Goal& goal : goals) {
            if (reached.of(goal.kind, goal.what, goal.which) == 0) {
                text += "kind " + std::to_string(goal.kind) + ", " + std::string(goal.what) + ": " +
                        std::string(goal.which) + '\n';
            }
        }
        return text;
    }

private:
    struct Goal {
        int kind;
        std::string_view what;
        std::string_view which;
    };
    std::vector<Goal> goals;
};

template <class... Classes>
struct NamesOf {
    static std::vector<std::string_view> names() {
        return {kNoRecord, qmservice::records::RecordFields<Classes>::className...};
    }
};

Goals allGoals() {
    const std::vector<int> loading{1, 2, 3, 5, 6, 7, 10, 11};
    const std::vector<int> updating{1, 2, 3, 5, 6, 7, 10, 11, 12};
    const std::vector<int> testingEveryCategory{1, 2, 3, 5, 6, 7, 10, 12};  // Shenzhen connect asks the system's alone
    const auto classes = records_test::EveryRecordClass<NamesOf>::names();
    Goals goals;
    goals.want(loading, kLoaded, classes);
    goals.want(updating, kUpdated, classes);
    goals.want(updating, kSystemTest, {kYes, kNo});
    goals.want(testingEveryCategory, kCustomTest, {kYes, kNo, kNoList});
    goals.want(testingEveryCategory, kGroupTest, {kYes, kNo});
    goals.want({2, 3, 10, 8, 12}, "stkRateLimit", {kPooled, kConfigured, kOwn, kDefault});
    goals.want({7, 12}, "hgtRateLimit", {kPooled, kConfigured, kDefault});
    goals.want({11, 12}, "sgtRateLimit", {kPooled, kConfigured, kDefault});
    goals.want({6, 12}, "stkOptionFeeRate", {kOwn, kDefault});
    goals.want({1, 5, 8, 12, 16}, "commissionDetail", {kPooled, kOwn});
    goals.want({12}, "commissionDetail", {kDefault});
    goals.want({1, 5, 8, 12, 16}, "marginDetails", {kPooled, kOwn});
    goals.want({1, 5, 12}, "marginDetails", {kDefault});
    goals.want(loading, kList, {kUnknown, kFilledList});
    goals.want({1, 5}, kList, {kEmptyList});
    return goals;
}

TEST(HistoriesReach, EveryClassCategoryAndKindOfAnswer) {
    constexpr int kRound = 16;
    constexpr std::uint64_t kMost = 3200;
    const Goals goals = allGoals();
    Totals totals;
    std::vector<Seeds> seeds(kFocuses.begin(), kFocuses.end());
    while (!goals.missedBy(totals.reached).empty() && totals.histories < kMost) {
        for (std::size_t i = 0; i < kFocuses.size(); ++i) {
            const auto trial = sideBySide(kFocuses[i], Compare::theLastStep, totals);
            ASSERT_EQ(firstFailure(seeds[i].take(), kRound, trial), "");
        }
    }
    std::cout << describe(totals) << ", after the last step alone, seed " << firstSeed() << '\n';
    EXPECT_EQ(goals.missedBy(totals.reached), "");
}

TEST(HistoriesReachChecks, ReportWhatWasMissed) {
    Goals goals;
    goals.want({2, 3}, kCustomTest, {kYes});
    Reached reached;
    reached.count(3, kCustomTest, kYes);
    reached.count(2, kCustomTest, kNo);
    EXPECT_EQ(goals.missedBy(reached), "kind 2, custom category: yes\n");
}

}  // namespace
}  // namespace histories
