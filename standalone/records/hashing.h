#ifndef STANDALONE_RECORDS_HASHING_H
#define STANDALONE_RECORDS_HASHING_H

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/data.h"

namespace qmservice::records {

/// XXH3 of the bytes, continued from `seed`.
uint64 hashBytes(std::string_view bytes, uint64 seed);

/// Gathers the contents of one record for its key. Every text and list goes in with its length and every pointer with
/// whether it is empty, so that different contents give different input; numbers that compare equal give the same.
class HashInput {
public:
    void add(double value);
    void add(std::int32_t value);
    void add(std::string_view text);

    /// A record inside counts with its own key: an account with its id, the others with their contents.
    template <class Record>
    void add(const boost::shared_ptr<Record>& record) {
        addKeyOf(record.get());
    }

    template <class Value>
    void add(const std::vector<Value>& values) {
        addCount(values.size());
        for (const auto& value : values) {
            add(value);
        }
    }

    template <class Key, class Value>
    void add(const std::map<Key, Value>& values) {
        addCount(values.size());
        for (const auto& [key, value] : values) {
            add(key);
            add(value);
        }
    }

    [[nodiscard]] uint64 key(uint64 seed) const { return hashBytes(bytes, seed); }

private:
    void addKeyOf(const IData* record);
    void addCount(std::size_t count);
    void addWord(uint64 word);

    std::string bytes;
};

}  // namespace qmservice::records

#endif  // STANDALONE_RECORDS_HASHING_H
