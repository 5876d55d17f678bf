#ifndef FEEDESK_RECONCILING_CAUSE_H
#define FEEDESK_RECONCILING_CAUSE_H

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "cost/words.h"

namespace feedesk {

/// Why a statement says something else than the folder, in the order in which causes are tried.
enum class Cause {
    kOtherDate,        ///< charged by the schedule of another date
    kMinimumPer,       ///< the minimum of each fill, or of the order
    kRoundingPerFill,  ///< each fill was rounded
    kFillByFill,       ///< each fill was charged as an order of its own
    kRoundingMode,
    kOtherLevel,  ///< rates of an input that another one overrides
    kLeftOut,
    kChargedTwice,
    kOtherAccount,
    kOtherSide,
    kOtherCategory,  ///< charged as instruments of another kind are
    kAllIn,          ///< a commission that contains what the folder charges on top of it
    kOtherMinimum,   ///< without the minimum, or with another one
    kOtherMaximum,
    kOtherRate,  ///< solved for
    kNotExplained
};

}  // namespace feedesk

template <>
inline constexpr std::array<std::string_view, 16> cost::kWords<feedesk::Cause> = {
    "other_date",    "minimum_per",   "rounding_per_fill", "fill_by_fill", "rounding_mode",  "other_level",
    "left_out",      "charged_twice", "other_account",     "other_side",   "other_category", "all_in",
    "other_minimum", "other_maximum", "other_rate",        "not_explained"};

namespace feedesk {

/// Another value in a column of a charging term.
struct TermCell {
    std::string where;  ///< "charges.csv:4"
    std::string column;
    std::string value;  ///< empty: none

    friend bool operator==(const TermCell& one, const TermCell& other) {
        return one.where == other.where && one.column == other.column && one.value == other.value;
    }
};

using TermCells = std::vector<TermCell>;

/// A single change with which the folder says what the statement says.
struct Explanation {
    Cause cause = Cause::kNotExplained;
    std::string key;       ///< the same for the same change on another order
    std::string sentence;  ///< "the schedule of 2022-04-29 until 2023-08-27"
    TermCells cells{};     ///< where the change is one of terms: what would make the folder say it
    std::string wider{};   ///< the same for the same change where it leads to something else on another order; or empty
};

using Explanations = std::vector<Explanation>;

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_CAUSE_H
