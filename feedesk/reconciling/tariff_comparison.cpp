#include "feedesk/reconciling/tariff_comparison.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

namespace feedesk {
namespace {

bool sameRates(const cost::Rates& one, const cost::Rates& other) {
    return std::equal(one.charges.begin(), one.charges.end(), other.charges.begin(), other.charges.end(),
                      [](const cost::Rate& a, const cost::Rate& b) {
                          return a.charge == b.charge && a.item == b.item && a.value == b.value;
                      });
}

}  // namespace

bool chargeAlike(const cost::Tariff& one, const cost::Tariff& other) {
    for (std::size_t side = 0; side < cost::kSideCount; ++side) {
        if (one.terms().termsOf(cost::sideAt(side)) != other.terms().termsOf(cost::sideAt(side))) {
            return false;
        }
    }
    return sameRates(one.rates(), other.rates());
}

std::string inputLevelOf(const cost::Tariff& tariff) {
    const auto& charges = tariff.rates().charges;
    return charges.empty() ? "" : charges.front().level;
}

std::string inputOf(const cost::Tariff& tariff) {
    const auto& charges = tariff.rates().charges;
    if (charges.empty()) {
        return "";
    }
    const cost::Rate& rate = charges.front();
    return rate.source.empty() ? rate.level : rate.level + ", " + rate.source;
}

std::string categoryKeyOf(const cost::Tariff& tariff, const std::string& customCategories) {
    return customCategories.empty() ? tariff.place().market + ' ' + tariff.place().product
                                    : customCategories + ' ' + inputOf(tariff);
}

std::string categorySentenceOf(const cost::Tariff& tariff, const std::string& customCategories) {
    const cost::Place& place = tariff.place();
    const std::string custom = customCategories.empty() ? "" : "custom category " + customCategories;
    const std::string between = place.product.empty() || custom.empty() ? "" : ", ";
    const std::string kind = place.product + between + custom;
    return fmt::format("charged as {}{} is{}", place.instrument(), kind.empty() ? "" : fmt::format(" ({})", kind),
                       custom.empty() ? "" : ", by the " + inputOf(tariff));
}

}  // namespace feedesk
