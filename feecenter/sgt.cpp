#include "CFeeCenter.h"
#include "feecenter/connect_rules.h"
#include "feecenter/limit_family.h"

namespace qmservice {

struct CFeeCenter::Sgt : ConnectRules<CCustomSgtExchangeRateLimit, &CInstrumentFee::sgtRateLimit,
                                      &ConfigCollector::getSgtExchangeRateLimitPtr> {
    static constexpr InstrumentList kList = kSgtList;
    static constexpr auto kListAnswer = &CFeeCenter::getSgtFee;

    static LimitFamily<Limit> of(CFeeCenter& center) {
        return {{center.sgtMutex, {center.sgtRateLimitPool, center.sgtAccountTable}}, center.defaultSgtRateLimit};
    }

    /// Rule "Shenzhen connect asks the system category alone": numbers of custom and group categories match nothing
    /// more.
    static bool matches(const CInstrument& instrument, const Limit& limit) {
        return isInSystemCategory(instrument, categoryNumber(limit.category));
    }
};

void CFeeCenter::doInitSgtFee(const boost::shared_ptr<CAccountInfo>& account,
                              const std::vector<boost::shared_ptr<IData>>& records) {
    loadLimits<Sgt>(*this, account, records);
}

void CFeeCenter::doUpdateSgtCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                      const boost::shared_ptr<CCustomSgtInstrumentFee>& fee) {
    overrideLimits<Sgt>(*this, account, *fee);
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getSgtFee(uint64 accountKey, uint64 instrumentKey) {
    return findLimitFee<Sgt>(*this, accountKey, instrumentKey);
}

bool CFeeCenter::getSgtFees(const boost::shared_ptr<CAccountInfo>& account,
                            std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    return listLimitFees<Sgt>(*this, account, fees);
}

}  // namespace qmservice
