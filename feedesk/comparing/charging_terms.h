#ifndef FEEDESK_COMPARING_CHARGING_TERMS_H
#define FEEDESK_COMPARING_CHARGING_TERMS_H

#include <string>
#include <vector>

#include "cost/schedule.h"
#include "feedesk/rows/value.h"

namespace feedesk {

/// A column of a charging term in which two folders differ, on days on which both have the term.
struct TermChange {
    const cost::Term* termBefore;
    const cost::Term* termAfter;
    cost::DateRange days;
    std::string column;  ///< of charges.csv: "minimum"
    Value before;        ///< nothing where the cell is empty
    Value after;
};

/// A charging term that one of two folders has alone, on some of the days at least.
struct TermApart {
    std::string place;    ///< "charges.csv:12"
    std::string account;  ///< as the term names it
    std::string name;     ///< "stock stamp_duty"
};

/// How the charging terms of two folders differ on some days. Terms of one family, place, charge, item and side are the
/// same term; titles, lines and who says so are not compared.
struct TermDifferences {
    std::vector<TermChange> changed;  ///< in the order of the folder before
    std::vector<TermApart> before;    ///< of the folder before alone
    std::vector<TermApart> after;
};

/// The schedules outlive the answer.
TermDifferences compareTerms(const cost::Schedule& before, const cost::Schedule& after, const cost::DateRange& days);

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_CHARGING_TERMS_H
