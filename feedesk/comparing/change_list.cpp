#include "feedesk/comparing/change_list.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>
#include <utility>

#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

std::string valueText(const std::optional<double>& value) { return value ? plainNumber(*value) : "-"; }

std::string textOf(const AnsweredRate& rate) {
    return fmt::format("{} {}", valueText(rate.value), static_cast<int>(rate.level));
}

auto ordered(const Change& change) {
    return std::tie(change.accounts, change.difference.instruments, *change.days.from);
}

/// Equal for changes that are the same, and for few others.
auto roughly(const Change& change) {
    return std::make_tuple(change.accounts.front(), change.difference.instruments.front(), change.difference.item,
                           change.difference.column);
}

bool sameChange(const Change& one, const Change& other) {
    const auto what = [](const Change& change) {
        const RateDifference& difference = change.difference;
        return std::make_tuple(std::tie(difference.part, difference.item, difference.column, difference.instruments),
                               textOf(difference.before), textOf(difference.after),
                               std::tie(change.accounts, change.sourcesBefore, change.sourcesAfter));
    };
    return what(one) == what(other);
}

}  // namespace

std::string ChangeList::keyOf(const RateDifference& difference) {
    const auto set = instrumentSets.emplace(difference.instruments, instrumentSets.size());
    return fmt::format("{}|{}|{}|{}|{}|{}", difference.part, difference.item, difference.column, set.first->second,
                       textOf(difference.before), textOf(difference.after));
}

void ChangeList::addSources(const AnsweredRate& rate, const Lines& lines, ComparedFolder& folder,
                            std::size_t InstrumentPlaces::*ofFolder, Change& change,
                            std::vector<std::string>& sources) const {
    const standalone::Market& market = folder.folder().everyDay();
    if (rate.accountLine) {  // another one for each account
        sources.push_back(market.where(lines[*rate.accountLine].position));
    }
    if (!rate.instrumentLine || !sources.empty()) {  // the same for all accounts
        return;
    }
    std::vector<std::size_t> instruments;
    for (const std::size_t instrument : change.difference.instruments) {
        instruments.push_back(commonInstruments[instrument].*ofFolder);
    }
    std::sort(instruments.begin(), instruments.end());
    for (const standalone::Position& position : folder.contents().linesLike(day, *rate.instrumentLine, instruments)) {
        sources.push_back(market.where(position));
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

}  // namespace feedesk
