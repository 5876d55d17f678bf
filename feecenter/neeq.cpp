#include "CFeeCenter.h"
#include "feecenter/family_tables.h"
#include "feecenter/stock_limits.h"

namespace qmservice {

void CFeeCenter::doInitNeeqFee(const boost::shared_ptr<CAccountInfo>& account,
                               const std::vector<boost::shared_ptr<IData>>& records) {
    loadLimits<StockLimitPolicy>(FamilyTables::neeq(*this), account, records);
}

void CFeeCenter::doUpdateNeeqCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                       const boost::shared_ptr<CCustomStockInstrumentFee>& fee) {
    overrideStockLimits(FamilyTables::neeq(*this), account, *fee, 256);
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getNeeqFee(uint64 accountKey, uint64 instrumentKey, int tradeUnit) {
    return findStockLimitFee(FamilyTables::neeq(*this), accountKey, instrumentKey, tradeUnit);
}

bool CFeeCenter::getNeeqFees(const boost::shared_ptr<CAccountInfo>& account,
                             std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    // Rule "A NEEQ list is answered by the stock tables": the instruments are the NEEQ table's, each answer is the
    // stock query's. Unless the same account has stock entries too, it is the configured limit or the stock default.
    return listFees(neeqMutex, neeqAccountTable, account, fees, [this](uint64 accountKey, uint64 instrumentKey) {
        return getStockFee(accountKey, instrumentKey, kDefaultTradeUnit);
    });
}

}  // namespace qmservice
