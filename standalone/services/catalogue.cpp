#include "standalone/services/catalogue.h"

#include "host/keys.h"

namespace standalone {

Catalogue::Catalogue(const Market& market) {
    listings.reserve(market.instruments.size());
    byKey.reserve(market.instruments.size());
    for (const ListedInstrument& listed : market.instruments) {
        const std::string key = utils::voStockKey(listed.record->market, listed.record->code);
        byKey.emplace(utils::hash(key), listed.record);
        listings.push_back({key, listed.record, listed.listMask, listed.types});
    }
}

Catalogue::Instrument Catalogue::find(qmservice::uint64 instrumentKey) const {
    const auto found = byKey.find(instrumentKey);
    return found == byKey.end() ? Instrument() : found->second;
}

std::map<std::string, Catalogue::Instrument> Catalogue::ofTypes(int typeMask) const {
    std::map<std::string, Instrument> chosen;
    for (const Listing& listing : listings) {
        if ((listing.types & typeMask) != 0) {
            chosen.emplace(listing.joinedKey, listing.record);
        }
    }
    return chosen;
}

std::vector<Catalogue::Instrument> Catalogue::ofLists(int listMask) const {
    std::vector<Instrument> chosen;
    for (const Listing& listing : listings) {
        if ((listing.listMask & listMask) != 0) {
            chosen.push_back(listing.record);
        }
    }
    return chosen;
}

}  // namespace standalone
