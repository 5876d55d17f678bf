#ifndef FEECENTER_OPTION_TABLES_H
#define FEECENTER_OPTION_TABLES_H

#include <boost/thread/lock_types.hpp>
#include <boost/thread/shared_mutex.hpp>
#include <map>
#include <string>

#include "feecenter/guarded.h"
#include "feecenter/tables.h"
#include "host/records.h"

namespace qmservice {

/// Item key -> pool key.
using ItemKeys = std::map<std::string, uint64>;

/// The stock-option tables, by reference into the fee center.
struct OptionTables {
    Ref<RecordPool<CStockOptionFeeItem>> items;
    Ref<EntryTable<ItemKeys>> entries;
    Ref<EntryTable<double>> baseRates;
};

// Rule "Stock options are written under the stock lock": the update holds stockMutex and the queries hold
// stkOptionMutex, so neither waits for the other. What keeps the tables whole between them is a lock of their own,
// always the last to be taken: they wait for each other no longer than one read or write of the tables takes.

/// The tables for one who holds the queries' lock: to be read under their own lock.
class OptionReader : Guarded<OptionTables> {
public:
    explicit OptionReader(const Guarded& options) : Guarded(options) {}
    using Guarded::read;
};

/// The tables for one who holds the lock of all their writers: nobody else writes them meanwhile, so they are read
/// without their own lock and written under it.
class OptionWriter : Guarded<OptionTables> {
public:
    explicit OptionWriter(const Guarded& options) : Guarded(options) {}
    [[nodiscard]] const OptionTables& read() const { return unguarded(); }
    using Guarded::write;
};

using OptionQuery = Held<boost::shared_lock<boost::shared_mutex>, const OptionReader>;
using OptionUpdate = Held<boost::unique_lock<boost::shared_mutex>, const OptionWriter>;

}  // namespace qmservice

#endif  // FEECENTER_OPTION_TABLES_H
