#ifndef FEECENTER_LIMIT_FAMILY_H
#define FEECENTER_LIMIT_FAMILY_H

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <boost/thread/lock_types.hpp>
#include <boost/thread/shared_mutex.hpp>
#include <string>
#include <vector>

#include "feecenter/category_match.h"
#include "feecenter/content_key.h"
#include "feecenter/host_calls.h"
#include "feecenter/tables.h"
#include "host/records.h"
#include "host/services.h"

// The algorithm of the families that keep one limit per instrument: stock, credit and NEEQ on one side, the two connect
// channels on the other. A Policy says what is particular to a side:
//
//   Limit                         the pooled record class
//   slot()                        the field of CInstrumentFee that carries it
//   incoming(fee, market, code)   the limit to store for a fee record; empty to skip the record
//   stamped(limit, tradeUnit)     a new record that carries the trade unit, from a limit or a custom limit
//   configured(market, code)      the host's configured limit; empty when none

namespace qmservice {

/// One family's lock, tables and default, by reference into the fee center.
template <class Record>
struct LimitTables {
    boost::shared_mutex& mutex;
    RecordPool<Record>& pool;
    EntryTable<uint64>& accounts;
    const boost::shared_ptr<Record>& fallback;
};

/// Pools the limit and points the instrument at it. The lock is taken for the two table writes only; the pool comes
/// first, so that an account never names a record that is not there.
template <class Policy, class Limit>
void storeLimit(const LimitTables<typename Policy::Limit>& tables, uint64 accountKey, const std::string& market,
                const std::string& code, const Limit& limit) {
    const uint64 instrumentKey = instrumentKeyOf(market, code);
    const int tradeUnit = getTradeMinUnit(market, code);
    const uint64 limitKey = contentKey(limit, tradeUnit);

    const boost::unique_lock<boost::shared_mutex> lock(tables.mutex);
    poolRecord(tables.pool, limitKey, [&] { return Policy::stamped(limit, tradeUnit); });
    setEntry(tables.accounts, accountKey, instrumentKey, limitKey);
}

/// Stores the limit of every usable fee record. Records of another class and fees without instrument are passed over.
template <class Policy>
void loadLimits(const LimitTables<typename Policy::Limit>& tables, const boost::shared_ptr<CAccountInfo>& account,
                const std::vector<boost::shared_ptr<IData>>& records) {
    const uint64 accountKey = account->getHashKey(0);
    for (const auto& record : records) {
        const auto* fee = dynamic_cast<const CInstrumentFee*>(record.get());
        if (fee == nullptr || !fee->instrument) {
            continue;
        }
        // Copies, so that one name is asked about and filed even if the host writes its record when it is asked.
        const std::string market = fee->instrument->market;
        const std::string code = fee->instrument->code;
        if (const auto limit = Policy::incoming(*fee, market, code)) {
            storeLimit<Policy>(tables, accountKey, market, code, *limit);
        }
    }
}

/// Calls `apply(instrument, entry)` for every instrument of the mask's lists that some custom entry matches, with the
/// first such entry. `matches(instrument, entry)` runs outside every lock.
template <class Entries, class Matches, class Apply>
void forEachMatch(const Entries& entries, int kindMask, const Matches& matches, const Apply& apply) {
    std::vector<boost::shared_ptr<CInstrument>> instruments;
    TraderCenter::instance()->getInstCenter()->getInstrumentList(instruments, kindMask);
    for (const auto& instrument : instruments) {
        if (!instrument) {
            continue;
        }
        const auto* entry = firstMatch(entries, [&](auto& candidate) { return matches(*instrument, candidate); });
        if (entry != nullptr) {
            apply(*instrument, *entry);
        }
    }
}

/// Stores, for each instrument of the mask's lists, the first custom limit that matches it; the others stay as they
/// are.
template <class Policy, class CustomLimits, class Matches>
void overrideLimits(const LimitTables<typename Policy::Limit>& tables, const boost::shared_ptr<CAccountInfo>& account,
                    const CustomLimits& customLimits, int kindMask, const Matches& matches) {
    if (customLimits.empty()) {
        return;
    }
    const uint64 accountKey = account->getHashKey(0);
    forEachMatch(customLimits, kindMask, matches, [&](const CInstrument& instrument, const auto& limit) {
        storeLimit<Policy>(tables, accountKey, instrument.market, instrument.code, limit);
    });
}

/// The configured limit of the instrument, else the family's default.
template <class Policy>
boost::shared_ptr<typename Policy::Limit> configuredOrDefault(
    uint64 instrumentKey, const boost::shared_ptr<typename Policy::Limit>& fallback) {
    if (const auto instrument = findInstrument(instrumentKey)) {
        if (auto limit = Policy::configured(instrument->market, instrument->code)) {
            return limit;
        }
    }
    return fallback;
}

/// A new fee that carries the pooled limit itself, or, where the account has no entry, what `adapt` makes of the
/// configured or default limit. The lock is held shared for the whole call: the fallback asks the host under it.
template <class Policy, class Adapt>
boost::shared_ptr<CInstrumentFee> findLimitFee(const LimitTables<typename Policy::Limit>& tables, uint64 accountKey,
                                               uint64 instrumentKey, const Adapt& adapt) {
    const boost::shared_lock<boost::shared_mutex> lock(tables.mutex);
    auto fee = boost::make_shared<CInstrumentFee>();
    const uint64* limitKey = findEntry(tables.accounts, accountKey, instrumentKey);
    (*fee).*Policy::slot() = limitKey != nullptr ? findPooled(tables.pool, *limitKey)
                                                 : adapt(configuredOrDefault<Policy>(instrumentKey, tables.fallback));
    return fee;
}

}  // namespace qmservice

#endif  // FEECENTER_LIMIT_FAMILY_H
