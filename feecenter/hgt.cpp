#include "CFeeCenter.h"
#include "feecenter/connect_limits.h"
#include "feecenter/family_tables.h"

namespace qmservice {

void CFeeCenter::doInitHgtFee(const boost::shared_ptr<CAccountInfo>& account,
                              const std::vector<boost::shared_ptr<IData>>& records) {
    loadLimits<HgtLimitPolicy>(FamilyTables::hgt(*this), account, records);
}

void CFeeCenter::doUpdateHgtCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                      const boost::shared_ptr<CCustomHGTInstrumentFee>& fee) {
    overrideLimits<HgtLimitPolicy>(FamilyTables::hgt(*this), account, fee->rateLimits, 128,
                                   [](const CInstrument& instrument, CCustomHGTExchangeRateLimit& limit) {
                                       return matchesCategory(instrument, limit, categoryNumber(limit.category));
                                   });
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getHgtFee(uint64 accountKey, uint64 instrumentKey) {
    return findConnectFee<HgtLimitPolicy>(FamilyTables::hgt(*this), accountKey, instrumentKey);
}

bool CFeeCenter::getHgtFees(const boost::shared_ptr<CAccountInfo>& account,
                            std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    return listFees(hgtMutex, hgtAccountTable, account, fees,
                    [this](uint64 accountKey, uint64 instrumentKey) { return getHgtFee(accountKey, instrumentKey); });
}

}  // namespace qmservice
