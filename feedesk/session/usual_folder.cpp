#include "feedesk/session/usual_folder.h"

#include <filesystem>
#include <system_error>

namespace feedesk {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFolderHere = "market";

bool isMarketFolder(const fs::path& folder) {
    std::error_code none;
    return fs::exists(folder / "market.toml", none);
}

/// Where installing puts the market, seen from the program's file, so that both may be moved together.
fs::path installedFolder() {
    std::error_code none;
    const fs::path program = fs::read_symlink("/proc/self/exe", none);
    return (program.parent_path() / FEEDESK_MARKET_FROM_PROGRAM).lexically_normal();
}

}  // namespace

std::string usualFolder() {
    if (isMarketFolder(kFolderHere)) {
        return kFolderHere;
    }
    const fs::path installed = installedFolder();
    return isMarketFolder(installed) ? installed.string() : kFolderHere;
}

}  // namespace feedesk
