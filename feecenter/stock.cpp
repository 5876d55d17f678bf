#include "CFeeCenter.h"
#include "feecenter/family_tables.h"
#include "feecenter/stock_limits.h"

namespace qmservice {

void CFeeCenter::doInitStockFee(const boost::shared_ptr<CAccountInfo>& account,
                                const std::vector<boost::shared_ptr<IData>>& records) {
    loadLimits<StockLimitPolicy>(FamilyTables::stock(*this), account, records);
}

void CFeeCenter::doUpdateStockCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                        const boost::shared_ptr<CCustomStockInstrumentFee>& fee) {
    overrideStockLimits(FamilyTables::stock(*this), account, *fee, 1);
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getStockFee(uint64 accountKey, uint64 instrumentKey, int tradeUnit) {
    return findStockLimitFee(FamilyTables::stock(*this), accountKey, instrumentKey, tradeUnit);
}

bool CFeeCenter::getStockFees(const boost::shared_ptr<CAccountInfo>& account,
                              std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    return listFees(stockMutex, stockAccountTable, account, fees, [this](uint64 accountKey, uint64 instrumentKey) {
        return getStockFee(accountKey, instrumentKey, kDefaultTradeUnit);
    });
}

}  // namespace qmservice
