#include "feedesk/reconciling/said_amounts.h"

#include <algorithm>
#include <map>
#include <string>

namespace feedesk {

bool Said::isInColumn(const cost::Decimal& wanted) const {
    const auto& columns = charged->order.stated.charges;
    return std::any_of(columns.begin(), columns.end(), [&](const auto& each) { return each && *each == wanted; });
}

std::vector<SaidOfTerm> saidOfTerms(const OrdersByDay& orders) {
    std::vector<SaidOfTerm> terms;
    std::map<std::string, std::size_t> places;
    for (ReconciledOrder* each : orders) {
        const Amounts amounts = amountsOf(each->order.trades, *each->tariff);
        for (const Part& part : amounts.parts) {
            // Of known fills that are charged one by one no sum says what each of them costs.
            const bool isOne = part.term->per != cost::Per::kFill || each->order.trades.size() == 1;
            if (!part.isPaid() || !isOne) {
                continue;
            }
            const auto place = places.emplace(part.term->where + ' ' + part.charge, terms.size());
            if (place.second) {
                terms.push_back({*part.term, {}});
            }
            const cost::Decimal stated = part.amount.low + (each->statedCosts - amounts.costs().low);
            terms[place.first->second].said.push_back({each, part.exact, part.amount.low, stated, amounts.turnover});
        }
    }
    return terms;
}

}  // namespace feedesk
