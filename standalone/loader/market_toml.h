#ifndef STANDALONE_LOADER_MARKET_TOML_H
#define STANDALONE_LOADER_MARKET_TOML_H

#include <string>

#include "standalone/loader/load.h"

namespace standalone::loader {

inline const std::string kMarketFile = "market.toml";

/// Reads market.toml: title, engine, simulation platforms, markets and the names of the rates.
void readMarketToml(Load& load);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_MARKET_TOML_H
