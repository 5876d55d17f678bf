#include "feedesk/traded_lists.h"

namespace feedesk {

std::optional<TradedLists> tradedLists(int accountType) {
    const standalone::AccountKindInfo* kind = standalone::findAccountKind(accountType);
    if (kind == nullptr || *kind->family == '\0') {
        return std::nullopt;
    }
    const standalone::RateFamily& family = standalone::rateFamily(kind->family);
    return TradedLists{family.instruments, family.lists};
}

std::vector<Question> tradedInstruments(int accountType, const standalone::Market& market) {
    const std::optional<TradedLists> lists = tradedLists(accountType);
    std::vector<Question> traded;
    for (const standalone::ListedInstrument& listed : market.instruments) {
        if (!lists || lists->lists.hold(listed)) {
            traded.push_back({listed.record->market, listed.record->code});
        }
    }
    return traded;
}

}  // namespace feedesk
