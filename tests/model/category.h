#ifndef TESTS_MODEL_CATEGORY_H
#define TESTS_MODEL_CATEGORY_H

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <vector>

#include "model/model.h"

// Which custom limit or detail applies to an instrument.

namespace model {

/// The category number at the start of a text; 0 when there is none.
inline int categoryNumber(const std::string& text) { return static_cast<int>(std::strtol(text.c_str(), nullptr, 10)); }

/// The first of the entries that passes the test; empty entries are passed over.
template <class Entry, class Test>
boost::shared_ptr<Entry> firstOf(const std::vector<boost::shared_ptr<Entry>>& entries, Test test) {
    const auto found =
        std::find_if(entries.begin(), entries.end(), [&](const auto& entry) { return entry && test(entry); });
    return found != entries.end() ? *found : nullptr;
}

inline bool Model::inSystemCategory(const qmservice::CInstrument& instrument, int category) const {
    return facts.inSystemCategory
               ? facts.inSystemCategory(instrument.market, instrument.code, instrument.productId, category)
               : facts.systemMembers.count({category, Name(instrument.market, instrument.code)}) != 0;
}

/// A number without a list that is asked for has an empty one in the caller's record from then on.
template <class Limit>
bool Model::inCustomList(Limit& limit, int category, const qmservice::CInstrument& instrument) const {
    if (static_cast<std::size_t>(category) >= limit.customCategories.size()) {
        return false;
    }
    const std::vector<std::string>& members = limit.customCategories[category];
    return facts.inCustomCategory ? facts.inCustomCategory(instrument.market, instrument.code, members)
                                  : std::find(members.begin(), members.end(), instrument.code) != members.end();
}

/// The rule of all families but Shenzhen connect.
template <class Limit>
bool Model::applies(const boost::shared_ptr<Limit>& limit, int category,
                    const qmservice::CInstrument& instrument) const {
    if (inSystemCategory(instrument, category)) {
        return true;
    }
    if (category >= 10001 && category <= 20001) {
        return inCustomList(*limit, category, instrument);
    }
    if (category < 70001 || category > 80001 || limit->groupCategories.empty()) {
        return false;
    }
    return facts.inGroupCategory ? facts.inGroupCategory(instrument.market, instrument.code, instrument.productId,
                                                         limit->groupCategories, limit->customCategories)
                                 : facts.groupMembers.count(Name(instrument.market, instrument.code)) != 0;
}

}  // namespace model

#endif  // TESTS_MODEL_CATEGORY_H
