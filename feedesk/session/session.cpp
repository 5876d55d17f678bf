#include "feedesk/session/session.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <tuple>
#include <utility>

#include "cost/rates.h"
#include "feedesk/failure.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/session/folder_loading.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "feedesk/timing/wall_time.h"
#include "standalone/channels.h"
#include "standalone/families.h"
#include "standalone/host.h"
#include "standalone/text/nearness.h"

namespace feedesk {
namespace {

using standalone::Account;

/// Goes on behind "name the folder that holds market.toml".
constexpr const char* kWaysToName = ": with --market DIR, with the environment's FEEDESK_MARKET, or put it at ./market";

InstrumentNames namesIn(const standalone::Market& market) {
    const InPart indexing("indexing names");
    return InstrumentNames(market);
}

/// Throws the sentence that refuses a day, if there is one.
void throwUncovered(const std::string& refusal) {
    if (!refusal.empty()) {
        throw Failure(kBadInput, refusal + " with --date");
    }
}

/// The day that is meant; one that the folder does not cover is refused.
cost::Date dayOf(const std::optional<cost::Date>& date, const standalone::MarketFolder& folder) {
    const cost::Date day = date ? *date : folder.defaultDay();
    throwUncovered(folder.coverage().refusal(day));
    return day;
}

void sortByInstrument(std::vector<boost::shared_ptr<qmservice::CInstrumentFee>>& fees) {
    const auto name = [](const auto& fee) { return std::tie(fee->instrument->market, fee->instrument->code); };
    std::sort(fees.begin(), fees.end(), [&](const auto& one, const auto& other) { return name(one) < name(other); });
}

}  // namespace

Session::Session(const SessionOptions& options)
    : days(loadedFolder(options.folder, kWaysToName)),
      askedDay(dayOf(options.date, days)),
      asked(&centerOf(askedDay)),
      names(namesIn(asked->market())),
      engine(options.threads != 0 ? options.threads : asked->market().engineThreads) {
    for (const Account& account : market().accounts) {
        places.emplace(account.record->accountId, places.size());
    }
}

void Session::begin(const std::optional<cost::Date>& date) {
    askedDay = dayOf(date, days);
    queriesAsked = 0;
    asked = &centerOf(askedDay);
    while (centers.size() > kKeptIntervals) {
        dropOldest();
    }
    forgetAccounts();
}

void Session::forgetAccounts() {
    if (heldAccounts() > kKeptAccounts) {
        for (auto& [interval, held] : centers) {
            held.center->forgetAccounts();
        }
    }
}

std::size_t Session::heldAccounts() const {
    return std::accumulate(centers.begin(), centers.end(), std::size_t{0},
                           [](std::size_t sum, const auto& held) { return sum + held.second.center->heldAccounts(); });
}

Session::~Session() = default;

const FolderLayouts& Session::layouts() {
    if (!readLayouts) {
        readLayouts.emplace(days.name());
    }
    return *readLayouts;
}

/// The day's own was used last.
void Session::dropOldest() {
    centers.erase(std::min_element(centers.begin(), centers.end(), [](const auto& one, const auto& other) {
        return one.second.lastUse < other.second.lastUse;
    }));
}

std::vector<std::string> accountIds(const standalone::Market& market) {
    std::vector<std::string> ids;
    for (const Account& account : market.accounts) {
        ids.push_back(account.record->accountId);
    }
    return ids;
}

const Account& Session::account(const std::string& accountId) const {
    const auto found = places.find(accountId);
    if (found != places.end()) {
        return market().accounts[found->second];
    }
    const std::vector<std::string> near = standalone::nearNames(accountId, accountIds(market()));
    const std::string advice = near.empty() ? "; `feedesk accounts` lists the accounts"
                                            : fmt::format("; did you mean {}?", fmt::join(near, " or "));
    throw Failure(kNoAnswer, fmt::format("the market folder has no account {}{}", echoed(accountId), advice));
}

standalone::FeeCounts Session::feeCounts(const Account& account) const {
    return days.feeCountsOn(askedDay, places.at(account.record->accountId));
}

std::vector<standalone::CustomFee> Session::customFees(const Account& account) const {
    return days.customFeesOn(askedDay, places.at(account.record->accountId));
}

Question Session::instrument(const Account& account, const std::string& text, const std::string& whyOne) const {
    const bool connect = standalone::tradesThroughConnect(account.record->accountType);
    const std::vector<Question> found = names.find(text, connect);
    if (found.empty()) {
        throw Failure(kNoAnswer, names.problem(text, connect));
    }
    if (found.size() > 1) {
        throw Failure(kNoAnswer,
                      fmt::format("{} stands for {} instruments, and {}; name one of them, such as {}", echoed(text),
                                  grouped(found.size()), whyOne, instrumentText(found.front())));
    }
    return found.front();
}

void Session::requireCovered(const Account& account) const {
    const standalone::AccountKindInfo* kind = standalone::findAccountKind(account.record->accountType);
    if (const auto family = kind == nullptr ? std::nullopt : kind->charged) {
        throwUncovered(days.coverage().refusal(askedDay, *family));
    }
}

IntervalCenter& Session::centerOf(cost::Date date) {
    HeldCenter& held = centers[days.intervalOf(date)];
    held.lastUse = ++uses;
    if (!held.center) {
        const InPart expanding("expanding");
        held.center = std::make_unique<IntervalCenter>(days, date);
    }
    return *held.center;
}

IntervalCenter& Session::installed(cost::Date date) {
    IntervalCenter& center = centerOf(date);
    center.install();  // one swap; others use the services too
    return center;
}

void Session::feedOnce(IntervalCenter& center, const Account& account) {
    const InPart expanding("expanding");
    center.feedOnce(account);
}

Replies Session::fees(const Account& account, const std::vector<Question>& questions) {
    requireCovered(account);
    for (const Question& question : questions) {
        throwUncovered(days.coverage().refusal(askedDay, question.market));
    }
    IntervalCenter& center = installed(askedDay);
    feedOnce(center, account);
    IntervalCenter::Fees fees;
    {
        const InPart asking("asking");
        fees = center.ask(account, questions);
    }
    queriesAsked += questions.size();
    return traced(account, questions, fees);
}

std::optional<Replies> Session::listedFees(const Account& account, const PickFees& wanted) {
    requireCovered(account);
    IntervalCenter& center = installed(askedDay);
    feedOnce(center, account);
    std::optional<IntervalCenter::Fees> fees;
    {
        const InPart asking("asking");
        fees = center.list(account);
    }
    ++queriesAsked;
    if (!fees) {
        return {};
    }
    sortByInstrument(*fees);
    if (wanted) {
        fees = wanted(*fees);
    }
    std::vector<Question> questions;
    for (const auto& fee : *fees) {
        questions.push_back({fee->instrument->market, fee->instrument->code});
    }
    return traced(account, questions, *fees);
}

Replies Session::traced(const Account& account, const std::vector<Question>& questions,
                        const IntervalCenter::Fees& fees) {
    const Progress progress("finding where the rates come from");
    const InPart tracing("tracing");
    std::vector<std::optional<Answer>> answers = asked->traced(account, questions, fees);
    Replies replies;
    for (std::size_t i = 0; i < answers.size(); ++i) {
        if (!answers[i]) {
            replies.unanswered.push_back(questions[i]);
            continue;
        }
        if (const auto family = cost::familyOf(*fees[i])) {
            throwUncovered(days.coverage().refusal(askedDay, *family));
        }
        replies.answers.push_back(std::move(*answers[i]));
    }
    return replies;
}

DatedFee Session::feeOn(cost::Date date, const std::string& accountId, const Question& question) {
    IntervalCenter& center = installed(date);
    const Account& account = center.market().accounts[places.at(accountId)];
    feedOnce(center, account);
    IntervalCenter::Fees fees;
    {
        const InPart asking("asking");
        fees = center.ask(account, {question});
    }
    ++queriesAsked;
    const InPart tracing("tracing");
    std::optional<Answer> answer = std::move(center.traced(account, {question}, fees).front());
    return answer ? DatedFee{fees.front(), std::move(*answer), &center.market()} : DatedFee{{}, {}, &center.market()};
}

void Session::keepOnly(cost::Date date) {
    const IntervalCenter& wanted = installed(date);
    for (auto each = centers.begin(); each != centers.end();) {
        const bool stays = each->second.center.get() == asked || each->second.center.get() == &wanted;
        each = stays ? std::next(each) : centers.erase(each);
    }
}

standalone::FolderExcerpt Session::excerpt(const Account& account, const Question& question) const {
    const auto& instruments = market().instruments;
    const auto found = std::find_if(instruments.begin(), instruments.end(), [&](const auto& listed) {
        return listed.record->market == question.market && listed.record->code == question.code;
    });
    return {days, places.at(account.record->accountId), {static_cast<std::size_t>(found - instruments.begin())}};
}

std::string Session::summary() const {
    const InPart counting("counting records");
    std::size_t records = 0;
    std::size_t customFees = 0;
    for (std::size_t place = 0; place < market().accounts.size(); ++place) {
        const standalone::FeeCounts counts = days.feeCountsOn(askedDay, place);
        records += counts.records;
        customFees += counts.customFees;
    }
    const std::string queries = queriesAsked == 1 ? "1 query" : grouped(queriesAsked) + " queries";
    return fmt::format("loaded {}, {}, {}, {}; answered {}", counted(market().instruments.size(), "instrument"),
                       counted(market().accounts.size(), "account"), counted(records, "fee record"),
                       counted(customFees, "custom fee"), queries);
}

}  // namespace feedesk
