#include "standalone/loader/needed_records.h"

#include <algorithm>

namespace standalone::loader {

NeededRecords::NeededRecords(const CheckedFolder& whole, cost::Date ofDay, std::size_t account)
    : folder(whole),
      lines(whole.accountLines[account].fees),
      day(ofDay),
      last(whole.market.instruments.size()),
      isConfigured(whole.market.instruments.size()) {
    forEachInForce(lines, day, [this](const KeptFeeLine& line) {
        for (const std::size_t place : *line.places) {
            last[place] = &line;
        }
    });
    forEachInForce(folder.configuredLines, day,
                   [this](const ConfiguredLine& line) { isConfigured[line.place] = true; });
}

bool NeededRecords::isNeeded(const KeptFeeLine& line, std::size_t place) {
    if (isConfigured[place]) {
        return true;
    }
    const bool isNew = isNewUnit(folder.market.instruments[place].tradeUnit);
    return isNew || last[place] == &line;
}

// Neighbours in the catalogue mostly have the same unit.
bool NeededRecords::isNewUnit(int unit) {
    if (!units.empty() && units.back() == unit) {
        return false;
    }
    const auto known = std::find(units.begin(), units.end(), unit);
    const bool isNew = known == units.end();
    if (isNew) {
        units.push_back(unit);
    } else {
        std::iter_swap(known, units.end() - 1);
    }
    return isNew;
}

}  // namespace standalone::loader
