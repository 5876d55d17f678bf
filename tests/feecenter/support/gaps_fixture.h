#ifndef TESTS_FEECENTER_SUPPORT_GAPS_FIXTURE_H
#define TESTS_FEECENTER_SUPPORT_GAPS_FIXTURE_H

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <vector>

#include "support/fee_center_fixture.h"
#include "support/operations.h"
#include "support/table_checks.h"
#include "support/tally.h"

// Lists with gaps: empty pointers and useless records among the good entries.

namespace test {

/// Every way to put `gap` before, between and behind the entries: each set of places but the empty one.
template <class Entry>
std::vector<std::vector<Entry>> gapped(const std::vector<Entry>& good, const Entry& gap) {
    std::vector<std::vector<Entry>> lists;
    for (unsigned places = 1; places < 1U << (good.size() + 1); ++places) {
        std::vector<Entry> list;
        for (std::size_t i = 0; i <= good.size(); ++i) {
            if ((places >> i & 1U) != 0) {
                list.push_back(gap);
            }
            if (i < good.size()) {
                list.push_back(good[i]);
            }
        }
        lists.push_back(list);
    }
    return lists;
}

/// Loads or updates.
inline std::vector<Operation> changesOf(Operation::Kind kind) {
    std::vector<Operation> chosen;
    for (const auto& change : changes()) {
        if (change.kind == kind) {
            chosen.push_back(change);
        }
    }
    return chosen;
}

/// A change, which is the parameter, on lists with gaps: it leads to where the good entries lead alone.
class BadHostGapsTest : public ::testing::TestWithParam<Operation> {
protected:
    using Change = std::function<void(OpenFeeCenter&)>;

    BadHostGapsTest() { stageOperations(scene); }
    ~BadHostGapsTest() override { host.reset(); }

    [[nodiscard]] boost::shared_ptr<qmservice::CAccountInfo> account() const {
        return subjectOf(scene, operation, kKnown).account;
    }

    /// Both changes lead to the same tables. Counts the gaps.
    void expectSame(const Change& bad, const Change& good) {
        OpenFeeCenter fees;
        OpenFeeCenter expected;
        scene.prepare(fees);
        scene.prepare(expected);
        bad(fees);
        good(expected);
        EXPECT_EQ(differences(fees, expected), "");
        EXPECT_EQ(faultOf(fees), "");
        tally("lists with gaps", 1);
    }

    void runOperation(OpenFeeCenter& center) { operation.run(scene, center, subjectOf(scene, operation, kKnown)); }

    FreshHost freshHost;
    FakeHost& host = FakeHost::instance();
    Scene scene{{"A", "B", "C"}};
    const Operation& operation = GetParam();
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_GAPS_FIXTURE_H
