#ifndef TESTS_FEECENTER_SUPPORT_HOLDS_H
#define TESTS_FEECENTER_SUPPORT_HOLDS_H

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "support/operations.h"

// Which lock each operation has to hold while it makes which call of the host.

namespace test {

/// What an operation has called of the host so far, in order.
using Names = std::vector<std::string>;

inline std::size_t countOf(const Names& calls, const char* name) {
    return static_cast<std::size_t>(std::count(calls.begin(), calls.end(), name));
}

/// How many of a record's crc64 calls make the key of its commission: nine values, the others are the margins'.
constexpr std::size_t kCommissionValues = 9;

/// Of the changes, the futures load alone calls the host under its lock: for the margins' keys.
inline std::string heldByChange(const Operation& change, const Names& calls) {
    if (change.name != "doInitFutureFee" || calls.back() != "crc64") {
        return {};
    }
    const auto sinceHash = std::find(calls.rbegin(), calls.rend(), "hash") - calls.rbegin();
    return static_cast<std::size_t>(sinceHash) > kCommissionValues ? "future exclusive" : "";
}

/// A list asks for its instruments without a lock. Of the lookups that it makes of stored fees, those of futures alone
/// ask the host: for the same instrument again.
inline std::string heldByList(const Operation& list, const Names& calls) {
    const bool looksUp = list.shared.count("future") != 0 && countOf(calls, "findInstrument") % 2 == 0;
    return looksUp && calls.back() == "findInstrument" ? "future shared" : "";
}

/// A family lookup asks the host under its lock throughout. The entry and prime brokerage ask for the instrument
/// without one before they come to it.
inline std::string heldByLookup(const Operation& lookup, const Names& calls) {
    const bool isEntry = lookup.name.find("getFee") == 0;
    const std::size_t unlocked = (isEntry ? 1U : 0U) + (lookup.accountKind == 12 ? 1U : 0U);
    const std::size_t finds = countOf(calls, "findInstrument");
    if (finds <= unlocked && unlocked != 0) {
        return {};
    }
    if (lookup.market == "HK") {
        return finds - unlocked == 1 ? "hgt shared" : "sgt shared";
    }
    for (const char* lock : {"stock", "credit", "neeq", "hgt", "sgt", "future"}) {
        if (lookup.shared.count(lock) != 0) {
            return lock + std::string(" shared");
        }
    }
    return {};
}

/// What the operation holds while it makes the last of the calls: "stock shared", "future exclusive", or nothing.
inline std::string heldAt(const Operation& operation, const Names& calls) {
    if (operation.isChange()) {
        return heldByChange(operation, calls);
    }
    return operation.kind == Operation::Kind::kList ? heldByList(operation, calls) : heldByLookup(operation, calls);
}

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_HOLDS_H
