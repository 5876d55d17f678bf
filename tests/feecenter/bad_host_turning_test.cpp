#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/fickle_fixture.h"

// Instruments that are another one each time that they are asked for.

namespace {

using namespace qmservice;
using test::answerText;
using test::BadHostFickleTest;
using test::instrumentKey;
using test::kFullDefaultFee;
using test::kIncomeSwapFee;
using test::kNew;
using test::kSimulationFee;
using test::Scene;

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

TEST_F(BadHostFickleTest, FeeOfAnInstrumentThatIsAnotherEachTimeIsWhatEachStepWasTold) {
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

TEST_F(BadHostFickleTest, DefaultFutureFeeIsMadeOutForTheInstrumentThatTheLookupWasGiven) {
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

}  // namespace
