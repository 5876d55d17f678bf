#ifndef FEECENTER_CONTENT_KEY_H
#define FEECENTER_CONTENT_KEY_H

#include <cstdint>

#include "host/records.h"

namespace qmservice {

/// The key under which a pool keeps a record: a CRC-64 chain over the decimal text of each value.
///
/// Rule "No separator in a content key": the key is that of the joined digits, so 1 then 23 and 12 then 3 share one.
class ContentKey {
public:
    /// Folds in a rate. Rule "Rates are truncated in a content key": scaled by 1e8 and cut off, not rounded, so
    /// 0.00015 folds as 14999. A rate that does not fit then, or is not a number, folds as the smallest 64-bit integer.
    void foldRate(double rate);

    void foldInteger(std::int64_t value);

    [[nodiscard]] uint64 value() const { return key; }

private:
    uint64 key = 0;
};

// The key of each record class. The integer is the trade unit.
uint64 contentKey(const CCommissionRateDetail& detail);
uint64 contentKey(const CCustomCommissionRateDetail& detail);
uint64 contentKey(const CMarginRateDetail& detail);
uint64 contentKey(const CCustomMarginRateDetail& detail);
uint64 contentKey(const CStkExchangeRateLimit& limit, int tradeUnit);
uint64 contentKey(const CCustomStkExchangeRateLimit& limit, int tradeUnit);
uint64 contentKey(const CCustomHGTExchangeRateLimit& limit, int tradeUnit);
uint64 contentKey(const CCustomSgtExchangeRateLimit& limit, int tradeUnit);

}  // namespace qmservice

#endif  // FEECENTER_CONTENT_KEY_H
