#include <gtest/gtest.h>

#include <vector>

#include "support/gaps_fixture.h"

// Empty pointers and useless records in every place of what is loaded: the other entries count as if they were
// alone.

namespace {

using namespace qmservice;
using test::changesOf;
using test::faultOf;
using test::gapped;
using test::OpenFeeCenter;
using test::Operation;
using test::Scene;

class BadHostLoadGapsTest : public test::BadHostGapsTest {};

TEST_P(BadHostLoadGapsTest, GoodRecordsAreStoredWhateverStandsBesideThem) {
    const auto noRates = boost::make_shared<CInstrumentFee>();
    noRates->instrument = scene.instruments.front();
    const std::vector<Scene::Record> gaps = {Scene::Record(), Scene::fullFee(nullptr, 90), noRates,
                                             boost::make_shared<CStkExchangeRateLimit>()};
    for (const auto& gap : gaps) {
        for (const auto& bad : gapped(scene.records(test::kChangedRate), gap)) {
            expectSame(
                [&](OpenFeeCenter& center) {
                    center.initFees(account(), bad);
                    host.runJobs();
                },
                [&](OpenFeeCenter& center) { runOperation(center); });
        }
        expectSame(
            [&](OpenFeeCenter& center) {
                center.initFees(account(), {gap, gap});
                host.runJobs();
            },
            [](OpenFeeCenter&) {});
    }
}

INSTANTIATE_TEST_SUITE_P(Loads, BadHostLoadGapsTest, ::testing::ValuesIn(changesOf(Operation::Kind::kLoad)),
                         [](const auto& operation) { return operation.param.name; });

class BadHostMarginGapsTest : public test::FutureTest {
protected:
    BadHostMarginGapsTest() {
        const auto rb = addFuture("rb2605");
        fee = Scene::fullFee(rb, test::kChangedRate);
    }

    boost::shared_ptr<CInstrumentFee> fee;
};

TEST_F(BadHostMarginGapsTest, GoodMarginsOfALoadAreStoredInTheirOrderWhateverStandsBesideThem) {
    const auto& good = fee->marginDetails;
    std::vector<uint64> expected;
    for (const auto& margin : good) {
        expected.push_back(center.getHashKey(margin));
    }
    for (const auto& bad : gapped(good, {})) {
        OpenFeeCenter fees;
        const auto spoilt = boost::make_shared<CInstrumentFee>(*fee);
        spoilt->marginDetails = bad;
        fees.doInitFutureFee(account, {spoilt});
        EXPECT_EQ(fees.futureMarginKeys.at(test::kAccount).at(test::instrumentKey(*fee->instrument)), expected);
        EXPECT_EQ(faultOf(fees), "");
        test::tally("lists with gaps", 1);
    }
}

TEST_F(BadHostMarginGapsTest, LoadOfEmptyMarginsAloneLeavesTheMarginsAndSetsTheCommission) {
    load({fee});
    const auto keys = marginKeys(*fee->instrument);
    ASSERT_EQ(keys.size(), 3U);
    const auto other = test::makeFutureFee(fee->instrument, test::makeCommission(90), {{}, {}});
    load({other});
    EXPECT_EQ(marginKeys(*fee->instrument), keys);
    EXPECT_EQ(test::ratesOf(*storedCommission(*fee->instrument)), test::ratesOf(*other->commissionDetail));
}

}  // namespace
