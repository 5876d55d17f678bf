#include "feecenter/content_key.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <limits>

#include "CFeeCenter.h"
#include "host/record_fields.h"
#include "host/services.h"

namespace qmservice {
namespace {

constexpr double kRateScale = 100000000;

std::int64_t scaled(double rate) {
    constexpr double kTwoTo63 = 9223372036854775808.0;
    const double product = rate * kRateScale;
    // Also false for NaN.
    const bool fits = product >= -kTwoTo63 && product < kTwoTo63;
    return fits ? static_cast<std::int64_t>(product) : std::numeric_limits<std::int64_t>::min();
}

/// Folds the rates of a list in its order, which is part of the key.
template <class Record, class Rates>
void foldRates(ContentKey& key, const Record& record, const Rates& rates) {
    records::forEachOf(rates, [&](const auto& rate) { key.foldRate(record.*rate.member); });
}

template <class Detail>
uint64 commissionKey(const Detail& detail) {
    ContentKey key;
    // Rule "openRatioByVolume counts twice": the chain has it before and after openRatioByMoney.
    key.foldRate(detail.openRatioByVolume);
    foldRates(key, detail, records::commissionRates<Detail>);
    return key.value();
}

template <class Detail>
uint64 marginKey(const Detail& detail) {
    ContentKey key;
    key.foldInteger(detail.hedgeFlag);
    key.foldInteger(detail.marginMode);
    foldRates(key, detail, records::marginRates<Detail>);
    return key.value();
}

template <class Limit>
uint64 connectKey(const Limit& limit, int tradeUnit) {
    ContentKey key;
    foldRates(key, limit, records::connectRates<Limit>);
    key.foldInteger(tradeUnit);
    return key.value();
}

}  // namespace

void ContentKey::foldRate(double rate) { foldInteger(scaled(rate)); }

void ContentKey::foldInteger(std::int64_t value) {
    // All digits and a sign. Not set to zeros first: a load makes this text for every value of every record.
    std::array<char, std::numeric_limits<std::int64_t>::digits10 + 2> text;
    const char* end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    key = crc64(key, text.data(), static_cast<std::size_t>(end - text.data()));
}

uint64 contentKey(const CCommissionRateDetail& detail) { return commissionKey(detail); }

uint64 contentKey(const CCustomCommissionRateDetail& detail) { return commissionKey(detail); }

uint64 contentKey(const CMarginRateDetail& detail) { return marginKey(detail); }

uint64 contentKey(const CCustomMarginRateDetail& detail) { return marginKey(detail); }

uint64 contentKey(const CStkExchangeRateLimit& limit, int tradeUnit) {
    ContentKey key;
    foldRates(key, limit, records::stockRates<CStkExchangeRateLimit>);
    key.foldInteger(tradeUnit);
    return key.value();
}

uint64 contentKey(const CCustomStkExchangeRateLimit& limit, int tradeUnit) {
    ContentKey key;
    foldRates(key, limit, records::stockRates<CCustomStkExchangeRateLimit>);
    foldRates(key, limit, records::optionFees<CCustomStkExchangeRateLimit>);
    // Rule "Key characters are scaled like rates": of all integers only these three are, so their texts are those of
    // rates.
    foldRates(key, limit, records::optionKeyCodes<CCustomStkExchangeRateLimit>);
    key.foldInteger(tradeUnit);
    return key.value();
}

uint64 contentKey(const CCustomHGTExchangeRateLimit& limit, int tradeUnit) { return connectKey(limit, tradeUnit); }

uint64 contentKey(const CCustomSgtExchangeRateLimit& limit, int tradeUnit) { return connectKey(limit, tradeUnit); }

uint64 CFeeCenter::getHashKey(const boost::shared_ptr<CCommissionRateDetail>& detail) { return contentKey(*detail); }

uint64 CFeeCenter::getHashKey(const boost::shared_ptr<CCustomCommissionRateDetail>& detail) {
    return contentKey(*detail);
}

uint64 CFeeCenter::getHashKey(const boost::shared_ptr<CMarginRateDetail>& detail) { return contentKey(*detail); }

uint64 CFeeCenter::getHashKey(const boost::shared_ptr<CCustomMarginRateDetail>& detail) { return contentKey(*detail); }

uint64 CFeeCenter::getHashKey(const boost::shared_ptr<CStkExchangeRateLimit>& limit, int n) {
    return contentKey(*limit, n);
}

uint64 CFeeCenter::getHashKey(const boost::shared_ptr<CCustomStkExchangeRateLimit>& limit, int n) {
    return contentKey(*limit, n);
}

uint64 CFeeCenter::getHashKey(const boost::shared_ptr<CCustomHGTExchangeRateLimit>& limit, int n) {
    return contentKey(*limit, n);
}

uint64 CFeeCenter::getHashKey(const boost::shared_ptr<CCustomSgtExchangeRateLimit>& limit, int n) {
    return contentKey(*limit, n);
}

}  // namespace qmservice
