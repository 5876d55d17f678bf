#include "standalone/loader.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "standalone/loader/folder.h"
#include "standalone/loader/load.h"
#include "standalone/loader/market_toml.h"
#include "standalone/loader/tables.h"
#include "standalone/market_files.h"

namespace standalone {
namespace loader {

bool Load::hasFile(const std::string& file) const {
    return std::find(tables.begin(), tables.end(), file) != tables.end();
}

bool Load::lacks(const std::string& file) const {
    return !hasFile(file) && std::find(misspelt.begin(), misspelt.end(), file) == misspelt.end();
}

namespace {

struct Step {
    const char* reads;
    void (*read)(Load& load);
};

constexpr std::array<Step, 8> kSteps = {{{files::kMarket, readMarketToml},
                                         {files::kAccounts, readAccounts},
                                         {files::kInstruments, readInstruments},
                                         {"categories", readCategories},
                                         {files::kConfigured, readConfiguredLimits},
                                         {files::kFees, readFees},
                                         {files::kCustom, readCustomFees},
                                         {files::kCharges, readCharges}}};

void tell(const HearStep& hear, const std::string& step) {
    if (hear) {
        hear(step);
    }
}

void readFolder(Load& load, const HearStep& hear) {
    for (const Step& step : kSteps) {
        tell(hear, std::string("reading ") + step.reads);
        step.read(load);
    }
}

void addChanges(std::set<cost::Date>& changes, const cost::DateRange& days) {
    if (days.from) {
        changes.insert(*days.from);
    }
    if (const auto after = days.until ? days.until->next() : std::nullopt) {
        changes.insert(*after);
    }
}

template <class Line>
void addChanges(std::set<cost::Date>& changes, const std::vector<Line>& lines) {
    for (const Line& kept : lines) {
        addChanges(changes, kept.line->days);
    }
}

std::vector<cost::Date> changeDates(const CheckedFolder& folder) {
    std::set<cost::Date> changes;
    addChanges(changes, folder.configuredLines);
    for (const AccountLines& account : folder.accountLines) {
        addChanges(changes, account.fees);
        addChanges(changes, account.customFees);
    }
    for (const cost::Term& term : folder.schedule.terms()) {
        addChanges(changes, term.dates);
    }
    changes.erase(cost::Date());  // the first of all days ends no interval
    return {changes.begin(), changes.end()};
}

/// The folder without what only the load needed.
MarketFolder finished(Load& load) {
    load.schedule = cost::Schedule(std::move(load.terms), load.market.folder + "/" + files::kCharges);
    load.changeDates = changeDates(load);
    return MarketFolder(std::make_shared<const CheckedFolder>(std::move(static_cast<CheckedFolder&>(load))));
}

}  // namespace
}  // namespace loader

std::string Market::where(Position position) const {
    const std::string& file = files.at(position.file);
    return position.line == 0 ? file : file + ":" + std::to_string(position.line);
}

FolderResult loadFolder(const std::string& folder, const HearStep& hear) {
    loader::tell(hear, "listing the folder");
    loader::Load load;
    load.folder = folder;
    load.market.folder = folder;
    if (loader::scanFolder(load)) {
        loader::readFolder(load, hear);
    }
    loader::tell(hear, "finishing the folder");
    FolderResult result;
    load.errors.take(result);
    result.folder = result.ok() ? loader::finished(load) : MarketFolder(folder);
    return result;
}

LoadResult loadMarket(const std::string& folder) {
    FolderResult read = loadFolder(folder);
    const MarketFolder& days = read.folder;
    LoadResult result;
    result.market = days.marketOn(days.defaultDay());
    static_cast<LoadErrors&>(result) = std::move(read);
    return result;
}

}  // namespace standalone
