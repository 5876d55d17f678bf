#include "standalone/loader/expand.h"

namespace standalone::loader {

Market expandShared(const CheckedFolder& folder, cost::Date day) {
    Market market = folder.market;
    expandConfiguredLimits(folder, day, market);
    return market;
}

Account expandAccount(const CheckedFolder& folder, cost::Date day, std::size_t account) {
    Account expanded = folder.market.accounts[account];
    expanded.fees = expandFees(folder, day, account);
    expanded.customFees = expandCustomFees(folder, day, account);
    return expanded;
}

Market expand(const CheckedFolder& folder, cost::Date day) {
    Market market = expandShared(folder, day);
    for (std::size_t account = 0; account < folder.accountLines.size(); ++account) {
        market.accounts[account] = expandAccount(folder, day, account);
    }
    return market;
}

}  // namespace standalone::loader
