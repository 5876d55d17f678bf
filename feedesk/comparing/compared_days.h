#ifndef FEEDESK_COMPARING_COMPARED_DAYS_H
#define FEEDESK_COMPARING_COMPARED_DAYS_H

#include <string>
#include <vector>

#include "feedesk/comparing/compared_folder.h"

namespace feedesk {

/// The days to compare of those that are asked for: where no first day is, from the folders' own day on, the earlier
/// one; where no last day is, as long as both are known. Throws Failure when a folder does not cover the first or last.
cost::DateRange comparedDays(const cost::DateRange& asked, const ComparedFolder& before, const ComparedFolder& after);

/// A sentence for each family or market that one of the folders does not cover on all of the days.
std::vector<std::string> coverageNotes(const ComparedFolder& before, const ComparedFolder& after,
                                       const cost::DateRange& days);

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_COMPARED_DAYS_H
