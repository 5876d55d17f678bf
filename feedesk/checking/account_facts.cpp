#include "feedesk/checking/account_facts.h"

#include <algorithm>
#include <map>

#include "feedesk/instruments/traded_instruments.h"
#include "standalone/families.h"

namespace feedesk::checking {
namespace {

using standalone::Position;

/// A kind that trades everything has lines of futures alone.
int kindOfQuestions(int kind) { return standalone::tradedFamily(kind) == nullptr ? qmservice::kFuturesAccount : kind; }

std::vector<Question> coveredQuestions(const FolderFacts& facts, const standalone::Account& account) {
    std::vector<Question> questions = tradedInstruments(kindOfQuestions(account.record->accountType), facts.market);
    const standalone::Coverage& coverage = facts.folder.coverage();
    std::map<std::string, bool> isCovered;
    for (const standalone::MarketPlace& place : facts.market.markets) {
        isCovered[place.market] = coverage.refusal(facts.day, place.market).empty();
    }
    questions.erase(std::remove_if(questions.begin(), questions.end(),
                                   [&](const Question& question) { return !isCovered[question.market]; }),
                    questions.end());
    return questions;
}

}  // namespace

AccountFacts::AccountFacts(const FolderFacts& folder, Session& session, const standalone::Account& account,
                           Probe& usedProbe)
    : facts(folder),
      asked(account),
      probe(usedProbe),
      replies(session.fees(account, coveredQuestions(folder, account))) {
    for (const Answer& answer : replies.answers) {
        for (const FeeLine& line : answer.lines) {
            if (line.origin.position) {
                origins.insert(*line.origin.position);
            }
        }
    }
    addInputs();
}

void AccountFacts::addInputs() {
    const auto number = static_cast<std::size_t>(&asked - facts.market.accounts.data());
    const standalone::loader::AccountLines& lines = facts.folder.content().accountLines[number];
    standalone::loader::forEachInForce(lines.fees, facts.day, [&](const standalone::loader::KeptFeeLine& kept) {
        given.push_back({&kept, &kept, nullptr, 0, facts.placeOf(kept.position)});
    });
    std::map<Position, std::pair<const standalone::CustomFee*, std::size_t>> entries;
    for (const standalone::CustomFee& fee : asked.customFees) {
        for (std::size_t entry = 0; entry < fee.entries.size(); ++entry) {
            entries[fee.entries[entry]] = {&fee, entry};
        }
    }
    standalone::loader::forEachInForce(lines.customFees, facts.day, [&](const standalone::loader::KeptLine& kept) {
        const auto [fee, entry] = entries.at(kept.position);
        given.push_back({&kept, nullptr, fee, entry, facts.placeOf(kept.position)});
    });
}

bool AccountFacts::answersFrom(const Input& input) const { return origins.count(input.kept->position) != 0; }

InstrumentSet AccountFacts::reachOf(const Input& input) {
    if (input.feeLine == nullptr) {
        return probe.reachOf(asked, *input.customFee, input.entry);
    }
    InstrumentSet instruments;
    for (const std::size_t place : *input.feeLine->places) {
        instruments.insert(facts.market.instruments[place].record.get());
    }
    return instruments;
}

std::set<std::string> AccountFacts::builtInItems() {
    if (replies.answers.empty()) {
        return {};
    }
    const qmservice::CInstrument& any = *replies.answers.front().instrument;
    return probe.builtInItems(any.market, any.code);
}

}  // namespace feedesk::checking
