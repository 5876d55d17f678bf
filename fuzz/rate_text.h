#ifndef FUZZ_RATE_TEXT_H
#define FUZZ_RATE_TEXT_H

#include <string>

#include "host/records.h"

namespace fuzz {

// What of a record decides whether a fee center takes it for the same as another: its rates in hundred-millionths
// without their fractions, as decimal texts one behind the other, and its trade unit. A rate that is too large for 64
// bits counts as the smallest number that they hold.

std::string rateText(const qmservice::CStkExchangeRateLimit& limit, int tradeUnit);
std::string rateText(const qmservice::CCustomHGTExchangeRateLimit& limit, int tradeUnit);
std::string rateText(const qmservice::CCustomSgtExchangeRateLimit& limit, int tradeUnit);

}  // namespace fuzz

#endif  // FUZZ_RATE_TEXT_H
