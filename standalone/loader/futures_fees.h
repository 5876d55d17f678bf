#ifndef STANDALONE_LOADER_FUTURES_FEES_H
#define STANDALONE_LOADER_FUTURES_FEES_H

#include "standalone/loader/load.h"

namespace standalone::loader {

/// Reads fees/commission.csv and fees/margin.csv, whose lines together make the records of futures accounts.
void readFuturesFees(Load& load);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_FUTURES_FEES_H
