#include "standalone/loader/instrument_index.h"

#include <algorithm>

#include "cost/pattern.h"

namespace standalone::loader {

std::optional<std::size_t> InstrumentIndex::add(const std::string& market, const std::string& code, std::size_t place) {
    const auto [entry, isNew] = markets[market].emplace(code, place);
    if (isNew) {
        return std::nullopt;
    }
    return entry->second;
}

std::optional<std::size_t> InstrumentIndex::find(const std::string& market, const std::string& code) const {
    const auto codes = markets.find(market);
    if (codes == markets.end()) {
        return std::nullopt;
    }
    const auto found = codes->second.find(code);
    if (found == codes->second.end()) {
        return std::nullopt;
    }
    return found->second;
}

std::vector<std::size_t> InstrumentIndex::match(const std::vector<ListedInstrument>& catalogue, const Lists& lists,
                                                const std::string& market, const std::string& pattern,
                                                const std::string& product, std::size_t most) const {
    std::vector<std::size_t> places;
    const auto codes = markets.find(market);
    if (codes == markets.end()) {
        return places;
    }
    // Only the codes that begin as the pattern does are looked at; they stand together.
    const std::string start = pattern.substr(0, pattern.find('*'));
    for (auto code = codes->second.lower_bound(start); code != codes->second.end() && places.size() < most; ++code) {
        if (code->first.compare(0, start.size(), start) != 0) {
            break;
        }
        const ListedInstrument& instrument = catalogue[code->second];
        const bool wanted = lists.hold(instrument) && (product.empty() || instrument.record->productId == product);
        if (wanted && cost::matchesPattern(code->first, pattern)) {
            places.push_back(code->second);
        }
    }
    std::sort(places.begin(), places.end());
    return places;
}

}  // namespace standalone::loader
