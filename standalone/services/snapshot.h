#ifndef STANDALONE_SERVICES_SNAPSHOT_H
#define STANDALONE_SERVICES_SNAPSHOT_H

#include "standalone/services/account_store.h"
#include "standalone/services/catalogue.h"
#include "standalone/services/category_book.h"
#include "standalone/services/configuration.h"
#include "standalone/services/foreign_markets.h"

namespace standalone {

/// Everything that the services answer from one market. Immutable: safe from any thread.
struct Snapshot {
    /// Of no market.
    Snapshot() = default;
    explicit Snapshot(const Market& market)
        : catalogue(market), accounts(market), configuration(market), categories(market), foreignMarkets(market) {}

    Catalogue catalogue;
    AccountStore accounts;
    Configuration configuration;
    CategoryBook categories;
    ForeignMarkets foreignMarkets;
};

}  // namespace standalone

#endif  // STANDALONE_SERVICES_SNAPSHOT_H
