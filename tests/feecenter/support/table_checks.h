#ifndef TESTS_FEECENTER_SUPPORT_TABLE_CHECKS_H
#define TESTS_FEECENTER_SUPPORT_TABLE_CHECKS_H

#include <map>
#include <string>
#include <vector>

#include "support/future_builders.h"
#include "support/lock_probe.h"
#include "support/scene.h"

// What every change must leave behind, whether it got through or not: whole tables, nothing lost, no lock held.

namespace test {

/// Calls `visit(name, pool, table, pool, table)` with each family's of the one fee center and then of the other.
template <class Visit>
void forEachFamily(const OpenFeeCenter& one, const OpenFeeCenter& other, const Visit& visit) {
    const auto both = [&](const char* name, auto pool, auto table) {
        visit(name, one.*pool, one.*table, other.*pool, other.*table);
    };
    both("stock", &OpenFeeCenter::stockRateLimitPool, &OpenFeeCenter::stockAccountTable);
    both("credit", &OpenFeeCenter::creditRateLimitPool, &OpenFeeCenter::creditAccountTable);
    both("hgt", &OpenFeeCenter::hgtRateLimitPool, &OpenFeeCenter::hgtAccountTable);
    both("sgt", &OpenFeeCenter::sgtRateLimitPool, &OpenFeeCenter::sgtAccountTable);
    both("option", &OpenFeeCenter::stkOptionItemPool, &OpenFeeCenter::stkOptionAccountTable);
    both("commission", &OpenFeeCenter::futureCommissionDetails, &OpenFeeCenter::futureCommissionKeys);
    both("margin", &OpenFeeCenter::futureMarginDetails, &OpenFeeCenter::futureMarginKeys);
    both("neeq", &OpenFeeCenter::neeqRateLimitPool, &OpenFeeCenter::neeqAccountTable);
}

inline std::vector<uint64> keysIn(uint64 entry) { return {entry}; }

inline std::vector<uint64> keysIn(const std::vector<uint64>& slots) {
    std::vector<uint64> keys;
    for (const uint64 key : slots) {
        if (key != kUnsetSlot) {
            keys.push_back(key);
        }
    }
    return keys;
}

inline std::vector<uint64> keysIn(const std::map<std::string, uint64>& items) {
    std::vector<uint64> keys;
    for (const auto& item : items) {
        keys.push_back(item.second);
    }
    return keys;
}

/// What is wrong with one family's tables by themselves; empty when nothing is.
template <class Pool, class Table>
std::string faultOf(const Pool& pool, const Table& table) {
    for (const auto& record : pool) {
        if (!record.second) {
            return "an empty record in the pool";
        }
    }
    for (const auto& account : table) {
        if (account.second.empty()) {
            return "an account without instruments";
        }
        for (const auto& entry : account.second) {
            const auto keys = keysIn(entry.second);
            if (keys.empty()) {
                return "an instrument without records";
            }
            for (const uint64 key : keys) {
                if (pool.count(key) == 0) {
                    return "an entry whose record is not in the pool";
                }
            }
        }
    }
    return "";
}

/// What is wrong with the tables and locks by themselves.
inline std::string faultOf(OpenFeeCenter& center) {
    for (const auto& named : allMutexes(center)) {
        if (!named.mutex->try_lock()) {
            return std::string(named.name) + ": the lock is held";
        }
        named.mutex->unlock();
    }
    std::string fault;
    forEachFamily(center, center, [&](const std::string& name, const auto& pool, const auto& table, auto&&...) {
        const std::string own = faultOf(pool, table);
        fault += own.empty() ? "" : name + ": " + own + "; ";
    });
    return fault;
}

template <class Pool>
bool poolHolds(const Pool& pool, const Pool& part) {
    for (const auto& record : part) {
        const auto found = pool.find(record.first);
        if (found == pool.end() || !found->second || !found->second->isEqual(*record.second)) {
            return false;
        }
    }
    return true;
}

/// Whether the bystander's entries are the same and no other account has lost an instrument.
template <class Table>
bool tableKeeps(const Table& table, const Table& before) {
    for (const auto& account : before) {
        const auto found = table.find(account.first);
        if (found == table.end() || (account.first == kBystander && found->second != account.second)) {
            return false;
        }
        for (const auto& entry : account.second) {
            if (found->second.count(entry.first) == 0) {
                return false;
            }
        }
    }
    return true;
}

/// The families in which something that was there before is gone or changed.
inline std::string lossesOf(const OpenFeeCenter& center, const OpenFeeCenter& before) {
    std::string families;
    forEachFamily(center, before,
                  [&](const std::string& name, const auto& pool, const auto& table, const auto& poolBefore,
                      const auto& tableBefore) {
                      families += poolHolds(pool, poolBefore) && tableKeeps(table, tableBefore) ? "" : name + " ";
                  });
    return families;
}

/// The families whose tables are not the same, record for record.
inline std::string differences(const OpenFeeCenter& center, const OpenFeeCenter& expected) {
    std::string families;
    forEachFamily(center, expected,
                  [&](const std::string& name, const auto& pool, const auto& table, const auto& expectedPool,
                      const auto& expectedTable) {
                      const bool same =
                          table == expectedTable && pool.size() == expectedPool.size() && poolHolds(pool, expectedPool);
                      families += same ? "" : name + " ";
                  });
    return families;
}

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_TABLE_CHECKS_H
