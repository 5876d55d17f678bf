#ifndef STANDALONE_LOADER_MARKET_TOML_H
#define STANDALONE_LOADER_MARKET_TOML_H

#include "standalone/loader/load.h"

namespace standalone::loader {

/// Reads market.toml: title, engine, simulation platforms, markets and the names of the rates.
void readMarketToml(Load& load);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_MARKET_TOML_H
