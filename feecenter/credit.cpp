#include "CFeeCenter.h"
#include "feecenter/limit_family.h"
#include "feecenter/stock_rules.h"

namespace qmservice {

struct CFeeCenter::Credit : StockRules {
    static constexpr InstrumentList kList = kCreditList;
    static constexpr auto kListAnswer = &CFeeCenter::getCreditFee;

    static LimitFamily<Limit> of(CFeeCenter& center) {
        return {{center.creditMutex, {center.creditRateLimitPool, center.creditAccountTable}},
                center.defaultCreditRateLimit};
    }
};

void CFeeCenter::doInitCreditFee(const boost::shared_ptr<CAccountInfo>& account,
                                 const std::vector<boost::shared_ptr<IData>>& records) {
    loadLimits<Credit>(*this, account, records);
}

void CFeeCenter::doUpdateCreditCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                         const boost::shared_ptr<CCustomStockInstrumentFee>& fee) {
    overrideLimits<Credit>(*this, account, *fee);
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getCreditFee(uint64 accountKey, uint64 instrumentKey, int tradeUnit) {
    return findLimitFee<Credit>(*this, accountKey, instrumentKey, tradeUnit);
}

bool CFeeCenter::getCreditFees(const boost::shared_ptr<CAccountInfo>& account,
                               std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    return listLimitFees<Credit>(*this, account, fees);
}

}  // namespace qmservice
