#include "feecenter/content_key.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <initializer_list>
#include <limits>

#include "CFeeCenter.h"
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

void foldRates(ContentKey& key, std::initializer_list<double> rates) {
    for (const double rate : rates) {
        key.foldRate(rate);
    }
}

template <class Detail>
uint64 commissionKey(const Detail& detail) {
    ContentKey key;
    // Rule "openRatioByVolume counts twice": the chain has it before and after openRatioByMoney.
    foldRates(key, {detail.openRatioByVolume, detail.openRatioByMoney, detail.openRatioByVolume,
                    detail.closeRatioByMoney, detail.closeRatioByVolume, detail.closeTodayRatioByMoney,
                    detail.closeTodayRatioByVolume, detail.commissionExtra1, detail.commissionExtra2});
    return key.value();
}

template <class Detail>
uint64 marginKey(const Detail& detail) {
    ContentKey key;
    key.foldInteger(detail.hedgeFlag);
    key.foldInteger(detail.marginMode);
    foldRates(key, {detail.longMarginRatio, detail.longMarginRatioByVolume, detail.shortMarginRatio,
                    detail.shortMarginRatioByVolume, detail.marginExtra1, detail.marginExtra2});
    return key.value();
}

template <class Limit>
uint64 connectKey(const Limit& limit, int tradeUnit) {
    ContentKey key;
    foldRates(key, {limit.rate1, limit.rate2, limit.rate3, limit.rate4, limit.rate5, limit.rate6, limit.rate7,
                    limit.rate8, limit.rate9, limit.rate10, limit.rate11, limit.rate12, limit.rate13, limit.rate14});
    key.foldInteger(tradeUnit);
    return key.value();
}

}  // namespace

void ContentKey::foldRate(double rate) { foldInteger(scaled(rate)); }

void ContentKey::foldInteger(std::int64_t value) {
    std::array<char, std::numeric_limits<std::int64_t>::digits10 + 2> text{};  // all digits and a sign
    const char* end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    key = crc64(key, text.data(), static_cast<std::size_t>(end - text.data()));
}

uint64 contentKey(const CCommissionRateDetail& detail) { return commissionKey(detail); }

uint64 contentKey(const CCustomCommissionRateDetail& detail) { return commissionKey(detail); }

uint64 contentKey(const CMarginRateDetail& detail) { return marginKey(detail); }

uint64 contentKey(const CCustomMarginRateDetail& detail) { return marginKey(detail); }

uint64 contentKey(const CStkExchangeRateLimit& limit, int tradeUnit) {
    ContentKey key;
    foldRates(key, {limit.rate1, limit.rate2, limit.rate3, limit.rate4, limit.rate5, limit.rate6});
    key.foldInteger(tradeUnit);
    return key.value();
}

uint64 contentKey(const CCustomStkExchangeRateLimit& limit, int tradeUnit) {
    ContentKey key;
    foldRates(key, {limit.rate1, limit.rate2, limit.rate3, limit.rate4, limit.rate5, limit.rate6, limit.optionFee1,
                    limit.optionFee2, limit.optionFee3, limit.optionFee4, limit.optionFee5});
    // Rule "Key characters are scaled like rates": of all integers only these three are, so their texts are those of
    // rates.
    for (const std::int32_t code : {limit.optionSecondKeyCode, limit.optionThirdKeyCode, limit.optionFirstKeyCode}) {
        key.foldRate(code);
    }
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
