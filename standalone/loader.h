#ifndef STANDALONE_LOADER_H
#define STANDALONE_LOADER_H

#include <cstddef>
#include <string>
#include <vector>

#include "standalone/load_error.h"
#include "standalone/market.h"

namespace standalone {

/// A folder with many errors is told by so many; the others are counted.
constexpr std::size_t kMostErrors = 100;

struct LoadResult {
    Market market;                       ///< whole when there are no errors, otherwise empty but for its folder
    std::vector<LoadError> errors;       ///< by file as they are read, then line; the first kMostErrors
    std::vector<FurtherErrors> further;  ///< those behind them, one for each kind, by the place of the first
    std::size_t errorCount = 0;          ///< of all of them

    [[nodiscard]] bool ok() const { return errors.empty(); }
};

/// Reads a market folder (docs/market-folder.md). Loads all of it or nothing, and then says why not. Touches no
/// service. Safe from any thread; throws nothing but std::bad_alloc.
LoadResult loadMarket(const std::string& folder);

}  // namespace standalone

#endif  // STANDALONE_LOADER_H
