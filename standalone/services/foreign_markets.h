#ifndef STANDALONE_SERVICES_FOREIGN_MARKETS_H
#define STANDALONE_SERVICES_FOREIGN_MARKETS_H

#include <boost/unordered_set.hpp>
#include <string>

#include "standalone/market.h"

namespace standalone {

/// The foreign futures markets of a market folder, by name. Immutable: safe from any thread.
class ForeignMarkets {
public:
    /// Without any.
    ForeignMarkets() = default;
    explicit ForeignMarkets(const Market& market);

    [[nodiscard]] bool holds(const std::string& market) const { return names.count(market) != 0; }

private:
    boost::unordered_set<std::string> names;
};

}  // namespace standalone

#endif  // STANDALONE_SERVICES_FOREIGN_MARKETS_H
