#ifndef HOST_CUSTOM_RECORDS_H
#define HOST_CUSTOM_RECORDS_H

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "host/category_records.h"
#include "host/connect_records.h"
#include "host/data.h"
#include "host/host_export.h"

namespace qmservice {

/// Custom rates of one category for stock, credit, NEEQ and stock-option accounts.
class HOST_EXPORT CCustomStkExchangeRateLimit : public RecordOf<CCustomStkExchangeRateLimit> {
public:
    CCustomStkExchangeRateLimit() = default;
    CCustomStkExchangeRateLimit(const CCustomStkExchangeRateLimit&) = default;
    CCustomStkExchangeRateLimit& operator=(const CCustomStkExchangeRateLimit&) = default;
    ~CCustomStkExchangeRateLimit() override;

    std::string category;  ///< category number as decimal text
    /// @{
    /// A plain number, as its family charges it; what each is charged for is the host's to say.
    double rate1 = 0;
    double unusedRate1 = 0;  ///< not read by the fee center
    double rate2 = 0;
    double rate3 = 0;
    double rate4 = 0;
    double rate5 = 0;
    double rate6 = 0;
    double unusedRate2 = 0;  ///< not read by the fee center
    double optionFee1 = 0;
    double optionFee2 = 0;
    double optionFee3 = 0;
    double optionFee4 = 0;
    double optionFee5 = 0;
    /// @}
    std::int32_t optionSecondKeyCode = 0;  ///< character code of the option item key's second character
    std::int32_t optionThirdKeyCode = 0;   ///< character code of the option item key's third character
    std::int32_t optionFirstKeyCode = 0;   ///< character code of the option item key's first character
    /// Members of the custom categories by number, each list as joined instrument keys. The job of a custom fee inserts
    /// an empty list under a number that it asks for and does not find, on the strand's thread: leave the record alone
    /// from updateCustomFee on until the job has run.
    std::map<int, std::vector<std::string>> customCategories;
    /// What the group category is made of; empty for other categories.
    std::vector<boost::shared_ptr<CGroupCategorySubInfo>> groupCategories;
};

/// Custom futures commission of one category.
class HOST_EXPORT CCustomCommissionRateDetail : public RecordOf<CCustomCommissionRateDetail> {
public:
    CCustomCommissionRateDetail() = default;
    CCustomCommissionRateDetail(const CCustomCommissionRateDetail&) = default;
    CCustomCommissionRateDetail& operator=(const CCustomCommissionRateDetail&) = default;
    ~CCustomCommissionRateDetail() override;

    std::string categoryId;              ///< category number as decimal text
    double openRatioByMoney = 0;         ///< fee for opening, fraction of turnover
    double openRatioByVolume = 0;        ///< fee for opening, yuan per lot
    double closeRatioByMoney = 0;        ///< fee for closing, fraction of turnover
    double closeRatioByVolume = 0;       ///< fee for closing, yuan per lot
    double closeTodayRatioByMoney = 0;   ///< fee for closing on the same day, fraction of turnover
    double closeTodayRatioByVolume = 0;  ///< fee for closing on the same day, yuan per lot
    double commissionExtra1 = 0;         ///< a number: stored, answered, part of the content key; not interpreted
    double commissionExtra2 = 0;         ///< a number: stored, answered, part of the content key; not interpreted
    /// Members of the custom categories by number, each list as joined instrument keys. The job of a custom fee inserts
    /// an empty list under a number that it asks for and does not find, on the strand's thread: leave the record alone
    /// from updateCustomFee on until the job has run.
    std::map<int, std::vector<std::string>> customCategories;
    /// What the group category is made of; empty for other categories.
    std::vector<boost::shared_ptr<CGroupCategorySubInfo>> groupCategories;
};

/// Custom futures margin of one category and hedge flag.
class HOST_EXPORT CCustomMarginRateDetail : public RecordOf<CCustomMarginRateDetail> {
public:
    CCustomMarginRateDetail() = default;
    CCustomMarginRateDetail(const CCustomMarginRateDetail&) = default;
    CCustomMarginRateDetail& operator=(const CCustomMarginRateDetail&) = default;
    ~CCustomMarginRateDetail() override;

    std::string categoryId;               ///< category number as decimal text
    std::int32_t hedgeFlag = 0;           ///< a HedgeFlag
    double longMarginRatio = 0;           ///< long margin, fraction of value
    double longMarginRatioByVolume = 0;   ///< long margin, yuan per lot
    double shortMarginRatio = 0;          ///< short margin, fraction of value
    double shortMarginRatioByVolume = 0;  ///< short margin, yuan per lot
    std::int32_t marginMode = 0;          ///< part of the content key of what is stored, not interpreted; stored as 0
    double marginExtra1 = 0;              ///< a number: stored, answered, part of the content key; not interpreted
    double marginExtra2 = 0;              ///< a number: stored, answered, part of the content key; not interpreted
    /// Members of the custom categories by number, each list as joined instrument keys. The job of a custom fee inserts
    /// an empty list under a number that it asks for and does not find, on the strand's thread: leave the record alone
    /// from updateCustomFee on until the job has run.
    std::map<int, std::vector<std::string>> customCategories;
    /// What the group category is made of; empty for other categories.
    std::vector<boost::shared_ptr<CGroupCategorySubInfo>> groupCategories;
};

/// Custom limits of a stock, credit, NEEQ or stock-option account, in priority order.
class HOST_EXPORT CCustomStockInstrumentFee : public RecordOf<CCustomStockInstrumentFee> {
public:
    CCustomStockInstrumentFee() = default;
    CCustomStockInstrumentFee(const CCustomStockInstrumentFee&) = default;
    CCustomStockInstrumentFee& operator=(const CCustomStockInstrumentFee&) = default;
    ~CCustomStockInstrumentFee() override;

    std::vector<boost::shared_ptr<CCustomStkExchangeRateLimit>>
        rateLimits;  ///< the first that matches an instrument wins; empty ones are passed over
};

/// Custom limits of a Shanghai-Hong Kong connect account, in priority order.
class HOST_EXPORT CCustomHGTInstrumentFee : public RecordOf<CCustomHGTInstrumentFee> {
public:
    CCustomHGTInstrumentFee() = default;
    CCustomHGTInstrumentFee(const CCustomHGTInstrumentFee&) = default;
    CCustomHGTInstrumentFee& operator=(const CCustomHGTInstrumentFee&) = default;
    ~CCustomHGTInstrumentFee() override;

    std::vector<boost::shared_ptr<CCustomHGTExchangeRateLimit>>
        rateLimits;  ///< the first that matches an instrument wins; empty ones are passed over
};

/// Custom limits of a Shenzhen-Hong Kong connect account, in priority order.
class HOST_EXPORT CCustomSgtInstrumentFee : public RecordOf<CCustomSgtInstrumentFee> {
public:
    CCustomSgtInstrumentFee() = default;
    CCustomSgtInstrumentFee(const CCustomSgtInstrumentFee&) = default;
    CCustomSgtInstrumentFee& operator=(const CCustomSgtInstrumentFee&) = default;
    ~CCustomSgtInstrumentFee() override;

    std::vector<boost::shared_ptr<CCustomSgtExchangeRateLimit>>
        rateLimits;  ///< the first that matches an instrument wins; empty ones are passed over
};

/// Custom rates of a futures account; both lists in priority order, the first matching entry wins.
class HOST_EXPORT CCustomFutureInstrumentFee : public RecordOf<CCustomFutureInstrumentFee> {
public:
    CCustomFutureInstrumentFee() = default;
    CCustomFutureInstrumentFee(const CCustomFutureInstrumentFee&) = default;
    CCustomFutureInstrumentFee& operator=(const CCustomFutureInstrumentFee&) = default;
    ~CCustomFutureInstrumentFee() override;

    std::vector<boost::shared_ptr<CCustomCommissionRateDetail>> commissionDetails;  ///< commissions by category
    std::vector<boost::shared_ptr<CCustomMarginRateDetail>> marginDetails;  ///< margins by category and hedge flag
};

}  // namespace qmservice

#endif  // HOST_CUSTOM_RECORDS_H
