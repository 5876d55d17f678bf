#ifndef FUZZ_MARKET_CHECKS_H
#define FUZZ_MARKET_CHECKS_H

#include "fuzz/folder_text.h"
#include "standalone/market.h"

namespace fuzz {

/// Fails unless a market that was loaded from these files is whole: every record is there, names only what the market
/// has, holds numbers in the ranges that the format gives, and comes from a line of a file.
void checkWhole(const Files& files, const standalone::Market& market);

}  // namespace fuzz

#endif  // FUZZ_MARKET_CHECKS_H
