#include "feedesk/comparing/change_list.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <tuple>
#include <utility>

#include "feedesk/comparing/connected.h"
#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

auto ordered(const Change& change) {
    return std::tie(change.accounts, change.difference.instruments, *change.days.from);
}

/// Equal for changes that are the same, and for few others.
auto roughly(const Change& change) {
    return std::make_tuple(change.accounts.front(), change.difference.instruments.front(), change.difference.item,
                           change.difference.column);
}

bool sameChange(const Change& one, const Change& other) {
    const auto lists = [](const Change& change) {
        return std::tie(change.accounts, change.difference.instruments, change.sourcesBefore, change.sourcesAfter,
                        change.parts);
    };
    return changeOf(one.difference) == changeOf(other.difference) && lists(one) == lists(other);
}

template <class Each>
void addSorted(std::vector<Each>& all, const std::vector<Each>& more) {
    all.insert(all.end(), more.begin(), more.end());
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
}

void addMissingTexts(std::vector<std::string>& all, const std::vector<std::string>& more) {
    std::set<std::string> there(all.begin(), all.end());
    std::copy_if(more.begin(), more.end(), std::back_inserter(all),
                 [&](const std::string& text) { return there.insert(text).second; });
}

}  // namespace

std::string ChangeList::keyOf(const RateDifference& difference) {
    const auto set = instrumentSets.emplace(difference.instruments, instrumentSets.size());
    return fmt::format("{}|{}", changeOf(difference), set.first->second);
}

void ChangeList::addSources(const AnsweredRate& rate, const AccountDayLines& lines, ComparedFolder& folder,
                            std::size_t InstrumentPlaces::*ofFolder, Change& change,
                            std::vector<std::string>& sources) const {
    const standalone::Market& market = folder.folder().everyDay();
    for (const std::size_t line : rate.accountLines) {  // others for each account
        sources.push_back(market.where(lines[line].position));
    }
    if (rate.instrumentLines.empty() || !sources.empty()) {  // the same for all accounts
        return;
    }
    std::vector<std::size_t> instruments;
    for (const std::size_t instrument : change.difference.instruments) {
        instruments.push_back(commonInstruments[instrument].*ofFolder);
    }
    std::sort(instruments.begin(), instruments.end());
    for (const standalone::Position& one : rate.instrumentLines) {
        std::vector<std::string> like;
        for (const standalone::Position& position : folder.contents().linesLike(day, one, instruments)) {
            like.push_back(market.where(position));
        }
        addMissingTexts(sources, like);
    }
}

void ChangeList::add(const AccountSides& account, const std::vector<RateDifference>& differences) {
    for (const RateDifference& difference : differences) {
        const auto place = places.emplace(keyOf(difference), changes.size());
        if (place.second) {
            changes.push_back({difference, {}, {}, {}, {}});
        }
        Change& change = changes[place.first->second];
        change.accounts.push_back(account.before);
        addMissingTexts(change.parts, {difference.part});
        addSources(difference.before, account.linesBefore, before, &InstrumentPlaces::before, change,
                   change.sourcesBefore);
        addSources(difference.after, account.linesAfter, after, &InstrumentPlaces::after, change, change.sourcesAfter);
    }
}

void DatedChanges::add(const cost::DateRange& days, std::vector<Change> changes) {
    std::vector<Change> last = std::exchange(open, {});
    std::vector<bool> goesOn(last.size());
    std::multimap<std::tuple<std::size_t, std::size_t, std::string, std::string>, std::size_t> places;
    for (std::size_t i = 0; i < last.size(); ++i) {
        places.emplace(roughly(last[i]), i);
    }
    for (Change& change : changes) {
        change.days = days;
        const auto like = places.equal_range(roughly(change));
        const auto same = std::find_if(like.first, like.second,
                                       [&](const auto& place) { return sameChange(last[place.second], change); });
        if (same != like.second) {
            change.days.from = last[same->second].days.from;
            goesOn[same->second] = true;
        }
        open.push_back(std::move(change));
    }
    for (std::size_t i = 0; i < last.size(); ++i) {
        if (!goesOn[i]) {
            done.push_back(std::move(last[i]));
        }
    }
}

std::vector<Change> DatedChanges::take() {
    done.insert(done.end(), std::make_move_iterator(open.begin()), std::make_move_iterator(open.end()));
    std::stable_sort(done.begin(), done.end(),
                     [](const Change& one, const Change& other) { return ordered(one) < ordered(other); });
    return std::move(done);
}

std::vector<Change> joinedWhereTheyOverlap(std::vector<Change> changes) {
    std::map<std::string, std::vector<std::size_t>> alike;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        alike[changes[i].days.text() + '|' + changeOf(changes[i].difference)].push_back(i);
    }
    Connected same(changes.size());
    for (const auto& [change, places] : alike) {
        for (const std::size_t place : places.size() > 1 ? places : std::vector<std::size_t>()) {
            for (const std::size_t instrument : changes[place].difference.instruments) {
                same.share(place, fmt::format("{}|{}", change, instrument));
            }
        }
    }
    std::vector<Change> all;
    std::map<std::size_t, std::size_t> firsts;  // of those that are one
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const auto place = firsts.emplace(same.firstOf(i), all.size());
        if (place.second) {
            all.push_back(std::move(changes[i]));
            continue;
        }
        Change& one = all[place.first->second];
        one.isInPart = true;
        addSorted(one.accounts, changes[i].accounts);
        addSorted(one.difference.instruments, changes[i].difference.instruments);
        addMissingTexts(one.sourcesBefore, changes[i].sourcesBefore);
        addMissingTexts(one.sourcesAfter, changes[i].sourcesAfter);
        addMissingTexts(one.parts, changes[i].parts);
    }
    return all;
}

}  // namespace feedesk
