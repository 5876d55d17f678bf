#ifndef STANDALONE_LOADER_H
#define STANDALONE_LOADER_H

#include <cstddef>
#include <string>
#include <vector>

#include "standalone/market.h"

namespace standalone {

struct LoadError {
    std::string file;      ///< relative to the folder; the folder itself when it cannot be read
    std::size_t line = 0;  ///< from 1; 0 for the file as a whole
    std::string message;   ///< what was found and what was expected, one sentence on one line

    /// "file:line: message", or "file: message" for the file as a whole; on one line, whatever the file's name holds.
    [[nodiscard]] std::string text() const;
};

struct LoadResult {
    Market market;                  ///< whole when there are no errors, otherwise empty but for its folder
    std::vector<LoadError> errors;  ///< by file, then line

    [[nodiscard]] bool ok() const { return errors.empty(); }
};

/// Reads a market folder (docs/market-folder.md). Loads all of it or reports every error. Touches no service. Safe from
/// any thread; throws nothing but std::bad_alloc.
LoadResult loadMarket(const std::string& folder);

}  // namespace standalone

#endif  // STANDALONE_LOADER_H
