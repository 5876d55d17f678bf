#include "CFeeCenter.h"
#include "feecenter/family_tables.h"
#include "feecenter/stock_limits.h"

namespace qmservice {

void CFeeCenter::doInitCreditFee(const boost::shared_ptr<CAccountInfo>& account,
                                 const std::vector<boost::shared_ptr<IData>>& records) {
    loadLimits<StockLimitPolicy>(FamilyTables::credit(*this), account, records);
}

void CFeeCenter::doUpdateCreditCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                         const boost::shared_ptr<CCustomStockInstrumentFee>& fee) {
    overrideStockLimits(FamilyTables::credit(*this), account, *fee, 8);
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getCreditFee(uint64 accountKey, uint64 instrumentKey, int tradeUnit) {
    return findStockLimitFee(FamilyTables::credit(*this), accountKey, instrumentKey, tradeUnit);
}

bool CFeeCenter::getCreditFees(const boost::shared_ptr<CAccountInfo>& account,
                               std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    return listFees(creditMutex, creditAccountTable, account, fees, [this](uint64 accountKey, uint64 instrumentKey) {
        return getCreditFee(accountKey, instrumentKey, kDefaultTradeUnit);
    });
}

}  // namespace qmservice
