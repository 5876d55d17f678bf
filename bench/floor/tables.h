#ifndef BENCH_FLOOR_TABLES_H
#define BENCH_FLOOR_TABLES_H

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/make_shared.hpp>
#include <boost/thread/shared_mutex.hpp>
#include <boost/unordered_map.hpp>
#include <map>
#include <string>
#include <vector>

#include "host/records.h"
#include "host/services.h"

/// The floor: what a fee center has to do, written out by hand and nothing around it. The same tables under the same
/// locks, the same calls of the host in the same order, the same answers; no class, no interface, no library boundary,
/// no case that the mixes do not come to. What a fee center costs beyond the floor is what its house costs.
namespace bench::floor {

using boost::shared_ptr;
using qmservice::uint64;

template <class Record>
using Pool = boost::unordered_map<uint64, shared_ptr<Record>>;
template <class Entry>
using Entries = std::map<uint64, boost::unordered_map<uint64, Entry>>;

template <class Record>
struct LimitTables {
    boost::shared_mutex mutex;
    Pool<Record> pool;
    Entries<uint64> entries;
    shared_ptr<Record> byDefault = boost::make_shared<Record>();
};

struct OptionTables {
    boost::shared_mutex mutex;  ///< held by queries, beside the lock of the tables
    boost::shared_mutex tableMutex;
    Pool<qmservice::CStockOptionFeeItem> pool;
    Entries<std::map<std::string, uint64>> entries;
    Entries<double> baseRates;
    shared_ptr<qmservice::CStockOptionFeeRate> byDefault = boost::make_shared<qmservice::CStockOptionFeeRate>();
};

struct FuturesTables {
    boost::shared_mutex mutex;
    Pool<qmservice::CCommissionRateDetail> commissions;
    Entries<uint64> commissionKeys;
    Pool<qmservice::CMarginRateDetail> margins;
    Entries<std::vector<uint64>> marginKeys;
    shared_ptr<qmservice::CInstrumentFee> byDefault = boost::make_shared<qmservice::CInstrumentFee>();
};

struct Tables {
    LimitTables<qmservice::CStkExchangeRateLimit> stock;
    LimitTables<qmservice::CStkExchangeRateLimit> credit;
    LimitTables<qmservice::CStkExchangeRateLimit> neeq;
    LimitTables<qmservice::CCustomHGTExchangeRateLimit> hgt;
    LimitTables<qmservice::CCustomSgtExchangeRateLimit> sgt;
    OptionTables option;
    FuturesTables futures;
};

}  // namespace bench::floor

#endif  // BENCH_FLOOR_TABLES_H
