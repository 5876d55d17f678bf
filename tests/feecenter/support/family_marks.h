#ifndef TESTS_FEECENTER_SUPPORT_FAMILY_MARKS_H
#define TESTS_FEECENTER_SUPPORT_FAMILY_MARKS_H

#include <sstream>
#include <string>

#include "support/future_builders.h"

// Tables in which each family has a rate of its own for the same account and instrument, which shows where an answer
// comes from.

namespace test {

template <class Limit>
boost::shared_ptr<Limit> markedLimit(double rate1) {
    auto limit = boost::make_shared<Limit>();
    limit->rate1 = rate1;
    return limit;
}

/// Gives every family an entry. Futures get a commission alone, so that the two futures lookups differ in the margins.
inline void markFamilies(OpenFeeCenter& center, uint64 accountKey, uint64 instrumentKey) {
    center.stockRateLimitPool[1] = markedLimit<qmservice::CStkExchangeRateLimit>(101);
    center.stockAccountTable[accountKey][instrumentKey] = 1;
    center.creditRateLimitPool[1] = markedLimit<qmservice::CStkExchangeRateLimit>(102);
    center.creditAccountTable[accountKey][instrumentKey] = 1;
    center.neeqRateLimitPool[1] = markedLimit<qmservice::CStkExchangeRateLimit>(103);
    center.neeqAccountTable[accountKey][instrumentKey] = 1;
    center.hgtRateLimitPool[1] = markedLimit<qmservice::CCustomHGTExchangeRateLimit>(104);
    center.hgtAccountTable[accountKey][instrumentKey] = 1;
    center.sgtRateLimitPool[1] = markedLimit<qmservice::CCustomSgtExchangeRateLimit>(105);
    center.sgtAccountTable[accountKey][instrumentKey] = 1;
    auto item = boost::make_shared<qmservice::CStockOptionFeeItem>();
    item->fee1 = 106;
    center.stkOptionItemPool[1] = item;
    center.stkOptionAccountTable[accountKey][instrumentKey]["000"] = 1;
    center.futureCommissionDetails[1] = makeCommission(106);
    center.futureCommissionKeys[accountKey][instrumentKey] = 1;
}

// What an answer from each family's marked tables is described as.
const std::string kStock = "limit 101;";
const std::string kCredit = "limit 102;";
const std::string kNeeq = "limit 103;";
const std::string kHgt = "hgt 104;";
const std::string kSgt = "sgt 105;";
const std::string kOption = "option 106;";
const std::string kFuture = "commission 107;margins 3;";
const std::string kIncomeSwap = "commission 107;";
const std::string kStockWithOption = "limit 101;option 106;";
const std::string kFullDefault = "limit 0.00015;hgt 0;sgt 0;option 1.3;commission 0;margins 3;";
const std::string kNone = "none";

/// Which fields the fee has and the first value in each.
inline std::string describe(const boost::shared_ptr<CInstrumentFee>& fee) {
    if (!fee) {
        return kNone;
    }
    std::ostringstream text;
    const auto add = [&](const char* field, const auto& record, auto value) {
        if (record) {
            text << field << ' ' << (*record).*value << ';';
        }
    };
    add("limit", fee->stkRateLimit, &qmservice::CStkExchangeRateLimit::rate1);
    add("hgt", fee->hgtRateLimit, &qmservice::CCustomHGTExchangeRateLimit::rate1);
    add("sgt", fee->sgtRateLimit, &qmservice::CCustomSgtExchangeRateLimit::rate1);
    if (fee->stkOptionFeeRate) {
        text << "option " << fee->stkOptionFeeRate->items.at("000")->fee1 << ';';
    }
    add("commission", fee->commissionDetail, &CCommissionRateDetail::openRatioByMoney);
    if (!fee->marginDetails.empty()) {
        text << "margins " << fee->marginDetails.size() << ';';
    }
    return text.str();
}

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_FAMILY_MARKS_H
