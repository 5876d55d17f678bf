#include "cost/rates.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "cost/support/builders.h"

namespace {

using namespace cost;       // NOLINT(google-build-using-namespace): what is tested
using namespace qmservice;  // NOLINT(google-build-using-namespace): the record classes
using boost::make_shared;
using cost_test::refusal;

CInstrumentFee answerFor(std::int32_t accountKind, const std::string& market = "SH") {
    CInstrumentFee answer;
    answer.account = make_shared<CAccountInfo>();
    answer.account->accountType = accountKind;
    answer.instrument = make_shared<CInstrument>();
    answer.instrument->market = market;
    return answer;
}

CInstrumentFee stockAnswer(std::int32_t accountKind, const std::string& market = "SH") {
    CInstrumentFee answer = answerFor(accountKind, market);
    answer.stkRateLimit = make_shared<CStkExchangeRateLimit>();
    return answer;
}

/// "commission 0.00025, stamp_duty 0"; fee items in front with a colon.
std::string said(const Rates& rates) {
    std::string text;
    for (const Rate& rate : rates.charges) {
        text += (text.empty() ? "" : ", ") + (rate.item.empty() ? "" : rate.item + ':') + rate.charge + ' ' +
                rate.value.text();
    }
    return text;
}

TEST(FamilyOfAnAnswer, OfAStockLikeRecordIsTheAccounts) {
    EXPECT_EQ(familyOf(stockAnswer(kStockAccount)), Family::kStock);
    EXPECT_EQ(familyOf(stockAnswer(kCreditAccount)), Family::kCredit);
    EXPECT_EQ(familyOf(stockAnswer(kNeeqAccount, "NEEQ")), Family::kNeeq);
    EXPECT_EQ(familyOf(stockAnswer(kIncomeSwapAccount)), Family::kStock);
    EXPECT_EQ(familyOf(stockAnswer(kPrimeBrokerageAccount)), Family::kStock);
    EXPECT_EQ(familyOf(stockAnswer(kPrimeBrokerageAccount, "NEEQ")), Family::kNeeq);
}

TEST(FamilyOfAnAnswer, WithoutAccountOrInstrumentIsStock) {
    CInstrumentFee answer;
    answer.stkRateLimit = make_shared<CStkExchangeRateLimit>();
    EXPECT_EQ(familyOf(answer), Family::kStock);
    answer.account = make_shared<CAccountInfo>();
    answer.account->accountType = kPrimeBrokerageAccount;
    EXPECT_EQ(familyOf(answer), Family::kStock);
}

TEST(FamilyOfAnAnswer, IsThatOfTheRecordItHolds) {
    CInstrumentFee option = answerFor(kOptionAccount, "SHO");
    option.stkOptionFeeRate = make_shared<CStockOptionFeeRate>();
    EXPECT_EQ(familyOf(option), Family::kOption);

    CInstrumentFee hgt = answerFor(kHgtAccount, "HK");
    hgt.hgtRateLimit = make_shared<CCustomHGTExchangeRateLimit>();
    EXPECT_EQ(familyOf(hgt), Family::kHgt);

    CInstrumentFee sgt = answerFor(kSgtAccount, "HK");
    sgt.sgtRateLimit = make_shared<CCustomSgtExchangeRateLimit>();
    EXPECT_EQ(familyOf(sgt), Family::kSgt);

    CInstrumentFee commission = answerFor(kFuturesAccount, "SHFE");
    commission.commissionDetail = make_shared<CCommissionRateDetail>();
    EXPECT_EQ(familyOf(commission), Family::kFutures);

    CInstrumentFee margin = answerFor(kIncomeSwapFuturesAccount, "CME");
    margin.marginDetails.resize(3);
    EXPECT_EQ(familyOf(margin), Family::kFutures);
}

TEST(FamilyOfAnAnswer, OfAStockWithAnOptionRateTooIsTheStocks) {
    CInstrumentFee answer = stockAnswer(kPrimeBrokerageAccount);
    answer.stkOptionFeeRate = make_shared<CStockOptionFeeRate>();
    EXPECT_EQ(familyOf(answer), Family::kStock);
}

TEST(FamilyOfAnAnswer, OfNoneOrSeveralIsNotSaid) {
    EXPECT_FALSE(familyOf(answerFor(kStockAccount)));
    CInstrumentFee everything = stockAnswer(kPrimeBrokerageAccount, "HK");
    everything.hgtRateLimit = make_shared<CCustomHGTExchangeRateLimit>();
    everything.sgtRateLimit = make_shared<CCustomSgtExchangeRateLimit>();
    EXPECT_FALSE(familyOf(everything));
    EXPECT_EQ(refusal([&] { ratesOf(answerFor(kStockAccount), {}); }), "the answer holds no rates");
    EXPECT_EQ(
        refusal([&] { ratesOf(everything, {}); }),
        "the answer holds rates of stock, hgt, sgt, and nobody can say which are charged; ask with an account that "
        "trades in one of them");
}

TEST(RatesOfAnAnswer, AreNamedByTheHostAndElseByTheirField) {
    CInstrumentFee answer = stockAnswer(kCreditAccount);
    answer.stkRateLimit->rate1 = 0.0002;
    answer.stkRateLimit->rate2 = 0.3 / 3;
    answer.stkRateLimit->rate6 = 0.0005;
    const RateNames names = {{Family::kStock, {{"rate1", "wrong"}}},
                             {Family::kCredit, {{"rate1", "commission"}, {"rate6", "stamp_duty"}}}};
    EXPECT_EQ(said(ratesOf(answer, names)),
              "commission 0.0002, rate2 0.1, rate3 0, rate4 0, rate5 0, stamp_duty 0.0005");
}

template <class Limit>
void fill(Limit& limit) {
    limit.rate1 = 0.01;
    limit.rate2 = 0.02;
    limit.rate3 = 0.03;
    limit.rate4 = 0.04;
    limit.rate5 = 0.05;
    limit.rate6 = 0.06;
    limit.rate7 = 0.07;
    limit.rate8 = 0.08;
    limit.rate9 = 0.09;
    limit.rate10 = 0.1;
    limit.rate11 = 0.11;
    limit.rate12 = 0.12;
    limit.rate13 = 0.13;
    limit.rate14 = 0.14;
}

TEST(RatesOfAnAnswer, OfAConnectChannelAreFourteen) {
    const std::string all =
        "commission 0.01, rate2 0.02, rate3 0.03, rate4 0.04, rate5 0.05, rate6 0.06, rate7 0.07, rate8 0.08, rate9 "
        "0.09, "
        "rate10 0.1, rate11 0.11, rate12 0.12, rate13 0.13, rate14 0.14";
    const RateNames names = {{Family::kHgt, {{"rate1", "commission"}}}, {Family::kSgt, {{"rate1", "commission"}}}};
    CInstrumentFee hgt = answerFor(kHgtAccount, "HK");
    hgt.hgtRateLimit = make_shared<CCustomHGTExchangeRateLimit>();
    fill(*hgt.hgtRateLimit);
    EXPECT_EQ(said(ratesOf(hgt, names)), all);
    CInstrumentFee sgt = answerFor(kSgtAccount, "HK");
    sgt.sgtRateLimit = make_shared<CCustomSgtExchangeRateLimit>();
    fill(*sgt.sgtRateLimit);
    EXPECT_EQ(said(ratesOf(sgt, names)), all);
}

TEST(RatesOfAnAnswer, OfAnOptionAreThoseOfEachFeeItem) {
    CInstrumentFee answer = answerFor(kOptionAccount, "SHO");
    answer.stkOptionFeeRate = make_shared<CStockOptionFeeRate>();
    answer.stkOptionFeeRate->items["000"] = make_shared<CStockOptionFeeItem>();
    answer.stkOptionFeeRate->items["000"]->fee1 = 1.3;
    answer.stkOptionFeeRate->items["000"]->fee5 = 0.6;
    answer.stkOptionFeeRate->items["001"] = nullptr;
    answer.stkOptionFeeRate->items["12"] = make_shared<CStockOptionFeeItem>();
    answer.stkOptionFeeRate->items["12"]->fee2 = 0.3;
    EXPECT_EQ(said(ratesOf(answer, {{Family::kOption, {{"fee1", "handling_fee"}}}})),
              "000:handling_fee 1.3, 000:fee2 0, 000:fee3 0, 000:fee4 0, 000:fee5 0.6, "
              "12:handling_fee 0, 12:fee2 0.3, 12:fee3 0, 12:fee4 0, 12:fee5 0");
}

TEST(RatesOfAnAnswer, OfFuturesHaveFixedNames) {
    CInstrumentFee answer = answerFor(kFuturesAccount, "CFFEX");
    answer.commissionDetail = make_shared<CCommissionRateDetail>();
    CCommissionRateDetail& detail = *answer.commissionDetail;
    detail.openRatioByMoney = 0.000023;
    detail.openRatioByVolume = 0.01;
    detail.closeRatioByMoney = 0.000024;
    detail.closeRatioByVolume = 0.02;
    detail.closeTodayRatioByMoney = 0.00023;
    detail.closeTodayRatioByVolume = 0.03;
    detail.commissionExtra1 = 1;
    detail.commissionExtra2 = 2;
    EXPECT_EQ(said(ratesOf(answer, {})),
              "open_by_money 0.000023, open_by_volume 0.01, close_by_money 0.000024, close_by_volume 0.02, "
              "close_today_by_money 0.00023, close_today_by_volume 0.03, commission_extra1 1, commission_extra2 2");
}

TEST(RatesOfAnAnswer, HoldTheMarginsThatAreSet) {
    CInstrumentFee answer = answerFor(kFuturesAccount, "CFFEX");
    answer.marginDetails.resize(3);
    answer.marginDetails[2] = make_shared<CMarginRateDetail>();
    CMarginRateDetail& detail = *answer.marginDetails[2];
    detail.hedgeFlag = '3';
    detail.longMarginRatio = 0.12;
    detail.longMarginRatioByVolume = 1;
    detail.shortMarginRatio = 0.13;
    detail.shortMarginRatioByVolume = 2;
    const Rates rates = ratesOf(answer, {});
    EXPECT_TRUE(rates.charges.empty());
    ASSERT_EQ(rates.margins.size(), 1U);
    const MarginRate& margin = rates.margins.front();
    EXPECT_EQ(margin.hedgeFlag, '3');
    EXPECT_EQ(margin.longByMoney.text(), "0.12");
    EXPECT_EQ(margin.longByVolume.text(), "1");
    EXPECT_EQ(margin.shortByMoney.text(), "0.13");
    EXPECT_EQ(margin.shortByVolume.text(), "2");
}

TEST(RatesOfAnAnswer, ThatAreNoNumbersAreRefused) {
    const std::vector<std::pair<double, std::string>> rows = {
        {std::numeric_limits<double>::quiet_NaN(), "nan"}, {1e-21, "1e-21"}, {-1e15, "-1e+15"}};
    for (const auto& [rate, text] : rows) {
        CInstrumentFee answer = stockAnswer(kStockAccount);
        answer.stkRateLimit->rate6 = rate;
        EXPECT_EQ(refusal([&] {
                      ratesOf(answer, {{Family::kStock, {{"rate6", "stamp_duty"}}}});
                  }),
                  "the rate stamp_duty is " + text + ", which is no rate");
    }
}

}  // namespace
