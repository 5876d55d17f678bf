#include "histories/answers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <limits>

namespace histories {
namespace {

using namespace qmservice;
using ::testing::AllOf;
using ::testing::HasSubstr;

// The fee center's answer next to the model's, both made by hand.
class AnswersTest : public ::testing::Test {
protected:
    [[nodiscard]] std::string difference() const { return differenceOfAnswers(sharing, expected, actual); }

    /// A record that both sides share, as pooled ones are.
    template <class Record>
    void shareOne(boost::shared_ptr<Record> CInstrumentFee::*part) {
        (*expected).*part = boost::make_shared<Record>();
        (*actual).*part = boost::make_shared<Record>();
        ASSERT_TRUE(sharing.pair((*expected).*part, (*actual).*part));
    }

    Sharing sharing;
    Fee expected = boost::make_shared<CInstrumentFee>();
    Fee actual = boost::make_shared<CInstrumentFee>();
};

TEST_F(AnswersTest, AgreeWhenBothAreEmpty) {
    EXPECT_EQ(difference(), "");
    expected.reset();
    actual.reset();
    EXPECT_EQ(difference(), "");
}

TEST_F(AnswersTest, DifferWhenOneIsMissing) {
    actual.reset();
    EXPECT_EQ(difference(), "the answer: the model says CInstrumentFee{}, the fee center says nothing");
}

TEST_F(AnswersTest, DifferWhenSomeoneElseHoldsTheAnswer) {
    const Fee holder = actual;
    EXPECT_THAT(difference(), HasSubstr("the answer must be the caller's alone"));
}

TEST_F(AnswersTest, DifferByAnEqualInstrumentThatIsAnother) {
    expected->instrument = boost::make_shared<CInstrument>();
    actual->instrument = boost::make_shared<CInstrument>();
    EXPECT_THAT(difference(), HasSubstr("instrument: "));
}

TEST_F(AnswersTest, DifferByAnEqualAccountThatIsAnother) {
    expected->account = boost::make_shared<CAccountInfo>();
    actual->account = boost::make_shared<CAccountInfo>();
    EXPECT_THAT(difference(), HasSubstr("account: "));
}

TEST_F(AnswersTest, AgreeOnASharedRecord) {
    shareOne(&CInstrumentFee::stkRateLimit);
    shareOne(&CInstrumentFee::hgtRateLimit);
    shareOne(&CInstrumentFee::sgtRateLimit);
    shareOne(&CInstrumentFee::stkOptionFeeRate);
    shareOne(&CInstrumentFee::commissionDetail);
    EXPECT_EQ(difference(), "");
}

TEST_F(AnswersTest, DifferByAnEqualCopyOfASharedRecord) {
    shareOne(&CInstrumentFee::hgtRateLimit);
    const auto kept = actual->hgtRateLimit;
    actual->hgtRateLimit = boost::make_shared<CCustomHGTExchangeRateLimit>(*kept);
    EXPECT_THAT(difference(), AllOf(HasSubstr("hgtRateLimit"), HasSubstr("not the shared record it must be")));
}

TEST_F(AnswersTest, DifferByASharedRecordInPlaceOfAnOwnOne) {
    shareOne(&CInstrumentFee::stkRateLimit);
    expected->stkRateLimit = boost::make_shared<CStkExchangeRateLimit>(*expected->stkRateLimit);
    EXPECT_THAT(difference(), HasSubstr("a shared record where the answer must have its own"));
}

TEST_F(AnswersTest, DifferByAnOwnRecordThatSomeoneElseHolds) {
    expected->commissionDetail = boost::make_shared<CCommissionRateDetail>();
    actual->commissionDetail = boost::make_shared<CCommissionRateDetail>();
    EXPECT_EQ(difference(), "");
    const auto holder = actual->commissionDetail;
    EXPECT_THAT(difference(), HasSubstr("commissionDetail must be the answer's own"));
}

TEST_F(AnswersTest, DifferByAFieldOfAnOwnRecord) {
    expected->stkRateLimit = boost::make_shared<CStkExchangeRateLimit>();
    actual->stkRateLimit = boost::make_shared<CStkExchangeRateLimit>();
    actual->stkRateLimit->unitVolume = 100;
    EXPECT_EQ(difference(), "stkRateLimit, unitVolume: the model says 0, the fee center says 100");
}

TEST_F(AnswersTest, DifferByTheSignOfAZeroButNotByWhichNaN) {
    expected->stkRateLimit = boost::make_shared<CStkExchangeRateLimit>();
    actual->stkRateLimit = boost::make_shared<CStkExchangeRateLimit>();
    expected->stkRateLimit->rate1 = std::numeric_limits<double>::quiet_NaN();
    actual->stkRateLimit->rate1 = -std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(difference(), "");
    actual->stkRateLimit->rate2 = -0.0;
    EXPECT_EQ(difference(), "stkRateLimit, rate2: the model says 0, the fee center says -0");
}

TEST_F(AnswersTest, DifferByTheNumberOfMargins) {
    expected->marginDetails.resize(3);
    actual->marginDetails.resize(2);
    EXPECT_EQ(difference(),
              "marginDetails: the model says [nothing, nothing, nothing], the fee center says [nothing, "
              "nothing]");
}

TEST_F(AnswersTest, DifferByAMarginInAnotherSlot) {
    expected->marginDetails = {nullptr, boost::make_shared<CMarginRateDetail>()};
    actual->marginDetails = {boost::make_shared<CMarginRateDetail>(), nullptr};
    EXPECT_THAT(difference(), HasSubstr("marginDetails: the model says nothing"));
}

TEST_F(AnswersTest, DifferByAnItemKeyOfAnOwnOptionRate) {
    const auto modelled = boost::make_shared<CStockOptionFeeItem>();
    const auto real = boost::make_shared<CStockOptionFeeItem>();
    ASSERT_TRUE(sharing.pair(modelled, real));
    expected->stkOptionFeeRate = boost::make_shared<CStockOptionFeeRate>();
    actual->stkOptionFeeRate = boost::make_shared<CStockOptionFeeRate>();
    expected->stkOptionFeeRate->items["000"] = modelled;
    actual->stkOptionFeeRate->items["000"] = real;
    EXPECT_EQ(difference(), "");
    actual->stkOptionFeeRate->items = {{"001", real}};
    EXPECT_THAT(difference(), HasSubstr("stkOptionFeeRate, items"));
}

TEST_F(AnswersTest, DifferByAnItemThatIsAnEqualCopy) {
    const auto modelled = boost::make_shared<CStockOptionFeeItem>();
    const auto real = boost::make_shared<CStockOptionFeeItem>();
    ASSERT_TRUE(sharing.pair(modelled, real));
    expected->stkOptionFeeRate = boost::make_shared<CStockOptionFeeRate>();
    actual->stkOptionFeeRate = boost::make_shared<CStockOptionFeeRate>();
    expected->stkOptionFeeRate->items["000"] = modelled;
    actual->stkOptionFeeRate->items["000"] = boost::make_shared<CStockOptionFeeItem>(*real);
    EXPECT_THAT(difference(), HasSubstr("not the shared record it must be"));
}

TEST_F(AnswersTest, DifferByTheBaseRateOfAnOwnOptionRate) {
    expected->stkOptionFeeRate = boost::make_shared<CStockOptionFeeRate>();
    actual->stkOptionFeeRate = boost::make_shared<CStockOptionFeeRate>();
    actual->stkOptionFeeRate->baseRate = 0.2;
    EXPECT_THAT(difference(), HasSubstr("stkOptionFeeRate, baseRate: the model says 0, the fee center says 0.2"));
}

TEST(SharingTest, RefusesARecordThatStandsForAnotherAlready) {
    Sharing sharing;
    const auto one = boost::make_shared<CStkExchangeRateLimit>();
    const auto two = boost::make_shared<CStkExchangeRateLimit>();
    const auto three = boost::make_shared<CStkExchangeRateLimit>();
    EXPECT_TRUE(sharing.pair(one, two));
    EXPECT_TRUE(sharing.pair(one, two));
    EXPECT_FALSE(sharing.pair(one, three));
    EXPECT_FALSE(sharing.pair(three, two));
}

}  // namespace
}  // namespace histories
