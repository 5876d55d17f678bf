#include "standalone/charged_families.h"

namespace standalone {

const RateFamily& rateFamilyOf(cost::Family charged) {
    return rateFamily(charged == cost::Family::kFutures ? "commission" : cost::wordFor(charged));
}

std::optional<cost::Family> chargedAs(const AccountKindInfo& kind) {
    const std::string name = kind.family;
    return name == "commission" ? cost::Family::kFutures : cost::fromWord<cost::Family>(name);
}

bool trades(const AccountKindInfo& kind, cost::Family charged) {
    const std::optional<cost::Family> own = chargedAs(kind);
    return !own || *own == charged;
}

}  // namespace standalone
