#ifndef FEECENTER_OPTION_TABLES_H
#define FEECENTER_OPTION_TABLES_H

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

}  // namespace qmservice

#endif  // FEECENTER_OPTION_TABLES_H
