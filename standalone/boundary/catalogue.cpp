#include "host/catalogue.h"

#include "standalone/boundary/uncounted.h"
#include "standalone/services/process.h"

using standalone::onlyOne;
using standalone::published;
using standalone::Snapshot;
using standalone::uncounted;

namespace qmservice {
namespace {

/// The catalogue that a fee center sees: that of the market which is installed at the time of each call.
class InstrumentCenter final : public IInstrumentCenter {
public:
    boost::shared_ptr<CInstrument> findInstrument(uint64 instrumentKey) override {
        return published().read([&](const Snapshot& now) { return now.catalogue.find(instrumentKey); });
    }

    void getInstrumentMap(int type, std::map<std::string, boost::shared_ptr<CInstrument>>& instruments) override {
        instruments = published().hold()->catalogue.ofTypes(type);
    }

    void getInstrumentList(std::vector<boost::shared_ptr<CInstrument>>& instruments, int listMask) override {
        instruments = published().hold()->catalogue.ofLists(listMask);
    }
};

/// The accounts, likewise.
class DataCenter final : public IDataCenter {
public:
    boost::shared_ptr<CAccountData> getAccountData(uint64 accountKey) override {
        return published().read([&](const Snapshot& now) { return now.accounts.find(accountKey); });
    }
};

}  // namespace

boost::shared_ptr<TraderCenter> TraderCenter::instance() { return uncounted(onlyOne<TraderCenter>()); }

IInstrumentCenter* TraderCenter::getInstCenter() const { return &onlyOne<InstrumentCenter>(); }

boost::shared_ptr<IDataCenter> TraderCenter::getDataCenter() const {
    return uncounted<IDataCenter>(onlyOne<DataCenter>());
}

}  // namespace qmservice
