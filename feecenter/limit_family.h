#ifndef FEECENTER_LIMIT_FAMILY_H
#define FEECENTER_LIMIT_FAMILY_H

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <string>
#include <type_traits>
#include <vector>

#include "CFeeCenter.h"
#include "feecenter/category_match.h"
#include "feecenter/content_key.h"
#include "feecenter/guarded.h"
#include "feecenter/host_calls.h"
#include "feecenter/tables.h"
#include "host/records.h"
#include "host/services.h"

// The algorithm of the families that keep one limit per instrument. A Family is a struct that says what is its own:
//
//   of(center)                    its tables and default
//   kList                         the catalogue's list that its custom fees go through
//   kListAnswer                   the lookup of CFeeCenter that answers its list
//
// and, from StockRules or ConnectRules, what it shares with others:
//
//   Limit                         the pooled record class
//   kSlot                         the field of CInstrumentFee that carries it
//   incoming(fee, market, code)   the limit to store for a fee record; empty to skip the record
//   stamped(limit, tradeUnit)     a new record that carries the trade unit, from a limit or a custom limit
//   matches(instrument, limit)    whether a custom limit applies to the instrument; may write the custom limit
//   configured(market, code)      the host's configured limit; empty when none
//   answered(limit, tradeUnit)    what an answer carries of a configured or default limit

namespace qmservice {

template <class Record>
struct LimitTables {
    Ref<RecordPool<Record>> pool;
    Ref<EntryTable<uint64>> entries;
};

/// One family's tables and default, by reference into the fee center.
template <class Record>
struct LimitFamily {
    Guarded<LimitTables<Record>> tables;
    const boost::shared_ptr<Record>& fallback;
};

/// Pools the limit and points the instrument at it. The lock is taken for the two table writes only; the pool comes
/// first, so that an account never names a record that is not there.
template <class Family, class Limit>
void storeLimit(CFeeCenter& center, uint64 accountKey, const std::string& market, const std::string& code,
                const Limit& limit) {
    const uint64 instrumentKey = instrumentKeyOf(market, code);
    const int tradeUnit = getTradeMinUnit(market, code);
    const uint64 limitKey = contentKey(limit, tradeUnit);

    auto tables = Family::of(center).tables.write();
    poolRecord(*tables->pool, limitKey, [&] { return Family::stamped(limit, tradeUnit); });
    setEntry(*tables->entries, accountKey, instrumentKey, limitKey);
}

/// Stores the limit of every usable fee record. Records of another class and fees without instrument are passed over.
template <class Family>
void loadLimits(CFeeCenter& center, const boost::shared_ptr<CAccountInfo>& account,
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
        if (const auto limit = Family::incoming(*fee, market, code)) {
            storeLimit<Family>(center, accountKey, market, code, *limit);
        }
    }
}

/// Stores, for each instrument of the family's list, the first custom limit that matches it; the others stay as they
/// are.
template <class Family, class CustomRecord>
void overrideLimits(CFeeCenter& center, const boost::shared_ptr<CAccountInfo>& account, const CustomRecord& fee) {
    if (fee.rateLimits.empty()) {
        return;
    }
    const uint64 accountKey = account->getHashKey(0);
    const auto matches = [](const CInstrument& instrument, auto& limit) { return Family::matches(instrument, limit); };
    forEachMatch(fee.rateLimits, Family::kList, matches, [&](const CInstrument& instrument, const auto& limit) {
        storeLimit<Family>(center, accountKey, instrument.market, instrument.code, limit);
    });
}

/// The configured limit of the instrument, else the family's default.
template <class Family>
boost::shared_ptr<typename Family::Limit> configuredOrDefault(
    uint64 instrumentKey, const boost::shared_ptr<typename Family::Limit>& fallback) {
    if (const auto instrument = findInstrument(instrumentKey)) {
        if (auto limit = Family::configured(instrument->market, instrument->code)) {
            return limit;
        }
    }
    return fallback;
}

/// A new fee that carries the pooled limit itself, or, where the account has no entry, what the family answers of the
/// configured or default limit. The lock is held shared for the whole call: the fallback asks the host under it.
template <class Family>
boost::shared_ptr<CInstrumentFee> findLimitFee(CFeeCenter& center, uint64 accountKey, uint64 instrumentKey,
                                               int tradeUnit = kUsualTradeUnit) {
    const auto family = Family::of(center);
    const auto tables = family.tables.read();
    auto fee = boost::make_shared<CInstrumentFee>();
    const uint64* limitKey = findEntry(*tables->entries, accountKey, instrumentKey);
    (*fee).*Family::kSlot =
        limitKey != nullptr ? findPooled(*tables->pool, *limitKey)
                            : Family::answered(configuredOrDefault<Family>(instrumentKey, family.fallback), tradeUnit);
    return fee;
}

/// Lists what the family's table keeps for the account, each instrument answered by the family's kListAnswer.
template <class Family>
bool listLimitFees(CFeeCenter& center, const boost::shared_ptr<CAccountInfo>& account,
                   std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    const auto readKeys = [&](uint64 accountKey) {
        return instrumentKeysOf(*Family::of(center).tables.read()->entries, accountKey);
    };
    const auto lookup = [&](uint64 accountKey, uint64 instrumentKey) {
        using Answer = decltype(Family::kListAnswer);
        if constexpr (std::is_invocable_v<Answer, CFeeCenter&, uint64, uint64>) {
            return (center.*Family::kListAnswer)(accountKey, instrumentKey);
        } else {
            return (center.*Family::kListAnswer)(accountKey, instrumentKey, kUsualTradeUnit);
        }
    };
    return listFees(account, fees, readKeys, lookup);
}

}  // namespace qmservice

#endif  // FEECENTER_LIMIT_FAMILY_H
