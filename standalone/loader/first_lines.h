#ifndef STANDALONE_LOADER_FIRST_LINES_H
#define STANDALONE_LOADER_FIRST_LINES_H

#include <iterator>
#include <map>
#include <optional>
#include <utility>

#include "cost/date.h"
#include "standalone/market.h"

namespace standalone::loader {

/// The first line of a table for each subject, and on which days it applies. For one thread.
template <class Subject>
class FirstLines {
public:
    /// A line that spoke of the subject before on one of the days; empty when there was none, and the line is kept.
    std::optional<Position> before(const Subject& subject, Position line, const cost::DateRange& days = {}) {
        const cost::Date first = days.from.value_or(cost::Date());
        const auto end = [](const cost::DateRange& range) { return range.until.value_or(cost::Date::last()); };
        // Kept lines of one subject never share a day, so only the last that begins before these days end can reach
        // them.
        const auto behind = lines.upper_bound({subject, end(days)});
        if (behind != lines.begin()) {
            const auto& [key, kept] = *std::prev(behind);
            if (key.first == subject && !(kept.until < first)) {
                return kept.line;
            }
        }
        lines.emplace(std::make_pair(subject, first), Kept{end(days), line});
        return std::nullopt;
    }

private:
    struct Kept {
        cost::Date until;
        Position line;
    };

    std::map<std::pair<Subject, cost::Date>, Kept> lines;  ///< by subject and first day
};

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_FIRST_LINES_H
