#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <cmath>
#include <cstddef>
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
class ComparisonTest : public ::testing::Test {
protected:
    ComparisonTest() {
        load(2, kStockAccount, stockFee("600000", 0.0001));
        load(3, kStockAccount, stockFee("600000", 0.0001));
        load(1, kFutureAccount, futureFee());
        update(6, kOptionAccount, optionFee());
        agreed = both.compareAll();
    }

    void SetUp() override { ASSERT_EQ(agreed, ""); }

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

TEST_F(ComparisonTest, CountsTheFeesOfAnswersAndOfLists) {
    std::size_t answered = 0;
    std::size_t empty = 0;
    std::size_t listed = 0;
    for (const auto& each : world.accounts(Focus::all)) {
        std::vector<Fee> fees;
        center.getFees(each, fees);
        listed += 4 * fees.size();
        for (const auto& question : world.questions) {
            // In four comparisons each name is asked for by market and code once.
            (center.getFee(each, question.key) ? answered : empty) += question.joins ? 5U : 4U;
        }
    }
    ASSERT_GT(answered, 0U);
    ASSERT_GT(empty, 0U);
    ASSERT_GT(listed, 0U);
    const auto before = both.answersCompared();
    for (int i = 0; i < 4; ++i) {
        ASSERT_EQ(both.compareAll(), "");
    }
    EXPECT_EQ(both.answersCompared() - before, answered + listed);
}

TEST_F(ComparisonTest, SeesAPooledRecordThatWasWritten) {
    center.stockRateLimitPool.begin()->second->rate3 = 0.5;
    EXPECT_THAT(both.compareAll(), AllOf(HasSubstr("stockRateLimitPool"), HasSubstr("rate3: the model says 0, "),
                                         HasSubstr("the fee center says 0.5")));
}

TEST_F(ComparisonTest, SeesAChangeOfTheLastBit) {
    double& rate = center.creditRateLimitPool.begin()->second->rate1;
    rate = std::nextafter(rate, 1);
    EXPECT_THAT(both.compareAll(), AllOf(HasSubstr("creditRateLimitPool"), HasSubstr("rate1")));
}

TEST_F(ComparisonTest, SeesAPooledRecordReplacedByAnEqualOne) {
    auto& pooled = center.futureCommissionDetails.begin()->second;
    const auto old = pooled;
    pooled = boost::make_shared<CCommissionRateDetail>(*old);
    EXPECT_THAT(both.compareAll(), AllOf(HasSubstr("futureCommissionDetails"), HasSubstr("another record")));
}

TEST_F(ComparisonTest, SeesARecordThatTwoPoolsShare) {
    center.creditRateLimitPool.begin()->second = center.stockRateLimitPool.begin()->second;
    EXPECT_THAT(both.compareAll(), HasSubstr("stockRateLimitPool holds a record that someone else holds too"));
}

TEST_F(ComparisonTest, SeesALostEntry) {
    center.stockAccountTable[kStockAccount].clear();
    EXPECT_THAT(both.compareAll(), HasSubstr("stockAccountTable has 0 entries where the model has 1"));
}

TEST_F(ComparisonTest, SeesALostItemOfAnOption) {
    center.stkOptionAccountTable[kOptionAccount].begin()->second.clear();
    EXPECT_THAT(both.compareAll(), HasSubstr("stkOptionAccountTable does not name the model's record"));
}

TEST_F(ComparisonTest, SeesAnEntryThatNamesAnotherRecord) {
    center.futureMarginKeys[kFutureAccount].begin()->second.front() = ~uint64{0};
    EXPECT_THAT(both.compareAll(), HasSubstr("futureMarginKeys does not name the model's record for \"SHFE|rb2605\""));
}

TEST_F(ComparisonTest, SeesARecordTooManyInAPool) {
    center.hgtRateLimitPool[1] = boost::make_shared<CCustomHGTExchangeRateLimit>();
    EXPECT_THAT(both.compareAll(), HasSubstr("hgtRateLimitPool has 1 entries where the model has 0"));
}

TEST_F(ComparisonTest, SeesAnAccountThatShouldHaveNoTable) {
    center.sgtAccountTable[7];
    EXPECT_THAT(both.compareAll(), HasSubstr("sgtAccountTable has 1 entries where the model has 0"));
}

TEST_F(ComparisonTest, SeesADefaultThatWasWritten) {
    center.defaultHgtRateLimit->rate4 = 0.0014;
    EXPECT_THAT(both.compareAll(), AllOf(HasSubstr("defaultHgtRateLimit"),
                                         HasSubstr("rate4: the model says 0.0013, the fee center says 0.0014")));
}

TEST_F(ComparisonTest, SeesAnItemOfADefaultThatWasWritten) {
    center.defaultStkOptionFeeRate->items.at("0D")->fee3 = 0;
    EXPECT_THAT(both.compareAll(), AllOf(HasSubstr("defaultStkOptionFeeRate"), HasSubstr("fee3")));
}

TEST_F(ComparisonTest, SeesADefaultReplacedByAnEqualOne) {
    center.defaultNeeqRateLimit = boost::make_shared<CStkExchangeRateLimit>(*center.defaultNeeqRateLimit);
    EXPECT_THAT(both.compareAll(), HasSubstr("defaultNeeqRateLimit has another record in the place of"));
}

TEST_F(ComparisonTest, SeesAnEmptyFeeThatIsNone) {
    center.emptyFee = boost::make_shared<CInstrumentFee>();
    EXPECT_THAT(both.compareAll(), HasSubstr("emptyFee"));
}

TEST_F(ComparisonTest, SeesABaseRateFromNowhere) {
    const auto instrumentKey = center.stkOptionAccountTable[kOptionAccount].begin()->first;
    center.stkOptionBaseRateTable[kOptionAccount][instrumentKey] = 0.7;
    EXPECT_THAT(both.compareAll(), HasSubstr("stkOptionBaseRateTable"));
}

TEST_F(ComparisonTest, SeesAConfiguredLimitThatWasWritten) {
    world.facts.rateLimits.begin()->second->rate2 = 9;
    EXPECT_THAT(both.compareAll(), AllOf(HasSubstr("a record of the host's was"), HasSubstr("rate2 9")));
}

TEST_F(ComparisonTest, SeesAnInstrumentThatWasWritten) {
    instrument("SHFE", "rb2605")->productId = "written";
    EXPECT_THAT(both.compareAll(), AllOf(HasSubstr("a record of the host's was"), HasSubstr("productId \"written\"")));
}

TEST_F(ComparisonTest, SeesAnAccountThatWasWritten) {
    account(2, kStockAccount)->platformId = 77;
    EXPECT_THAT(both.compareAll(), AllOf(HasSubstr("a record of the host's was"), HasSubstr("platformId 77")));
}

TEST_F(ComparisonTest, SeesAnInstrumentOfTheCatalogueAloneThatWasWritten) {
    instrument("HK", "09988")->closeFee = 9;
    EXPECT_THAT(both.compareAll(), AllOf(HasSubstr("a record of the host's was"), HasSubstr("closeFee 9")));
}

TEST_F(ComparisonTest, SeesAnEmptyListThatTheModelDoesNotInsert) {
    const auto limit = test::makeCustomLimit("10001", 0.5);
    update(2, kStockAccount, test::makeCustomFee(limit));
    ASSERT_EQ(limit->customCategories.size(), 0U);
    limit->customCategories[10001];
    EXPECT_THAT(both.compareAll(), HasSubstr("a record of the host's was"));
}

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

TEST_F(ComparisonTest, SeesAChangeThatOnlyTheFeeCenterHasMade) {
    center.doInitNeeqFee(account(10, kStockAccount), {stockFee("600000", 0.5)});
    EXPECT_THAT(both.compareAll(), HasSubstr("neeqRateLimitPool has 1 entries where the model has 0"));
}

TEST_F(ComparisonTest, RunsTheOldestChangeAlone) {
    for (const double rate : {0.1, 0.2, 0.3}) {
        both.initFees(account(2, kStockAccount), {stockFee("600000", rate)});
    }
    for (const double rate : {0.1, 0.2, 0.3}) {
        both.runJob();
        EXPECT_EQ(center.getFee(account(2, kStockAccount), "SH", "600000")->stkRateLimit->rate1, rate);
        EXPECT_EQ(both.compareAll(), "");
    }
}

}  // namespace
}  // namespace histories
