#ifndef TESTS_FEECENTER_FILLED_RATE_HOST_STOCK_RECORDS_H
#define TESTS_FEECENTER_FILLED_RATE_HOST_STOCK_RECORDS_H

// The boundary's header for a host whose new stock-option rate is not empty. It comes before the boundary's own in the
// search path; all else is as there.

#define CStockOptionFeeRate PlainStockOptionFeeRate
#include "../../../../host/stock_records.h"
#undef CStockOptionFeeRate

namespace qmservice {

class CStockOptionFeeRate : public RecordOf<CStockOptionFeeRate> {
public:
    /// With a base rate of 0.4 and the items "000" and "zz", whose fee1 is 7 and 8.
    CStockOptionFeeRate();
    CStockOptionFeeRate(const CStockOptionFeeRate&) = default;
    CStockOptionFeeRate& operator=(const CStockOptionFeeRate&) = default;
    ~CStockOptionFeeRate() override;

    double baseRate = 0.4;
    std::map<std::string, boost::shared_ptr<CStockOptionFeeItem>> items;
};

}  // namespace qmservice

#endif  // TESTS_FEECENTER_FILLED_RATE_HOST_STOCK_RECORDS_H
