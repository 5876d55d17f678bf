#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/fickle_fixture.h"
#include "support/table_checks.h"

// Instruments that come and go between two questions.

namespace {

using namespace qmservice;
using test::answerText;
using test::BadHostFickleTest;
using test::instrumentKey;
using test::kFullDefaultFee;
using test::kIncomeSwapFee;
using test::kKnown;
using test::kNew;
using test::kSimulationFee;
using test::Scene;

struct Appearances {
    uint64 account;
    int kind;
    const char* market;
    const char* known;  ///< for each time that the catalogue is asked, whether it knows the instrument
    std::string answer;
};

const std::string kNothing = "none";

const Appearances kAppearances[] = {{kNew, 1, "SH", "0", kNothing},
                                    {kNew, 1, "SH", "10", kNothing},
                                    {kNew, 1, "SH", "11", kSimulationFee},
                                    {kNew, 2, "SH", "0", kNothing},
                                    {kNew, 2, "SH", "10", "limit default;"},
                                    {kNew, 2, "SH", "11", "limit 50;"},
                                    {kNew, 3, "SH", "0", kNothing},
                                    {kNew, 3, "SH", "10", "limit default;"},
                                    {kNew, 3, "SH", "11", "limit 50;"},
                                    {kNew, 4, "SH", "1", kNothing},
                                    {kNew, 5, "SH", "10", kNothing},
                                    {kNew, 5, "SH", "11", kSimulationFee},
                                    {kNew, 6, "SH", "0", kNothing},
                                    {kNew, 6, "SH", "1", "option default;"},
                                    {kNew, 7, "SH", "0", kNothing},
                                    {kNew, 7, "SH", "10", "hgt default;"},
                                    {kNew, 7, "SH", "11", "hgt 51;"},
                                    {kNew, 8, "SH", "0", kNothing},
                                    {kNew, 8, "SH", "10", "limit default;"},
                                    {kNew, 8, "SH", "11", "limit 50;"},
                                    {kNew, 8, "DCE", "10", kNothing},
                                    {kNew, 8, "DCE", "11", kIncomeSwapFee},
                                    {kNew, 10, "SH", "10", "limit default;"},
                                    {kNew, 10, "SH", "11", "limit 50;"},
                                    {kNew, 11, "SH", "10", "sgt default;"},
                                    {kNew, 11, "SH", "11", "sgt 52;"},
                                    {kNew, 16, "SH", "10", kNothing},
                                    {kNew, 16, "SH", "11", kIncomeSwapFee},
                                    {kNew, 12, "SH", "0", kNothing},
                                    {kNew, 12, "SH", "10", kNothing},
                                    {kNew, 12, "SH", "110", "limit default;option default;"},
                                    {kNew, 12, "SH", "111", "limit 50;option default;"},
                                    {kNew, 12, "DCE", "10", kNothing},
                                    {kNew, 12, "DCE", "110", kFullDefaultFee},
                                    {kNew, 12, "DCE", "111", kSimulationFee},
                                    {kNew, 12, "SSEHKEX", "110", "hgt default;"},
                                    {kNew, 12, "SSEHKEX", "111", "hgt 51;"},
                                    {kNew, 12, "SZSEHKEX", "110", "sgt default;"},
                                    {kNew, 12, "SZSEHKEX", "111", "sgt 52;"},
                                    {kNew, 12, "HK", "10", kNothing},
                                    {kNew, 12, "HK", "1100", kFullDefaultFee},
                                    {kNew, 12, "HK", "1101", kFullDefaultFee},
                                    {kNew, 12, "HK", "1111", kFullDefaultFee},
                                    {kNew, 12, "SHO", "10", kNothing},
                                    {kNew, 12, "SHO", "11", "option default;"},
                                    {kNew, 12, "CMEO", "110", kFullDefaultFee},
                                    {kNew, 12, "CMEO", "111", kIncomeSwapFee},
                                    {kNew, 12, "NEEQ", "110", "limit default;"},
                                    {kNew, 12, "NEEQ", "111", "limit 50;"},
                                    {kNew, 12, "XX", "10", kNothing},
                                    {kNew, 12, "XX", "11", kFullDefaultFee},
                                    {kKnown, 1, "SH", "0", kNothing},
                                    {kKnown, 1, "SH", "10", "commission 21;margin 21;margin 121;margin 221;"},
                                    {kKnown, 2, "SH", "0", kNothing},
                                    {kKnown, 2, "SH", "1", "limit 20;"},
                                    {kKnown, 12, "SH", "10", kNothing},
                                    {kKnown, 12, "SH", "11", "limit 20;option 000 20,;"},
                                    {kKnown, 16, "SH", "10", "commission 21;margin 21;margin 121;margin 221;"}};

TEST_F(BadHostFickleTest, FeeOfAnInstrumentThatComesAndGoesIsWhatEachStepWasTold) {
    for (const char* market : {"SH", "NEEQ", "SSEHKEX", "SZSEHKEX"}) {
        configureStock(market, 50);
        configure(host.hgtLimits, &CInstrumentFee::hgtRateLimit, market, 51);
        configure(host.sgtLimits, &CInstrumentFee::sgtRateLimit, market, 52);
    }
    for (const auto& row : kAppearances) {
        SCOPED_TRACE("account " + std::to_string(row.account) + " kind " + std::to_string(row.kind) + " " + row.market +
                     " " + row.known);
        const auto account = test::makeAccount(row.kind, row.account);
        const auto instrument = host.catalogue.at(instrumentKey(row.market, "A"));
        const std::string known = row.known;
        finds = 0;
        beforeEachFind([&](std::size_t n) {
            host.catalogue[instrumentKey(*instrument)] = n < known.size() && known[n] == '1' ? instrument : nullptr;
        });
        const auto fee = center.getFee(account, row.market, "A");
        host.catalogue[instrumentKey(*instrument)] = instrument;
        EXPECT_EQ(answerText(fee), row.answer);
        EXPECT_EQ(finds, known.size());
        EXPECT_TRUE(!fee || (fee->instrument == instrument && fee->account == account));
        EXPECT_EQ(test::faultOf(center), "");
    }
}

struct FickleList {
    int kind;
    bool looksUpAgain;                 ///< whether each entry's lookup asks the catalogue too
    std::vector<std::string> answers;  ///< of A and B
    std::string answerToUnknown;       ///< where the lookup's own question finds nothing; empty when it stays the same
};

void PrintTo(const FickleList& list, std::ostream* out) { *out << "kind " << list.kind; }

class BadHostFickleListTest : public BadHostFickleTest, public ::testing::WithParamInterface<FickleList> {};

TEST_P(BadHostFickleListTest, ListHoldsWhatItKnewWhenItAsked) {
    const auto& list = GetParam();
    for (const auto& instrument : scene.instruments) {
        host.rateLimits[{"SH", instrument->code}] = Scene::fullFee(instrument, 50)->stkRateLimit;
    }
    // The third instrument has options alone; the lists are about the other two.
    center.stkOptionAccountTable.at(kKnown).erase(instrumentKey("SH", "C"));
    if (list.kind == 10) {
        center.stockAccountTable.clear();  // its entries are stock lookups, which now fall back
    }
    const auto account = test::makeAccount(list.kind, kKnown);
    std::vector<boost::shared_ptr<CInstrumentFee>> all;
    ASSERT_TRUE(center.getFees(account, all));
    ASSERT_EQ(all.size(), 2U);

    const auto catalogue = host.catalogue;
    for (unsigned known = 0; known < 16; ++known) {
        SCOPED_TRACE(known);
        const auto isKnown = [known](std::size_t n) { return (known >> n & 1U) != 0; };
        std::vector<std::string> expected;
        std::size_t asked = 0;
        for (const auto& entry : all) {
            if (isKnown(asked++)) {
                const std::string answer = list.answers.at(entry->instrument->code == "A" ? 0 : 1);
                const bool lost = list.looksUpAgain && !isKnown(asked++) && !list.answerToUnknown.empty();
                expected.push_back(entry->instrument->code + " " + (lost ? list.answerToUnknown : answer));
            }
        }
        finds = 0;
        beforeEachFind([&](std::size_t n) {
            host.catalogue.clear();
            if (isKnown(n)) {
                host.catalogue = catalogue;
            }
        });
        std::vector<boost::shared_ptr<CInstrumentFee>> fees;
        EXPECT_TRUE(center.getFees(account, fees));
        std::vector<std::string> answers;
        for (const auto& fee : fees) {
            ASSERT_TRUE(fee && fee->instrument && fee->account == account);
            answers.push_back(fee->instrument->code + " " + answerText(fee));
        }
        EXPECT_EQ(answers, expected);
        EXPECT_EQ(finds, asked);
    }
}

const FickleList kFickleLists[] = {
    {1, true, {"commission 21;margin 21;margin 121;margin 221;", "commission 22;margin 22;margin 122;margin 222;"}, ""},
    {2, false, {"limit 20;", "limit 21;"}, ""},
    {3, false, {"limit 20;", "limit 21;"}, ""},
    {6, false, {"option 000 20,;", "option 000 20,;"}, ""},
    {7, false, {"hgt 20;", "hgt 21;"}, ""},
    {10, true, {"limit 50;", "limit 50;"}, "limit default;"},
    {11, false, {"sgt 20;", "sgt 21;"}, ""}};

INSTANTIATE_TEST_SUITE_P(Kinds, BadHostFickleListTest, ::testing::ValuesIn(kFickleLists),
                         [](const auto& list) { return "Kind" + std::to_string(list.param.kind); });

}  // namespace
