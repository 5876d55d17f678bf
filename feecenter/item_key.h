#ifndef FEECENTER_ITEM_KEY_H
#define FEECENTER_ITEM_KEY_H

#include <string>

#include "host/stock_records.h"

namespace qmservice {

/// The key under which a stock-option rate files an item: its first, second and third character. Rule "An item key has
/// two characters behind a D": when the second is 'D', only the first two.
inline std::string itemKey(const CStockOptionFeeItem& item) {
    std::string key{static_cast<char>(item.firstKeyCode), static_cast<char>(item.secondKeyCode)};
    if (item.secondKeyCode != 'D') {
        key.push_back(static_cast<char>(item.thirdKeyCode));
    }
    return key;
}

}  // namespace qmservice

#endif  // FEECENTER_ITEM_KEY_H
