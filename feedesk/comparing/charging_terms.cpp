#include "feedesk/comparing/charging_terms.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

namespace feedesk {
namespace {

template <class Number>
std::string textOf(const std::optional<Number>& number) {
    return number ? number->text() : "-";
}

std::string textOf(const std::optional<cost::Rounding>& rounding) {
    return rounding ? fmt::format("{} {}", static_cast<int>(rounding->mode), rounding->step.text()) : "-";
}

/// Those of the term's days that are among the days.
cost::DateRange within(const cost::Term& term, const cost::DateRange& days) {
    cost::DateRange both = term.dates;
    if (days.from && (!both.from || *both.from < *days.from)) {
        both.from = days.from;
    }
    if (days.until && (!both.until || *both.until > *days.until)) {
        both.until = days.until;
    }
    return both;
}

/// All that amounts depend on.
std::string contentOf(const cost::Term& term, const cost::DateRange& days) {
    const auto number = [](auto word) { return static_cast<int>(word); };
    return fmt::format(
        "{}",
        fmt::join(std::vector<std::string>{fmt::format("{} {} {} {}", number(term.family), number(term.side),
                                                       number(term.basis), number(term.per)),
                                           term.account, std::string(cost::pattern(term.market)),
                                           std::string(cost::pattern(term.code)),
                                           std::string(cost::pattern(term.product)), within(term, days).text(),
                                           term.charge, term.item, textOf(term.rate), textOf(term.minimum),
                                           textOf(term.maximum), textOf(term.rounding), term.inside, term.currency},
                  "\n"));
}

}  // namespace

std::vector<TermApart> termsOnlyIn(const cost::Schedule& one, const cost::Schedule& other,
                                   const cost::DateRange& days) {
    std::set<std::string> there;
    for (const cost::Term& term : other.terms()) {
        there.insert(contentOf(term, days));
    }
    std::vector<TermApart> apart;
    for (const cost::Term& term : one.terms()) {
        if (term.dates.overlaps(days) && there.count(contentOf(term, days)) == 0) {
            apart.push_back({term.where, std::string(cost::pattern(term.account))});
        }
    }
    return apart;
}

}  // namespace feedesk
