#include "feedesk/account_kinds.h"

#include <algorithm>
#include <vector>

#include "host/account.h"

namespace feedesk {

AccountKind accountKind(int type) {
    using namespace qmservice;  // NOLINT(google-build-using-namespace): the kinds
    static const std::vector<feedesk::AccountKind> kinds = {
        {kFuturesAccount, "futures", "stock", true},
        {kStockAccount, "stock", "stock", true},
        {kCreditAccount, "credit", "credit", true},
        {kFutures5Account, "futures_5", "stock", true},
        {kOptionAccount, "option", "stock", true},
        {kHgtAccount, "hgt", "stock", true},
        {kIncomeSwapAccount, "income_swap", "stock", false},
        {kNeeqAccount, "neeq", "neeq", true},
        {kSgtAccount, "sgt", "stock", true},
        {kPrimeBrokerageAccount, "prime_brokerage", "stock", false},
        {kIncomeSwapFuturesAccount, "income_swap_futures", "stock", false}};
    const auto found = std::find_if(kinds.begin(), kinds.end(),
                                    [type](const feedesk::AccountKind& kind) { return kind.type == type; });
    return found == kinds.end() ? feedesk::AccountKind{type, std::to_string(type), "stock", false} : *found;
}

}  // namespace feedesk
