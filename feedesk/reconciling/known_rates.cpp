#include "feedesk/reconciling/known_rates.h"

#include <algorithm>
#include <string>

namespace feedesk {
namespace {

std::optional<cost::Decimal> rateIn(const OtherTariff& other, const SolvedRate& solved) {
    const auto& charges = other.tariff.rates().charges;
    const auto rate = std::find_if(charges.begin(), charges.end(), [&](const cost::Rate& each) {
        return each.charge == solved.sought.charge && each.item == solved.sought.item;
    });
    return rate == charges.end() ? std::nullopt : std::optional(rate->value);
}

/// The one with the fewest decimals of those that fit; of several the last, which of days is the latest.
const OtherTariff* bestOf(const OtherTariffList& list, const SolvedRate& solved) {
    const OtherTariff* found = nullptr;
    std::size_t length = 0;
    for (const OtherTariff& each : list) {
        const auto rate = rateIn(each, solved);
        if (rate && solved.range.contains(*rate) && (found == nullptr || rate->text().size() <= length)) {
            found = &each;
            length = rate->text().size();
        }
    }
    return found;
}

/// Of the rates of the same charge the one with the fewest decimals of those that fit.
const SolvedRate* bestOf(const SolvedRates& found, const SolvedRate& solved) {
    const SolvedRate* best = nullptr;
    for (const auto& each : found) {
        const bool isSame = each->sought.charge == solved.sought.charge && each->sought.item == solved.sought.item;
        if (isSame && solved.range.contains(each->rate) &&
            (best == nullptr || each->rate.text().size() < best->rate.text().size())) {
            best = each.get();
        }
    }
    return best;
}

}  // namespace

void preferKnown(SolvedRate& solved, const ReconciledOrder& charged, OtherTariffs& others, const SolvedRates& found) {
    const Amounts amounts = amountsOf(charged.order.trades, *charged.tariff);
    const Disputed disputed{charged.order, amounts};
    if (const OtherTariff* dated = bestOf(others.ofOtherDates(disputed), solved)) {
        solved.rate = *rateIn(*dated, solved);
        solved.knownFrom = dated->sentence;
        solved.isKnown = true;
        return;
    }
    if (const SolvedRate* same = bestOf(found, solved)) {
        solved.rate = same->rate;
        solved.isKnown = true;
        return;
    }
    for (const auto list :
         {&OtherTariffs::ofOtherLevels, &OtherTariffs::ofOtherCategories, &OtherTariffs::ofOtherAccounts}) {
        if (const OtherTariff* other = bestOf((others.*list)(disputed), solved)) {
            solved.rate = *rateIn(*other, solved);
            solved.isKnown = true;
            return;
        }
    }
}

}  // namespace feedesk
