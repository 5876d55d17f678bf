#ifndef HOST_CONNECT_RECORDS_H
#define HOST_CONNECT_RECORDS_H

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "host/category_records.h"
#include "host/data.h"
#include "host/host_export.h"

namespace qmservice {

/// Rates of one instrument for a Hong Kong connect channel, with the category that a custom limit applies to.
/// The two channels' records hold the same fields; they are different classes.
template <class Record>
class HOST_EXPORT ConnectExchangeRateLimit : public RecordOf<Record> {
public:
    std::string category;  ///< category number as decimal text; not used by a limit that comes with a fee
    double rate1 = 0;
    double rate2 = 0;
    double rate3 = 0;
    double rate4 = 0;
    double rate5 = 0;
    double rate6 = 0;
    double rate7 = 0;
    double rate8 = 0;
    double rate9 = 0;
    double rate10 = 0;
    double rate11 = 0;
    double rate12 = 0;
    double rate13 = 0;
    double rate14 = 0;
    std::int32_t tradeMinUnit = 0;  ///< minimum trade unit, in shares
    /// Members of the custom categories by number, each list as joined instrument keys. The job of a custom fee inserts
    /// an empty list under a number that it asks for and does not find, on the strand's thread: leave the record alone
    /// from updateCustomFee on until the job has run (Shenzhen connect asks for none). A limit that an answer carries,
    /// or that the configuration gives out, is handed in as a copy.
    std::map<int, std::vector<std::string>> customCategories;
    /// What the group category is made of; empty for other categories.
    std::vector<boost::shared_ptr<CGroupCategorySubInfo>> groupCategories;

protected:
    ConnectExchangeRateLimit() = default;
    ConnectExchangeRateLimit(const ConnectExchangeRateLimit&) = default;
    ConnectExchangeRateLimit& operator=(const ConnectExchangeRateLimit&) = default;
    ~ConnectExchangeRateLimit() override = default;
};

/// Rates of the Shanghai-Hong Kong channel.
class HOST_EXPORT CCustomHGTExchangeRateLimit : public ConnectExchangeRateLimit<CCustomHGTExchangeRateLimit> {
public:
    CCustomHGTExchangeRateLimit() = default;
    CCustomHGTExchangeRateLimit(const CCustomHGTExchangeRateLimit&) = default;
    CCustomHGTExchangeRateLimit& operator=(const CCustomHGTExchangeRateLimit&) = default;
    ~CCustomHGTExchangeRateLimit() override;
};

/// Rates of the Shenzhen-Hong Kong channel.
class HOST_EXPORT CCustomSgtExchangeRateLimit : public ConnectExchangeRateLimit<CCustomSgtExchangeRateLimit> {
public:
    CCustomSgtExchangeRateLimit() = default;
    CCustomSgtExchangeRateLimit(const CCustomSgtExchangeRateLimit&) = default;
    CCustomSgtExchangeRateLimit& operator=(const CCustomSgtExchangeRateLimit&) = default;
    ~CCustomSgtExchangeRateLimit() override;
};

}  // namespace qmservice

#endif  // HOST_CONNECT_RECORDS_H
