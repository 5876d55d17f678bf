#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <cmath>
#include <ostream>
#include <string>
#include <vector>

#include "histories/side_by_side.h"
#include "histories/world.h"
#include "support/builders.h"

// That the comparison sees what it is there to see: faults are planted in the fee center's tables.

namespace histories {
namespace {

using namespace qmservice;
using ::testing::AllOf;
using ::testing::HasSubstr;

constexpr uint64 kStockAccount = 100;
constexpr uint64 kFutureAccount = 101;
constexpr uint64 kOptionAccount = 103;

/// A fee center and a model with a few fees of several families, which agree.
struct Agreeing {
    Agreeing() {
        load(2, kStockAccount, stockFee("600000", 0.0001));
        load(3, kStockAccount, stockFee("600000", 0.0001));
        load(1, kFutureAccount, futureFee());
        update(6, kOptionAccount, optionFee());
        agreed = both.compareAll();
    }

    [[nodiscard]] Account account(int kind, uint64 key) const {
        for (const auto& each : world.accounts(Focus::all)) {
            if (each->accountType == kind && each->getHashKey(0) == key) {
                return each;
            }
        }
        return {};
    }

    [[nodiscard]] Instrument instrument(const std::string& market, const std::string& code) const {
        return world.facts.catalogue.at(model::joinedKey(market, code));
    }

    void load(int kind, uint64 key, const Record& record) {
        both.initFees(account(kind, key), {record});
        both.runJobs();
    }

    void update(int kind, uint64 key, const Record& record) {
        both.updateCustomFee(account(kind, key), record);
        both.runJobs();
    }

    [[nodiscard]] Record stockFee(const std::string& code, double rate) const {
        return test::makeFee(instrument("SH", code), test::makeLimit(rate));
    }

    [[nodiscard]] Record futureFee() const {
        auto fee = boost::make_shared<CInstrumentFee>();
        fee->instrument = instrument("SHFE", "rb2605");
        fee->commissionDetail = boost::make_shared<CCommissionRateDetail>();
        fee->commissionDetail->openRatioByVolume = 2;
        fee->marginDetails.push_back(boost::make_shared<CMarginRateDetail>());
        fee->marginDetails.back()->hedgeFlag = '1';
        return fee;
    }

    static Record optionFee() {
        auto limit = test::makeCustomLimit("five", 0);
        limit->optionFee1 = 1.5;
        limit->optionFirstKeyCode = limit->optionSecondKeyCode = limit->optionThirdKeyCode = '0';
        return test::makeCustomFee(limit);
    }

    World world;
    SideBySide both{world};
    test::OpenFeeCenter& center = both.feeCenter();
    std::string agreed;
};

class ComparisonTest : public ::testing::Test, protected Agreeing {
protected:
    void SetUp() override { ASSERT_EQ(agreed, ""); }
};

/// What is wrong with the fee center or with the host's records, and what the comparison says of it.
struct Fault {
    const char* name;
    void (*plant)(Agreeing& sides);
    std::vector<const char*> complaint;
};

void PrintTo(const Fault& fault, std::ostream* out) { *out << fault.name; }

const char* const kHostsRecord = "a record of the host's was";

const Fault kFaults[] = {
    {"LastBit",
     [](Agreeing& sides) {
         double& rate = sides.center.creditRateLimitPool.begin()->second->rate1;
         rate = std::nextafter(rate, 1);
     },
     {"creditRateLimitPool", "rate1"}},
    {"PooledRecordReplacedByAnEqualOne",
     [](Agreeing& sides) {
         auto& pooled = sides.center.futureCommissionDetails.begin()->second;
         pooled = boost::make_shared<CCommissionRateDetail>(*pooled);
     },
     {"futureCommissionDetails", "another record"}},
    {"RecordOfTwoPools",
     [](Agreeing& sides) {
         sides.center.creditRateLimitPool.begin()->second = sides.center.stockRateLimitPool.begin()->second;
     },
     {"stockRateLimitPool holds a record that someone else holds too"}},
    {"LostEntry",
     [](Agreeing& sides) { sides.center.stockAccountTable[kStockAccount].clear(); },
     {"stockAccountTable has 0 entries where the model has 1"}},
    {"EntryOfAnotherRecord",
     [](Agreeing& sides) { sides.center.futureMarginKeys[kFutureAccount].begin()->second.front() = ~uint64{0}; },
     {"futureMarginKeys does not name the model's record for \"SHFE|rb2605\""}},
    {"RecordTooMany",
     [](Agreeing& sides) { sides.center.hgtRateLimitPool[1] = boost::make_shared<CCustomHGTExchangeRateLimit>(); },
     {"hgtRateLimitPool has 1 entries where the model has 0"}},
    {"DefaultWritten",
     [](Agreeing& sides) { sides.center.defaultHgtRateLimit->rate4 = 0.0014; },
     {"defaultHgtRateLimit", "rate4: the model says 0.0013, the fee center says 0.0014"}},
    {"ConfiguredLimitWritten",
     [](Agreeing& sides) { sides.world.facts.rateLimits.begin()->second->rate2 = 9; },
     {kHostsRecord, "rate2 9"}},
    {"InstrumentOfTheCatalogueAloneWritten",
     [](Agreeing& sides) { sides.instrument("HK", "09988")->closeFee = 9; },
     {kHostsRecord, "closeFee 9"}}};

class PlantedFaultTest : public ComparisonTest, public ::testing::WithParamInterface<Fault> {};

TEST_P(PlantedFaultTest, IsSeen) {
    GetParam().plant(*this);
    const std::string seen = both.compareAll();
    for (const char* part : GetParam().complaint) {
        EXPECT_THAT(seen, HasSubstr(part));
    }
}

INSTANTIATE_TEST_SUITE_P(Faults, PlantedFaultTest, ::testing::ValuesIn(kFaults),
                         [](const auto& fault) { return std::string(fault.param.name); });

TEST_F(ComparisonTest, SeesThatAnEmptyListWasNotInserted) {
    const auto limit = test::makeCustomLimit("10001", 0.5);
    for (int number = -10002; number < 0; ++number) {
        limit->customCategories[number];
    }
    update(2, kStockAccount, test::makeCustomFee(limit));
    ASSERT_EQ(limit->customCategories.erase(10001), 1U);
    EXPECT_THAT(both.compareAll(), HasSubstr("a record of the host's was"));
}

TEST_F(ComparisonTest, SeesARecordOfAQueuedChangeThatWasWritten) {
    const auto fee = boost::dynamic_pointer_cast<CInstrumentFee>(stockFee("600001", 0.0001));
    both.initFees(account(2, kStockAccount), {fee});
    ASSERT_EQ(both.compareAll(), "");
    fee->stkRateLimit->rate5 = 9;
    EXPECT_THAT(both.compareAll(), AllOf(HasSubstr("a record of the host's was"), HasSubstr("rate5 9")));
}

}  // namespace
}  // namespace histories
