#ifndef FEECENTER_STOCK_RULES_H
#define FEECENTER_STOCK_RULES_H

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <string>

#include "feecenter/category_match.h"
#include "feecenter/category_number.h"
#include "host/record_fields.h"
#include "host/records.h"
#include "host/services.h"

namespace qmservice {

/// What stock, credit and NEEQ accounts share (limit_family.h says what each member is).
struct StockRules {
    using Limit = CStkExchangeRateLimit;

    static constexpr auto kSlot = &CInstrumentFee::stkRateLimit;

    static boost::shared_ptr<Limit> configured(const std::string& market, const std::string& code) {
        return ConfigCollector::instance()->getRateLimitPtr(market, code);
    }

    /// Rule "A configured limit goes before the record's own": the one that came with the fee is taken where none is
    /// configured.
    static boost::shared_ptr<Limit> incoming(const CInstrumentFee& fee, const std::string& market,
                                             const std::string& code) {
        if (auto limit = configured(market, code)) {
            return limit;
        }
        return fee.stkRateLimit;
    }

    static boost::shared_ptr<Limit> stamped(const Limit& limit, int tradeUnit) {
        auto record = boost::make_shared<Limit>(limit);
        record->unitVolume = tradeUnit;
        return record;
    }

    static boost::shared_ptr<Limit> stamped(const CCustomStkExchangeRateLimit& limit, int tradeUnit) {
        auto record = boost::make_shared<Limit>();
        records::copyFields(limit, records::stockRates<CCustomStkExchangeRateLimit>, *record,
                            records::stockRates<Limit>);
        record->unitVolume = tradeUnit;
        return record;
    }

    static bool matches(const CInstrument& instrument, CCustomStkExchangeRateLimit& limit) {
        return matchesCategory(instrument, limit, categoryNumber(limit.category));
    }

    /// `limit` itself when it carries the trade unit, else a private copy that does: shared records are never written.
    /// Rule "A stored limit keeps its own trade unit": pooled limits do not come here.
    static boost::shared_ptr<Limit> answered(boost::shared_ptr<Limit> limit, int tradeUnit) {
        if (limit->unitVolume != tradeUnit) {
            return stamped(*limit, tradeUnit);
        }
        return limit;
    }
};

}  // namespace qmservice

#endif  // FEECENTER_STOCK_RULES_H
