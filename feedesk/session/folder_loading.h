#ifndef FEEDESK_SESSION_FOLDER_LOADING_H
#define FEEDESK_SESSION_FOLDER_LOADING_H

#include <string>

#include "standalone/market_folder.h"

namespace feedesk {

/// Loads a market folder. Throws Failure when it is broken, after all its errors have been written to standard error;
/// `waysToName` goes on behind "name the folder that holds market.toml".
standalone::MarketFolder loadedFolder(const std::string& folder, const std::string& waysToName);

}  // namespace feedesk

#endif  // FEEDESK_SESSION_FOLDER_LOADING_H
