#ifndef STANDALONE_SERVICES_INSTRUMENT_TABLE_H
#define STANDALONE_SERVICES_INSTRUMENT_TABLE_H

#include <xxhash.h>

#include <boost/unordered_map.hpp>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace standalone {

/// Values by market and code. A lookup allocates nothing. Any number of threads may read at once as long as nobody
/// adds.
template <class Value>
class InstrumentTable {
public:
    /// The first value of an instrument stays.
    void add(const std::string& market, const std::string& code, Value value) {
        values.emplace(Name(market, code), std::move(value));
    }

    /// The value of the instrument, `otherwise` when it has none.
    [[nodiscard]] Value valueOr(std::string_view market, std::string_view code, Value otherwise) const {
        const auto found = values.find(NameView(market, code), HashName(), SameName());
        return found == values.end() ? std::move(otherwise) : found->second;
    }

private:
    using Name = std::pair<std::string, std::string>;
    using NameView = std::pair<std::string_view, std::string_view>;

    struct HashName {
        std::size_t operator()(const NameView& name) const {
            const XXH64_hash_t market = XXH3_64bits(name.first.data(), name.first.size());
            return XXH3_64bits_withSeed(name.second.data(), name.second.size(), market);
        }
    };
    struct SameName {
        bool operator()(const NameView& one, const NameView& other) const { return one == other; }
    };

    boost::unordered_map<Name, Value, HashName, SameName> values;
};

}  // namespace standalone

#endif  // STANDALONE_SERVICES_INSTRUMENT_TABLE_H
