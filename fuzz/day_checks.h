#ifndef FUZZ_DAY_CHECKS_H
#define FUZZ_DAY_CHECKS_H

#include "fuzz/folder_text.h"
#include "standalone/market_folder.h"

namespace fuzz {

/// Fails unless the intervals of a good folder follow one another, the market of each is whole, and every charging term
/// comes from a line of charges.csv. Of many intervals the first are looked at.
void checkDays(const Files& files, const standalone::MarketFolder& folder);

}  // namespace fuzz

#endif  // FUZZ_DAY_CHECKS_H
