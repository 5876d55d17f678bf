#ifndef HOST_STOCK_RECORDS_H
#define HOST_STOCK_RECORDS_H

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <map>
#include <string>

#include "host/data.h"
#include "host/host_export.h"

namespace qmservice {

/// Rates of one instrument for stock, credit and NEEQ accounts.
///
/// The fee center stores the rates and hands them out; it never calculates with them. What each is charged for is the
/// host's to say; the bundled market has fractions of turnover here. Where no other level answers, rate1 is 0.00015,
/// rate6 0.001 and the others 0.
class HOST_EXPORT CStkExchangeRateLimit : public RecordOf<CStkExchangeRateLimit> {
public:
    CStkExchangeRateLimit() = default;
    CStkExchangeRateLimit(const CStkExchangeRateLimit&) = default;
    CStkExchangeRateLimit& operator=(const CStkExchangeRateLimit&) = default;
    ~CStkExchangeRateLimit() override;

    double rate1 = 0;             ///< the host's first charge; in the bundled market the commission
    double rate2 = 0;             ///< the host's second charge; in the bundled market the transfer fee
    double rate3 = 0;             ///< the host's third charge; in the bundled market the handling fee
    double rate4 = 0;             ///< the host's fourth charge; in the bundled market the regulatory fee
    double rate5 = 0;             ///< the host's fifth charge; in the bundled market the settlement fee
    double rate6 = 0;             ///< the host's sixth charge; in the bundled market the stamp duty of a sale
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
