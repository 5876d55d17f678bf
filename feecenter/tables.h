#ifndef FEECENTER_TABLES_H
#define FEECENTER_TABLES_H

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <boost/thread/lock_types.hpp>
#include <boost/thread/shared_mutex.hpp>
#include <boost/unordered_map.hpp>
#include <map>
#include <utility>
#include <vector>

#include "feecenter/host_calls.h"
#include "host/records.h"

// What the tables of all families have in common. The caller holds the family's lock wherever a table is passed.

namespace qmservice {

template <class Record>
using RecordPool = boost::unordered_map<uint64, boost::shared_ptr<Record>>;

/// Account key -> (instrument key -> what the family keeps for the instrument).
template <class Entry>
using EntryTable = std::map<uint64, boost::unordered_map<uint64, Entry>>;

/// The pooled record with this key, made by `make` when there is none yet. A stored record is never replaced.
template <class Record, class Make>
const boost::shared_ptr<Record>& poolRecord(RecordPool<Record>& pool, uint64 key, const Make& make) {
    const auto stored = pool.find(key);
    return stored != pool.end() ? stored->second : pool.emplace(key, make()).first->second;
}

/// The pooled record with this key; empty when there is none.
template <class Record>
boost::shared_ptr<Record> findPooled(const RecordPool<Record>& pool, uint64 key) {
    const auto stored = pool.find(key);
    return stored != pool.end() ? stored->second : boost::shared_ptr<Record>();
}

/// What the table keeps for an instrument of an account; null when it keeps nothing. `Table` is an EntryTable, const or
/// not.
template <class Table>
auto findEntry(Table& table, uint64 accountKey, uint64 instrumentKey)
    -> decltype(&table.begin()->second.begin()->second) {
    const auto account = table.find(accountKey);
    if (account == table.end()) {
        return nullptr;
    }
    const auto entry = account->second.find(instrumentKey);
    return entry != account->second.end() ? &entry->second : nullptr;
}

/// Sets what the table keeps for an instrument of an account. All or nothing: where memory runs out the table is as it
/// was, without an account that has no entry.
template <class Entry>
void setEntry(EntryTable<Entry>& table, uint64 accountKey, uint64 instrumentKey, Entry entry) {
    const auto account = table.find(accountKey);
    if (account != table.end()) {
        account->second[instrumentKey] = std::move(entry);
        return;
    }
    boost::unordered_map<uint64, Entry> entries;
    entries.emplace(instrumentKey, std::move(entry));
    table.emplace(accountKey, std::move(entries));
}

/// The keys alone, in the table's order: a list needs no more, and the less is copied the shorter the lock is held.
template <class Entry>
std::vector<uint64> keysOf(const boost::unordered_map<uint64, Entry>& entries) {
    std::vector<uint64> keys;
    keys.reserve(entries.size());
    for (const auto& entry : entries) {
        keys.push_back(entry.first);
    }
    return keys;
}

/// Appends to `fees` the answer of `lookup` for each instrument that the table keeps for the account and the catalogue
/// knows, stamped with account and instrument. False, with `fees` untouched, when the table has no such account.
///
/// What `takeLock` returns is held only while the account's keys are copied: `lookup` takes its own lock, and the
/// answers may mix states from before and after a change that runs at the same time.
template <class TakeLock, class Entry, class Lookup>
bool listFeesUnder(const TakeLock& takeLock, const EntryTable<Entry>& table,
                   const boost::shared_ptr<CAccountInfo>& account, std::vector<boost::shared_ptr<CInstrumentFee>>& fees,
                   const Lookup& lookup) {
    const uint64 accountKey = account->getHashKey(0);
    std::vector<uint64> instrumentKeys;
    {
        const auto lock = takeLock();
        const auto stored = table.find(accountKey);
        if (stored == table.end()) {
            return false;
        }
        instrumentKeys = keysOf(stored->second);
    }
    fees.reserve(fees.size() + instrumentKeys.size());
    for (const uint64 instrumentKey : instrumentKeys) {
        auto instrument = findInstrument(instrumentKey);
        if (!instrument) {
            continue;
        }
        auto fee = lookup(accountKey, instrumentKey);
        if (fee) {
            fee->account = account;
            fee->instrument = std::move(instrument);
            fees.push_back(std::move(fee));
        }
    }
    return true;
}

/// The same under one family's lock in shared mode.
template <class Entry, class Lookup>
bool listFees(boost::shared_mutex& mutex, const EntryTable<Entry>& table,
              const boost::shared_ptr<CAccountInfo>& account, std::vector<boost::shared_ptr<CInstrumentFee>>& fees,
              const Lookup& lookup) {
    const auto takeLock = [&mutex] { return boost::shared_lock<boost::shared_mutex>(mutex); };
    return listFeesUnder(takeLock, table, account, fees, lookup);
}

}  // namespace qmservice

#endif  // FEECENTER_TABLES_H
