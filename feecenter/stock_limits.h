#ifndef FEECENTER_STOCK_LIMITS_H
#define FEECENTER_STOCK_LIMITS_H

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <string>
#include <utility>

#include "feecenter/category_number.h"
#include "feecenter/limit_family.h"

// What stock, credit and NEEQ accounts share.

namespace qmservice {

struct StockLimitPolicy {
    using Limit = CStkExchangeRateLimit;

    static constexpr auto slot() { return &CInstrumentFee::stkRateLimit; }

    static boost::shared_ptr<Limit> configured(const std::string& market, const std::string& code) {
        return ConfigCollector::instance()->getRateLimitPtr(market, code);
    }

    /// A configured limit goes before the one that came with the fee.
    static boost::shared_ptr<Limit> incoming(const CInstrumentFee& fee, const std::string& market,
                                             const std::string& code) {
        auto limit = configured(market, code);
        return limit ? limit : fee.stkRateLimit;
    }

    static boost::shared_ptr<Limit> stamped(const Limit& limit, int tradeUnit) {
        auto record = boost::make_shared<Limit>(limit);
        record->unitVolume = tradeUnit;
        return record;
    }

    static boost::shared_ptr<Limit> stamped(const CCustomStkExchangeRateLimit& limit, int tradeUnit) {
        auto record = boost::make_shared<Limit>();
        record->rate1 = limit.rate1;
        record->rate2 = limit.rate2;
        record->rate3 = limit.rate3;
        record->rate4 = limit.rate4;
        record->rate5 = limit.rate5;
        record->rate6 = limit.rate6;
        record->unitVolume = tradeUnit;
        return record;
    }
};

using StockLimitTables = LimitTables<CStkExchangeRateLimit>;

/// `limit` itself when it carries the trade unit, else a private copy that does: shared records are never written.
inline boost::shared_ptr<CStkExchangeRateLimit> withTradeUnit(boost::shared_ptr<CStkExchangeRateLimit> limit,
                                                              int tradeUnit) {
    if (limit->unitVolume != tradeUnit) {
        return StockLimitPolicy::stamped(*limit, tradeUnit);
    }
    return limit;
}

inline void overrideStockLimits(const StockLimitTables& tables, const boost::shared_ptr<CAccountInfo>& account,
                                const CCustomStockInstrumentFee& fee, int kindMask) {
    overrideLimits<StockLimitPolicy>(tables, account, fee.rateLimits, kindMask,
                                     [](const CInstrument& instrument, CCustomStkExchangeRateLimit& limit) {
                                         return matchesCategory(instrument, limit, categoryNumber(limit.category));
                                     });
}

/// The trade unit is stamped on the fallback path only; a pooled limit is answered with the unit it was stored with.
inline boost::shared_ptr<CInstrumentFee> findStockLimitFee(const StockLimitTables& tables, uint64 accountKey,
                                                           uint64 instrumentKey, int tradeUnit) {
    return findLimitFee<StockLimitPolicy>(tables, accountKey, instrumentKey,
                                          [tradeUnit](boost::shared_ptr<CStkExchangeRateLimit> limit) {
                                              return withTradeUnit(std::move(limit), tradeUnit);
                                          });
}

}  // namespace qmservice

#endif  // FEECENTER_STOCK_LIMITS_H
