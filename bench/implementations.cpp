#include "bench/implementations.h"

#include "bench/fail.h"

namespace bench {

using namespace qmservice;

void FeeCenter::Opened::load(const Account& account, const Records& records) {
    switch (account->accountType) {
        case kStockAccount:
            return doInitStockFee(account, records);
        case kCreditAccount:
            return doInitCreditFee(account, records);
        case kNeeqAccount:
            return doInitNeeqFee(account, records);
        case kHgtAccount:
            return doInitHgtFee(account, records);
        case kSgtAccount:
            return doInitSgtFee(account, records);
        case kFuturesAccount:
            return doInitFutureFee(account, records);
        default:
            fail("no load is measured for this kind of account");
    }
}

void FeeCenter::Opened::update(const Account& account, const boost::shared_ptr<IData>& fee) {
    if (account->accountType == kFuturesAccount) {
        return doUpdateFutureCustomFee(account, boost::dynamic_pointer_cast<CCustomFutureInstrumentFee>(fee));
    }
    const auto custom = boost::dynamic_pointer_cast<CCustomStockInstrumentFee>(fee);
    if (account->accountType == kOptionAccount) {
        return doUpdateStkOptionCustomFee(account, custom);
    }
    doUpdateStockCustomFee(account, custom);
}

}  // namespace bench
