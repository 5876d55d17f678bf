#ifndef FEECENTER_HOST_CALLS_H
#define FEECENTER_HOST_CALLS_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "host/records.h"
#include "host/services.h"

namespace qmservice {

/// The catalogue's instrument with this key; empty when unknown.
inline boost::shared_ptr<CInstrument> findInstrument(uint64 instrumentKey) {
    return TraderCenter::instance()->getInstCenter()->findInstrument(instrumentKey);
}

/// The key under which every table files an instrument.
inline uint64 instrumentKeyOf(const std::string& market, const std::string& code) {
    return utils::hash(utils::voStockKey(market, code));
}
inline uint64 instrumentKeyOf(const CInstrument& instrument) {
    return instrumentKeyOf(instrument.market, instrument.code);
}

}  // namespace qmservice

#endif  // FEECENTER_HOST_CALLS_H
