#ifndef COST_SCHEDULE_H
#define COST_SCHEDULE_H

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "cost/date.h"
#include "cost/place.h"
#include "cost/refused.h"
#include "cost/term.h"

namespace cost {

/// The terms that charge one account's instrument, by side: for each charge the most specific one. Immutable, safe from
/// any thread, cheap to copy. Keeps the terms alive that it names.
class TermSet {
public:
    /// In the order of the schedule.
    [[nodiscard]] const std::vector<const Term*>& termsOf(Side side) const { return bySide[indexOf(side)]; }
    /// Whether the charge (of an option: of that fee item) has a term of any side.
    [[nodiscard]] bool charges(const std::string& charge, const std::string& item) const;
    /// Where a term that is missing belongs.
    [[nodiscard]] const std::string& file() const { return fileOfTerms; }
    /// The days, around the one that was asked for, on which the answer is the same.
    [[nodiscard]] const DateRange& dates() const { return sameDates; }

private:
    friend class Schedule;

    std::shared_ptr<const std::vector<Term>> keptTerms;
    std::array<std::vector<const Term*>, kSideCount> bySide;
    DateRange sameDates;
    std::string fileOfTerms;
};

/// All charging terms of a market folder. Immutable, safe from any thread, cheap to copy.
class Schedule {
public:
    /// Without a term and without a file.
    Schedule() : Schedule({}, "") {}
    /// `file`: where a term that is missing belongs, for messages. Throws Refused with the first of faultsOf(terms).
    explicit Schedule(std::vector<Term> terms, std::string file);

    /// The terms of a place on a day. It looks at every term, so callers keep the answer for the place and
    /// TermSet::dates(). Throws Refused, naming both, when two equally specific ones charge the same on the same side.
    [[nodiscard]] TermSet termsFor(const Place& place, Date date) const;

    /// All terms, in the order of the file; live as long as a copy of the schedule.
    [[nodiscard]] const std::vector<Term>& terms() const { return *kept; }

private:
    std::shared_ptr<const std::vector<Term>> kept;
    std::string fileOfTerms;
};

}  // namespace cost

#endif  // COST_SCHEDULE_H
