#ifndef FUZZ_MARKET_TEXT_H
#define FUZZ_MARKET_TEXT_H

#include <string>

#include "standalone/loader.h"

namespace fuzz {

/// Everything that a load gave, line by line: two loads that agree in everything have the same text.
std::string textOf(const standalone::LoadResult& result);

}  // namespace fuzz

#endif  // FUZZ_MARKET_TEXT_H
