#include "standalone/services/foreign_markets.h"

namespace standalone {

ForeignMarkets::ForeignMarkets(const Market& market) {
    for (const MarketPlace& place : market.markets) {
        if (place.foreign) {
            names.insert(place.market);
        }
    }
}

}  // namespace standalone
