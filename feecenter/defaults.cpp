#include <array>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstdint>
#include <string>
#include <utility>

#include "CFeeCenter.h"
#include "feecenter/item_key.h"
#include "host/configuration.h"
#include "host/records.h"

namespace qmservice {
namespace {

struct OptionItemRow {
    std::int32_t first;
    std::int32_t second;
    std::int32_t third;
    double fee1;
    double fee2;
    double fee3;
};

// Rule "An item key has two characters behind a D": the third of the 'D' rows is no part of their key, and the items
// carry it all the same. fee4 and fee5 are 0.
constexpr std::array<OptionItemRow, 10> kOptionItems = {{
    {'0', '0', '0', 1.3, 0.3, 0.0},
    {'0', '1', '1', 1.3, 0.3, 0.0},
    {'0', '0', '1', 0.0, 0.0, 0.0},
    {'0', '1', '0', 1.3, 0.3, 0.0},
    {'0', 'D', '1', 0.0, 0.0, 0.6},
    {'1', '0', '0', 3.0, 0.45, 0.0},
    {'1', '1', '1', 3.0, 0.45, 0.0},
    {'1', '0', '1', 0.0, 0.0, 0.0},
    {'1', '1', '0', 3.0, 0.45, 0.0},
    {'1', 'D', '1', 0.0, 0.0, 0.9},
}};

boost::shared_ptr<CStkExchangeRateLimit> makeStockLimit() {
    auto limit = boost::make_shared<CStkExchangeRateLimit>();
    limit->rate1 = 0.00015;
    limit->rate2 = 0.0;
    limit->rate3 = 0.0;
    limit->rate4 = 0.0;
    limit->rate5 = 0.0;
    limit->rate6 = 0.001;
    limit->unitVolume = kUsualTradeUnit;
    return limit;
}

template <class Limit>
boost::shared_ptr<Limit> makeConnectLimit() {
    auto limit = boost::make_shared<Limit>();
    limit->rate3 = 0.0013;
    limit->rate4 = 0.0013;
    return limit;
}

boost::shared_ptr<CStockOptionFeeItem> makeOptionItem(const OptionItemRow& row) {
    auto item = boost::make_shared<CStockOptionFeeItem>();
    item->fee1 = row.fee1;
    item->fee2 = row.fee2;
    item->fee3 = row.fee3;
    item->fee4 = 0.0;
    item->fee5 = 0.0;
    item->secondKeyCode = row.second;
    item->thirdKeyCode = row.third;
    item->firstKeyCode = row.first;
    return item;
}

boost::shared_ptr<CStockOptionFeeRate> makeOptionRate() {
    auto rate = boost::make_shared<CStockOptionFeeRate>();
    rate->baseRate = 0.2;
    for (const OptionItemRow& row : kOptionItems) {
        auto item = makeOptionItem(row);
        std::string key = itemKey(*item);
        rate->items.emplace(std::move(key), std::move(item));
    }
    return rate;
}

boost::shared_ptr<CInstrumentFee> makeFutureFee() {
    auto fee = boost::make_shared<CInstrumentFee>();
    fee->commissionDetail = boost::make_shared<CCommissionRateDetail>();
    for (const HedgeFlag hedgeFlag : kHedgeFlags) {
        fee->marginDetails.push_back(boost::make_shared<CMarginRateDetail>());
        fee->marginDetails.back()->hedgeFlag = hedgeFlag;
    }
    return fee;
}

boost::shared_ptr<CInstrumentFee> makeIncomeSwapFutureFee() {
    auto fee = makeFutureFee();
    for (const auto& margin : fee->marginDetails) {
        margin->longMarginRatio = 0.01;
        margin->shortMarginRatio = 0.01;
    }
    return fee;
}

}  // namespace

void CFeeCenter::initDefaultFees() {
    defaultStockRateLimit = makeStockLimit();
    defaultCreditRateLimit = makeStockLimit();
    defaultNeeqRateLimit = makeStockLimit();
    defaultHgtRateLimit = makeConnectLimit<CCustomHGTExchangeRateLimit>();
    defaultSgtRateLimit = makeConnectLimit<CCustomSgtExchangeRateLimit>();
    defaultStkOptionFeeRate = makeOptionRate();
    defaultFutureFee = makeFutureFee();
    defaultIncomeSwapFutureFee = makeIncomeSwapFutureFee();
}

}  // namespace qmservice
