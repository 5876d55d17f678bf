#ifndef BENCH_FLOOR_CHANGE_H
#define BENCH_FLOOR_CHANGE_H

#include <vector>

#include "bench/floor/tables.h"

namespace bench::floor {

/// Empty tables with the defaults that the mixes come to.
void setDefaults(Tables& tables);

/// What the posted job of IFeeCenter::initFees does.
void load(Tables& tables, const shared_ptr<qmservice::CAccountInfo>& account,
          const std::vector<shared_ptr<qmservice::IData>>& records);

/// What the posted job of IFeeCenter::updateCustomFee does, for a stock, option or futures account and a custom fee of
/// a system category.
void update(Tables& tables, const shared_ptr<qmservice::CAccountInfo>& account,
            const shared_ptr<qmservice::IData>& customFee);

}  // namespace bench::floor

#endif  // BENCH_FLOOR_CHANGE_H
