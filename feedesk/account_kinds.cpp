#include "feedesk/account_kinds.h"

#include "standalone/families.h"

namespace feedesk {
namespace {

/// Whose names the stock rates of an account have: its own family's where that has stock rates.
std::string stockFamily(const std::string& family) {
    const bool isStock = !family.empty() && standalone::rateFamily(family).records == standalone::RateRecords::kStock;
    return isStock ? family : "stock";
}

}  // namespace

AccountKind accountKind(int type) {
    const standalone::AccountKindInfo* kind = standalone::findAccountKind(type);
    return kind == nullptr ? AccountKind{type, std::to_string(type), stockFamily(""), false}
                           : AccountKind{type, kind->name, stockFamily(kind->family), kind->isListed};
}

bool tradesThroughConnect(int type) { return type == qmservice::kHgtAccount || type == qmservice::kSgtAccount; }

}  // namespace feedesk
