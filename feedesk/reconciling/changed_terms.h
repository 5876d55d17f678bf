#ifndef FEEDESK_RECONCILING_CHANGED_TERMS_H
#define FEEDESK_RECONCILING_CHANGED_TERMS_H

#include <functional>
#include <string>

#include "cost/tariff.h"
#include "feedesk/reconciling/amounts.h"
#include "feedesk/reconciling/cause.h"

namespace feedesk {

/// The tariff as of the day with each of its terms changed. Throws cost::Refused when the changed terms contradict each
/// other.
cost::Tariff withTerms(const cost::Tariff& tariff, cost::Date day, const std::function<void(cost::Term&)>& change);

/// The tariff as of the day with another rate of a charge: the fee center's, or the term's own. Throws cost::Refused.
cost::Tariff withRate(const cost::Tariff& tariff, cost::Date day, const std::string& charge, const std::string& item,
                      const cost::Decimal& rate);

/// The amounts with the charges of these terms inside another one, each the one that its cell names.
Amounts putInside(Amounts amounts, const TermCells& cells);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_CHANGED_TERMS_H
