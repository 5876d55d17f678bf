#ifndef FEECENTER_FUTURE_TABLES_H
#define FEECENTER_FUTURE_TABLES_H

#include <boost/thread/lock_types.hpp>
#include <boost/thread/shared_mutex.hpp>
#include <vector>

#include "feecenter/tables.h"
#include "host/records.h"

namespace qmservice {

/// The futures tables and their lock, by reference into the fee center.
struct FutureTables {
    boost::shared_mutex& mutex;
    RecordPool<CCommissionRateDetail>& commissionDetails;
    EntryTable<uint64>& commissionKeys;
    RecordPool<CMarginRateDetail>& marginDetails;
    EntryTable<std::vector<uint64>>& marginKeys;
};

/// Pools a commission record and points the instrument at it, under the lock.
template <class Make>
void storeCommission(const FutureTables& tables, uint64 accountKey, uint64 instrumentKey, uint64 commissionKey,
                     const Make& make) {
    const boost::unique_lock<boost::shared_mutex> lock(tables.mutex);
    poolRecord(tables.commissionDetails, commissionKey, make);
    setEntry(tables.commissionKeys, accountKey, instrumentKey, commissionKey);
}

/// Stores a commission detail or custom commission detail. A record that is new to the pool gets its eight fee values
/// and nothing else: its instrumentId stays empty.
template <class Detail>
void storeCommissionRates(const FutureTables& tables, uint64 accountKey, uint64 instrumentKey, const Detail& detail);

/// Stores a margin detail or custom margin detail in the slot of its hedge flag, '1', '2' or '3'; the other slots stay
/// as they are. A new vector has three slots, unset ones all bits set. A hedge flag without a slot changes nothing. A
/// record that is new to the pool keeps marginMode's default, though its key was made with the value handed in.
template <class Detail>
void storeMarginRates(const FutureTables& tables, uint64 accountKey, uint64 instrumentKey, const Detail& detail);

extern template void storeCommissionRates(const FutureTables&, uint64, uint64, const CCommissionRateDetail&);
extern template void storeCommissionRates(const FutureTables&, uint64, uint64, const CCustomCommissionRateDetail&);
extern template void storeMarginRates(const FutureTables&, uint64, uint64, const CMarginRateDetail&);
extern template void storeMarginRates(const FutureTables&, uint64, uint64, const CCustomMarginRateDetail&);

}  // namespace qmservice

#endif  // FEECENTER_FUTURE_TABLES_H
