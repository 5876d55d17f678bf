#ifndef FEECENTER_MARKETS_H
#define FEECENTER_MARKETS_H

#include <string>

#include "host/markets.h"

namespace qmservice {

// Tests of an instrument's market string. Texts are compared whole and case counts.

bool isStockMarket(const std::string& market);

/// The commodity exchanges, by either of their names. CFFEX and INE are not among them.
bool isFutureMarket(const std::string& market);

/// What the host classifies as foreign, the foreign option exchanges, "WP", and what begins with "WP.".
bool isForeignMarket(const std::string& market);

// The channels and the options by either of their names.

inline bool isHgtMarket(const std::string& market) { return market == kHgtMarket || market == "SSEHKEX"; }
inline bool isSgtMarket(const std::string& market) { return market == kSgtMarket || market == "SZSEHKEX"; }
inline bool isOptionMarket(const std::string& market) { return market == "SHO" || market == "SZO"; }

}  // namespace qmservice

#endif  // FEECENTER_MARKETS_H
