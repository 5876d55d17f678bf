#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

#include "cost/place.h"
#include "feedesk/checking/far_values.h"
#include "feedesk/checking/line_faults.h"
#include "feedesk/checking/same_charge.h"
#include "feedesk/checking/topics.h"
#include "standalone/text/numbers.h"

// What of charging terms no rate shows: minimum, maximum and rounding.

namespace feedesk::checking {
namespace {

using cost::Term;

// A slip of one place makes ten times as much; agreed minimums and maximums of one charge are nearer to each other.
constexpr FarRule kFarLimit = {9.99, 3, 3};

// So much or less is how "no minimum" is written.
constexpr double kNoMinimum = 0.1;

// Of fewer terms nobody can say which rounding is the exception; so many-th part of them are exceptions at most.
constexpr std::size_t kFewestRoundings = 4;
constexpr std::size_t kMostOfRoundings = 4;

/// Terms whose amounts can be compared: of one charge, whichever family pays it.
using Kind = std::tuple<std::string, cost::Basis, std::string>;

using Terms = std::vector<const Term*>;

std::map<Kind, Terms> termsByKind(const FolderFacts& facts) {
    std::map<Kind, Terms> kinds;
    for (const Term& term : facts.folder.schedule().terms()) {
        kinds[{term.charge, term.basis, term.currency}].push_back(&term);
    }
    return kinds;
}

/// A cell of charges.csv that says how an amount is made.
struct Cell {
    const char* column;
    std::string (*text)(const Term& term);
};

std::string textOf(const std::optional<cost::Decimal>& amount) { return amount ? amount->text() : ""; }

constexpr std::array<Cell, 4> kCells = {
    {{"minimum", [](const Term& term) { return textOf(term.minimum); }},
     {"maximum", [](const Term& term) { return textOf(term.maximum); }},
     {"per", [](const Term& term) { return std::string(cost::wordFor(term.per)); }},
     {"rounding", [](const Term& term) { return term.rounding ? term.rounding->text() : ""; }}}};
constexpr const Cell& kMinimum = kCells[0];
constexpr const Cell& kMaximum = kCells[1];
constexpr const Cell& kRounding = kCells[3];

std::string cellText(const Cell& cell, const std::string& text) {
    return text.empty() ? fmt::format("no {}", cell.column) : fmt::format("{} {}", cell.column, text);
}

void addFault(const Term& term, const std::string& found, const std::string& remedy, LineFaults& faults) {
    faults.add(Place::of(term.where), accountsOf(term), found, remedy);
}

void findFarLimits(const Terms& terms, const Cell& cell, LineFaults& faults) {
    std::vector<std::pair<double, const Term*>> limits;
    for (const Term* term : terms) {
        const double limit = standalone::numberIn<double>(cell.text(*term)).value_or(0);
        if (limit > (&cell == &kMinimum ? kNoMinimum : 0)) {
            limits.emplace_back(limit, term);
        }
    }
    std::stable_sort(limits.begin(), limits.end(),
                     [](const auto& one, const auto& other) { return one.first < other.first; });
    std::vector<double> values(limits.size());
    std::transform(limits.begin(), limits.end(), values.begin(), [](const auto& limit) { return limit.first; });
    for (const FarValue& far : farValues(values, kFarLimit)) {
        const Term& term = *limits[far.place].second;
        addFault(term,
                 fmt::format("the {} of {} is far from all others: {}", cellText(cell, cell.text(term)), term.charge,
                             far.distance),
                 "look it up and correct it", faults);
    }
}

void findFarRoundings(const Terms& terms, LineFaults& faults) {
    std::map<std::string, Terms> byText;
    for (const Term* term : terms) {
        byText[kRounding.text(*term)].push_back(term);
    }
    const auto usual = std::max_element(byText.begin(), byText.end(), [](const auto& one, const auto& other) {
        return one.second.size() < other.second.size();
    });
    for (const auto& [text, odd] : byText) {
        if (terms.size() < kFewestRoundings || odd.size() * kMostOfRoundings > terms.size()) {
            continue;
        }
        for (const Term* term : odd) {
            addFault(*term,
                     fmt::format("{} has {}, and {} of its {} terms have {}", term->charge, cellText(kRounding, text),
                                 usual->second.size(), terms.size(), cellText(kRounding, usual->first)),
                     "look it up and correct it", faults);
        }
    }
}

/// The term of all accounts that would charge in the place of this one; the most specific. Null where there is none.
const Term* commonTerm(const Term& own, const std::vector<Term>& terms) {
    const Term* common = nullptr;
    for (const Term& term : terms) {
        if (cost::pattern(term.account).empty() && chargesSame(term, own) && term.dates.overlaps(own.dates) &&
            isInPlaceOf(own, term) && (common == nullptr || cost::specificity(*common) < cost::specificity(term))) {
            common = &term;
        }
    }
    return common;
}

}  // namespace

void findFarTerms(const FolderFacts& facts, Findings& findings) {
    LineFaults faults;
    for (const auto& [kind, terms] : termsByKind(facts)) {
        findFarLimits(terms, kMinimum, faults);
        findFarLimits(terms, kMaximum, faults);
        findFarRoundings(terms, faults);
    }
    faults.addTo(findings);
}

void findUnexplainedTerms(const FolderFacts& facts, Findings& findings) {
    const std::vector<Term>& terms = facts.folder.schedule().terms();
    LineFaults faults;
    for (const Term& own : terms) {
        const Term* common = cost::pattern(own.account).empty() ? nullptr : commonTerm(own, terms);
        if (common == nullptr || (!own.source.empty() && own.source != common->source)) {
            continue;
        }
        for (const Cell& cell : kCells) {
            if (cell.text(own) != cell.text(*common)) {
                addFault(own,
                         fmt::format("{} has {} in place of {} of {}", own.charge, cellText(cell, cell.text(own)),
                                     cellText(cell, cell.text(*common)), common->where),
                         "correct it, or write in source who agreed to it", faults);
            }
        }
    }
    faults.addTo(findings);
}

}  // namespace feedesk::checking
