#include "host/categories.h"

#include <algorithm>

#include "host/keys.h"
#include "host/singleton.h"
#include "standalone/services/process.h"

using standalone::published;
using standalone::Snapshot;

namespace qmservice {

bool CppCategory::isStockInCategoryForTS(const std::string& market, const std::string& code,
                                         const std::string& productId, int category) {
    return published().read(
        [&](const Snapshot& now) { return now.categories.holds(category, market, code, productId); });
}

bool CppCategory::isStockInCustomCategory(const std::string& market, const std::string& code,
                                          const std::vector<std::string>& members) {
    return std::find(members.begin(), members.end(), utils::voStockKey(market, code)) != members.end();
}

bool CppCategory::isStockInGroupCategory(const std::string& market, const std::string& code,
                                         const std::string& productId,
                                         const std::vector<boost::shared_ptr<CGroupCategorySubInfo>>& parts,
                                         std::map<int, std::vector<std::string>> customCategories) {
    const auto now = published().hold();
    bool takenIn = false;
    for (const boost::shared_ptr<CGroupCategorySubInfo>& part : parts) {
        if (!part) {
            continue;
        }
        const auto custom = customCategories.find(part->category);
        const bool holds = custom != customCategories.end()
                               ? isStockInCustomCategory(market, code, custom->second)
                               : now->categories.holds(part->category, market, code, productId);
        if (holds && part->excluded != 0) {
            return false;
        }
        takenIn = takenIn || holds;
    }
    return takenIn;
}

int CppCategory::getCategorId(const std::string& name) {
    return published().read([&](const Snapshot& now) { return now.categories.numberOf(name); });
}

bool StockTypeCenter::isWPMarket(const std::string& market) const {
    return published().read([&](const Snapshot& now) { return now.foreignMarkets.holds(market); });
}

}  // namespace qmservice

namespace utils {

template <>
qmservice::CppCategory* CSingletonT<qmservice::CppCategory>::instance() {
    return &standalone::onlyOne<qmservice::CppCategory>();
}

template <>
qmservice::StockTypeCenter* CSingletonT<qmservice::StockTypeCenter>::instance() {
    return &standalone::onlyOne<qmservice::StockTypeCenter>();
}

}  // namespace utils
