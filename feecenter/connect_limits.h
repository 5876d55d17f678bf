#ifndef FEECENTER_CONNECT_LIMITS_H
#define FEECENTER_CONNECT_LIMITS_H

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <string>

#include "feecenter/category_number.h"
#include "feecenter/limit_family.h"

// What the two Hong Kong connect channels share.

namespace qmservice {

/// `Slot` is the field of CInstrumentFee and `Configured` the configuration's operation for the channel's record.
template <class Record, boost::shared_ptr<Record> CInstrumentFee::*Slot,
          boost::shared_ptr<Record> (ConfigCollector::*Configured)(std::string, std::string)>
struct ConnectLimitPolicy {
    using Limit = Record;

    static constexpr auto slot() { return Slot; }

    static boost::shared_ptr<Limit> configured(const std::string& market, const std::string& code) {
        return ((*ConfigCollector::instance()).*Configured)(market, code);
    }

    /// Rule "A connect load ignores the configuration": unlike for stocks, what came with the fee is stored, and a fee
    /// without a limit is passed over even where one is configured.
    static boost::shared_ptr<Limit> incoming(const CInstrumentFee& fee, const std::string& /*market*/,
                                             const std::string& /*code*/) {
        return fee.*Slot;
    }

    static boost::shared_ptr<Limit> stamped(const Limit& limit, int tradeUnit) {
        auto record = boost::make_shared<Limit>(limit);
        record->tradeMinUnit = tradeUnit;
        return record;
    }
};

using HgtLimitPolicy = ConnectLimitPolicy<CCustomHGTExchangeRateLimit, &CInstrumentFee::hgtRateLimit,
                                          &ConfigCollector::getHGTExchangeRateLimitPtr>;
using SgtLimitPolicy = ConnectLimitPolicy<CCustomSgtExchangeRateLimit, &CInstrumentFee::sgtRateLimit,
                                          &ConfigCollector::getSgtExchangeRateLimitPtr>;

/// A fallback answer carries the configured or default record itself: no trade unit is stamped.
template <class Policy>
boost::shared_ptr<CInstrumentFee> findConnectFee(const LimitTables<typename Policy::Limit>& tables, uint64 accountKey,
                                                 uint64 instrumentKey) {
    return findLimitFee<Policy>(tables, accountKey, instrumentKey,
                                [](boost::shared_ptr<typename Policy::Limit> limit) { return limit; });
}

}  // namespace qmservice

#endif  // FEECENTER_CONNECT_LIMITS_H
