#include <gtest/gtest.h>

#include <string>

#include "support/fee_center_fixture.h"
#include "support/operations.h"
#include "support/table_checks.h"

// A queued change is that of the kind that its account had when it was handed in.

namespace {

using test::kNew;
using test::OpenFeeCenter;
using test::Operation;

/// The families whose tables have the new account.
std::string familiesOf(const OpenFeeCenter& center) {
    std::string names;
    test::forEachFamily(center, center, [&](const std::string& name, const auto&, const auto& table, auto&&...) {
        names += table.count(kNew) != 0 ? name + " " : "";
    });
    return names;
}

class LateJobTest : public ::testing::TestWithParam<Operation> {
protected:
    LateJobTest() { stageOperations(scene); }
    ~LateJobTest() override { host.reset(); }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    test::Scene scene{{"A", "B", "C"}};
    const Operation& change = GetParam();
};

TEST_P(LateJobTest, KindThatTheAccountTakesOnLaterDoesNotCount) {
    OpenFeeCenter direct;
    change.run(scene, direct, subjectOf(scene, change, kNew));
    for (const int later : {1, 2, 3, 6, 7, 10, 11, 12, 99}) {
        OpenFeeCenter center;
        const auto subject = subjectOf(scene, change, kNew);
        change.post(scene, center, subject);
        subject.account->accountType = later;
        EXPECT_EQ(host.runJobs(), 1U);
        EXPECT_EQ(familiesOf(center), familiesOf(direct)) << "kind " << later;
        EXPECT_EQ(test::differences(center, direct), "") << "kind " << later;
    }
}

TEST_P(LateJobTest, KindThatTheAccountHadWhenItWasHandedInAloneCounts) {
    OpenFeeCenter center;
    const auto subject = subjectOf(scene, change, kNew);
    subject.account->accountType = 99;
    change.post(scene, center, subject);
    subject.account->accountType = change.accountKind;
    EXPECT_EQ(host.runJobs(), 0U);
    EXPECT_EQ(familiesOf(center), "");
}

INSTANTIATE_TEST_SUITE_P(Changes, LateJobTest, ::testing::ValuesIn(test::changes()),
                         [](const auto& change) { return change.param.name; });

}  // namespace
