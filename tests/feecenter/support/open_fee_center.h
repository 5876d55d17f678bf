#ifndef TESTS_FEECENTER_SUPPORT_OPEN_FEE_CENTER_H
#define TESTS_FEECENTER_SUPPORT_OPEN_FEE_CENTER_H

#include <string>

#include "CFeeCenter.h"
#include "host/records.h"

namespace test {

/// A fee center whose inside a test may look at and call.
class OpenFeeCenter : public qmservice::CFeeCenter {
public:
    explicit OpenFeeCenter(const std::string& name = "fees") : CFeeCenter(name) {}

    using CFeeCenter::doInitCreditFee;
    using CFeeCenter::doInitFutureFee;
    using CFeeCenter::doInitHgtFee;
    using CFeeCenter::doInitNeeqFee;
    using CFeeCenter::doInitSgtFee;
    using CFeeCenter::doInitStkOptionFee;
    using CFeeCenter::doInitStockFee;

    using CFeeCenter::doUpdateCreditCustomFee;
    using CFeeCenter::doUpdateFutureCustomFee;
    using CFeeCenter::doUpdateFutureInstrumentFee;
    using CFeeCenter::doUpdateHgtCustomFee;
    using CFeeCenter::doUpdateNeeqCustomFee;
    using CFeeCenter::doUpdateSgtCustomFee;
    using CFeeCenter::doUpdateStkOptionCustomFee;
    using CFeeCenter::doUpdateStockCustomFee;

    using CFeeCenter::getCreditFee;
    using CFeeCenter::getFutureFee;
    using CFeeCenter::getHgtFee;
    using CFeeCenter::getIncomeSwapFutureFee;
    using CFeeCenter::getNeeqFee;
    using CFeeCenter::getPbFullFee;
    using CFeeCenter::getSgtFee;
    using CFeeCenter::getStkOptionFee;
    using CFeeCenter::getStockFee;

    using CFeeCenter::getCreditFees;
    using CFeeCenter::getFutureFees;
    using CFeeCenter::getHgtFees;
    using CFeeCenter::getNeeqFees;
    using CFeeCenter::getSgtFees;
    using CFeeCenter::getStkOptionFees;
    using CFeeCenter::getStockFees;

    using CFeeCenter::getHashKey;

    using CFeeCenter::strand;

    using CFeeCenter::defaultStockRateLimit;
    using CFeeCenter::stockAccountTable;
    using CFeeCenter::stockMutex;
    using CFeeCenter::stockRateLimitPool;

    using CFeeCenter::creditAccountTable;
    using CFeeCenter::creditMutex;
    using CFeeCenter::creditRateLimitPool;
    using CFeeCenter::defaultCreditRateLimit;

    using CFeeCenter::defaultHgtRateLimit;
    using CFeeCenter::hgtAccountTable;
    using CFeeCenter::hgtMutex;
    using CFeeCenter::hgtRateLimitPool;

    using CFeeCenter::defaultSgtRateLimit;
    using CFeeCenter::sgtAccountTable;
    using CFeeCenter::sgtMutex;
    using CFeeCenter::sgtRateLimitPool;

    using CFeeCenter::defaultStkOptionFeeRate;
    using CFeeCenter::stkOptionAccountTable;
    using CFeeCenter::stkOptionBaseRateTable;
    using CFeeCenter::stkOptionItemPool;
    using CFeeCenter::stkOptionMutex;
    using CFeeCenter::stkOptionTableMutex;

    using CFeeCenter::defaultFutureFee;
    using CFeeCenter::defaultIncomeSwapFutureFee;
    using CFeeCenter::futureCommissionDetails;
    using CFeeCenter::futureCommissionKeys;
    using CFeeCenter::futureMarginDetails;
    using CFeeCenter::futureMarginKeys;
    using CFeeCenter::futureMutex;

    using CFeeCenter::defaultNeeqRateLimit;
    using CFeeCenter::neeqAccountTable;
    using CFeeCenter::neeqMutex;
    using CFeeCenter::neeqRateLimitPool;

    using CFeeCenter::emptyFee;
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_OPEN_FEE_CENTER_H
