#ifndef FEECENTER_OPTION_TABLES_H
#define FEECENTER_OPTION_TABLES_H

#include <boost/thread/shared_mutex.hpp>
#include <map>
#include <string>

#include "feecenter/tables.h"
#include "host/records.h"

namespace qmservice {

/// Item key -> pool key.
using ItemKeys = std::map<std::string, uint64>;

/// The stock-option tables, the queries' lock and the lock that keeps the tables whole, by reference into the fee
/// center.
struct OptionTables {
    boost::shared_mutex& mutex;
    boost::shared_mutex& tableMutex;
    RecordPool<CStockOptionFeeItem>& items;
    EntryTable<ItemKeys>& accounts;
    EntryTable<double>& baseRates;
};

}  // namespace qmservice

#endif  // FEECENTER_OPTION_TABLES_H
