#include "feedesk/traded_lists.h"

#include <map>

namespace feedesk {

std::optional<TradedLists> tradedLists(int accountType) {
    using namespace qmservice;  // NOLINT(google-build-using-namespace): kinds and lists
    static const std::map<int, TradedLists> lists = {
        {kFuturesAccount, {"futures", 0, kFuturesType | kFuturesExtraType}},
        {kStockAccount, {"stock", kStockList, 0}},
        {kCreditAccount, {"credit", kCreditList, 0}},
        {kFutures5Account, {"futures", 0, kFuturesType | kFuturesExtraType}},
        {kOptionAccount, {"option", kOptionList, 0}},
        {kHgtAccount, {"hgt", kHgtList, 0}},
        {kNeeqAccount, {"neeq", kNeeqList, 0}},
        {kSgtAccount, {"sgt", kSgtList, 0}}};
    const auto found = lists.find(accountType);
    return found == lists.end() ? std::optional<TradedLists>() : found->second;
}

bool isIn(const TradedLists& lists, const standalone::ListedInstrument& instrument) {
    return (instrument.kindMask & lists.kindMask) != 0 || (instrument.types & lists.types) != 0;
}

std::vector<Question> tradedInstruments(int accountType, const standalone::Market& market) {
    const std::optional<TradedLists> lists = tradedLists(accountType);
    std::vector<Question> traded;
    for (const standalone::ListedInstrument& listed : market.instruments) {
        if (!lists || isIn(*lists, listed)) {
            traded.push_back({listed.record->market, listed.record->code});
        }
    }
    return traded;
}

}  // namespace feedesk
