#include "model/model.h"

// The two operations that change fees: they queue what is to be done.

namespace model {

using namespace qmservice;

void Model::initFees(const Account& account, const Records& records) {
    if (records.empty()) {
        return;
    }
    switch (account->accountType) {
        case 1:
        case 5:
            jobs.push_back([=](Model& m) { m.loadFutures(account, records); });
            break;
        case 2:
            jobs.push_back([=](Model& m) { m.loadLimits(m.stock, account, records); });
            break;
        case 3:
            jobs.push_back([=](Model& m) { m.loadLimits(m.credit, account, records); });
            break;
        case 6:
            // A job that does nothing.
            jobs.push_back([](Model&) {});
            break;
        case 7:
            jobs.push_back([=](Model& m) { m.loadHgt(account, records); });
            break;
        case 10:
            jobs.push_back([=](Model& m) { m.loadLimits(m.neeq, account, records); });
            break;
        case 11:
            jobs.push_back([=](Model& m) { m.loadSgt(account, records); });
            break;
        default:
            break;
    }
}

void Model::updateCustomFee(const Account& account, const boost::shared_ptr<IData>& customFee) {
    const auto stockFee = boost::dynamic_pointer_cast<CCustomStockInstrumentFee>(customFee);
    const auto hgtFees = boost::dynamic_pointer_cast<CCustomHGTInstrumentFee>(customFee);
    const auto sgtFees = boost::dynamic_pointer_cast<CCustomSgtInstrumentFee>(customFee);
    const auto futureFees = boost::dynamic_pointer_cast<CCustomFutureInstrumentFee>(customFee);
    const auto plainFee = boost::dynamic_pointer_cast<CInstrumentFee>(customFee);
    const int kind = account->accountType;
    if (kind == 2 && stockFee) {
        jobs.push_back([=](Model& m) { m.overrideLimits(m.stock, 1, account, stockFee); });
    } else if (kind == 3 && stockFee) {
        jobs.push_back([=](Model& m) { m.overrideLimits(m.credit, 8, account, stockFee); });
    } else if (kind == 7 && hgtFees) {
        jobs.push_back([=](Model& m) { m.overrideHgt(account, hgtFees); });
    } else if (kind == 11 && sgtFees) {
        jobs.push_back([=](Model& m) { m.overrideSgt(account, sgtFees); });
    } else if ((kind == 1 || kind == 5 || kind == 12) && futureFees) {
        jobs.push_back([=](Model& m) { m.overrideFutures(account, futureFees); });
    } else if ((kind == 1 || kind == 5 || kind == 12) && plainFee) {
        jobs.push_back([=](Model& m) { m.updateFuture(account, plainFee); });
    } else if (kind == 6 && stockFee) {
        jobs.push_back([=](Model& m) { m.overrideOptions(account, stockFee); });
    } else if (kind == 10 && stockFee) {
        jobs.push_back([=](Model& m) { m.overrideLimits(m.neeq, 256, account, stockFee); });
    }
}

}  // namespace model
