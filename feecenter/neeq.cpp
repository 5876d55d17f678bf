#include "CFeeCenter.h"
#include "feecenter/limit_family.h"
#include "feecenter/stock_rules.h"

namespace qmservice {

struct CFeeCenter::Neeq : StockRules {
    static constexpr InstrumentList kList = kNeeqList;
    /// Rule "A NEEQ list is answered by the stock tables": unless the same account has stock entries too, each answer
    /// is the configured limit or the stock default.
    static constexpr auto kListAnswer = &CFeeCenter::getStockFee;

    static LimitFamily<Limit> of(CFeeCenter& center) {
        return {{center.neeqMutex, {center.neeqRateLimitPool, center.neeqAccountTable}}, center.defaultNeeqRateLimit};
    }
};

void CFeeCenter::doInitNeeqFee(const boost::shared_ptr<CAccountInfo>& account,
                               const std::vector<boost::shared_ptr<IData>>& records) {
    loadLimits<Neeq>(*this, account, records);
}

void CFeeCenter::doUpdateNeeqCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                       const boost::shared_ptr<CCustomStockInstrumentFee>& fee) {
    overrideLimits<Neeq>(*this, account, *fee);
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getNeeqFee(uint64 accountKey, uint64 instrumentKey, int tradeUnit) {
    return findLimitFee<Neeq>(*this, accountKey, instrumentKey, tradeUnit);
}

bool CFeeCenter::getNeeqFees(const boost::shared_ptr<CAccountInfo>& account,
                             std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    return listLimitFees<Neeq>(*this, account, fees);
}

}  // namespace qmservice
