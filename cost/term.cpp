#include "cost/term.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "cost/place.h"

namespace cost {
namespace {

std::string inQuotes(std::string_view text) { return '"' + std::string(text) + '"'; }

bool isNegative(const std::optional<Decimal>& number) { return number && number->isNegative(); }

/// Says each fault of a term by itself to `report`.
template <class Report>
void checkAlone(const Term& term, const Report& report) {
    const std::string family(wordFor(term.family));
    if (term.charge.empty()) {
        report("the line names no charge; name one");
    }
    if (term.currency.empty()) {
        report("the line names no currency; name one, such as CNY");
    }
    if (!has(term.family, term.side)) {
        report("the side is " + inQuotes(wordFor(term.side)) + ", and family " + family + " has " +
               termSidesOf(term.family) + "; write one of them");
    }
    if (term.family != Family::kOption && !term.item.empty()) {
        report("the line names the fee item " + inQuotes(term.item) +
               ", and only options have fee items; leave the item empty");
    }
    if (term.family == Family::kOption && term.item.empty() && !term.rate) {
        report(
            "the line takes its rate from the fee center but does not name the fee item that holds it; name it, or "
            "give "
            "the line a rate");
    }
    if (isNegative(term.rate) || isNegative(term.minimum) || isNegative(term.maximum)) {
        report("rate, minimum and maximum may not be below 0; correct them");
    }
    if (term.minimum && term.maximum && *term.maximum < *term.minimum) {
        report("the maximum " + term.maximum->text() + " is below the minimum " + term.minimum->text() +
               "; correct one of them");
    }
    if (term.basis == Basis::kOrder && term.per != Per::kOrder) {
        report("the basis is \"order\", so per must be \"order\" too; correct one of them");
    }
    if (term.basis == Basis::kDay && term.per != Per::kDay) {
        report("the basis is \"day\", so per must be \"day\" too; correct one of them");
    }
    if (term.rounding && !(term.rounding->step > Decimal())) {
        report("the rounding step must be above 0; correct it");
    }
    if (!term.inside.empty() && term.inside == term.charge) {
        report("the line is inside its own charge " + inQuotes(term.charge) +
               "; name another charge, or leave it empty");
    }
    if (term.dates.from && term.dates.until && *term.dates.until < *term.dates.from) {
        report("the line ends on " + term.dates.until->text() + ", before it starts on " + term.dates.from->text() +
               "; correct one of them");
    }
}

class ConflictFinder {
public:
    explicit ConflictFinder(const std::vector<Term>& allTerms) : terms(allTerms) {
        for (const Term& term : terms) {
            charges.emplace(term.family, term.charge);
        }
    }

    std::vector<TermFault> find() {
        for (std::size_t index = 0; index < terms.size(); ++index) {
            const auto report = [&](std::string sentence) { faults.push_back({index, std::move(sentence)}); };
            checkInside(terms[index], report);
            checkSingle(terms[index], report);
        }
        return std::move(faults);
    }

private:
    /// What two equally specific terms of the same words share.
    using Key = std::tuple<Family, std::string_view, std::string_view, std::string_view, std::string_view,
                           std::string_view, std::string_view, TermSide>;

    template <class Report>
    void checkInside(const Term& term, const Report& report) const {
        if (!term.inside.empty() && charges.count({term.family, term.inside}) == 0) {
            report("the line is inside " + inQuotes(term.inside) + ", which no line of family " +
                   std::string(wordFor(term.family)) + " charges; correct it, or add a line for that charge");
        }
    }

    template <class Report>
    void checkSingle(const Term& term, const Report& report) {
        std::vector<const Term*>& same =
            alike[Key(term.family, pattern(term.account), pattern(term.market), pattern(term.code),
                      pattern(term.product), term.charge, term.item, term.side)];
        for (const Term* earlier : same) {
            if (earlier->dates.overlaps(term.dates)) {
                report("the line charges " + inQuotes(term.charge) +
                       " in the same place, on the same side and days as " + earlier->where +
                       "; remove one of them, or make one more specific");
            }
        }
        same.push_back(&term);
    }

    const std::vector<Term>& terms;
    std::set<std::pair<Family, std::string_view>> charges;
    std::map<Key, std::vector<const Term*>> alike;
    std::vector<TermFault> faults;
};

}  // namespace

std::vector<std::string> faultsOf(const Term& term) {
    std::vector<std::string> faults;
    checkAlone(term, [&](std::string sentence) { faults.push_back(std::move(sentence)); });
    return faults;
}

std::vector<TermFault> conflictsOf(const std::vector<Term>& terms) { return ConflictFinder(terms).find(); }

std::vector<TermFault> faultsOf(const std::vector<Term>& terms) {
    std::vector<TermFault> faults = conflictsOf(terms);
    for (std::size_t index = 0; index < terms.size(); ++index) {
        for (std::string& sentence : faultsOf(terms[index])) {
            faults.push_back({index, std::move(sentence)});
        }
    }
    std::stable_sort(faults.begin(), faults.end(),
                     [](const TermFault& a, const TermFault& b) { return a.term < b.term; });
    return faults;
}

}  // namespace cost
