#ifndef FEEDESK_COMPARING_RATE_DIFFERENCE_H
#define FEEDESK_COMPARING_RATE_DIFFERENCE_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "feedesk/answers/answer.h"
#include "standalone/folder_contents.h"

namespace feedesk {

/// The lines of an account on a day.
using AccountDayLines = std::vector<standalone::FolderContents::Line>;

/// What one folder answers.
struct AnsweredRate {
    std::optional<double> value;  ///< empty: the answer has no such rate
    Level level = Level::kNotSet;
    std::optional<std::size_t> accountLine;  ///< the source, where it is one of the account's lines on the day
    /// Where it is a line of an instrument: that of the first of them.
    std::optional<standalone::Position> instrumentLine{};
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

/// Whether all but the instruments is the same.
bool sameDifference(const RateDifference& one, const RateDifference& other);

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_RATE_DIFFERENCE_H
