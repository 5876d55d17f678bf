#include "cost/tariff.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace cost {
namespace {

/// Thrown while a plan is made: the sentence around the date.
struct Problem {
    std::string before;
    std::string after;
};

class Planner {
public:
    Planner(const Place& placeOfTrades, const Rates& answeredRates, const TermSet& termsOfPlace)
        : place(placeOfTrades), rates(answeredRates), terms(termsOfPlace) {}

    [[nodiscard]] Plan planOf(Side side) const {
        Plan plan;
        try {
            plan = charged(side);
        } catch (const Problem& problem) {
            plan.lines.clear();
            plan.problem = problem.before;
            plan.afterDate = problem.after;
        }
        return plan;
    }

private:
    [[nodiscard]] Plan charged(Side side) const {
        const std::vector<const Term*>& sideTerms = terms.termsOf(side);
        if (sideTerms.empty()) {
            throw Problem{std::string(wordFor(side)) + " of " + place.instrument() + " has no charging term",
                          "; add a line to " + terms.file()};
        }
        refuseUnknownRates(sideTerms);
        Plan plan;
        plan.lines = linesOf(sideTerms);
        plan.currency = sideTerms.front()->currency;
        for (const Term* term : sideTerms) {
            if (term->currency != plan.currency) {
                throw Problem{sideTerms.front()->where + " charges " + plan.currency + " and " + term->where + " " +
                                  term->currency + " for the same trade of " + place.instrument(),
                              ""};
            }
        }
        for (ChargeLine& line : plan.lines) {
            line.inside = containerOf(line, plan.lines);
        }
        for (const ChargeLine& line : plan.lines) {
            refuseCycle(line, plan.lines);
        }
        return plan;
    }

    /// Whether the terms of the side look at the rate at all.
    [[nodiscard]] bool isLookedAt(const Rate& rate, const std::vector<const Term*>& sideTerms) const {
        return place.family != Family::kOption ||
               std::any_of(sideTerms.begin(), sideTerms.end(),
                           [&](const Term* term) { return term->item == rate.item; });
    }

    void refuseUnknownRates(const std::vector<const Term*>& sideTerms) const {
        for (const Rate& rate : rates.charges) {
            if (!rate.value.isZero() && isLookedAt(rate, sideTerms) && !terms.charges(rate.charge, rate.item)) {
                throw Problem{"the rate " + nameOf(rate) + ' ' + rate.value.text() + " of " + place.instrument() +
                                  " has no charging term",
                              "; add a line to " + terms.file()};
            }
        }
    }

    [[nodiscard]] std::vector<ChargeLine> linesOf(const std::vector<const Term*>& sideTerms) const {
        std::vector<std::pair<std::size_t, ChargeLine>> ordered;
        for (const Term* term : sideTerms) {
            const auto rate = std::find_if(rates.charges.begin(), rates.charges.end(), [&](const Rate& known) {
                return known.charge == term->charge && known.item == term->item;
            });
            const bool isAnswered = rate != rates.charges.end();
            if (!term->rate && !isAnswered) {
                throw Problem{term->where + " charges " + nameOf(*term) + ", which the rates of " + place.instrument() +
                                  " do not hold",
                              "; give the line a rate, or correct its charge or item"};
            }
            ChargeLine line{term, term->rate ? nullptr : &*rate, term->rate ? *term->rate : rate->value, nullptr};
            if (line.value.isNegative()) {
                throw Problem{
                    "the rate " + nameOf(*term) + ' ' + line.value.text() + " of " + place.instrument() + " is below 0",
                    ""};
            }
            if (!line.value.isZero()) {
                ordered.emplace_back(rate - rates.charges.begin(), line);
            }
        }
        std::stable_sort(ordered.begin(), ordered.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        std::vector<ChargeLine> lines;
        std::transform(ordered.begin(), ordered.end(), std::back_inserter(lines),
                       [](const auto& line) { return line.second; });
        return lines;
    }

    [[nodiscard]] const Term* containerOf(const ChargeLine& line, const std::vector<ChargeLine>& lines) const {
        const Term& term = *line.term;
        if (term.inside.empty()) {
            return nullptr;
        }
        const auto container = std::find_if(lines.begin(), lines.end(), [&](const ChargeLine& other) {
            return other.term->charge == term.inside &&
                   (other.term->item == term.item || other.term->item.empty() || term.item.empty());
        });
        if (container == lines.end()) {
            throw Problem{term.where + " says that " + nameOf(term) + " of " + place.instrument() + " is inside " +
                              term.inside + ", which is not charged",
                          "; charge it by itself where that is so"};
        }
        return container->term;
    }

    static void refuseCycle(const ChargeLine& line, const std::vector<ChargeLine>& lines) {
        // A walk into a cycle that does not return to this line ends after as many steps as there are lines: the lines
        // of the cycle report it themselves.
        const Term* outer = line.inside;
        for (std::size_t step = 0; outer != nullptr && outer != line.term && step < lines.size(); ++step) {
            outer = std::find_if(lines.begin(), lines.end(), [&](const ChargeLine& other) {
                        return other.term == outer;
                    })->inside;
        }
        if (outer == line.term) {
            throw Problem{line.term->where + " says that " + line.term->charge + " is inside " + line.term->inside +
                              ", which is inside it in turn",
                          ""};
        }
    }

    template <class Named>
    static std::string nameOf(const Named& named) {
        return named.item.empty() ? named.charge : named.charge + " (fee item " + named.item + ')';
    }

    const Place& place;
    const Rates& rates;
    const TermSet& terms;
};

}  // namespace

Tariff::Tariff(Place place, Contract contract, Rates rates, TermSet terms) {
    auto made = std::make_shared<Content>();
    made->place = std::move(place);
    made->contract = std::move(contract);
    made->rates = std::move(rates);
    made->terms = std::move(terms);
    if (made->place.family != Family::kOption && made->place.family != Family::kFutures) {
        made->contract.multiplier = Decimal(1);
    }
    const Planner planner(made->place, made->rates, made->terms);
    for (std::size_t side = 0; side < kSideCount; ++side) {
        if (has(made->place.family, sideAt(side))) {
            made->plans[side] = planner.planOf(sideAt(side));
        }
    }
    content = std::move(made);
}

const Plan& Tariff::planOf(Side side, Date date) const {
    const Place& where = place();
    if (!has(where.family, side)) {
        throw WrongTrade("the side is " + std::string(wordFor(side)) + ", and " + where.instrument() +
                         " is charged as " + std::string(wordFor(where.family)) + ", which has " +
                         sidesOf(where.family));
    }
    if (!terms().dates().contains(date)) {
        throw Refused("the trade is of " + date.text() + ", and the charging terms at hand are those " +
                      terms().dates().text());
    }
    const Plan& plan = content->plans[indexOf(side)];
    if (!plan.problem.empty()) {
        throw Refused(plan.problem + " on " + date.text() + plan.afterDate);
    }
    return plan;
}

}  // namespace cost
