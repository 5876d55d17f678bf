#ifndef STANDALONE_COVERAGE_H
#define STANDALONE_COVERAGE_H

#include <array>
#include <cstddef>
#include <map>
#include <string>

#include "cost/date.h"
#include "cost/side.h"

namespace standalone {

/// The days for which the schedules of a market folder are known. A plain value.
struct Coverage {
    cost::DateRange days;  ///< of the folder
    /// By cost::Family; no wider than those of the folder.
    std::array<cost::DateRange, cost::kWords<cost::Family>.size()> familyDays;
    /// Of the markets that have days of their own, such as one that opened later; no wider than those of the folder.
    std::map<std::string, cost::DateRange> marketDays;

    /// The days for which the schedules of the family are known.
    [[nodiscard]] const cost::DateRange& of(cost::Family family) const {
        return familyDays[static_cast<std::size_t>(family)];
    }

    /// One sentence that refuses the day and names the days that are known; empty when the day is one of them.
    [[nodiscard]] std::string refusal(cost::Date day) const;
    /// The same for the schedules of one family.
    [[nodiscard]] std::string refusal(cost::Date day, cost::Family family) const;
    /// The same for the schedules of one market, by the market string of the records.
    [[nodiscard]] std::string refusal(cost::Date day, const std::string& market) const;
};

}  // namespace standalone

#endif  // STANDALONE_COVERAGE_H
