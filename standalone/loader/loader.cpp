#include "standalone/loader.h"

#include <algorithm>

#include "standalone/loader/folder.h"
#include "standalone/loader/load.h"
#include "standalone/loader/market_toml.h"
#include "standalone/loader/tables.h"

namespace standalone {
namespace loader {

bool Load::hasFile(const std::string& file) const {
    return std::find(tables.begin(), tables.end(), file) != tables.end();
}

bool Load::lacks(const std::string& file) const {
    return !hasFile(file) && std::find(misspelt.begin(), misspelt.end(), file) == misspelt.end();
}

namespace {

void readFolder(Load& load) {
    readMarketToml(load);
    readAccounts(load);
    readInstruments(load);
    readCategories(load);
    readConfiguredLimits(load);
    readFees(load);
    readCustomFees(load);
}

}  // namespace
}  // namespace loader

std::string Market::where(Position position) const {
    const std::string& file = files.at(position.file);
    return position.line == 0 ? file : file + ":" + std::to_string(position.line);
}

LoadResult loadMarket(const std::string& folder) {
    loader::Load load;
    load.folder = folder;
    load.market.folder = folder;
    if (loader::scanFolder(load)) loader::readFolder(load);
    LoadResult result;
    load.errors.take(result);
    if (result.ok()) {
        result.market = std::move(load.market);
    } else {
        result.market.folder = folder;
    }
    return result;
}

}  // namespace standalone
