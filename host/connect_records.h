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
///
/// The fee center stores the rates and hands them out; it never calculates with them. What each is charged for is the
/// host's to say. The bundled market has fractions of turnover here: 0.0013 is 1.3 yuan for 1,000 yuan. Where no other
/// level answers, rate3 and rate4 are 0.0013 and the others 0. All fourteen are part of the content key, cut off
/// behind the eighth decimal: records that differ further behind are stored as one.
template <class Record>
class HOST_EXPORT ConnectExchangeRateLimit : public RecordOf<Record> {
public:
    std::string category;           ///< category number as decimal text; not used by a limit that comes with a fee
    double rate1 = 0;               ///< the host's first charge; in the bundled market the commission
    double rate2 = 0;               ///< the host's second charge; in the bundled market the trading fee
    double rate3 = 0;               ///< the host's third charge; in the bundled market the stamp duty of a purchase
    double rate4 = 0;               ///< the host's fourth charge; in the bundled market the stamp duty of a sale
    double rate5 = 0;               ///< the host's fifth charge; in the bundled market the SFC levy
    double rate6 = 0;               ///< the host's sixth charge; in the bundled market the AFRC levy
    double rate7 = 0;               ///< the host's seventh charge; in the bundled market the settlement fee
    double rate8 = 0;               ///< the host's eighth charge; the bundled market has none
    double rate9 = 0;               ///< the host's ninth charge; the bundled market has none
    double rate10 = 0;              ///< the host's tenth charge; the bundled market has none
    double rate11 = 0;              ///< the host's eleventh charge; the bundled market has none
    double rate12 = 0;              ///< the host's twelfth charge; the bundled market has none
    double rate13 = 0;              ///< the host's thirteenth charge; the bundled market has none
    double rate14 = 0;              ///< the host's fourteenth charge; the bundled market has none
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
