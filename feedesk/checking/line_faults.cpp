#include "feedesk/checking/line_faults.h"

#include <fmt/format.h>

#include <algorithm>

namespace feedesk::checking {

void LineFaults::add(const Place& place, const std::vector<std::string>& accounts, const std::string& found,
                     const std::string& mend) {
    Faults& faults = byPlace[place];
    faults.accounts = accounts;
    faults.found.push_back(found);
    if (std::find(faults.mends.begin(), faults.mends.end(), mend) == faults.mends.end()) {
        faults.mends.push_back(mend);
    }
}

void LineFaults::addTo(Findings& findings) const {
    for (const auto& [place, faults] : byPlace) {
        findings.add({faults.accounts,
                      1,
                      {place},
                      fmt::format("{}", fmt::join(faults.found, ", ")),
                      fmt::format("{}", fmt::join(faults.mends, ", "))});
    }
}

}  // namespace feedesk::checking
