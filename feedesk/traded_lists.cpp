#include "feedesk/traded_lists.h"

#include <map>

namespace feedesk {

std::optional<TradedLists> tradedLists(int accountType) {
    using namespace standalone;  // NOLINT(google-build-using-namespace): the lists
    static const std::map<int, TradedLists> lists = {{1, {"futures", 0, kFutures | kFuturesExtra}},
                                                     {2, {"stock", kStockList, 0}},
                                                     {3, {"credit", kCreditList, 0}},
                                                     {5, {"futures", 0, kFutures | kFuturesExtra}},
                                                     {6, {"option", kOptionList, 0}},
                                                     {7, {"hgt", kHgtList, 0}},
                                                     {10, {"neeq", kNeeqList, 0}},
                                                     {11, {"sgt", kSgtList, 0}}};
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
