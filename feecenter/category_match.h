#ifndef FEECENTER_CATEGORY_MATCH_H
#define FEECENTER_CATEGORY_MATCH_H

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <vector>

#include "feecenter/category_number.h"
#include "host/records.h"
#include "host/services.h"

namespace qmservice {

inline bool isInSystemCategory(const CInstrument& instrument, int category) {
    return utils::CSingletonT<CppCategory>::instance()->isStockInCategoryForTS(instrument.market, instrument.code,
                                                                               instrument.productId, category);
}

/// Whether the instrument is in the user's custom category.
///
/// Rule "A custom number is compared with the map's size": numbers start at 10001, so for a map of
/// ordinary size the category is never asked. Rule "The lookup of a custom list inserts it": where the category is
/// asked and the map lacks the number, the record that was handed in has an empty list under it from then on.
template <class Entry>
bool isInCustomCategory(const CInstrument& instrument, Entry& entry, int category) {
    return static_cast<std::size_t>(category) < entry.customCategories.size() &&
           utils::CSingletonT<CppCategory>::instance()->isStockInCustomCategory(instrument.market, instrument.code,
                                                                                entry.customCategories[category]);
}

template <class Entry>
bool isInGroupCategory(const CInstrument& instrument, const Entry& entry) {
    return !entry.groupCategories.empty() &&
           utils::CSingletonT<CppCategory>::instance()->isStockInGroupCategory(
               instrument.market, instrument.code, instrument.productId, entry.groupCategories, entry.customCategories);
}

/// The rule that every family shares but Shenzhen connect: whether a custom entry of this category number applies to
/// the instrument. It may write the entry (isInCustomCategory).
template <class Entry>
bool matchesCategory(const CInstrument& instrument, Entry& entry, int category) {
    if (isInSystemCategory(instrument, category)) {
        return true;
    }
    if (kCustomCategories.holds(category)) {
        return isInCustomCategory(instrument, entry, category);
    }
    return kGroupCategories.holds(category) && isInGroupCategory(instrument, entry);
}

/// The first entry, in priority order, that `matches` accepts; null when none does. Empty entries are passed over.
template <class Entries, class Matches>
auto firstMatch(const Entries& entries, const Matches& matches) -> decltype(entries.front().get()) {
    for (const auto& entry : entries) {
        if (entry && matches(*entry)) {
            return entry.get();
        }
    }
    return nullptr;
}

/// Calls `apply(instrument, entry)` for every instrument of the list that some custom entry matches, with the first
/// such entry. `matches(instrument, entry)` runs outside every lock.
template <class Entries, class Matches, class Apply>
void forEachMatch(const Entries& entries, InstrumentList list, const Matches& matches, const Apply& apply) {
    std::vector<boost::shared_ptr<CInstrument>> instruments;
    TraderCenter::instance()->getInstCenter()->getInstrumentList(instruments, list);
    for (const auto& instrument : instruments) {
        if (!instrument) {
            continue;
        }
        const auto* entry = firstMatch(entries, [&](auto& candidate) { return matches(*instrument, candidate); });
        if (entry != nullptr) {
            apply(*instrument, *entry);
        }
    }
}

}  // namespace qmservice

#endif  // FEECENTER_CATEGORY_MATCH_H
