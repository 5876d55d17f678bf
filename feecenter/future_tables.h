#ifndef FEECENTER_FUTURE_TABLES_H
#define FEECENTER_FUTURE_TABLES_H

#include <vector>

#include "CFeeCenter.h"
#include "feecenter/guarded.h"
#include "feecenter/tables.h"
#include "host/records.h"

namespace qmservice {

/// The futures tables, by reference into the fee center.
struct FutureTables {
    Ref<RecordPool<CCommissionRateDetail>> commissionDetails;
    Ref<EntryTable<uint64>> commissionKeys;
    Ref<RecordPool<CMarginRateDetail>> marginDetails;
    Ref<EntryTable<std::vector<uint64>>> marginKeys;
};
using GuardedFutures = Guarded<FutureTables>;

struct CFeeCenter::Future {
    static GuardedFutures of(CFeeCenter& center) {
        return {center.futureMutex,
                {center.futureCommissionDetails, center.futureCommissionKeys, center.futureMarginDetails,
                 center.futureMarginKeys}};
    }
};

/// Pools a commission record and points the instrument at it, under the lock.
template <class Make>
void storeCommission(const GuardedFutures& futures, uint64 accountKey, uint64 instrumentKey, uint64 commissionKey,
                     const Make& make) {
    auto tables = futures.write();
    poolRecord(*tables->commissionDetails, commissionKey, make);
    setEntry(*tables->commissionKeys, accountKey, instrumentKey, commissionKey);
}

/// Stores a commission detail or custom commission detail. Rule "An update wants an instrumentId and does not keep it":
/// a record that is new to the pool gets the eight fee values and nothing else.
template <class Detail>
void storeCommissionRates(const GuardedFutures& futures, uint64 accountKey, uint64 instrumentKey, const Detail& detail);

/// Stores a margin detail or custom margin detail in the slot of its hedge flag; the other slots stay
/// as they are. A new vector has three slots, unset ones all bits set. A hedge flag without a slot changes nothing. A
/// record that is new to the pool keeps marginMode's default, though its key was made with the value handed in.
template <class Detail>
void storeMarginRates(const GuardedFutures& futures, uint64 accountKey, uint64 instrumentKey, const Detail& detail);

extern template void storeCommissionRates(const GuardedFutures&, uint64, uint64, const CCommissionRateDetail&);
extern template void storeCommissionRates(const GuardedFutures&, uint64, uint64, const CCustomCommissionRateDetail&);
extern template void storeMarginRates(const GuardedFutures&, uint64, uint64, const CMarginRateDetail&);
extern template void storeMarginRates(const GuardedFutures&, uint64, uint64, const CCustomMarginRateDetail&);

}  // namespace qmservice

#endif  // FEECENTER_FUTURE_TABLES_H
