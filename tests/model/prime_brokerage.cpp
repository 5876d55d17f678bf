#include <boost/smart_ptr/make_shared.hpp>
#include <map>
#include <string>

#include "model/lookup.h"
#include "model/model.h"

// The lookup across families, by market.

namespace model {
namespace {

using namespace qmservice;

enum class Family { kNone, kStockWithOption, kFuture, kHgt, kSgt, kOption, kIncomeSwap, kNeeq };

/// In these markets the host has no say. A Hong Kong instrument has no family of its own here.
const std::map<std::string, Family> kFamilies{
    {"BJ", Family::kStockWithOption},
    {"SH", Family::kStockWithOption},
    {"SSE", Family::kStockWithOption},
    {"SZ", Family::kStockWithOption},
    {"SZSE", Family::kStockWithOption},
    {"CFFEX", Family::kFuture},
    {"CZCE", Family::kFuture},
    {"DCE", Family::kFuture},
    {"DF", Family::kFuture},
    {"GF", Family::kFuture},
    {"GFEX", Family::kFuture},
    {"IF", Family::kFuture},
    {"INE", Family::kFuture},
    {"SF", Family::kFuture},
    {"SHFE", Family::kFuture},
    {"ZF", Family::kFuture},
    {"HGT", Family::kHgt},
    {"SSEHKEX", Family::kHgt},
    {"SGT", Family::kSgt},
    {"SZSEHKEX", Family::kSgt},
    {"HK", Family::kNone},
    {"SHO", Family::kOption},
    {"SZO", Family::kOption},
    {"CBOTO", Family::kIncomeSwap},
    {"CMEO", Family::kIncomeSwap},
    {"COMEXO", Family::kIncomeSwap},
    {"NYMEXO", Family::kIncomeSwap},
    {"WP", Family::kIncomeSwap},
};

/// And these are the market's own only where the host does not count it as foreign.
const std::map<std::string, Family> kFamiliesUnlessForeign{{"NEEQ", Family::kNeeq}};

Family familyOf(const std::string& market, const Facts& facts) {
    const bool foreign = facts.foreignMarkets.count(market) != 0 || market.substr(0, 3) == "WP.";
    const Family open = foreign ? Family::kIncomeSwap : valueOr(kFamiliesUnlessForeign, market, Family::kNone);
    return valueOr(kFamilies, market, open);
}

}  // namespace

Model::Fee Model::primeBrokerageFee(uint64 account, const std::string& key, int unit) const {
    const Instrument instrument = findInstrument(key);
    if (!instrument) {
        return {};
    }
    Fee fee = feeByMarket(account, key, instrument->market, unit);
    if (!fee) {
        fee = fullDefault(unit);
        fee->instrument = instrument;
    }
    return fee;
}

Model::Fee Model::feeByMarket(uint64 account, const std::string& key, const std::string& market, int unit) const {
    switch (familyOf(market, facts)) {
        case Family::kNone:
            return {};
        case Family::kStockWithOption: {
            const Fee fee = limitFee(stock, account, key, unit);
            fee->stkOptionFeeRate = optionFee(account, key)->stkOptionFeeRate;
            return fee;
        }
        case Family::kFuture:
            return futureFee(account, key);
        case Family::kHgt:
            return hgtFee(account, key);
        case Family::kSgt:
            return sgtFee(account, key);
        case Family::kOption:
            return optionFee(account, key);
        case Family::kIncomeSwap:
            return incomeSwapFee(account, key);
        case Family::kNeeq:
            return limitFee(neeq, account, key, unit);
    }
    return {};
}

Model::Fee Model::fullDefault(int unit) const {
    auto fee = boost::make_shared<CInstrumentFee>();
    fee->stkRateLimit = stock.fallback;
    if (fee->stkRateLimit->unitVolume != unit) {
        fee->stkRateLimit = boost::make_shared<CStkExchangeRateLimit>(*stock.fallback);
        fee->stkRateLimit->unitVolume = unit;
    }
    fee->commissionDetail = defaultFutureFee->commissionDetail;
    fee->marginDetails = defaultFutureFee->marginDetails;
    fee->stkOptionFeeRate = defaultOptionRate;
    fee->hgtRateLimit = hgt.fallback;
    fee->sgtRateLimit = sgt.fallback;
    return fee;
}

}  // namespace model
