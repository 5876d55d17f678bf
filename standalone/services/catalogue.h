#ifndef STANDALONE_SERVICES_CATALOGUE_H
#define STANDALONE_SERVICES_CATALOGUE_H

#include <boost/shared_ptr.hpp>
#include <boost/unordered_map.hpp>
#include <map>
#include <string>
#include <vector>

#include "standalone/market.h"

namespace standalone {

/// The instruments of a market, by key, list and type. Immutable: safe from any thread.
class Catalogue {
public:
    using Instrument = boost::shared_ptr<qmservice::CInstrument>;

    /// Without instruments.
    Catalogue() = default;
    explicit Catalogue(const Market& market);

    /// The instrument whose joined key hashes to `instrumentKey`; empty when there is none.
    [[nodiscard]] Instrument find(qmservice::uint64 instrumentKey) const;
    /// The instruments of any type in the mask, by joined key.
    [[nodiscard]] std::map<std::string, Instrument> ofTypes(int typeMask) const;
    /// The instruments of any list in the mask, in the market's order.
    [[nodiscard]] std::vector<Instrument> ofLists(int listMask) const;

private:
    struct Listing {
        std::string joinedKey;
        Instrument record;
        int listMask;
        int types;
    };

    std::vector<Listing> listings;
    boost::unordered_map<qmservice::uint64, Instrument> byKey;
};

}  // namespace standalone

#endif  // STANDALONE_SERVICES_CATALOGUE_H
