#include "CFeeCenter.h"
#include "feecenter/connect_rules.h"
#include "feecenter/limit_family.h"

namespace qmservice {

struct CFeeCenter::Hgt : ConnectRules<CCustomHGTExchangeRateLimit, &CInstrumentFee::hgtRateLimit,
                                      &ConfigCollector::getHGTExchangeRateLimitPtr> {
    static constexpr InstrumentList kList = kHgtList;
    static constexpr auto kListAnswer = &CFeeCenter::getHgtFee;

    static LimitFamily<Limit> of(CFeeCenter& center) {
        return {{center.hgtMutex, {center.hgtRateLimitPool, center.hgtAccountTable}}, center.defaultHgtRateLimit};
    }
};

void CFeeCenter::doInitHgtFee(const boost::shared_ptr<CAccountInfo>& account,
                              const std::vector<boost::shared_ptr<IData>>& records) {
    loadLimits<Hgt>(*this, account, records);
}

void CFeeCenter::doUpdateHgtCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                      const boost::shared_ptr<CCustomHGTInstrumentFee>& fee) {
    overrideLimits<Hgt>(*this, account, *fee);
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getHgtFee(uint64 accountKey, uint64 instrumentKey) {
    return findLimitFee<Hgt>(*this, accountKey, instrumentKey);
}

bool CFeeCenter::getHgtFees(const boost::shared_ptr<CAccountInfo>& account,
                            std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    return listLimitFees<Hgt>(*this, account, fees);
}

}  // namespace qmservice
