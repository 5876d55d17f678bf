#include "feedesk/comparing/comparison.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "feedesk/comparing/change_list.h"
#include "feedesk/instruments/instrument_text.h"

namespace feedesk {
namespace {

bool sameContents(const AccountDayLines& one, const AccountDayLines& other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const auto& a, const auto& b) { return a.content == b.content && a.kind == b.kind; });
}

/// The first day of each of the folder's intervals, and of its days that are covered, within the days.
void addFirstDays(const standalone::MarketFolder& folder, const cost::DateRange& days, std::set<cost::Date>& firsts) {
    const auto add = [&](const std::optional<cost::Date>& day) {
        if (day && days.contains(*day)) {
            firsts.insert(*day);
        }
    };
    for (const cost::Date change : folder.changeDates()) {
        add(change);
    }
    const auto addCovered = [&](const cost::DateRange& covered) {
        add(covered.from);
        add(covered.until ? covered.until->next() : std::nullopt);
    };
    const auto& coverage = folder.coverage();
    std::for_each(coverage.familyDays.begin(), coverage.familyDays.end(), addCovered);
    for (const auto& [market, covered] : coverage.marketDays) {
        addCovered(covered);
    }
}

}  // namespace

Comparison::Comparison(ComparedFolder& folderBefore, ComparedFolder& folderAfter)
    : before(folderBefore), after(folderAfter) {
    for (std::size_t place = 0; place < before.accounts().size(); ++place) {
        const qmservice::CAccountInfo& account = *before.accounts()[place].record;
        const auto there = after.account(account.accountId);
        if (!there) {
            apart.accountsBefore.push_back(account.accountId);
        } else if (after.accounts()[*there].record->accountType != account.accountType) {
            apart.accountsOfAnotherKind.push_back(account.accountId);
        } else {
            commonAccounts.push_back({place, *there});
        }
    }
    for (const standalone::Account& account : after.accounts()) {
        if (!before.account(account.record->accountId)) {
            apart.accountsAfter.push_back(account.record->accountId);
        }
    }
    const auto nameOf = [](const standalone::ListedInstrument& listed) {
        return instrumentText(listed.record->market, listed.record->code);
    };
    for (std::size_t place = 0; place < before.instruments().size(); ++place) {
        if (const auto there = after.instrument(*before.instruments()[place].record)) {
            commonInstruments.push_back({place, *there});
        } else {
            apart.instrumentsBefore.push_back(nameOf(before.instruments()[place]));
        }
    }
    for (const standalone::ListedInstrument& listed : after.instruments()) {
        if (!before.instrument(*listed.record)) {
            apart.instrumentsAfter.push_back(nameOf(listed));
        }
    }
}

std::vector<cost::Date> Comparison::firstDaysOf(const cost::DateRange& days) const {
    std::set<cost::Date> firsts = {*days.from};
    addFirstDays(before.folder(), days, firsts);
    addFirstDays(after.folder(), days, firsts);
    return {firsts.begin(), firsts.end()};
}

AccountSides Comparison::sidesOf(const AccountPair& pair, cost::Date day) const {
    return {pair.before, pair.after, before.contents().linesOn(day, pair.before),
            after.contents().linesOn(day, pair.after)};
}

std::vector<Change> Comparison::changesOn(cost::Date day) {
    const bool sameShared = before.contents().sharedOn(day) == after.contents().sharedOn(day);
    std::map<AccountInputs, std::vector<RateDifference>> known;
    ChangeList changes(before, after, day, commonInstruments);
    for (const AccountPair& pair : commonAccounts) {
        const qmservice::CAccountInfo& accountBefore = *before.accounts()[pair.before].record;
        const qmservice::CAccountInfo& accountAfter = *after.accounts()[pair.after].record;
        const AccountSides sides = sidesOf(pair, day);
        if (sameShared && accountBefore.platformId == accountAfter.platformId &&
            sameContents(sides.linesBefore, sides.linesAfter)) {
            continue;
        }
        AccountInputs inputs;
        addInputs(accountBefore, sides.linesBefore, inputs);
        addInputs(accountAfter, sides.linesAfter, inputs);
        const auto found = known.emplace(std::move(inputs), std::vector<RateDifference>());
        if (found.second) {
            found.first->second = compareAccount(before, after, day, sides, commonInstruments);
            ++asked;
        }
        changes.add(sides, found.first->second);
    }
    return changes.take();
}

std::vector<Change> Comparison::changesOn(const cost::DateRange& days) {
    const std::vector<cost::Date> firsts = firstDaysOf(days);
    DatedChanges all;
    for (std::size_t i = 0; i < firsts.size(); ++i) {
        const bool isLast = i + 1 == firsts.size();
        all.add({firsts[i], isLast ? days.until : firsts[i + 1].previous()}, changesOn(firsts[i]));
    }
    return all.take();
}

}  // namespace feedesk
