#include <boost/smart_ptr/make_shared.hpp>

#include "model/markets.h"
#include "model/model.h"

// The lookup across families, by market.

namespace model {

using namespace qmservice;

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

/// A Hong Kong instrument has no family of its own here: it takes the full default.
Model::Fee Model::feeByMarket(uint64 account, const std::string& key, const std::string& market, int unit) const {
    if (isStockMarket(market)) {
        const Fee fee = limitFee(stock, account, key, unit);
        fee->stkOptionFeeRate = optionFee(account, key)->stkOptionFeeRate;
        return fee;
    }
    if (isFutureMarket(market) || market == "IF" || market == "CFFEX" || market == "INE") {
        return futureFee(account, key);
    }
    if (market == "HGT" || market == "SSEHKEX") {
        return hgtFee(account, key);
    }
    if (market == "SGT" || market == "SZSEHKEX") {
        return sgtFee(account, key);
    }
    if (market == "HK") {
        return {};
    }
    if (market == "SHO" || market == "SZO") {
        return optionFee(account, key);
    }
    if (isForeignMarket(market, facts)) {
        return incomeSwapFee(account, key);
    }
    return market == "NEEQ" ? limitFee(neeq, account, key, unit) : Fee();
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
