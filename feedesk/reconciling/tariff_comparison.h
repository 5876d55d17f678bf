#ifndef FEEDESK_RECONCILING_TARIFF_COMPARISON_H
#define FEEDESK_RECONCILING_TARIFF_COMPARISON_H

#include <string>

#include "cost/tariff.h"

namespace feedesk {

// What distinguishes a tariff from another one, and how that is named.

/// Whether two tariffs of one schedule charge alike.
bool chargeAlike(const cost::Tariff& one, const cost::Tariff& other);

/// "custom fee"; empty for a tariff without rates.
std::string inputLevelOf(const cost::Tariff& tariff);

/// "custom fee, custom/stock.csv:18"; empty for a tariff without rates.
std::string inputOf(const cost::Tariff& tariff);

/// The same for tariffs of one kind of instrument: what is given for custom categories is the same in every market and
/// product.
std::string categoryKeyOf(const cost::Tariff& tariff, const std::string& customCategories);

/// "charged as SH:600036 (MAIN, custom category 10001) is, by the custom fee, custom/stock.csv:8".
std::string categorySentenceOf(const cost::Tariff& tariff, const std::string& customCategories);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_TARIFF_COMPARISON_H
