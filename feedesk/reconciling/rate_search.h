#ifndef FEEDESK_RECONCILING_RATE_SEARCH_H
#define FEEDESK_RECONCILING_RATE_SEARCH_H

#include <cstddef>
#include <deque>
#include <vector>

#include "feedesk/reconciling/rate_change.h"

namespace feedesk {

using RateChanges = std::vector<RateChange>;

/// Looks for the rates that explain orders from a day on. What it found of a line it keeps until one of the line's
/// orders gets its cause.
class RateSearch {
public:
    /// Both must outlive it.
    RateSearch(const ChargedLines& chargedLines, const Layout& statementLayout);

    /// The rates that fit differing orders without a cause: of one line of the folder, from a day on or between two
    /// days; of one instrument alone, where that explains orders which the line as a whole does not, at least two; of
    /// several lines, where one rate explains all that the rates of each of them do. What ends has two orders at least,
    /// of one line or of several.
    const RateChanges& changes();

private:
    struct Kept {
        std::size_t openOrders = 0;
        std::deque<ChargedLine> ofInstruments;
        RateChanges changes;
        RateChanges singles;  // rates that ended before the last orders, and of which one order alone is
    };

    void search(const ChargedLine& line, Kept& kept) const;
    void searchWithSingles(const ChargedLine& line, Kept& kept) const;
    [[nodiscard]] RateChanges joinedWhereOneFits(RateChanges changes) const;

    const ChargedLines& lines;
    const Layout& layout;
    std::vector<Kept> found;  // of each line
    RateChanges all;
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_RATE_SEARCH_H
