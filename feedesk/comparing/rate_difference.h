#ifndef FEEDESK_COMPARING_RATE_DIFFERENCE_H
#define FEEDESK_COMPARING_RATE_DIFFERENCE_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "feedesk/alike/account_inputs.h"
#include "feedesk/answers/answer.h"

namespace feedesk {

/// What one folder answers.
struct AnsweredRate {
    std::optional<double> value;  ///< empty: the answer has no such rate
    Level level = Level::kNotSet;
    // Its sources: none where no line gives it, and several where different lines give the same for some instruments.
    std::vector<std::size_t> accountLines{};              ///< those of the account's lines on the day
    std::vector<standalone::Position> instrumentLines{};  ///< where they are of instruments: one of each content
};

/// A rate that two folders answer differently, for some instruments of an account.
struct RateDifference {
    std::string part;
    std::string item;    ///< as FeeLine::item
    std::string label;   ///< as FeeLine::label
    std::string column;  ///< of the rate; empty: the rates are the same, but come from another level
    std::string title;
    Unit unit = Unit::kFraction;
    AnsweredRate before;
    AnsweredRate after;
    std::vector<std::size_t> instruments;  ///< by place in the list of those that both folders have
};

/// A line of an answer of each folder; at most one of them is not there.
struct LinePair {
    const FeeLine* before = nullptr;
    const FeeLine* after = nullptr;
};

/// The rates in which the lines differ; where none does and the level is another, that the level does. Without
/// instruments.
std::vector<RateDifference> differencesOf(const LinePair& lines, const AccountDayLines& linesBefore,
                                          const AccountDayLines& linesAfter);

/// Equal for differences of one rate from the same value and level to the same value and level: of one part, or of
/// several that read the same table of limits.
std::string changeOf(const RateDifference& difference);

/// Differences of one account as few as they can be: those that are the same change and share a line, of either
/// folder, are one. So a category that takes instruments from several lines to one is one difference, and two lines
/// that change alike are two.
std::vector<RateDifference> joined(std::vector<RateDifference> differences);

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_RATE_DIFFERENCE_H
