#ifndef FEEDESK_COMPARING_CHARGING_TERMS_H
#define FEEDESK_COMPARING_CHARGING_TERMS_H

#include <string>
#include <vector>

#include "cost/schedule.h"

namespace feedesk {

/// A charging term that one of two folders has alone.
struct TermApart {
    std::string place;    ///< "charges.csv:12"
    std::string account;  ///< as the term names it
};

/// The terms of `one` that are in force on some of the days and that `other` does not have. Titles, places and who says
/// so are not compared, and days outside do not count.
std::vector<TermApart> termsOnlyIn(const cost::Schedule& one, const cost::Schedule& other, const cost::DateRange& days);

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_CHARGING_TERMS_H
