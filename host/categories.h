#ifndef HOST_CATEGORIES_H
#define HOST_CATEGORIES_H

#include <boost/shared_ptr.hpp>
#include <map>
#include <string>
#include <vector>

#include "host/category_records.h"
#include "host/host_export.h"

namespace qmservice {

/// A range of category numbers, both ends included. Every other number is that of a system category.
struct CategoryRange {
    int first;  ///< included
    int last;   ///< included

    /// Whether the number is in the range.
    [[nodiscard]] constexpr bool holds(int category) const { return category >= first && category <= last; }
};
constexpr CategoryRange kCustomCategories{10001, 20001};  ///< categories that a user lists
constexpr CategoryRange kGroupCategories{70001, 80001};   ///< categories made of other categories

// Every operation below may be called from any thread.

/// The host's category service: utils::CSingletonT<CppCategory>::instance(). In every test the third string, where
/// there is one, is the instrument's productId.
class HOST_EXPORT CppCategory {
public:
    /// Whether the instrument is in the numbered system category.
    bool isStockInCategoryForTS(const std::string& market, const std::string& code, const std::string& productId,
                                int category);

    /// Whether the instrument is one of `members`, the list of a user's custom category.
    bool isStockInCustomCategory(const std::string& market, const std::string& code,
                                 const std::vector<std::string>& members);

    /// Whether the instrument is in the group category made of `parts`.
    bool isStockInGroupCategory(const std::string& market, const std::string& code, const std::string& productId,
                                const std::vector<boost::shared_ptr<CGroupCategorySubInfo>>& parts,
                                std::map<int, std::vector<std::string>> customCategories);

    /// Number of the category with this name. What an unknown name gives is the host's to say: some whole number.
    int getCategorId(const std::string& name);
};

/// The host's classification of markets: utils::CSingletonT<StockTypeCenter>::instance().
class HOST_EXPORT StockTypeCenter {
public:
    /// True for a foreign futures market.
    [[nodiscard]] bool isWPMarket(const std::string& market) const;
};

}  // namespace qmservice

#endif  // HOST_CATEGORIES_H
