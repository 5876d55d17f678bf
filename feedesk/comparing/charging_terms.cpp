#include "feedesk/comparing/charging_terms.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <tuple>

namespace feedesk {
namespace {

using cost::DateRange;
using cost::Term;

/// A cell of charges.csv on which amounts depend.
struct TermColumn {
    const char* name;
    Value (*value)(const Term& term);
};

Value decimalCell(const std::optional<cost::Decimal>& number) {
    return number ? Value(Money{number->text()}) : Value(Nothing());
}

Value rateCell(const Term& term) {
    return term.rate
               ? Value(Rate{term.rate->text(), term.basis == cost::Basis::kTurnover ? Unit::kFraction : Unit::kNumber})
               : Value(Nothing());
}

constexpr std::array<TermColumn, 8> kTermColumns = {{
    {"basis", [](const Term& term) { return Value(std::string(cost::wordFor(term.basis))); }},
    {"rate", rateCell},
    {"minimum", [](const Term& term) { return decimalCell(term.minimum); }},
    {"maximum", [](const Term& term) { return decimalCell(term.maximum); }},
    {"per", [](const Term& term) { return Value(std::string(cost::wordFor(term.per))); }},
    {"rounding", [](const Term& term) { return textOrNothing(term.rounding ? term.rounding->text() : ""); }},
    {"inside", [](const Term& term) { return textOrNothing(term.inside); }},
    {"currency", [](const Term& term) { return textOrNothing(term.currency); }},
}};

/// What makes two lines the same term.
auto termName(const Term& term) {
    return std::make_tuple(static_cast<int>(term.family), std::string(cost::pattern(term.account)),
                           std::string(cost::pattern(term.market)), std::string(cost::pattern(term.code)),
                           std::string(cost::pattern(term.product)), term.charge, term.item,
                           static_cast<int>(term.side));
}

using TermName = decltype(termName(Term()));

/// The days that are in both; they overlap.
DateRange commonDays(const DateRange& one, const DateRange& other) {
    DateRange both = one;
    if (other.from && (!both.from || *both.from < *other.from)) {
        both.from = other.from;
    }
    if (other.until && (!both.until || *both.until > *other.until)) {
        both.until = other.until;
    }
    return both;
}

/// Whether every day of `days` is in one of the ranges.
bool areCovered(const DateRange& days, std::vector<DateRange> ranges) {
    // Of ranges that begin nowhere the optional is empty, and sorts first.
    std::sort(ranges.begin(), ranges.end(),
              [](const DateRange& one, const DateRange& other) { return one.from < other.from; });
    std::optional<cost::Date> next = days.from;  // the first day that is not covered yet
    for (const DateRange& range : ranges) {
        if (range.from && !(next && *range.from <= *next)) {
            return false;
        }
        if (!range.until || (days.until && *range.until >= *days.until)) {
            return true;
        }
        next = std::max(next.value_or(cost::Date()), range.until->next().value_or(*range.until));
    }
    return false;
}

/// The terms of a schedule that are in force on some of the days, by name.
std::multimap<TermName, const Term*> termsByName(const cost::Schedule& schedule, const DateRange& days) {
    std::multimap<TermName, const Term*> terms;
    for (const Term& term : schedule.terms()) {
        if (term.dates.overlaps(days)) {
            terms.emplace(termName(term), &term);
        }
    }
    return terms;
}

std::vector<TermApart> termsApart(const cost::Schedule& schedule, const std::multimap<TermName, const Term*>& others,
                                  const DateRange& days) {
    std::vector<TermApart> apart;
    for (const Term& term : schedule.terms()) {
        if (!term.dates.overlaps(days)) {
            continue;
        }
        std::vector<DateRange> ranges;
        const auto [begin, end] = others.equal_range(termName(term));
        std::transform(begin, end, std::back_inserter(ranges), [](const auto& other) { return other.second->dates; });
        if (!areCovered(commonDays(term.dates, days), ranges)) {
            apart.push_back({term.where, std::string(cost::pattern(term.account)),
                             std::string(cost::wordFor(term.family)) + " " + term.charge});
        }
    }
    return apart;
}

void addChanges(const Term& before, const Term& after, const DateRange& days, std::vector<TermChange>& changed) {
    const DateRange both = commonDays(commonDays(before.dates, after.dates), days);
    for (const TermColumn& column : kTermColumns) {
        const Value old = column.value(before);
        const Value now = column.value(after);
        if (plainText(old) != plainText(now)) {
            changed.push_back({&before, &after, both, column.name, old, now});
        }
    }
}

}  // namespace

TermDifferences compareTerms(const cost::Schedule& before, const cost::Schedule& after, const cost::DateRange& days) {
    const auto namedBefore = termsByName(before, days);
    const auto namedAfter = termsByName(after, days);
    TermDifferences differences;
    for (const Term& term : before.terms()) {
        if (!term.dates.overlaps(days)) {
            continue;
        }
        const auto [begin, end] = namedAfter.equal_range(termName(term));
        for (auto other = begin; other != end; ++other) {
            const DateRange& there = other->second->dates;
            if (there.overlaps(term.dates) && there.overlaps(commonDays(term.dates, days))) {
                addChanges(term, *other->second, days, differences.changed);
            }
        }
    }
    differences.before = termsApart(before, namedAfter, days);
    differences.after = termsApart(after, namedBefore, days);
    return differences;
}

}  // namespace feedesk
