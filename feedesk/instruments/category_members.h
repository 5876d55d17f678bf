#ifndef FEEDESK_INSTRUMENTS_CATEGORY_MEMBERS_H
#define FEEDESK_INSTRUMENTS_CATEGORY_MEMBERS_H

#include <string>
#include <vector>

#include "standalone/market.h"

namespace feedesk {

/// What instruments are grouped by: the folder's rules, a list of instruments, or other categories.
enum class CategoryKind { kSystem, kCustom, kGroup };

/// "system", "custom" or "group".
const char* categoryKindName(CategoryKind kind);

/// Instruments of a market, as in it and in its order.
using MarketInstruments = std::vector<const standalone::ListedInstrument*>;

/// One line of a category's table, and the instruments that it names.
struct CategoryLine {
    standalone::CategoryRule rule;                ///< what it says of market, code and product; custom: market and code
    const standalone::GroupPart* part = nullptr;  ///< of a group; null for the other kinds
    standalone::Position position;
    MarketInstruments instruments;
};

/// One category of a market folder.
struct Category {
    CategoryKind kind;
    int number = 0;
    std::string name;  ///< of a system category; the others have none
    std::vector<CategoryLine> lines;
    MarketInstruments members;

    /// The first line that takes the instrument in, which is one of the members.
    [[nodiscard]] const CategoryLine& lineOf(const standalone::ListedInstrument* member) const;
};

/// The categories of a market: system, custom, group; each by number. Refers to the market.
std::vector<Category> categoriesOf(const standalone::Market& market);

}  // namespace feedesk

#endif  // FEEDESK_INSTRUMENTS_CATEGORY_MEMBERS_H
