#include "CFeeCenter.h"
#include "feecenter/limit_family.h"
#include "feecenter/stock_rules.h"

namespace qmservice {

struct CFeeCenter::Stock : StockRules {
    static constexpr InstrumentList kList = kStockList;
    static constexpr auto kListAnswer = &CFeeCenter::getStockFee;

    static LimitFamily<Limit> of(CFeeCenter& center) {
        return {{center.stockMutex, {center.stockRateLimitPool, center.stockAccountTable}},
                center.defaultStockRateLimit};
    }
};

void CFeeCenter::doInitStockFee(const boost::shared_ptr<CAccountInfo>& account,
                                const std::vector<boost::shared_ptr<IData>>& records) {
    loadLimits<Stock>(*this, account, records);
}

void CFeeCenter::doUpdateStockCustomFee(const boost::shared_ptr<CAccountInfo>& account,
                                        const boost::shared_ptr<CCustomStockInstrumentFee>& fee) {
    overrideLimits<Stock>(*this, account, *fee);
}

boost::shared_ptr<CInstrumentFee> CFeeCenter::getStockFee(uint64 accountKey, uint64 instrumentKey, int tradeUnit) {
    return findLimitFee<Stock>(*this, accountKey, instrumentKey, tradeUnit);
}

bool CFeeCenter::getStockFees(const boost::shared_ptr<CAccountInfo>& account,
                              std::vector<boost::shared_ptr<CInstrumentFee>>& fees) {
    return listLimitFees<Stock>(*this, account, fees);
}

}  // namespace qmservice
