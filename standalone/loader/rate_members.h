#ifndef STANDALONE_LOADER_RATE_MEMBERS_H
#define STANDALONE_LOADER_RATE_MEMBERS_H

#include <array>
#include <cstddef>

#include "host/records.h"
#include "standalone/loader/rule_line.h"

// The rate fields of the record classes, in the order of their tables' rates.

namespace standalone::loader {

template <class Record, std::size_t count>
using RateMembers = std::array<double Record::*, count>;

template <class Record>
constexpr RateMembers<Record, 6> kStockRates{&Record::rate1, &Record::rate2, &Record::rate3,
                                             &Record::rate4, &Record::rate5, &Record::rate6};

template <class Record>
constexpr RateMembers<Record, 14> kConnectRates{&Record::rate1,  &Record::rate2,  &Record::rate3,  &Record::rate4,
                                                &Record::rate5,  &Record::rate6,  &Record::rate7,  &Record::rate8,
                                                &Record::rate9,  &Record::rate10, &Record::rate11, &Record::rate12,
                                                &Record::rate13, &Record::rate14};

constexpr RateMembers<qmservice::CCustomStkExchangeRateLimit, 5> kOptionFees{
    &qmservice::CCustomStkExchangeRateLimit::optionFee1, &qmservice::CCustomStkExchangeRateLimit::optionFee2,
    &qmservice::CCustomStkExchangeRateLimit::optionFee3, &qmservice::CCustomStkExchangeRateLimit::optionFee4,
    &qmservice::CCustomStkExchangeRateLimit::optionFee5};

template <class Record>
constexpr RateMembers<Record, 8> kCommissionRates{&Record::openRatioByMoney,       &Record::openRatioByVolume,
                                                  &Record::closeRatioByMoney,      &Record::closeRatioByVolume,
                                                  &Record::closeTodayRatioByMoney, &Record::closeTodayRatioByVolume,
                                                  &Record::commissionExtra1,       &Record::commissionExtra2};

template <class Record>
constexpr RateMembers<Record, 6> kMarginRates{&Record::longMarginRatio,  &Record::longMarginRatioByVolume,
                                              &Record::shortMarginRatio, &Record::shortMarginRatioByVolume,
                                              &Record::marginExtra1,     &Record::marginExtra2};

/// Writes a line's rates into the record.
template <class Record, std::size_t count>
void setRates(Record& record, const RateMembers<Record, count>& members, const RuleLine& line) {
    static_assert(count <= kMostRates);
    for (std::size_t i = 0; i < count; ++i) record.*members[i] = line.rates[i];
}

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_RATE_MEMBERS_H
