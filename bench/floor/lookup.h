#ifndef BENCH_FLOOR_LOOKUP_H
#define BENCH_FLOOR_LOOKUP_H

#include <string>
#include <vector>

#include "bench/floor/tables.h"

namespace bench::floor {

/// What IFeeCenter::getFee answers of a joined key.
shared_ptr<qmservice::CInstrumentFee> getFee(Tables& tables, const shared_ptr<qmservice::CAccountInfo>& account,
                                             const std::string& key);

/// What IFeeCenter::getFees answers of a stock or futures account.
bool getFees(Tables& tables, const shared_ptr<qmservice::CAccountInfo>& account,
             std::vector<shared_ptr<qmservice::CInstrumentFee>>& fees);

}  // namespace bench::floor

#endif  // BENCH_FLOOR_LOOKUP_H
