#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/bad_host.h"
#include "support/entry_mixes.h"
#include "support/fee_center_fixture.h"
#include "support/operations.h"
#include "support/table_checks.h"
#include "support/tally.h"

// The host throws at every single call that an operation makes of it. What it threw leaves the call, the tables stay
// whole, no lock stays behind, and the same call gets through afterwards.

namespace {

using namespace qmservice;
using test::BadHost;
using test::differences;
using test::faultOf;
using test::instrumentKey;
using test::kBystander;
using test::kKnown;
using test::kNew;
using test::lossesOf;
using test::OpenFeeCenter;
using test::Operation;
using test::Scene;
using test::Subject;
using test::WatchedFees;

class BadHostTest : public ::testing::TestWithParam<Operation> {
protected:
    BadHostTest() { test::stageOperations(scene); }
    ~BadHostTest() override { host.reset(); }

    std::string run(OpenFeeCenter& center, const Subject& subject) { return operation.run(scene, center, subject); }

    /// The accounts and instruments with which the operation takes different ways.
    [[nodiscard]] std::vector<Subject> subjects() const {
        std::vector<Subject> all;
        for (const uint64 account : {kKnown, kNew}) {
            all.push_back(subjectOf(scene, operation, account));
        }
        if (operation.kind == Operation::Kind::kLookup) {
            all.push_back(subjectOf(scene, operation, kKnown, 2));
        }
        return all;
    }

    /// Everything that the bystander is answered.
    std::string bystanderText(OpenFeeCenter& center) const {
        std::string text;
        for (const auto* queries : {&test::lookups(), &test::lists()}) {
            for (const auto& query : *queries) {
                for (std::size_t i = 0; i < scene.instruments.size(); ++i) {
                    text += query.run(scene, center, subjectOf(scene, query, kBystander, i)) + "\n";
                }
            }
        }
        return text;
    }

    /// The codes of the instruments for which the account's entries changed.
    [[nodiscard]] std::string changedCodes(const OpenFeeCenter& center, const OpenFeeCenter& before,
                                           uint64 account) const {
        std::string codes;
        for (const auto& instrument : scene.instruments) {
            const uint64 key = instrumentKey(*instrument);
            bool changed = false;
            test::forEachFamily(
                center, before, [&](const char*, const auto&, const auto& table, const auto&, const auto& tableBefore) {
                    changed = changed || test::entryOf(table, account, key) != test::entryOf(tableBefore, account, key);
                });
            codes += changed ? instrument->code : "";
        }
        return codes;
    }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    Scene scene{{"A", "B", "C"}};
    BadHost bad{host};
    const Operation& operation = GetParam();
};

/// An operation that makes no call of the host, and what it then is that cannot fail.
bool callsNoHost(const Operation& operation) {
    return operation.name == "doInitStkOptionFee" || operation.name == "getStkOptionFee" ||
           operation.name == "getFeesOfKind12";
}

TEST_P(BadHostTest, EveryCallThatFailedLeavesThingsWholeAndIsRepeated) {
    WatchedFees before(scene);
    const std::string bystander = bystanderText(before.center);
    long faults = 0;
    for (const Subject& subject : subjects()) {
        WatchedFees expected(scene);
        std::string answer;
        const long calls = bad.callsOf([&] { answer = run(expected.center, subject); });
        const std::string allChanged = changedCodes(expected.center, before.center, subject.accountKey);
        std::string changedSoFar;
        for (long call = 0; call < calls; ++call) {
            for (const auto what : test::kAllThrown) {
                SCOPED_TRACE("account " + std::to_string(subject.accountKey) + " call " + std::to_string(call));
                WatchedFees fees(scene);
                ASSERT_EQ(bad.run([&] { run(fees.center, subject); }, call, what), nameOf(what));
                ++faults;
                ASSERT_EQ(bad.calls(), call + 1) << "the operation went on";
                ASSERT_EQ(faultOf(fees.center), "");
                ASSERT_EQ(lossesOf(fees.center, before.center), "");
                ASSERT_EQ(test::strays(fees.center, before.center, expected.center), "");
                const std::string changed = changedCodes(fees.center, before.center, subject.accountKey);
                ASSERT_EQ(allChanged.compare(0, changed.size(), changed), 0) << "not in the order of the list";
                ASSERT_GE(changed.size(), changedSoFar.size());
                changedSoFar = changed;
                ASSERT_EQ(bystanderText(fees.center), bystander);
                ASSERT_EQ(run(fees.center, subject), answer);
                ASSERT_EQ(differences(fees.center, expected.center), "");
                ASSERT_EQ(faultOf(fees.center), "");
            }
        }
        // The last call is one for the last entry's key: all entries before it are stored by then.
        ASSERT_GE(changedSoFar.size() + 1, allChanged.size());
    }
    EXPECT_EQ(faults == 0, callsNoHost(operation));
    test::tally("faults injected", faults);
}

INSTANTIATE_TEST_SUITE_P(Operations, BadHostTest, ::testing::ValuesIn(test::allOperations()),
                         [](const auto& operation) { return operation.param.name; });

TEST(BadHostListTest, WhatWasAppendedBeforeTheHostThrewStays) {
    const test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    Scene scene({"A", "B", "C"});
    OpenFeeCenter center;
    scene.prepare(center);
    int asked = 0;
    host.onCall = [&](const std::string& operation) {
        if (operation == "findInstrument" && ++asked == 2) {
            test::throwAt(2, test::Thrown::kError);
        }
    };
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    const auto account = test::makeAccount(kStockAccount, kKnown);
    EXPECT_THROW(center.getFees(account, fees), test::HostError);
    EXPECT_EQ(fees.size(), 1U);
    host.onCall = nullptr;
}

TEST(BadHostConstructionTest, EngineThatGivesNoStrandLeavesNoFeeCenter) {
    const test::FreshHost freshHost;
    BadHost bad(test::FakeHost::instance());
    const long calls = bad.callsOf([] { OpenFeeCenter built; });
    ASSERT_EQ(bad.calledNames(), (std::vector<std::string>{"RPCEngine::instance", "getStrand"}));
    for (long call = 0; call < calls; ++call) {
        for (const auto what : test::kAllThrown) {
            EXPECT_EQ(bad.run([] { OpenFeeCenter failed; }, call, what), nameOf(what));
        }
    }
    EXPECT_TRUE(OpenFeeCenter().strand);
    test::tally("faults injected", 2 * calls);
}

}  // namespace
