#include <boost/smart_ptr/make_shared.hpp>

#include "model/model.h"

namespace model {
namespace {

using namespace qmservice;

struct ItemRow {
    const char* characters;
    double fee1;
    double fee2;
    double fee3;
};

/// The fourth and fifth fee of every item are 0.
constexpr ItemRow kItems[] = {
    {"000", 1.3, 0.3, 0},  {"011", 1.3, 0.3, 0},  {"001", 0, 0, 0}, {"010", 1.3, 0.3, 0},  {"0D1", 0, 0, 0.6},
    {"100", 3.0, 0.45, 0}, {"111", 3.0, 0.45, 0}, {"101", 0, 0, 0}, {"110", 3.0, 0.45, 0}, {"1D1", 0, 0, 0.9},
};

boost::shared_ptr<CStkExchangeRateLimit> defaultLimit() {
    auto limit = boost::make_shared<CStkExchangeRateLimit>();
    limit->rate1 = 0.00015;
    limit->rate6 = 0.001;
    limit->unitVolume = 100;
    return limit;
}

template <class Limit>
boost::shared_ptr<Limit> defaultConnectLimit() {
    auto limit = boost::make_shared<Limit>();
    limit->rate3 = 0.0013;
    limit->rate4 = 0.0013;
    return limit;
}

boost::shared_ptr<CStockOptionFeeRate> defaultOptionFeeRate() {
    auto rate = boost::make_shared<CStockOptionFeeRate>();
    rate->baseRate = 0.2;
    for (const ItemRow& row : kItems) {
        auto item = boost::make_shared<CStockOptionFeeItem>();
        item->fee1 = row.fee1;
        item->fee2 = row.fee2;
        item->fee3 = row.fee3;
        item->firstKeyCode = row.characters[0];
        item->secondKeyCode = row.characters[1];
        item->thirdKeyCode = row.characters[2];
        const std::size_t length = row.characters[1] == 'D' ? 2 : 3;
        rate->items.emplace(std::string(row.characters, length), item);
    }
    return rate;
}

Model::Fee defaultFutures(double marginRatio) {
    auto fee = boost::make_shared<CInstrumentFee>();
    fee->commissionDetail = boost::make_shared<CCommissionRateDetail>();
    for (const char flag : {'1', '2', '3'}) {
        auto margin = boost::make_shared<CMarginRateDetail>();
        margin->hedgeFlag = flag;
        margin->longMarginRatio = marginRatio;
        margin->shortMarginRatio = marginRatio;
        fee->marginDetails.push_back(margin);
    }
    return fee;
}

}  // namespace

void Model::buildDefaults() {
    stock.fallback = defaultLimit();
    credit.fallback = defaultLimit();
    neeq.fallback = defaultLimit();
    hgt.fallback = defaultConnectLimit<CCustomHGTExchangeRateLimit>();
    sgt.fallback = defaultConnectLimit<CCustomSgtExchangeRateLimit>();
    defaultOptionRate = defaultOptionFeeRate();
    defaultFutureFee = defaultFutures(0);
    defaultIncomeSwapFee = defaultFutures(0.01);
}

}  // namespace model
