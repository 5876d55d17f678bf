#include <boost/smart_ptr/make_shared.hpp>
#include <string>
#include <utility>

#include "CFeeCenter.h"
#include "feecenter/host_calls.h"
#include "feecenter/markets.h"
#include "feecenter/stock_rules.h"

namespace qmservice {

boost::shared_ptr<CInstrumentFee> CFeeCenter::getPbFullFee(uint64 accountKey, uint64 instrumentKey, int tradeUnit) {
    const auto instrument = findInstrument(instrumentKey);
    if (!instrument) {
        return {};
    }
    if (auto fee = findFeeByMarket(instrument->market, accountKey, instrumentKey, tradeUnit)) {
        return fee;
    }
    return makeFullDefaultFee(instrument, tradeUnit);
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::findFeeByMarket(const std::string& market, uint64 accountKey,
                                                              uint64 instrumentKey, int tradeUnit) {
    if (isStockMarket(market)) {
        // Rule "A stock answer carries an option rate too". Neither of the two lookups is ever
        // empty, and both answers are made for this call, so that the rate is taken out of the second.
        auto fee = getStockFee(accountKey, instrumentKey, tradeUnit);
        fee->stkOptionFeeRate = std::move(getStkOptionFee(accountKey, instrumentKey)->stkOptionFeeRate);
        return fee;
    }
    if (isFutureMarket(market) || market == "IF" || market == "CFFEX" || market == "INE") {
        return getFutureFee(accountKey, instrumentKey);
    }
    if (isHgtMarket(market)) {
        return getHgtFee(accountKey, instrumentKey);
    }
    if (isSgtMarket(market)) {
        return getSgtFee(accountKey, instrumentKey);
    }
    if (market == kHongKongMarket) {
        // Rule "A Hong Kong instrument gets the full default": both channels are asked and their answers dropped.
        getHgtFee(accountKey, instrumentKey);
        getSgtFee(accountKey, instrumentKey);
        return {};
    }
    if (isOptionMarket(market)) {
        return getStkOptionFee(accountKey, instrumentKey);
    }
    if (isForeignMarket(market)) {
        return getIncomeSwapFutureFee(accountKey, instrumentKey);
    }
    return market == kNeeqMarket ? getNeeqFee(accountKey, instrumentKey, tradeUnit)
                                 : boost::shared_ptr<CInstrumentFee>();
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::makeFullDefaultFee(const boost::shared_ptr<CInstrument>& instrument,
                                                                 int tradeUnit) {
    auto fee = boost::make_shared<CInstrumentFee>();
    fee->stkRateLimit = StockRules::answered(defaultStockRateLimit, tradeUnit);
    fee->instrument = instrument;
    fee->commissionDetail = defaultFutureFee->commissionDetail;
    fee->marginDetails = defaultFutureFee->marginDetails;
    fee->stkOptionFeeRate = defaultStkOptionFeeRate;
    fee->hgtRateLimit = defaultHgtRateLimit;
    fee->sgtRateLimit = defaultSgtRateLimit;
    return fee;
}

}  // namespace qmservice
