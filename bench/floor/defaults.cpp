#include "bench/floor/change.h"
#include "bench/rates.h"
#include "host/record_fields.h"

namespace bench::floor {
namespace {

using namespace qmservice;

void setItems(CStockOptionFeeRate& rate) {
    const OptionRates values = defaultOptionRates();
    rate.baseRate = values.baseRate;
    std::size_t row = 0;
    for (const char* key : {"000", "001", "010", "011", "0D", "100", "101", "110", "111", "1D"}) {
        auto& item = rate.items[key];
        item = boost::make_shared<CStockOptionFeeItem>();
        std::size_t n = 0;
        records::forEachOf(records::optionFees<CStockOptionFeeItem>,
                           [&](const auto& fee) { (*item).*fee.member = values.items.at(row).at(n++); });
        ++row;
    }
}

}  // namespace

void setDefaults(Tables& tables) {
    for (auto* limits : {&tables.stock, &tables.credit, &tables.neeq}) {
        limits->byDefault->rate1 = 0.00015;
        limits->byDefault->rate6 = 0.001;
        limits->byDefault->unitVolume = 100;
    }
    tables.hgt.byDefault->rate3 = tables.hgt.byDefault->rate4 = 0.0013;
    tables.sgt.byDefault->rate3 = tables.sgt.byDefault->rate4 = 0.0013;
    tables.futures.byDefault->commissionDetail = boost::make_shared<CCommissionRateDetail>();
    for (const HedgeFlag flag : kHedgeFlags) {
        tables.futures.byDefault->marginDetails.push_back(boost::make_shared<CMarginRateDetail>());
        tables.futures.byDefault->marginDetails.back()->hedgeFlag = flag;
    }
    setItems(*tables.option.byDefault);
}

}  // namespace bench::floor
