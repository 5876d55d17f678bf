#ifndef STANDALONE_LOADER_INSTRUMENT_INDEX_H
#define STANDALONE_LOADER_INSTRUMENT_INDEX_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "standalone/families.h"

namespace standalone::loader {

/// Finds instruments of a catalogue by market and code. For one thread.
class InstrumentIndex {
public:
    /// Adds an instrument by its place in the catalogue. When the market has the code already, nothing changes and
    /// the answer is the place of the one that has it.
    std::optional<std::size_t> add(const std::string& market, const std::string& code, std::size_t place);

    /// The place of one instrument in the catalogue.
    [[nodiscard]] std::optional<std::size_t> find(const std::string& market, const std::string& code) const;

    /// The places, in the catalogue's order, of the instruments of a market whose code matches `pattern` and which are
    /// in the lists and, when `product` is not empty, of that product. The search ends with the first `most` by code.
    [[nodiscard]] std::vector<std::size_t> match(const std::vector<ListedInstrument>& catalogue, const Lists& lists,
                                                 const std::string& market, const std::string& pattern,
                                                 const std::string& product, std::size_t most) const;

private:
    using Codes = std::map<std::string, std::size_t, std::less<>>;

    std::unordered_map<std::string, Codes> markets;
};

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_INSTRUMENT_INDEX_H
