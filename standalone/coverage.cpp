#include "standalone/coverage.h"

#include <fmt/format.h>

namespace standalone {
namespace {

std::string refusalOf(cost::Date day, const cost::DateRange& known, const std::string& schedules) {
    if (known.contains(day)) {
        return {};
    }
    return fmt::format("{} are known {}, and {} lies outside; ask for a day within", schedules, known.text(),
                       day.text());
}

}  // namespace

std::string Coverage::refusal(cost::Date day) const { return refusalOf(day, days, "the folder's schedules"); }

std::string Coverage::refusal(cost::Date day, cost::Family family) const {
    return refusalOf(day, of(family), fmt::format("the folder's schedules of family {}", cost::wordFor(family)));
}

std::string Coverage::refusal(cost::Date day, const std::string& market) const {
    const auto known = marketDays.find(market);
    return known == marketDays.end()
               ? std::string()
               : refusalOf(day, known->second, fmt::format("the folder's schedules of market {}", market));
}

}  // namespace standalone
