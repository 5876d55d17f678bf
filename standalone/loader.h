#ifndef STANDALONE_LOADER_H
#define STANDALONE_LOADER_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "standalone/load_error.h"
#include "standalone/market.h"
#include "standalone/market_folder.h"

namespace standalone {

/// So many errors of a folder are shown; the others are counted.
constexpr std::size_t kMostErrors = 100;

/// What is wrong in a folder.
struct LoadErrors {
    std::vector<LoadError> errors;       ///< by file as they are read, then line; the first kMostErrors
    std::vector<FurtherErrors> further;  ///< those behind them, one for each kind, by the place of the first
    std::size_t errorCount = 0;          ///< of all of them

    /// Whether nothing is wrong.
    [[nodiscard]] bool ok() const { return errors.empty(); }
};

/// A folder, or what is wrong in it.
struct FolderResult : LoadErrors {
    MarketFolder folder;  ///< whole when there are no errors, otherwise empty but for its name
};

/// The market of a day, or what is wrong in its folder.
struct LoadResult : LoadErrors {
    Market market;  ///< whole when there are no errors, otherwise empty but for its folder
};

/// Hears what a load does next, such as "reading accounts.csv" or "reading fees", before it does it.
using HearStep = std::function<void(const std::string& step)>;

/// Reads a market folder (docs/market-folder.md) and checks every line of it, whatever its days. Takes all of it or
/// nothing, and then says why not. Touches no service. Safe from any thread; throws nothing but std::bad_alloc and
/// what `hear` throws.
FolderResult loadFolder(const std::string& folder, const HearStep& hear = {});

/// The same for who needs one day alone: the market of MarketFolder::defaultDay().
LoadResult loadMarket(const std::string& folder);

}  // namespace standalone

#endif  // STANDALONE_LOADER_H
