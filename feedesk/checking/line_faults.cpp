#include "feedesk/checking/line_faults.h"

#include <fmt/format.h>

#include <algorithm>

namespace feedesk::checking {

void LineFaults::add(const Place& place, const std::vector<std::string>& accounts, const std::string& found,
                     const std::string& remedy) {
    Faults& faults = byPlace[place];
    faults.accounts = accounts;
    faults.found.push_back(found);
    if (std::find(faults.remedies.begin(), faults.remedies.end(), remedy) == faults.remedies.end()) {
        faults.remedies.push_back(remedy);
    }
}

void LineFaults::addTo(Findings& findings) const {
    for (const auto& [place, faults] : byPlace) {
        findings.add({faults.accounts,
                      1,
                      {place},
                      fmt::format("{}", fmt::join(faults.found, ", ")),
                      fmt::format("{}", fmt::join(faults.remedies, ", "))});
    }
}

}  // namespace feedesk::checking
