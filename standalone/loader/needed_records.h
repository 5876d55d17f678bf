#ifndef STANDALONE_LOADER_NEEDED_RECORDS_H
#define STANDALONE_LOADER_NEEDED_RECORDS_H

#include <cstddef>
#include <vector>

#include "standalone/loader/checked_folder.h"

namespace standalone::loader {

/// Which fee records of one account are worth making on a day: a later line of an instrument overrides an earlier one,
/// and of most instruments the last line alone can change an answer. An earlier one still can in what it brings into
/// the pool of a fee center, where the first content of a key stays (rule "A pooled record is never replaced"). What
/// a line brings in is the same for all instruments of one trade unit, as the key of a limit is made of the two; where
/// a limit is configured it may be the configured one instead. So a record is made
/// - of the last line of each instrument,
/// - of each line, for its first instrument of each trade unit,
/// - of every line of an instrument that a limit is configured for,
/// and a fee center that gets these, in the order of the lines, is left with the tables that all records would leave.
/// For one thread.
class NeededRecords {
public:
    /// The folder outlives this.
    NeededRecords(const CheckedFolder& whole, cost::Date ofDay, std::size_t account);

    /// Calls `apply` with a line and the place of an instrument for each record, in their order.
    template <class Apply>
    void forEach(const Apply& apply) {
        forEachInForce(lines, day, [&](const KeptFeeLine& line) {
            units.clear();
            for (const std::size_t place : *line.places) {
                if (isNeeded(line, place)) {
                    apply(line, place);
                }
            }
        });
    }

private:
    bool isNeeded(const KeptFeeLine& line, std::size_t place);
    /// Whether the line so far has had no instrument of the unit.
    bool isNewUnit(int unit);

    const CheckedFolder& folder;
    const std::vector<KeptFeeLine>& lines;
    cost::Date day;
    std::vector<const KeptFeeLine*> last;  ///< by place in the catalogue
    std::vector<bool> isConfigured;        ///< the same
    std::vector<int> units;                ///< of the line's instruments so far, the latest last
};

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_NEEDED_RECORDS_H
