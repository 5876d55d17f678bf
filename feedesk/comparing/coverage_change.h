#ifndef FEEDESK_COMPARING_COVERAGE_CHANGE_H
#define FEEDESK_COMPARING_COVERAGE_CHANGE_H

#include <string>
#include <vector>

#include "feedesk/comparing/compared_folder.h"

namespace feedesk {

/// Days that the schedules of one folder cover, and those of the other do not.
struct CoverageLoss {
    std::string family;  ///< whose schedules; empty: all, or a market's
    std::string market;  ///< empty: every one
    cost::DateRange days;
    std::string sentence;  ///< "b's schedules end on 2026-10-31, those of a on 2026-12-31"
};

/// Which of the asked days the second folder loses: of the folder, and then of the families and markets that lose more
/// than it. A bound that nobody asked for is none.
std::vector<CoverageLoss> lostCoverage(const ComparedFolder& from, const ComparedFolder& to,
                                       const cost::DateRange& asked);

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_COVERAGE_CHANGE_H
