#include "model/content_text.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <initializer_list>

namespace model {
namespace {

using namespace qmservice;

/// For every rate whose hundred-millionths a signed 64-bit integer does not hold.
const std::string kSmallestInteger = "-9223372036854775808";

/// How many whole hundred-millionths a rate has, cut off and not rounded. They are counted in a double: there 0.0013
/// has 130000 of them, although the double of that name is a little less.
std::string hundredMillionths(double rate) {
    const double count = rate * 1e8;
    const double size = std::abs(count);
    if (std::isnan(count) || size >= std::ldexp(1.0, 63)) {
        return kSmallestInteger;
    }
    if (size < 1) {
        return "0";  // of either sign
    }
    // A sign and at most nineteen digits.
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%.0f", std::trunc(count));
    return digits.data();
}

std::string joined(std::initializer_list<double> rates) {
    std::string text;
    for (const double rate : rates) {
        text += hundredMillionths(rate);
    }
    return text;
}

/// The by-volume opening fee counts twice.
template <class Detail>
std::string commissionText(const Detail& d) {
    return joined({d.openRatioByVolume, d.openRatioByMoney, d.openRatioByVolume, d.closeRatioByMoney,
                   d.closeRatioByVolume, d.closeTodayRatioByMoney, d.closeTodayRatioByVolume, d.commissionExtra1,
                   d.commissionExtra2});
}

template <class Detail>
std::string marginText(const Detail& d) {
    return std::to_string(d.hedgeFlag) + std::to_string(d.marginMode) +
           joined({d.longMarginRatio, d.longMarginRatioByVolume, d.shortMarginRatio, d.shortMarginRatioByVolume,
                   d.marginExtra1, d.marginExtra2});
}

template <class Limit>
std::string sixRates(const Limit& l) {
    return joined({l.rate1, l.rate2, l.rate3, l.rate4, l.rate5, l.rate6});
}

template <class Limit>
std::string connectText(const Limit& l, int tradeUnit) {
    return sixRates(l) + joined({l.rate7, l.rate8, l.rate9, l.rate10, l.rate11, l.rate12, l.rate13, l.rate14}) +
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
           joined({limit.optionFee1, limit.optionFee2, limit.optionFee3, limit.optionFee4, limit.optionFee5}) +
           joined({second, third, first}) + std::to_string(tradeUnit);
}

std::string contentText(const CCustomHGTExchangeRateLimit& limit, int tradeUnit) {
    return connectText(limit, tradeUnit);
}
std::string contentText(const CCustomSgtExchangeRateLimit& limit, int tradeUnit) {
    return connectText(limit, tradeUnit);
}

}  // namespace model
