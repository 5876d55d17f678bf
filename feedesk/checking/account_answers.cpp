#include "feedesk/checking/account_answers.h"

#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "feedesk/alike/account_inputs.h"
#include "feedesk/alike/excerpt_answers.h"
#include "feedesk/alike/instrument_inputs.h"
#include "standalone/families.h"

namespace feedesk::checking {
namespace {

/// A kind that trades everything has lines of futures alone.
int kindOfQuestions(int kind) { return standalone::tradedFamily(kind) == nullptr ? qmservice::kFuturesAccount : kind; }

std::set<std::string> coveredMarkets(const standalone::MarketFolder& folder, cost::Date day) {
    std::set<std::string> covered;
    for (const standalone::MarketPlace& place : folder.everyDay().markets) {
        if (folder.coverage().refusal(day, place.market).empty()) {
            covered.insert(place.market);
        }
    }
    return covered;
}

}  // namespace

cost::Family askedFamily(const standalone::Account& account) {
    const standalone::AccountKindInfo* kind = standalone::findAccountKind(account.record->accountType);
    const auto family = kind == nullptr ? std::nullopt : kind->charged;
    return family.value_or(cost::Family::kFutures);
}

AccountQuestions::AccountQuestions(Session& askedSession)
    : session(askedSession), contents(askedSession.folder(), numbers) {}

std::vector<std::vector<std::size_t>> AccountQuestions::alike(const std::vector<std::size_t>& accounts) const {
    std::map<AccountInputs, std::size_t> known;
    std::vector<std::vector<std::size_t>> groups;
    for (const std::size_t account : accounts) {
        AccountInputs inputs;
        addInputs(*folder().everyDay().accounts[account].record, contents.linesOn(session.day(), account), inputs);
        const auto group = known.emplace(std::move(inputs), groups.size());
        if (group.second) {
            groups.emplace_back();
        }
        groups[group.first->second].push_back(account);
    }
    return groups;
}

AccountQuestions::Groups AccountQuestions::groupsOf(std::size_t account, cost::Date day) {
    const standalone::Market& market = folder().everyDay();
    const std::vector<int> inputs = instrumentInputs(contents, day, contents.linesOn(day, account));
    const standalone::RateFamily* traded =
        standalone::tradedFamily(kindOfQuestions(market.accounts[account].record->accountType));
    const std::set<std::string> covered = coveredMarkets(folder(), day);
    std::unordered_map<int, std::size_t> known;
    Groups groups;
    for (std::size_t place = 0; place < inputs.size(); ++place) {
        const standalone::ListedInstrument& listed = market.instruments[place];
        if (!traded->lists.hold(listed) || covered.count(listed.record->market) == 0) {
            continue;
        }
        const auto group = known.emplace(inputs[place], groups.firsts.size());
        if (group.second) {
            groups.instruments.emplace_back();
            groups.firsts.push_back(place);
        }
        groups.instruments[group.first->second].push_back(listed.record.get());
    }
    return groups;
}

AccountAnswers AccountQuestions::ask(std::size_t account, cost::Date day) {
    Groups groups = groupsOf(account, day);
    std::vector<std::optional<Answer>> asked = excerptAnswers(folder(), day, account, groups.firsts);
    session.install();
    AccountAnswers all;
    for (std::size_t group = 0; group < asked.size(); ++group) {
        InstrumentList& instruments = groups.instruments[group];
        all.questions += instruments.size();
        if (asked[group]) {
            all.answers.push_back(
                {std::move(*asked[group]), std::make_shared<const InstrumentList>(std::move(instruments))});
        }
    }
    return all;
}

AccountAnswers AccountQuestions::sameFor(std::size_t other, const AccountAnswers& answers, std::size_t account) const {
    AccountAnswers same = answers;
    if (other == account) {
        return same;
    }
    const AccountDayLines from = contents.linesOn(session.day(), account);
    const AccountDayLines to = contents.linesOn(session.day(), other);
    std::map<standalone::Position, standalone::Position> moved;
    for (std::size_t i = 0; i < from.size(); ++i) {
        moved[from[i].position] = to[i].position;
    }
    for (AlikeAnswer& alike : same.answers) {
        alike.answer.account = folder().everyDay().accounts[other].record;
        for (FeeLine& line : alike.answer.lines) {
            const auto own = line.origin.position ? moved.find(*line.origin.position) : moved.end();
            if (own != moved.end()) {
                line.origin.position = own->second;
            }
        }
    }
    return same;
}

}  // namespace feedesk::checking
