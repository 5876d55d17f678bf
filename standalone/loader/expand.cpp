#include "standalone/loader/expand.h"

namespace standalone::loader {

Market expand(const CheckedFolder& folder, cost::Date day) {
    Market market = folder.market;
    expandConfiguredLimits(folder, day, market);
    for (std::size_t account = 0; account < folder.accountLines.size(); ++account) {
        expandFees(folder, day, account, market);
        expandCustomFees(folder, day, account, market);
    }
    return market;
}

}  // namespace standalone::loader
