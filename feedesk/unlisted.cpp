#include "feedesk/unlisted.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "feedesk/instrument_names.h"

namespace feedesk {
namespace {

/// The lists whose instruments accounts of a kind trade.
struct TradedLists {
    std::string name;
    int kindMask;
    int types;
};

/// By CAccountInfo::accountType; kinds that trade everything are not here.
const std::map<int, TradedLists>& tradedLists() {
    using namespace standalone;  // NOLINT(google-build-using-namespace): the lists
    static const std::map<int, TradedLists> lists = {{1, {"futures", 0, kFutures | kFuturesExtra}},
                                                     {2, {"stock", kStockList, 0}},
                                                     {3, {"credit", kCreditList, 0}},
                                                     {5, {"futures", 0, kFutures | kFuturesExtra}},
                                                     {6, {"option", kOptionList, 0}},
                                                     {7, {"hgt", kHgtList, 0}},
                                                     {10, {"neeq", kNeeqList, 0}},
                                                     {11, {"sgt", kSgtList, 0}}};
    return lists;
}

bool isListed(const qmservice::CInstrument& instrument, const TradedLists& lists, const standalone::Market& market) {
    return std::any_of(market.instruments.begin(), market.instruments.end(),
                       [&](const standalone::ListedInstrument& listed) {
                           return ((listed.kindMask & lists.kindMask) != 0 || (listed.types & lists.types) != 0) &&
                                  listed.record->code == instrument.code && listed.record->market == instrument.market;
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
    const auto lists = tradedLists().find(account.record->accountType);
    std::vector<std::string> notes;
    for (const Answer& answer : answers) {
        if (lists == tradedLists().end() || isListed(*answer.instrument, lists->second, market)) {
            continue;
        }
        notes.push_back(fmt::format("{} is in no list of {} instruments; the fee center answers all the same, with {}",
                                    instrumentText(answer.instrument->market, answer.instrument->code),
                                    lists->second.name, levels(answer)));
    }
    return notes;
}

}  // namespace feedesk
