#include "model/content_text.h"

#include <cstdint>
#include <initializer_list>
#include <limits>

namespace model {
namespace {

using namespace qmservice;

std::string scaled(double rate) {
    constexpr double kTwoTo63 = 9223372036854775808.0;
    const double product = rate * 100000000.0;
    if (!(product >= -kTwoTo63 && product < kTwoTo63)) {
        return std::to_string(std::numeric_limits<std::int64_t>::min());
    }
    return std::to_string(static_cast<std::int64_t>(product));
}

std::string scaled(std::initializer_list<double> rates) {
    std::string text;
    for (const double rate : rates) {
        text += scaled(rate);
    }
    return text;
}

/// The by-volume opening fee counts twice.
template <class Detail>
std::string commissionText(const Detail& d) {
    return scaled({d.openRatioByVolume, d.openRatioByMoney, d.openRatioByVolume, d.closeRatioByMoney,
                   d.closeRatioByVolume, d.closeTodayRatioByMoney, d.closeTodayRatioByVolume, d.commissionExtra1,
                   d.commissionExtra2});
}

template <class Detail>
std::string marginText(const Detail& d) {
    return std::to_string(d.hedgeFlag) + std::to_string(d.marginMode) +
           scaled({d.longMarginRatio, d.longMarginRatioByVolume, d.shortMarginRatio, d.shortMarginRatioByVolume,
                   d.marginExtra1, d.marginExtra2});
}

template <class Limit>
std::string sixRates(const Limit& l) {
    return scaled({l.rate1, l.rate2, l.rate3, l.rate4, l.rate5, l.rate6});
}

template <class Limit>
std::string connectText(const Limit& l, int tradeUnit) {
    return sixRates(l) + scaled({l.rate7, l.rate8, l.rate9, l.rate10, l.rate11, l.rate12, l.rate13, l.rate14}) +
           std::to_string(tradeUnit);
}

}  // namespace

std::string contentText(const CCommissionRateDetail& detail) { return commissionText(detail); }
std::string contentText(const CCustomCommissionRateDetail& detail) { return commissionText(detail); }
std::string contentText(const CMarginRateDetail& detail) { return marginText(detail); }
std::string contentText(const CCustomMarginRateDetail& detail) { return marginText(detail); }

std::string contentText(const CStkExchangeRateLimit& limit, int tradeUnit) {
    return sixRates(limit) + std::to_string(tradeUnit);
}

std::string contentText(const CCustomStkExchangeRateLimit& limit, int tradeUnit) {
    const double second = limit.optionSecondKeyCode;
    const double third = limit.optionThirdKeyCode;
    const double first = limit.optionFirstKeyCode;
    return sixRates(limit) +
           scaled({limit.optionFee1, limit.optionFee2, limit.optionFee3, limit.optionFee4, limit.optionFee5}) +
           scaled({second, third, first}) + std::to_string(tradeUnit);
}

std::string contentText(const CCustomHGTExchangeRateLimit& limit, int tradeUnit) {
    return connectText(limit, tradeUnit);
}
std::string contentText(const CCustomSgtExchangeRateLimit& limit, int tradeUnit) {
    return connectText(limit, tradeUnit);
}

}  // namespace model
