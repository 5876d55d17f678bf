#include "standalone/host.h"

#include <memory>
#include <vector>

#include "standalone/services/process.h"

namespace standalone {

PreparedMarket prepared(const Market& market) { return std::make_shared<const Snapshot>(market); }

// The swap leaves the contents so far in the argument, so that they end behind the lock.
void install(PreparedMarket market) noexcept { published().swap(market); }

void install(const Market& market) { install(prepared(market)); }

void uninstall() { install(Market()); }

void startEngine(int threads) { strands().start(threads); }

void stopEngine() { strands().stop(); }

void waitForStrand(const std::string& name) { strands().waitFor(name); }

void feed(qmservice::IFeeCenter& feeCenter, const Account& account) {
    std::vector<boost::shared_ptr<qmservice::IData>> records;
    records.reserve(account.fees.size());
    for (const FeeRecord& fee : account.fees) {
        records.emplace_back(fee.record);
    }
    feeCenter.initFees(account.record, records);
    for (const CustomFee& customFee : account.customFees) {
        feeCenter.updateCustomFee(account.record, customFee.record);
    }
}

}  // namespace standalone
