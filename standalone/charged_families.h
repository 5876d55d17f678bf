#ifndef STANDALONE_CHARGED_FAMILIES_H
#define STANDALONE_CHARGED_FAMILIES_H

#include <optional>

#include "cost/side.h"
#include "standalone/families.h"

// How the families that trades are charged in go with the families of rates. Safe from any number of threads at once.

namespace standalone {

/// The family that holds the rates of trades: of futures the commission, of another one that of its name.
const RateFamily& rateFamilyOf(cost::Family charged);

/// The family in which an account of the kind trades; empty for one that trades everything.
std::optional<cost::Family> chargedAs(const AccountKindInfo& kind);

/// Whether an account of the kind may trade in the family.
bool trades(const AccountKindInfo& kind, cost::Family charged);

}  // namespace standalone

#endif  // STANDALONE_CHARGED_FAMILIES_H
