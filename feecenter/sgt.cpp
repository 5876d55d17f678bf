#include "CFeeCenter.h"
#include "feecenter/connect_limits.h"
#include "feecenter/family_tables.h"

namespace qmservice {

void CFeeCenter::doInitSgtFee(const boost::shared_ptr<CAccountInfo>& account,
                              const std::vector<boost::shared_ptr<IData>>& records) {
    loadLimits<SgtLimitPolicy>(FamilyTables::sgt(*this), account, records);
}

void CFeeCenter::doUpdateSgtCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                      const boost::shared_ptr<CCustomSgtInstrumentFee>& fee) {
    overrideLimits<SgtLimitPolicy>(FamilyTables::sgt(*this), account, fee->rateLimits, 16384,
                                   [](const CInstrument& instrument, const CCustomSgtExchangeRateLimit& limit) {
                                       // Rule "Shenzhen connect asks the system category alone": numbers of custom and
                                       // group categories match nothing more.
                                       return isInSystemCategory(instrument, categoryNumber(limit.category));
                                   });
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getSgtFee(uint64 accountKey, uint64 instrumentKey) {
    return findConnectFee<SgtLimitPolicy>(FamilyTables::sgt(*this), accountKey, instrumentKey);
}

bool CFeeCenter::getSgtFees(const boost::shared_ptr<CAccountInfo>& account,
                            std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    return listFees(sgtMutex, sgtAccountTable, account, fees,
                    [this](uint64 accountKey, uint64 instrumentKey) { return getSgtFee(accountKey, instrumentKey); });
}

}  // namespace qmservice
