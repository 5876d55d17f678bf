#include "fuzz/rate_text.h"

#include <cmath>
#include <initializer_list>

namespace fuzz {
namespace {

std::string text(double rate) {
    const double units = std::trunc(rate * 1e8);
    if (!(units >= -0x1p63 && units < 0x1p63)) {
        return "-9223372036854775808";
    }
    return std::to_string(std::llrint(units));
}

std::string text(std::initializer_list<double> rates, int tradeUnit) {
    std::string all;
    for (const double rate : rates) {
        all += text(rate);
    }
    return all + std::to_string(tradeUnit);
}

template <class Limit>
std::string connectText(const Limit& limit, int tradeUnit) {
    return text({limit.rate1, limit.rate2, limit.rate3, limit.rate4, limit.rate5, limit.rate6, limit.rate7, limit.rate8,
                 limit.rate9, limit.rate10, limit.rate11, limit.rate12, limit.rate13, limit.rate14},
                tradeUnit);
}

}  // namespace

std::string rateText(const qmservice::CStkExchangeRateLimit& limit, int tradeUnit) {
    return text({limit.rate1, limit.rate2, limit.rate3, limit.rate4, limit.rate5, limit.rate6}, tradeUnit);
}

std::string rateText(const qmservice::CCustomHGTExchangeRateLimit& limit, int tradeUnit) {
    return connectText(limit, tradeUnit);
}

std::string rateText(const qmservice::CCustomSgtExchangeRateLimit& limit, int tradeUnit) {
    return connectText(limit, tradeUnit);
}

}  // namespace fuzz
