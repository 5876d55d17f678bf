#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "support/fee_center_fixture.h"
#include "support/operations.h"
#include "support/table_checks.h"

// No operation keeps anything of the host's for the next one, not even for another fee center's.

namespace {

using namespace qmservice;
using test::instrumentKey;
using test::kNew;
using test::OpenFeeCenter;
using test::Operation;

class KeepsNothingTest : public ::testing::TestWithParam<Operation> {
protected:
    KeepsNothingTest() {
        stageOperations(scene);
        scene.prepare(center);
    }
    ~KeepsNothingTest() override { host.reset(); }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    test::Scene scene{{"A", "B", "C"}};
    OpenFeeCenter center;
    const Operation& operation = GetParam();
};

TEST_P(KeepsNothingTest, NoInstrumentAccountOrConfiguredLimitHasAnotherOwnerAfterwards) {
    std::vector<boost::shared_ptr<IData>> ours;
    for (const auto& listed : host.instruments) {
        ours.push_back(listed.instrument);
        const auto limits = test::Scene::fullFee(listed.instrument, 50);
        const test::FakeHost::Name name(listed.instrument->market, listed.instrument->code);
        ours.push_back(host.rateLimits[name] = limits->stkRateLimit);
        ours.push_back(host.hgtLimits[name] = limits->hgtRateLimit);
        ours.push_back(host.sgtLimits[name] = limits->sgtRateLimit);
    }
    for (const uint64 key : {test::kKnown, kNew}) {
        const auto subject = subjectOf(scene, operation, key);
        ours.push_back(host.accounts.at(key)->getAccountInfo());
        ours.push_back(subject.account);
        std::vector<long> owners;
        for (const auto& one : ours) {
            owners.push_back(one.use_count());
        }
        operation.run(scene, center, subject);
        for (std::size_t i = 0; i < ours.size(); ++i) {
            EXPECT_EQ(ours[i].use_count(), owners[i]) << ours[i]->getStructDes();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Operations, KeepsNothingTest, ::testing::ValuesIn(test::allOperations()),
                         [](const auto& operation) { return operation.param.name; });

/// The updates by category, which take their instruments from the catalogue.
std::vector<Operation> updatesByCategory() {
    std::vector<Operation> all;
    for (const auto& change : test::changes()) {
        if (change.kind == Operation::Kind::kUpdate && change.name != "doUpdateFutureInstrumentFee") {
            all.push_back(change);
        }
    }
    return all;
}

class UpdateKeepsNothingTest : public KeepsNothingTest {
protected:
    /// The instruments for which any table has an entry of the account.
    static std::set<uint64> instrumentsOf(const OpenFeeCenter& fees, uint64 account) {
        std::set<uint64> keys;
        test::forEachFamily(fees, fees, [&](const char*, const auto&, const auto& table, auto&&...) {
            const auto entries = table.find(account);
            if (entries != table.end()) {
                for (const auto& entry : entries->second) {
                    keys.insert(entry.first);
                }
            }
        });
        return keys;
    }
};

TEST_P(UpdateKeepsNothingTest, InstrumentsOfAnEarlierUpdateAreNotThoseOfTheNext) {
    operation.run(scene, center, subjectOf(scene, operation, kNew));
    for (const auto& instrument : scene.instruments) {
        host.removeInstrument(*instrument);
    }
    const auto subject = subjectOf(scene, operation, kNew);
    const auto added = host.addInstrument("SH", "D", ~0, ~0);
    OpenFeeCenter other;
    operation.run(scene, other, subject);
    EXPECT_EQ(instrumentsOf(other, kNew), std::set<uint64>{instrumentKey(*added)});
}

INSTANTIATE_TEST_SUITE_P(Updates, UpdateKeepsNothingTest, ::testing::ValuesIn(updatesByCategory()),
                         [](const auto& update) { return update.param.name; });

}  // namespace
