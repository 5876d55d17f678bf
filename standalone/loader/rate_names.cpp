#include "standalone/loader/rate_names.h"

#include <algorithm>

namespace standalone::loader {
namespace {

struct NamedFamily {
    const char* name;
    const char* prefix;
    int count;
};

constexpr NamedFamily kFamilies[] = {{"stock", "rate", 6}, {"credit", "rate", 6}, {"neeq", "rate", 6},
                                     {"hgt", "rate", 14},  {"sgt", "rate", 14},   {"option", "fee", 5}};

}  // namespace

const std::vector<std::string>& namedFamilies() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const NamedFamily& family : kFamilies) all.emplace_back(family.name);
        return all;
    }();
    return names;
}

std::vector<RateName> ownRateNames(const std::string& family) {
    std::vector<RateName> rates;
    const auto* found = std::find_if(std::begin(kFamilies), std::end(kFamilies),
                                     [&](const NamedFamily& known) { return known.name == family; });
    for (int i = 1; found != std::end(kFamilies) && i <= found->count; ++i) {
        const std::string field = found->prefix + std::to_string(i);
        rates.push_back({field, field, field, RateUnit::kFraction});
    }
    return rates;
}

bool isFixedColumn(const std::string& name) {
    static const std::vector<std::string> fixed{
        "account", "market", "code", "product", "update", "category",   "item",     "unit_volume",  // of the tables
        "kind",    "name",   "part", "level",   "source", "trade_unit", "base_rate"};               // of the answers
    return std::find(fixed.begin(), fixed.end(), name) != fixed.end();
}

}  // namespace standalone::loader
