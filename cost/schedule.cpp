#include "cost/schedule.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace cost {
namespace {

bool sameCharge(const Term& a, const Term& b) { return a.charge == b.charge && a.item == b.item; }

/// Cuts the range so that no term starts or ends within the range.
void cut(DateRange& range, const DateRange& term, Date day) {
    const auto raiseFrom = [&](std::optional<Date> date) {
        if (date && (!range.from || *range.from < *date)) {
            range.from = date;
        }
    };
    const auto lowerUntil = [&](std::optional<Date> date) {
        if (date && (!range.until || *date < *range.until)) {
            range.until = date;
        }
    };
    if (term.contains(day)) {
        raiseFrom(term.from);
        lowerUntil(term.until);
    } else if (term.from && day < *term.from) {
        lowerUntil(term.from->previous());
    } else {
        raiseFrom(term.until->next());
    }
}

/// Puts the term among a side's winners unless one of its charge is more specific; those that are less so leave. Of
/// equally specific ones all stay, as a later term may be above them all.
void compete(const Term& term, std::vector<const Term*>& winners) {
    const auto isRival = [&](const Term* other) { return sameCharge(*other, term); };
    const auto rival = std::find_if(winners.begin(), winners.end(), isRival);
    if (rival != winners.end()) {
        const Specificity ours = specificity(term);
        const Specificity theirs = specificity(**rival);
        if (ours < theirs) {
            return;
        }
        if (theirs < ours) {
            winners.erase(std::remove_if(rival, winners.end(), isRival), winners.end());
        }
    }
    winners.push_back(&term);
}

void refuseTies(const std::vector<const Term*>& winners, const Place& place, Date date) {
    for (auto first = winners.begin(); first != winners.end(); ++first) {
        const auto second = std::find_if(std::next(first), winners.end(),
                                         [&](const Term* other) { return sameCharge(**first, *other); });
        if (second != winners.end()) {
            throw Refused((*first)->where + " and " + (*second)->where + " both charge " + (*first)->charge + " of " +
                          place.instrument() + " on " + date.text() +
                          " and neither is more specific; make one of them so");
        }
    }
}

}  // namespace

bool TermSet::charges(const std::string& charge, const std::string& item) const {
    return std::any_of(bySide.begin(), bySide.end(), [&](const std::vector<const Term*>& terms) {
        return std::any_of(terms.begin(), terms.end(),
                           [&](const Term* term) { return term->charge == charge && term->item == item; });
    });
}

Schedule::Schedule(std::vector<Term> terms, std::string file)
    : kept(std::make_shared<const std::vector<Term>>(std::move(terms))), fileOfTerms(std::move(file)) {
    const std::vector<TermFault> faults = faultsOf(*kept);
    if (!faults.empty()) {
        throw Refused((*kept)[faults.front().term].where + ": " + faults.front().sentence);
    }
}

TermSet Schedule::termsFor(const Place& place, Date date) const {
    TermSet set;
    set.keptTerms = kept;
    set.fileOfTerms = fileOfTerms;
    for (const Term& term : *kept) {
        if (!appliesTo(term, place)) {
            continue;
        }
        cut(set.sameDates, term.dates, date);
        if (!term.dates.contains(date)) {
            continue;
        }
        for (std::size_t side = 0; side < kSideCount; ++side) {
            if (covers(term.side, sideAt(side))) {
                compete(term, set.bySide[side]);
            }
        }
    }
    for (const std::vector<const Term*>& winners : set.bySide) {
        refuseTies(winners, place, date);
    }
    return set;
}

}  // namespace cost
