#ifndef FEEDESK_COMPARING_CHANGE_LIST_H
#define FEEDESK_COMPARING_CHANGE_LIST_H

#include <cstddef>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "feedesk/comparing/comparison.h"

namespace feedesk {

/// The changes of a day. Accounts for which a rate of the same instruments changes alike have one change together: by
/// the same lines, or each by lines of its own.
class ChangeList {
public:
    /// The folders outlive it. `instruments` are those that both have, which the differences name.
    ChangeList(ComparedFolder& folderBefore, ComparedFolder& folderAfter, cost::Date comparedDay,
               const std::vector<InstrumentPlaces>& instruments)
        : before(folderBefore), after(folderAfter), day(comparedDay), commonInstruments(instruments) {}

    void add(const AccountSides& account, const std::vector<RateDifference>& differences);
    std::vector<Change> take() { return std::move(changes); }

private:
    [[nodiscard]] std::string keyOf(const RateDifference& difference);

    void addSources(const AnsweredRate& rate, const AccountDayLines& lines, ComparedFolder& folder,
                    std::size_t InstrumentPlaces::*ofFolder, Change& change, std::vector<std::string>& sources) const;

    ComparedFolder& before;
    ComparedFolder& after;
    cost::Date day;
    const std::vector<InstrumentPlaces>& commonInstruments;
    std::vector<Change> changes;
    std::unordered_map<std::string, std::size_t> places;
    std::map<std::vector<std::size_t>, std::size_t> instrumentSets;  // numbered
};

/// The changes of several days, one after the other: what is the same on days that follow is one change.
class DatedChanges {
public:
    void add(const cost::DateRange& days, std::vector<Change> changes);
    /// By account, instruments and day.
    std::vector<Change> take();

private:
    std::vector<Change> done;
    std::vector<Change> open;  // up to the days that were added last
};

/// The changes with those of the same days and values put together that have instruments in common: what changes for
/// some accounts in more instruments than for others is one change, which is then in part.
std::vector<Change> joinedWhereTheyOverlap(std::vector<Change> changes);

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_CHANGE_LIST_H
