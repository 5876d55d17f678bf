#include "feedesk/reconciling/changed_terms.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace feedesk {
namespace {

/// Every term that charges a side of the place, once.
std::vector<const cost::Term*> termsOf(const cost::TermSet& terms) {
    std::vector<const cost::Term*> all;
    for (std::size_t side = 0; side < cost::kSideCount; ++side) {
        for (const cost::Term* term : terms.termsOf(cost::sideAt(side))) {
            if (std::find(all.begin(), all.end(), term) == all.end()) {
                all.push_back(term);
            }
        }
    }
    return all;
}

}  // namespace

cost::Tariff withTerms(const cost::Tariff& tariff, cost::Date day, const std::function<void(cost::Term&)>& change) {
    std::vector<cost::Term> terms;
    for (const cost::Term* term : termsOf(tariff.terms())) {
        terms.push_back(*term);
        change(terms.back());
    }
    return {tariff.place(), tariff.contract(), tariff.rates(),
            cost::Schedule(std::move(terms), tariff.terms().file()).termsFor(tariff.place(), day)};
}

cost::Tariff withRate(const cost::Tariff& tariff, cost::Date day, const std::string& charge, const std::string& item,
                      const cost::Decimal& rate) {
    cost::Rates rates = tariff.rates();
    for (cost::Rate& each : rates.charges) {
        if (each.charge == charge && each.item == item) {
            each.value = rate;
        }
    }
    const auto isTermsOwn = [&](const cost::Term* term) {
        return term->charge == charge && term->item == item && term->rate.has_value();
    };
    const std::vector<const cost::Term*> terms = termsOf(tariff.terms());
    if (std::none_of(terms.begin(), terms.end(), isTermsOwn)) {
        return {tariff.place(), tariff.contract(), std::move(rates), tariff.terms()};
    }
    return withTerms(tariff, day, [&](cost::Term& term) {
        if (isTermsOwn(&term)) {
            term.rate = rate;
        }
    });
}

Amounts putInside(Amounts amounts, const TermCells& cells) {
    for (Part& part : amounts.parts) {
        const auto cell = std::find_if(cells.begin(), cells.end(), [&](const TermCell& each) {
            return each.column == "inside" && each.where == part.term->where;
        });
        part.inside = cell == cells.end() ? part.inside : cell->value;
    }
    return amounts;
}

}  // namespace feedesk
