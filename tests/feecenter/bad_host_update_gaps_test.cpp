#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/gaps_fixture.h"

// Empty pointers in every place of a custom fee and of the instruments that the host lists for it: the other entries
// them count as if they were alone.

namespace {

using namespace qmservice;
using test::changesOf;
using test::faultOf;
using test::gapped;
using test::OpenFeeCenter;
using test::Operation;
using test::Scene;

/// The families in which some account's instruments point elsewhere.
std::string tablesThatDiffer(const OpenFeeCenter& center, const OpenFeeCenter& expected) {
    std::string families;
    test::forEachFamily(center, expected,
                        [&](const std::string& name, const auto&, const auto& table, const auto&,
                            const auto& expectedTable) { families += table == expectedTable ? "" : name + " "; });
    return families;
}

class BadHostUpdateGapsTest : public test::BadHostGapsTest {
protected:
    void update(OpenFeeCenter& center, const Scene::Record& fee) {
        center.updateCustomFee(account(), fee);
        host.runJobs();
    }

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
            expectSame(updateWith(bad), [&](OpenFeeCenter& center) { runOperation(center); });
        }
        for (const std::size_t gaps : {1U, 3U}) {
            expectSame(updateWith(List(gaps)), updateWith({}));
        }
    }
};

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
                    runOperation(center);
                },
                [&](OpenFeeCenter& center) {
                    host.instruments = good;
                    runOperation(center);
                });
        }
    }
    expectSame(
        [&](OpenFeeCenter& center) {
            host.instruments.assign(3, Listed{{}, ~0, ~0, ""});
            runOperation(center);
        },
        [&](OpenFeeCenter& center) {
            host.instruments.clear();
            runOperation(center);
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
    runOperation(expected);
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
