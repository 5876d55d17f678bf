#ifndef HOST_FUTURES_RECORDS_H
#define HOST_FUTURES_RECORDS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "host/data.h"
#include "host/host_export.h"

namespace qmservice {

/// Futures commission of one instrument. A fee is the sum of its by-money and its by-volume part.
class HOST_EXPORT CCommissionRateDetail : public RecordOf<CCommissionRateDetail> {
public:
    CCommissionRateDetail() = default;
    CCommissionRateDetail(const CCommissionRateDetail&) = default;
    CCommissionRateDetail& operator=(const CCommissionRateDetail&) = default;
    ~CCommissionRateDetail() override;

    std::string instrumentId;            ///< code of the instrument that the commission applies to
    double openRatioByMoney = 0;         ///< fee for opening, fraction of turnover
    double openRatioByVolume = 0;        ///< fee for opening, yuan per lot
    double closeRatioByMoney = 0;        ///< fee for closing, fraction of turnover
    double closeRatioByVolume = 0;       ///< fee for closing, yuan per lot
    double closeTodayRatioByMoney = 0;   ///< fee for closing on the same day, fraction of turnover
    double closeTodayRatioByVolume = 0;  ///< fee for closing on the same day, yuan per lot
    double commissionExtra1 = 0;         ///< a number: stored, answered, part of the content key; not interpreted
    double commissionExtra2 = 0;         ///< a number: stored, answered, part of the content key; not interpreted
};

/// What a futures position is held for, as hedgeFlag holds it: a character code.
enum HedgeFlag : std::int32_t { kSpeculation = '1', kArbitrage = '2', kHedging = '3' };

/// Every hedge flag, in the order of the slots that an instrument's margins have for them.
constexpr std::array<HedgeFlag, 3> kHedgeFlags = {kSpeculation, kArbitrage, kHedging};

/// The slot of a hedge flag; empty for a value that is none.
constexpr std::optional<std::size_t> hedgeSlot(std::int32_t hedgeFlag) {
    return hedgeFlag < kSpeculation || hedgeFlag > kHedging
               ? std::nullopt
               : std::optional<std::size_t>(static_cast<std::size_t>(hedgeFlag - kSpeculation));
}

/// Futures margin of one instrument for one hedge flag.
class HOST_EXPORT CMarginRateDetail : public RecordOf<CMarginRateDetail> {
public:
    CMarginRateDetail() = default;
    CMarginRateDetail(const CMarginRateDetail&) = default;
    CMarginRateDetail& operator=(const CMarginRateDetail&) = default;
    ~CMarginRateDetail() override;

    std::int32_t hedgeFlag = 0;           ///< a HedgeFlag
    double longMarginRatio = 0;           ///< long margin, fraction of value
    double longMarginRatioByVolume = 0;   ///< long margin, yuan per lot
    double shortMarginRatio = 0;          ///< short margin, fraction of value
    double shortMarginRatioByVolume = 0;  ///< short margin, yuan per lot
    /// A number that is part of the content key and not interpreted. What updateCustomFee stores anew has 0 here,
    /// whatever came in.
    std::int32_t marginMode = 0;
    double marginExtra1 = 0;  ///< a number: stored, answered, part of the content key; not interpreted
    double marginExtra2 = 0;  ///< a number: stored, answered, part of the content key; not interpreted
};

}  // namespace qmservice

#endif  // HOST_FUTURES_RECORDS_H
