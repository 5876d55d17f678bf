#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/fee_center_test.h"
#include "support/operations.h"
#include "support/table_checks.h"
#include "support/tally.h"

// Empty pointers and useless records in every place of every list: the entries beside them count as if they were alone.

namespace {

using namespace qmservice;
using test::differences;
using test::faultOf;
using test::kKnown;
using test::OpenFeeCenter;
using test::Operation;
using test::Scene;

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

class BadHostGapsTest : public ::testing::TestWithParam<Operation> {
protected:
    using Change = std::function<void(OpenFeeCenter&)>;

    BadHostGapsTest() { test::stageOperations(scene); }
    ~BadHostGapsTest() override { host.reset(); }

    [[nodiscard]] boost::shared_ptr<CAccountInfo> account() const {
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
        test::tally("lists with gaps", 1);
    }

    void update(OpenFeeCenter& center, const Scene::Record& fee) {
        center.updateCustomFee(account(), fee);
        host.runJobs();
    }

    void updateByOperation(OpenFeeCenter& center) { operation.run(scene, center, subjectOf(scene, operation, kKnown)); }

    /// Every way to spoil one list of the operation's custom fee leads to where the good one leads, and gaps alone to
    /// where no list at all leads.
    template <class Fee, class List>
    void expectListSurvives(List Fee::*list) {
        const auto make = [&] { return boost::dynamic_pointer_cast<Fee>(operation.customFee(scene)); };
        const auto updateWith = [&](const List& entries) {
            return [&, entries](OpenFeeCenter& center) {
                const auto fee = make();
                (*fee).*list = entries;
                update(center, fee);
            };
        };
        const List good = (*make()).*list;
        ASSERT_FALSE(good.empty());
        for (const auto& bad : gapped(good, {})) {
            expectSame(updateWith(bad), [&](OpenFeeCenter& center) { updateByOperation(center); });
        }
        for (const std::size_t gaps : {1U, 3U}) {
            expectSame(updateWith(List(gaps)), updateWith({}));
        }
    }

    test::FreshHost freshHost;
    test::FakeHost& host = test::FakeHost::instance();
    Scene scene{{"A", "B", "C"}};
    const Operation& operation = GetParam();
};

/// The families in which some account's instruments point elsewhere.
std::string tablesThatDiffer(const OpenFeeCenter& center, const OpenFeeCenter& expected) {
    std::string families;
    test::forEachFamily(center, expected,
                        [&](const std::string& name, const auto&, const auto& table, const auto&,
                            const auto& expectedTable) { families += table == expectedTable ? "" : name + " "; });
    return families;
}

std::vector<Operation> changesOf(Operation::Kind kind) {
    std::vector<Operation> chosen;
    for (const auto& change : test::changes()) {
        if (change.kind == kind) {
            chosen.push_back(change);
        }
    }
    return chosen;
}

class BadHostLoadGapsTest : public BadHostGapsTest {};

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
                [&](OpenFeeCenter& center) { updateByOperation(center); });
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

class BadHostUpdateGapsTest : public BadHostGapsTest {};

TEST_P(BadHostUpdateGapsTest, GoodEntriesApplyWhateverStandsBesideThem) {
    const auto fee = operation.customFee(scene);
    if (boost::dynamic_pointer_cast<CCustomStockInstrumentFee>(fee)) {
        expectListSurvives(&CCustomStockInstrumentFee::rateLimits);
    } else if (boost::dynamic_pointer_cast<CCustomHGTInstrumentFee>(fee)) {
        expectListSurvives(&CCustomHGTInstrumentFee::rateLimits);
    } else if (boost::dynamic_pointer_cast<CCustomSgtInstrumentFee>(fee)) {
        expectListSurvives(&CCustomSgtInstrumentFee::rateLimits);
    } else if (boost::dynamic_pointer_cast<CCustomFutureInstrumentFee>(fee)) {
        expectListSurvives(&CCustomFutureInstrumentFee::commissionDetails);
        expectListSurvives(&CCustomFutureInstrumentFee::marginDetails);
    } else {
        ASSERT_TRUE(boost::dynamic_pointer_cast<CInstrumentFee>(fee));
        expectListSurvives(&CInstrumentFee::marginDetails);
    }
}

TEST_P(BadHostUpdateGapsTest, KnownInstrumentsAreUpdatedWhateverTheCatalogueListsBesideThem) {
    using Listed = test::FakeHost::Listed;
    std::vector<Listed> good;
    for (const auto& instrument : scene.instruments) {
        good.push_back({instrument, ~0, 2});
    }
    // Before, between and behind the keys of the good instruments in the maps' order.
    for (const char* mapKey : {"", "SH|", "SH|AA", "SH|BB", "SH|D"}) {
        for (const auto& bad : gapped(good, Listed{{}, ~0, ~0, mapKey})) {
            expectSame(
                [&](OpenFeeCenter& center) {
                    host.instruments = bad;
                    updateByOperation(center);
                },
                [&](OpenFeeCenter& center) {
                    host.instruments = good;
                    updateByOperation(center);
                });
        }
    }
    expectSame(
        [&](OpenFeeCenter& center) {
            host.instruments.assign(3, Listed{{}, ~0, ~0, ""});
            updateByOperation(center);
        },
        [&](OpenFeeCenter& center) {
            host.instruments.clear();
            updateByOperation(center);
        });
}

TEST_P(BadHostUpdateGapsTest, GroupOfEmptyPartsIsLeftToTheHost) {
    // Shenzhen connect knows no groups, and the update of one instrument no categories.
    const bool asksForGroups =
        operation.name != "doUpdateSgtCustomFee" && operation.name != "doUpdateFutureInstrumentFee";
    using Parts = std::vector<boost::shared_ptr<CGroupCategorySubInfo>>;
    const auto part = boost::make_shared<CGroupCategorySubInfo>();
    const auto withParts = [&](const Parts& parts) {
        const auto fee = operation.customFee(scene);
        if (const auto stock = boost::dynamic_pointer_cast<CCustomStockInstrumentFee>(fee)) {
            stock->rateLimits.front()->groupCategories = parts;
        } else if (const auto hgt = boost::dynamic_pointer_cast<CCustomHGTInstrumentFee>(fee)) {
            hgt->rateLimits.front()->groupCategories = parts;
        } else if (const auto future = boost::dynamic_pointer_cast<CCustomFutureInstrumentFee>(fee)) {
            future->commissionDetails.front()->groupCategories = parts;
            future->marginDetails.front()->groupCategories = parts;
        }
        return fee;
    };
    OpenFeeCenter expected;
    updateByOperation(expected);
    for (const Parts& parts : {Parts{{}}, Parts{{}, part}, Parts{part, {}}, Parts{{}, part, {}}, Parts{{}, {}}}) {
        bool asked = false;
        host.inGroupCategory = [&](const std::string&, const std::string& code, const std::string&,
                                   const Parts& handedOver, const auto&) {
            asked = true;
            EXPECT_EQ(handedOver, parts);
            return code == "B";
        };
        OpenFeeCenter fees;
        update(fees, withParts(parts));
        EXPECT_EQ(asked, asksForGroups);
        // Connect pools keep the parts too: what counts is which entries point where.
        EXPECT_EQ(tablesThatDiffer(fees, expected), "");
        EXPECT_EQ(faultOf(fees), "");
        test::tally("lists with gaps", 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Updates, BadHostUpdateGapsTest, ::testing::ValuesIn(changesOf(Operation::Kind::kUpdate)),
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

class BadHostMapGapsTest : public test::FutureTest {
protected:
    void update() {
        host.inSystemCategory = [](auto&&...) { return true; };
        center.futureCommissionKeys.clear();
        center.doUpdateFutureCustomFee(account, test::makeCustomFutureFee({test::makeCustomCommission("5", 70)}, {}));
    }

    const boost::shared_ptr<CInstrument> rb = boost::make_shared<CInstrument>([] {
        CInstrument instrument;
        instrument.market = "SHFE";
        instrument.code = "rb2605";
        return instrument;
    }());
};

TEST_F(BadHostMapGapsTest, InstrumentThatOneTypeHoldsEmptyIsTakenFromTheOther) {
    for (const int typeOfGap : {2, 1024}) {
        host.instruments = {{rb, 0, 2 + 1024 - typeOfGap, ""}, {{}, 0, typeOfGap, "SHFE|rb2605"}};
        update();
        EXPECT_TRUE(storedCommission(*rb)) << typeOfGap;
    }
}

}  // namespace
