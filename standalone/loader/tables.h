#ifndef STANDALONE_LOADER_TABLES_H
#define STANDALONE_LOADER_TABLES_H

#include "standalone/loader/load.h"

namespace standalone::loader {

// Each reads its tables into the load and reports every error in them. They are called in this order, behind
// readMarketToml, for each refers to what the earlier ones have read.

void readAccounts(Load& load);
void readInstruments(Load& load);
void readCategories(Load& load);
void readConfiguredLimits(Load& load);
void readFees(Load& load);
void readCustomFees(Load& load);
void readCharges(Load& load);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_TABLES_H
