#ifndef HOST_STOCK_RECORDS_H
#define HOST_STOCK_RECORDS_H

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <map>
#include <string>

#include "host/data.h"
#include "host/host_export.h"

namespace qmservice {

/// Rates of one instrument for stock, credit and NEEQ accounts. What each rate is charged for is the host's to say.
class HOST_EXPORT CStkExchangeRateLimit : public RecordOf<CStkExchangeRateLimit> {
public:
    CStkExchangeRateLimit() = default;
    CStkExchangeRateLimit(const CStkExchangeRateLimit&) = default;
    CStkExchangeRateLimit& operator=(const CStkExchangeRateLimit&) = default;
    ~CStkExchangeRateLimit() override;

    /// @{
    /// A plain number, as its family charges it; what each is charged for is the host's to say.
    double rate1 = 0;
    double rate2 = 0;
    double rate3 = 0;
    double rate4 = 0;
    double rate5 = 0;
    double rate6 = 0;
    /// @}
    std::int32_t unitVolume = 0;  ///< minimum trade unit, in shares
};

/// One fee item of a stock option, filed under the item key that its three characters make.
class HOST_EXPORT CStockOptionFeeItem : public RecordOf<CStockOptionFeeItem> {
public:
    CStockOptionFeeItem() = default;
    CStockOptionFeeItem(const CStockOptionFeeItem&) = default;
    CStockOptionFeeItem& operator=(const CStockOptionFeeItem&) = default;
    ~CStockOptionFeeItem() override;

    /// @{
    /// A plain number, as its family charges it; what each is charged for is the host's to say.
    double fee1 = 0;
    double fee2 = 0;
    double fee3 = 0;
    double fee4 = 0;
    double fee5 = 0;
    /// @}
    std::int32_t secondKeyCode = 0;  ///< character code of the item key's second character
    std::int32_t thirdKeyCode = 0;   ///< character code of the item key's third character
    std::int32_t firstKeyCode = 0;   ///< character code of the item key's first character
};

/// Stock-option rates: a base rate and the fee items by item key, a text of one to three characters.
class HOST_EXPORT CStockOptionFeeRate : public RecordOf<CStockOptionFeeRate> {
public:
    CStockOptionFeeRate() = default;
    CStockOptionFeeRate(const CStockOptionFeeRate&) = default;
    CStockOptionFeeRate& operator=(const CStockOptionFeeRate&) = default;
    ~CStockOptionFeeRate() override;

    double baseRate = 0;                                                  ///< a plain number
    std::map<std::string, boost::shared_ptr<CStockOptionFeeItem>> items;  ///< by item key; an answer has no empty item
};

}  // namespace qmservice

#endif  // HOST_STOCK_RECORDS_H
