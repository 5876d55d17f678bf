#ifndef TESTS_FEECENTER_SUPPORT_BUILDERS_H
#define TESTS_FEECENTER_SUPPORT_BUILDERS_H

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstdint>
#include <string>
#include <utility>

#include "host/records.h"

namespace test {

/// An account whose key the test chooses: what getHashKey answers to 0, and to nothing else.
class KeyedAccount : public qmservice::CAccountInfo {
public:
    KeyedAccount(int kind, qmservice::uint64 accountKey) : key(accountKey) { accountType = kind; }

    [[nodiscard]] qmservice::uint64 getHashKey(qmservice::uint64 seed) const override { return seed == 0 ? key : ~key; }

private:
    qmservice::uint64 key;
};

inline boost::shared_ptr<qmservice::CAccountInfo> makeAccount(int kind, qmservice::uint64 key) {
    return boost::make_shared<KeyedAccount>(kind, key);
}

inline boost::shared_ptr<qmservice::CStkExchangeRateLimit> makeLimit(double rate1, double rate6 = 0) {
    auto limit = boost::make_shared<qmservice::CStkExchangeRateLimit>();
    limit->rate1 = rate1;
    limit->rate6 = rate6;
    return limit;
}

/// A fee record of a stock, credit or NEEQ account.
inline boost::shared_ptr<qmservice::CInstrumentFee> makeFee(boost::shared_ptr<qmservice::CInstrument> instrument,
                                                            boost::shared_ptr<qmservice::CStkExchangeRateLimit> limit) {
    auto fee = boost::make_shared<qmservice::CInstrumentFee>();
    fee->instrument = std::move(instrument);
    fee->stkRateLimit = std::move(limit);
    return fee;
}

inline boost::shared_ptr<qmservice::CCustomStkExchangeRateLimit> makeCustomLimit(const std::string& category,
                                                                                 double rate1) {
    auto limit = boost::make_shared<qmservice::CCustomStkExchangeRateLimit>();
    limit->category = category;
    limit->rate1 = rate1;
    return limit;
}

/// A record of a class that the host derives from one of the boundary's. It counts as what it is derived from.
template <class Record>
struct HostsOwn : Record {};

template <class Fee = qmservice::CCustomStockInstrumentFee, class... Limits>
boost::shared_ptr<Fee> makeCustomFee(Limits... limits) {
    auto fee = boost::make_shared<Fee>();
    fee->rateLimits = {limits...};
    return fee;
}

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_BUILDERS_H
