#ifndef FEECENTER_CONNECT_RULES_H
#define FEECENTER_CONNECT_RULES_H

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <string>

#include "feecenter/category_match.h"
#include "feecenter/category_number.h"
#include "host/records.h"
#include "host/services.h"

namespace qmservice {

/// What the two Hong Kong connect channels share (limit_family.h says what each member is). `Slot` is the field of
/// CInstrumentFee and `Configured` the configuration's operation for the channel's record.
template <class Record, boost::shared_ptr<Record> CInstrumentFee::*Slot,
          boost::shared_ptr<Record> (ConfigCollector::*Configured)(std::string, std::string)>
struct ConnectRules {
    using Limit = Record;

    static constexpr auto kSlot = Slot;

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

    static bool matches(const CInstrument& instrument, Limit& limit) {
        return matchesCategory(instrument, limit, categoryNumber(limit.category));
    }

    /// Rule "A connect fallback carries no trade unit": it is the record itself, with the unit that it has.
    static boost::shared_ptr<Limit> answered(boost::shared_ptr<Limit> limit, int /*tradeUnit*/) { return limit; }
};

}  // namespace qmservice

#endif  // FEECENTER_CONNECT_RULES_H
