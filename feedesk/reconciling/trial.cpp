#include "feedesk/reconciling/trial.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "cost/refused.h"
#include "feedesk/reconciling/changed_terms.h"

namespace feedesk {
namespace {

std::vector<cost::Trade> tradesOn(cost::Date date, const Order& order) {
    std::vector<cost::Trade> trades = order.trades;
    for (cost::Trade& trade : trades) {
        trade.date = date;
    }
    return trades;
}

}  // namespace

void Trial::note(Cause cause, const std::string& key, const std::string& sentence,
                 const std::optional<Amounts>& amounts, TermCells cells, const std::string& wider) {
    // Of alike changes, such as charging as one of two funds is charged, the first is named.
    const bool isKnown = std::any_of(found.begin(), found.end(),
                                     [&](const Explanation& each) { return each.cause == cause && each.key == key; });
    if (!isKnown && amounts && agree(order().stated, *amounts, layout)) {
        found.push_back({cause, key, sentence, std::move(cells), wider});
    }
}

void Trial::noteEach(Cause cause, const OtherTariffList& list) {
    for (const OtherTariff& other : list) {
        note(cause, other.key, other.sentence, amountsIfAny(tradesOn(other.date, order()), other.tariff), {},
             other.wider);
    }
}

std::string namedPart(const Part& part) { return fmt::format("the {} ({})", part.charge, part.term->where); }

std::optional<Amounts> Trial::withTermsChanged(const std::function<void(cost::Term&)>& change) const {
    try {
        return amountsIfAny(order().trades, withTerms(disputed.charged.tariff, order().date(), change));
    } catch (const cost::Refused&) {
        return std::nullopt;
    }
}

std::optional<Amounts> Trial::withAmount(const Part& part, const Span& amount) const {
    std::optional<Amounts> changed = copy();
    changed->parts[indexOf(part)].amount = amount;
    return changed;
}

std::size_t Trial::indexOf(const Part& part) const { return static_cast<std::size_t>(&part - parts().data()); }

}  // namespace feedesk
