#include "standalone/services.h"

#include <memory>
#include <utility>

namespace standalone {

boost::shared_ptr<qmservice::CInstrument> InstrumentCenter::findInstrument(qmservice::uint64 instrumentKey) {
    return catalogue.read([&](const Catalogue& known) { return known.find(instrumentKey); });
}

void InstrumentCenter::getInstrumentMap(int type,
                                        std::map<std::string, boost::shared_ptr<qmservice::CInstrument>>& instruments) {
    instruments = catalogue.hold()->ofTypes(type);
}

void InstrumentCenter::getInstrumentList(std::vector<boost::shared_ptr<qmservice::CInstrument>>& instruments,
                                         int kindMask) {
    instruments = catalogue.hold()->ofKinds(kindMask);
}

boost::shared_ptr<qmservice::CAccountData> DataCenter::getAccountData(qmservice::uint64 accountKey) {
    return accounts.read([&](const AccountStore& known) { return known.find(accountKey); });
}

void Services::install(const Market& market) {
    auto catalogue = std::make_shared<const Catalogue>(market);
    auto store = std::make_shared<const AccountStore>(market);
    auto settings = std::make_shared<const Configuration>(market);
    auto book = std::make_shared<const CategoryBook>(market);
    auto foreign = std::make_shared<const ForeignMarkets>(market);
    // The swaps leave the contents so far in the pointers above, which end after every lock.
    const std::lock_guard<std::mutex> lock(installMutex);
    instruments.catalogue.swap(catalogue);
    accounts.accounts.swap(store);
    configuration.swap(settings);
    categories.swap(book);
    foreignMarkets.swap(foreign);
}

Services& services() {
    static Services& all = *new Services;
    return all;
}

}  // namespace standalone
