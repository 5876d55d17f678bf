#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "cost/place.h"
#include "feedesk/checking/same_charge.h"
#include "feedesk/checking/topics.h"

namespace feedesk::checking {
namespace {

bool hasSamePlace(const cost::Term& one, const cost::Term& other) {
    return isInPlaceOf(one, other) && isInPlaceOf(other, one);
}

/// What of the other terms charges the same on the next day.
struct Followers {
    bool hasSuccessor = false;
    const cost::Term* wider = nullptr;  ///< the most specific one that was there all the while
};

Followers followersOf(const cost::Term& ended, cost::Date next, const std::vector<cost::Term>& terms) {
    Followers followers;
    for (const cost::Term& term : terms) {
        if (&term == &ended || !chargesSame(term, ended) || !term.dates.contains(next) || !isInPlaceOf(ended, term)) {
            continue;
        }
        if (term.dates.from == next || hasSamePlace(term, ended)) {
            followers.hasSuccessor = true;
        } else if (followers.wider == nullptr || cost::specificity(*followers.wider) < cost::specificity(term)) {
            followers.wider = &term;
        }
    }
    return followers;
}

std::string followText(const cost::Term* wider, const std::string& charge, const std::string& next) {
    return wider == nullptr ? fmt::format("no term charges {} from {} on", charge, next)
                            : fmt::format("{} charges {} in its place from {} on", wider->where, charge, next);
}

}  // namespace

void findEndedTerms(const FolderFacts& facts, Findings& findings) {
    const std::vector<cost::Term>& terms = facts.folder.schedule().terms();
    for (const cost::Term& term : terms) {
        const auto next = term.dates.until ? term.dates.until->next() : std::nullopt;
        const bool goesOn = next && *term.dates.until >= facts.day;
        if (!goesOn || !facts.folder.coverage().of(term.family).contains(*next)) {
            continue;
        }
        const Followers followers = followersOf(term, *next, terms);
        if (!followers.hasSuccessor) {
            findings.add({accountsOf(term),
                          1,
                          {Place::of(term.where)},
                          fmt::format("ends on {}, and {}", term.dates.until->text(),
                                      followText(followers.wider, term.charge, next->text())),
                          fmt::format("add a term from {}, or see that this is meant", next->text())});
        }
    }
}

}  // namespace feedesk::checking
