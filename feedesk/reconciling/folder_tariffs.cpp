#include "feedesk/reconciling/folder_tariffs.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "feedesk/reconciling/tariff_comparison.h"

namespace feedesk {
namespace {

Question questionOf(const Disputed& disputed) {
    const cost::Place& place = disputed.charged.tariff.place();
    return {place.market, place.code};
}

/// The days that are in both.
cost::DateRange within(const cost::DateRange& one, const cost::DateRange& other) {
    cost::DateRange both = one;
    if (other.from && (!both.from || *both.from < *other.from)) {
        both.from = other.from;
    }
    if (other.until && (!both.until || *other.until < *both.until)) {
        both.until = other.until;
    }
    return both;
}

}  // namespace

FolderTariffs::FolderTariffs(Session& openedSession, std::string accountOfStatement)
    : session(openedSession), account(std::move(accountOfStatement)), excerpts(openedSession) {}

const OtherTariffList& FolderTariffs::ofOtherDates(const Disputed& disputed) {
    return kept(Cause::kOtherDate, disputed, &FolderTariffs::otherDates);
}

const OtherTariffList& FolderTariffs::ofOtherLevels(const Disputed& disputed) {
    return kept(Cause::kOtherLevel, disputed, &FolderTariffs::otherLevels);
}

const OtherTariffList& FolderTariffs::ofOtherAccounts(const Disputed& disputed) {
    return kept(Cause::kOtherAccount, disputed, &FolderTariffs::otherAccounts);
}

const OtherTariffList& FolderTariffs::ofOtherCategories(const Disputed& disputed) {
    return kept(Cause::kOtherCategory, disputed, &FolderTariffs::otherCategories);
}

const OtherTariffList& FolderTariffs::kept(Cause cause, const Disputed& disputed, Make make) {
    const cost::Place& place = disputed.charged.tariff.place();
    const Key key(cause, place.instrument(), session.folder().intervalOf(disputed.order.date()));
    const auto known = lists.find(key);
    return known != lists.end() ? known->second : lists.emplace(key, (this->*make)(disputed)).first->second;
}

std::vector<cost::DateRange> FolderTariffs::intervals(const cost::Place& place) const {
    const standalone::Coverage& coverage = session.folder().coverage();
    const auto market = coverage.marketDays.find(place.market);
    cost::DateRange covered = coverage.of(place.family);
    if (market != coverage.marketDays.end()) {
        covered = within(covered, market->second);
    }
    std::vector<cost::DateRange> found{covered};
    for (const cost::Date change : session.folder().changeDates()) {
        const auto before = change.previous();
        if (before && covered.contains(change) && covered.contains(*before)) {
            found.push_back({change, found.back().until});
            found[found.size() - 2].until = before;
        }
    }
    return found;
}

OtherTariffList FolderTariffs::otherDates(const Disputed& disputed) {
    OtherTariffList list;
    std::optional<cost::DateRange> days;  // of the last one in the list
    for (const cost::DateRange& interval : intervals(disputed.charged.tariff.place())) {
        const cost::Date date = interval.from.value_or(interval.until.value_or(disputed.order.date()));
        const auto tariff = excerpts.tariffOn(date, account, questionOf(disputed));
        if (!tariff || chargeAlike(*tariff, disputed.charged.tariff)) {
            days.reset();
            continue;
        }
        const bool goesOn = days && chargeAlike(*tariff, list.back().tariff);
        days = cost::DateRange{goesOn ? days->from : interval.from, interval.until};
        if (goesOn) {
            list.pop_back();
        }
        list.push_back({days->text(), "the schedule " + days->text(), *tariff, date});
    }
    return list;
}

OtherTariffList FolderTariffs::otherLevels(const Disputed& disputed) {
    const cost::Date date = disputed.order.date();
    const Question question = questionOf(disputed);
    const standalone::FolderExcerpt excerpt = excerpts.excerptOf(account, {question});
    std::vector<bool> keptLines;
    for (const standalone::RateInput& line : excerpt.lines()) {
        keptLines.push_back(line.days.contains(date));
    }
    OtherTariffList list;
    std::string above = inputOf(disputed.charged.tariff);
    std::string ignored = inputLevelOf(disputed.charged.tariff);
    for (std::size_t step = 0; step < keptLines.size(); ++step) {
        // What the answer names is taken away, and the fee center says which input is next.
        const auto current = excerpts.tariffsFrom(excerpt.market(keptLines), date, {question}).front();
        const standalone::Market& market = session.market();
        bool taken = false;
        for (std::size_t i = 0; current && i < keptLines.size(); ++i) {
            const std::string place = market.where(excerpt.lines()[i].position);
            const auto& charges = current->rates().charges;
            if (keptLines[i] && std::any_of(charges.begin(), charges.end(),
                                            [&](const cost::Rate& rate) { return rate.source == place; })) {
                keptLines[i] = false;
                taken = true;
            }
        }
        if (!taken) {
            break;
        }
        if (auto next = excerpts.tariffsFrom(excerpt.market(keptLines), date, {question}).front()) {
            const std::string input = inputOf(*next);
            list.push_back(
                {input, fmt::format("the rates of the {}, which {} goes before", input, above), *next, date, ignored});
            above = input;
            ignored += ", " + inputLevelOf(*next);
        }
    }
    return list;
}

OtherTariffList FolderTariffs::otherAccounts(const Disputed& disputed) {
    const cost::Date date = disputed.order.date();
    const cost::Tariff& own = disputed.charged.tariff;
    const std::int32_t kind = session.account(account).record->accountType;
    OtherTariffList list;
    for (const standalone::Account& other : session.market().accounts) {
        const std::string& number = other.record->accountId;
        if (number == account || other.record->accountType != kind) {
            continue;
        }
        if (const auto tariff = excerpts.tariffOn(date, number, questionOf(disputed))) {
            list.push_back({number, fmt::format("the rates and terms of account {}", number), *tariff, date});
            list.push_back({number, fmt::format("the rates of account {}", number),
                            cost::Tariff(own.place(), own.contract(), tariff->rates(), own.terms()), date});
        }
    }
    return list;
}

/// It takes a look at every instrument of the folder.
const std::vector<Representative>& FolderTariffs::representativesIn(cost::Family family) {
    const auto known = representatives.find(family);
    return known != representatives.end()
               ? known->second
               : representatives.emplace(family, representativesOf(family, session.market())).first->second;
}

OtherTariffList FolderTariffs::otherCategories(const Disputed& disputed) {
    const cost::Date date = disputed.order.date();
    const cost::Tariff& own = disputed.charged.tariff;
    const std::vector<Representative>& kinds = representativesIn(own.place().family);
    std::vector<Question> questions;
    questions.reserve(kinds.size());
    for (const Representative& each : kinds) {
        questions.push_back(each.question);
    }
    const auto tariffs = excerpts.tariffsFrom(excerpts.excerptOf(account, questions).marketOn(date), date, questions);
    OtherTariffList list;
    for (std::size_t i = 0; i < tariffs.size(); ++i) {
        const auto& tariff = tariffs[i];
        const auto isLike = [&](const OtherTariff& other) { return chargeAlike(*tariff, other.tariff); };
        // What charges alike explains the same, and the first of them is named.
        if (!tariff || chargeAlike(*tariff, own) || std::any_of(list.begin(), list.end(), isLike)) {
            continue;
        }
        list.push_back({categoryKeyOf(*tariff, kinds[i].categories), categorySentenceOf(*tariff, kinds[i].categories),
                        cost::Tariff(tariff->place(), own.contract(), tariff->rates(), tariff->terms()), date});
    }
    return list;
}

}  // namespace feedesk
