#include "feedesk/account_kinds.h"

#include <algorithm>
#include <vector>

namespace feedesk {

AccountKind accountKind(int type) {
    static const std::vector<AccountKind> kinds = {{1, "futures", "stock", true},
                                                   {2, "stock", "stock", true},
                                                   {3, "credit", "credit", true},
                                                   {5, "futures_5", "stock", true},
                                                   {6, "option", "stock", true},
                                                   {kHgtAccount, "hgt", "stock", true},
                                                   {8, "income_swap", "stock", false},
                                                   {10, "neeq", "neeq", true},
                                                   {kSgtAccount, "sgt", "stock", true},
                                                   {kPrimeBrokerageAccount, "prime_brokerage", "stock", false},
                                                   {16, "income_swap_futures", "stock", false}};
    const auto found =
        std::find_if(kinds.begin(), kinds.end(), [type](const AccountKind& kind) { return kind.type == type; });
    return found == kinds.end() ? AccountKind{type, std::to_string(type), "stock", false} : *found;
}

}  // namespace feedesk
