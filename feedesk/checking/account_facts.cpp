#include "feedesk/checking/account_facts.h"

#include <map>
#include <utility>

namespace feedesk::checking {

AccountFacts::AccountFacts(const FolderFacts& folder, std::size_t account, AccountQuestions& usedQuestions,
                           Probe& usedProbe, AccountAnswers answered)
    : facts(folder),
      accountPlace(account),
      asked(folder.market.accounts[account]),
      customFees(folder.folder.customFeesOn(folder.day, account)),
      questionsAsked(usedQuestions),
      probe(usedProbe),
      replies(std::move(answered)) {
    for (const AlikeAnswer& alike : replies.answers) {
        for (const FeeLine& line : alike.answer.lines) {
            if (line.origin.position) {
                origins.insert(*line.origin.position);
            }
        }
    }
    addInputs();
}

const AccountAnswers& AccountFacts::answersOn(cost::Date day) {
    if (day == facts.day) {
        return replies;
    }
    const auto known = otherDays.find(day);
    return known != otherDays.end() ? known->second
                                    : otherDays.emplace(day, questionsAsked.ask(accountPlace, day)).first->second;
}

const standalone::loader::AccountLines& AccountFacts::lines() const {
    return facts.folder.content().accountLines[accountPlace];
}

void AccountFacts::addInputs() {
    standalone::loader::forEachInForce(lines().fees, facts.day, [&](const standalone::loader::KeptFeeLine& kept) {
        given.push_back({&kept, &kept, nullptr, 0, facts.placeOf(kept.position)});
    });
    std::map<standalone::Position, std::pair<const standalone::CustomFee*, std::size_t>> entries;
    for (const standalone::CustomFee& fee : customFees) {
        for (std::size_t entry = 0; entry < fee.entries.size(); ++entry) {
            entries[fee.entries[entry]] = {&fee, entry};
        }
    }
    standalone::loader::forEachInForce(lines().customFees, facts.day, [&](const standalone::loader::KeptLine& kept) {
        const auto [fee, entry] = entries.at(kept.position);
        given.push_back({&kept, nullptr, fee, entry, facts.placeOf(kept.position)});
    });
}

bool AccountFacts::answersFrom(const Input& input) const { return origins.count(input.kept->position) != 0; }

const AlikeAnswer* AccountFacts::answerFor(const qmservice::CInstrument* instrument) {
    if (byInstrument.empty()) {
        for (const AlikeAnswer& alike : replies.answers) {
            for (const qmservice::CInstrument* each : *alike.instruments) {
                byInstrument.emplace(each, &alike);
            }
        }
    }
    const auto found = byInstrument.find(instrument);
    return found == byInstrument.end() ? nullptr : found->second;
}

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
    const qmservice::CInstrument& any = *replies.answers.front().instruments->front();
    return probe.builtInItems(any.market, any.code);
}

}  // namespace feedesk::checking
