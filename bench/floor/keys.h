#ifndef BENCH_FLOOR_KEYS_H
#define BENCH_FLOOR_KEYS_H

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>

#include "bench/floor/tables.h"
#include "host/record_fields.h"

// The content keys: a chain of crc64 over the decimal text of each value. No rate of a mix is too large for it.

namespace bench::floor {

inline uint64 fold(uint64 key, std::int64_t value) {
    std::array<char, 20> text;
    const char* end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return qmservice::crc64(key, text.data(), static_cast<std::size_t>(end - text.data()));
}

inline uint64 fold(uint64 key, double rate) { return fold(key, static_cast<std::int64_t>(rate * 1e8)); }

template <class Record, class Rates>
uint64 foldAll(uint64 key, const Record& record, const Rates& rates) {
    qmservice::records::forEachOf(rates,
                                  [&](const auto& rate) { key = fold(key, static_cast<double>(record.*rate.member)); });
    return key;
}

inline uint64 limitKey(const qmservice::CStkExchangeRateLimit& limit, int unit) {
    return fold(foldAll(0, limit, qmservice::records::stockRates<qmservice::CStkExchangeRateLimit>),
                std::int64_t{unit});
}

inline uint64 limitKey(const qmservice::CCustomStkExchangeRateLimit& limit, int unit) {
    using Limit = qmservice::CCustomStkExchangeRateLimit;
    uint64 key = foldAll(0, limit, qmservice::records::stockRates<Limit>);
    key = foldAll(key, limit, qmservice::records::optionFees<Limit>);
    return fold(foldAll(key, limit, qmservice::records::optionKeyCodes<Limit>), std::int64_t{unit});
}

template <class Limit>
uint64 limitKey(const Limit& limit, int unit) {
    return fold(foldAll(0, limit, qmservice::records::connectRates<Limit>), std::int64_t{unit});
}

template <class Detail>
uint64 commissionKey(const Detail& detail) {
    return foldAll(fold(0, detail.openRatioByVolume), detail, qmservice::records::commissionRates<Detail>);
}

template <class Detail>
uint64 marginKey(const Detail& detail) {
    return foldAll(fold(fold(0, std::int64_t{detail.hedgeFlag}), std::int64_t{detail.marginMode}), detail,
                   qmservice::records::marginRates<Detail>);
}

}  // namespace bench::floor

#endif  // BENCH_FLOOR_KEYS_H
