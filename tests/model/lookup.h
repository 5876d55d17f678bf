#ifndef TESTS_MODEL_LOOKUP_H
#define TESTS_MODEL_LOOKUP_H

#include <map>
#include <string>

#include "host/data.h"

namespace model {

/// What the map has under the key, and `otherwise` when it has nothing.
template <class Map, class Key>
typename Map::mapped_type valueOr(const Map& map, const Key& key, typename Map::mapped_type otherwise = {}) {
    const auto found = map.find(key);
    return found != map.end() ? found->second : otherwise;
}

/// What an account's table has for an instrument; null when it has nothing.
template <class Entry>
const Entry* entryOf(const std::map<qmservice::uint64, std::map<std::string, Entry>>& table, qmservice::uint64 account,
                     const std::string& key) {
    const auto entries = table.find(account);
    if (entries == table.end()) {
        return nullptr;
    }
    const auto entry = entries->second.find(key);
    return entry != entries->second.end() ? &entry->second : nullptr;
}

}  // namespace model

#endif  // TESTS_MODEL_LOOKUP_H
