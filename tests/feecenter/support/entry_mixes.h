#ifndef TESTS_FEECENTER_SUPPORT_ENTRY_MIXES_H
#define TESTS_FEECENTER_SUPPORT_ENTRY_MIXES_H

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "support/future_builders.h"
#include "support/open_fee_center.h"

// What a change that was broken off may have left in an entry: a part of what it was to write, along with what was
// there.

namespace test {

using qmservice::uint64;

/// Whether an entry is made of nothing but what it was before and what it is to become.
inline bool isMixOf(uint64 entry, uint64 before, uint64 after) { return entry == before || entry == after; }

inline bool isMixOf(const std::vector<uint64>& entry, const std::vector<uint64>& before,
                    const std::vector<uint64>& after) {
    for (std::size_t i = 0; i < entry.size(); ++i) {
        const bool wasThere = i < before.size() && entry[i] == before[i];
        const bool isToBe = i < after.size() && entry[i] == after[i];
        if (!wasThere && !isToBe && entry[i] != kUnsetSlot) {
            return false;
        }
    }
    return entry.size() == before.size() || entry.size() == after.size();
}

inline bool isMixOf(const std::map<std::string, uint64>& entry, const std::map<std::string, uint64>& before,
                    const std::map<std::string, uint64>& after) {
    return std::all_of(entry.begin(), entry.end(), [&](const auto& item) {
        return (before.count(item.first) != 0 && before.at(item.first) == item.second) ||
               (after.count(item.first) != 0 && after.at(item.first) == item.second);
    });
}

/// What the table keeps, or a value that no entry has.
template <class Table>
auto entryOf(const Table& table, uint64 account, uint64 instrument) {
    const auto found = table.find(account);
    const bool has = found != table.end() && found->second.count(instrument) != 0;
    return has ? found->second.at(instrument) : typename Table::mapped_type::mapped_type();
}

/// The families in which an entry is neither what it was nor what it is to be, nor made of both.
inline std::string strays(const OpenFeeCenter& center, const OpenFeeCenter& before, const OpenFeeCenter& after) {
    std::string families;
    const auto check = [&](const std::string& name, auto table) {
        for (const auto& account : center.*table) {
            for (const auto& entry : account.second) {
                if (!isMixOf(entry.second, entryOf(before.*table, account.first, entry.first),
                             entryOf(after.*table, account.first, entry.first))) {
                    families += name + " ";
                }
            }
        }
    };
    check("stock", &OpenFeeCenter::stockAccountTable);
    check("credit", &OpenFeeCenter::creditAccountTable);
    check("hgt", &OpenFeeCenter::hgtAccountTable);
    check("sgt", &OpenFeeCenter::sgtAccountTable);
    check("option", &OpenFeeCenter::stkOptionAccountTable);
    check("commission", &OpenFeeCenter::futureCommissionKeys);
    check("margin", &OpenFeeCenter::futureMarginKeys);
    check("neeq", &OpenFeeCenter::neeqAccountTable);
    return families;
}

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_ENTRY_MIXES_H
