#include "feedesk/checking/same_charge.h"

#include <algorithm>
#include <array>

#include "cost/place.h"

namespace feedesk::checking {
namespace {

bool shareASide(const cost::Term& one, const cost::Term& other) {
    for (std::size_t i = 0; i < cost::kSideCount; ++i) {
        const cost::Side side = cost::sideAt(i);
        if (cost::has(one.family, side) && cost::covers(one.side, side) && cost::covers(other.side, side)) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool chargesSame(const cost::Term& one, const cost::Term& other) {
    return one.family == other.family && one.charge == other.charge && one.item == other.item && shareASide(one, other);
}

bool isInPlaceOf(const cost::Term& narrower, const cost::Term& wider) {
    constexpr std::array kTexts = {&cost::Term::account, &cost::Term::market, &cost::Term::code, &cost::Term::product};
    return std::all_of(kTexts.begin(), kTexts.end(), [&](const auto text) {
        const std::string_view wide = cost::pattern(wider.*text);
        return wide.empty() || wide == cost::pattern(narrower.*text);
    });
}

}  // namespace feedesk::checking
