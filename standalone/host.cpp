#include "standalone/host.h"

#include <vector>

#include "standalone/services.h"

namespace standalone {

void install(const Market& market) { services().install(market); }

void uninstall() { install(Market()); }

void startEngine(int threads) { services().engine.start(threads); }

void stopEngine() { services().engine.stop(); }

void waitForStrand(const std::string& name) { services().engine.waitFor(name); }

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
