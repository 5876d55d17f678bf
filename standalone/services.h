#ifndef STANDALONE_SERVICES_H
#define STANDALONE_SERVICES_H

#include <boost/shared_ptr.hpp>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "host/services.h"
#include "standalone/account_store.h"
#include "standalone/catalogue.h"
#include "standalone/category_book.h"
#include "standalone/configuration.h"
#include "standalone/engine.h"
#include "standalone/foreign_markets.h"
#include "standalone/published.h"

namespace standalone {

/// The catalogue that a fee center sees: whichever one is published.
class InstrumentCenter final : public qmservice::IInstrumentCenter {
public:
    boost::shared_ptr<qmservice::CInstrument> findInstrument(qmservice::uint64 instrumentKey) override;
    void getInstrumentMap(int type,
                          std::map<std::string, boost::shared_ptr<qmservice::CInstrument>>& instruments) override;
    void getInstrumentList(std::vector<boost::shared_ptr<qmservice::CInstrument>>& instruments, int kindMask) override;

    Published<Catalogue> catalogue;
};

/// The account store that a fee center sees: whichever one is published.
class DataCenter final : public qmservice::IDataCenter {
public:
    boost::shared_ptr<qmservice::CAccountData> getAccountData(qmservice::uint64 accountKey) override;

    Published<AccountStore> accounts;
};

/// Everything behind the host's service classes, which hold no data themselves.
struct Services {
    /// Replaces what a market fills; the services are as before when memory runs out. Safe from any thread.
    void install(const Market& market);

    InstrumentCenter instruments;
    DataCenter accounts;
    Published<Configuration> configuration;
    Published<CategoryBook> categories;
    Published<ForeignMarkets> foreignMarkets;
    Engine engine;

    qmservice::TraderCenter traderCenter;
    qmservice::ConfigCollector configCollector;
    qmservice::CppCategory category;
    qmservice::StockTypeCenter stockTypes;
    net::RPCEngine rpcEngine;

private:
    std::mutex installMutex;  // two markets installed at once do not mix
};

/// The process's services. They are never destroyed, so that threads and static objects may use them to the end.
Services& services();

}  // namespace standalone

#endif  // STANDALONE_SERVICES_H
