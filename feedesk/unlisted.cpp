#include "feedesk/unlisted.h"

#include <fmt/format.h>

#include <algorithm>

#include "feedesk/instrument_names.h"
#include "feedesk/traded_lists.h"

namespace feedesk {
namespace {

bool isListed(const qmservice::CInstrument& instrument, const TradedLists& lists, const standalone::Market& market) {
    return std::any_of(market.instruments.begin(), market.instruments.end(),
                       [&](const standalone::ListedInstrument& listed) {
                           return isIn(lists, listed) && listed.record->code == instrument.code &&
                                  listed.record->market == instrument.market;
                       });
}

/// "built-in default and not set": the levels of the answer's rates, each once.
std::string levels(const Answer& answer) {
    std::vector<std::string> names;
    for (const FeeLine& line : answer.lines) {
        const std::string name = levelName(line.origin.level);
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(name);
        }
    }
    return names.empty() ? "no rates" : fmt::format("{}", fmt::join(names, " and "));
}

}  // namespace

std::vector<std::string> unlistedNotes(const standalone::Account& account, const std::vector<Answer>& answers,
                                       const standalone::Market& market) {
    const std::optional<TradedLists> lists = tradedLists(account.record->accountType);
    std::vector<std::string> notes;
    for (const Answer& answer : answers) {
        if (!lists || isListed(*answer.instrument, *lists, market)) {
            continue;
        }
        notes.push_back(fmt::format("{} is in no list of {} instruments; the fee center answers all the same, with {}",
                                    instrumentText(answer.instrument->market, answer.instrument->code), lists->name,
                                    levels(answer)));
    }
    return notes;
}

}  // namespace feedesk
