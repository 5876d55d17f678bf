#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "support/fee_center_fixture.h"
#include "support/operations.h"

// Instruments that are another one each time that they are asked for: each step of a query uses its own answer from the
// host, and the fee carries the first.

namespace {

using namespace qmservice;
using test::answerText;
using test::instrumentKey;
using test::kFullDefaultFee;
using test::kIncomeSwapFee;
using test::kKnown;
using test::kNew;
using test::kSimulationFee;
using test::Scene;

/// A fee center with a scene's fees, on a host that answers the same question differently each time.
class TurningInstrumentsTest : public test::FeeCenterTest {
protected:
    TurningInstrumentsTest() {
        stageOperations(scene);
        scene.prepare(center);
    }

    /// Each time the catalogue is asked for an instrument, `answer(n)` sets it up, with n from 0.
    void beforeEachFind(const std::function<void(std::size_t)>& answer) {
        host.onCall = [this, answer](const std::string& operation) {
            if (operation == "findInstrument") {
                answer(finds++);
            }
        };
    }

    /// A configured limit of the family that `limits` belongs to.
    template <class Limits, class Limit>
    void configure(Limits& limits, boost::shared_ptr<Limit> CInstrumentFee::*slot, const std::string& market,
                   double rate) {
        limits[{market, "A"}] = (*Scene::fullFee(nullptr, rate)).*slot;
    }

    void configureStock(const std::string& market, double rate) {
        configure(host.rateLimits, &CInstrumentFee::stkRateLimit, market, rate);
    }

    Scene scene{{"A", "B", "C"}};
    std::size_t finds = 0;
};

struct Answers {
    int kind;
    std::vector<const char*> markets;  ///< of the instruments that the catalogue answers with, the last for good
    std::string answer;
};

const Answers kAnswers[] = {
    // The lookup asks for the configured limit of the instrument that it was given itself.
    {2, {"SH", "SH"}, "limit 50;"},
    {2, {"SH", "NEEQ"}, "limit 51;"},
    {3, {"NEEQ", "SH"}, "limit 50;"},
    {10, {"SH", "NEEQ"}, "limit 51;"},
    {7, {"SH", "SSEHKEX"}, "hgt 52;"},
    {7, {"SSEHKEX", "SH"}, "hgt default;"},
    {11, {"SH", "SZSEHKEX"}, "sgt 53;"},
    // The entry's own instrument decides between the stock and the income-swap lookup.
    {8, {"SH", "NEEQ"}, "limit 51;"},
    {8, {"NEEQ", "SH"}, kIncomeSwapFee},
    {8, {"DCE", "SH"}, kIncomeSwapFee},
    // Prime brokerage asks again and uses the new answer.
    {12, {"SH", "DCE", "SH"}, kSimulationFee},
    {12, {"DCE", "SH", "SH"}, "limit 50;option default;"},
    {12, {"DCE", "SH", "NEEQ"}, "limit 51;option default;"},
    {12, {"SH", "SSEHKEX", "SSEHKEX"}, "hgt 52;"},
    {12, {"SH", "NEEQ", "SH"}, "limit 50;"},
    {12, {"SH", "XX"}, kFullDefaultFee},
    {12, {"XX", "SHO"}, "option default;"},
    {12, {"SH", "CMEO", "SH"}, kIncomeSwapFee},
    {1, {"SH", "DCE"}, kSimulationFee},
    {16, {"SH", "DCE"}, kIncomeSwapFee}};

TEST_F(TurningInstrumentsTest, FeeOfAnInstrumentThatIsAnotherEachTimeIsWhatEachStepWasGiven) {
    configureStock("SH", 50);
    configureStock("NEEQ", 51);
    configure(host.hgtLimits, &CInstrumentFee::hgtRateLimit, "SSEHKEX", 52);
    configure(host.sgtLimits, &CInstrumentFee::sgtRateLimit, "SZSEHKEX", 53);
    const auto account = [](int kind) { return test::makeAccount(kind, kNew); };
    const uint64 askedKey = instrumentKey("BJ", "asked");
    for (const auto& row : kAnswers) {
        SCOPED_TRACE("kind " + std::to_string(row.kind) + " " + row.markets.at(0) + " " + row.markets.at(1));
        std::vector<Scene::Instrument> answers;
        for (const char* market : row.markets) {
            answers.push_back(host.catalogue.at(instrumentKey(market, "A")));
        }
        finds = 0;
        beforeEachFind([&](std::size_t n) { host.catalogue[askedKey] = answers.at(std::min(n, answers.size() - 1)); });
        const auto fee = center.getFee(account(row.kind), "BJ", "asked");
        EXPECT_EQ(answerText(fee), row.answer);
        EXPECT_EQ(fee->instrument, answers.front());
        EXPECT_EQ(finds, answers.size());
    }
}

TEST_F(TurningInstrumentsTest, DefaultFutureFeeIsMadeOutForTheInstrumentThatTheLookupWasGiven) {
    const auto first = host.addInstrument("SHFE", "first");
    const auto second = host.addInstrument("SHFE", "second");
    const uint64 askedKey = instrumentKey(*first);
    for (const int kind : {1, 5, 16}) {
        finds = 0;
        beforeEachFind([&](std::size_t n) { host.catalogue[askedKey] = n == 0 ? first : second; });
        const auto fee = center.getFee(test::makeAccount(kind, kNew), "SHFE", "first");
        EXPECT_EQ(fee->commissionDetail->instrumentId, "second");
        EXPECT_EQ(fee->instrument, first);
    }
    EXPECT_EQ(center.defaultFutureFee->commissionDetail->instrumentId, "");
    EXPECT_EQ(center.defaultIncomeSwapFutureFee->commissionDetail->instrumentId, "");
}

class StampTest : public TurningInstrumentsTest {
protected:
    StampTest() {
        // Every second record is of another market, and has the same key.
        host.onCall = [this](const std::string& operation) {
            if (operation == "findInstrument") {
                for (auto& known : host.catalogue) {
                    known.second = test::makeSceneInstrument(finds % 2 == 0 ? "first" : "second", "X");
                }
                ++finds;
            }
        };
    }
};

TEST_F(StampTest, ListedFeeCarriesTheListsInstrumentAndNotTheLookups) {
    for (const int kind : {1, 2, 3, 5, 6, 7, 10, 11}) {
        // Futures lookups ask for the instrument themselves; of the others the NEEQ list's alone, which finds nothing
        // among the stocks' entries.
        if (kind == 10) {
            center.stockAccountTable.erase(kKnown);
        }
        std::vector<boost::shared_ptr<CInstrumentFee>> fees;
        finds = 0;
        std::set<boost::shared_ptr<CInstrument>> stamped;
        const auto account = test::makeAccount(kind, kKnown);
        ASSERT_TRUE(center.getFees(account, fees));
        // The scene's known account: options of all three instruments, in other families entries of two.
        ASSERT_EQ(fees.size(), kind == 6 ? 3U : 2U) << kind;
        const bool asksTwice = kind == 1 || kind == 5 || kind == 10;
        EXPECT_EQ(finds, fees.size() * (asksTwice ? 2 : 1)) << kind;
        for (const auto& fee : fees) {
            stamped.insert(fee->instrument);
            EXPECT_EQ(fee->account, account);
            if (asksTwice) {
                EXPECT_EQ(fee->instrument->market, "first") << kind;
            }
        }
        EXPECT_EQ(stamped.size(), fees.size()) << kind;
    }
}

TEST_F(StampTest, FeeCarriesTheEntrysInstrumentAndNotTheLookups) {
    const auto& a = *scene.instruments.front();
    for (const int kind : {1, 5, 8, 16}) {
        for (const uint64 key : {kKnown, kNew}) {
            finds = 0;
            const auto fee = center.getFee(test::makeAccount(kind, key), a.market, a.code);
            ASSERT_TRUE(fee);
            EXPECT_EQ(finds, 2U) << kind;
            EXPECT_EQ(fee->instrument->market, "first") << kind;
        }
    }
}

}  // namespace
