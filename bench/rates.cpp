#include "bench/rates.h"

#include "host/record_fields.h"

namespace bench {
namespace {

using namespace qmservice;

/// The values of a list of fields, in its order.
template <class Record, class Fields, std::size_t size>
void readFields(const Record& record, const Fields& fields, std::array<double, size>& values) {
    std::size_t n = 0;
    records::forEachOf(fields, [&](const auto& field) { values.at(n++) = record.*field.member; });
}

template <std::size_t size>
void count(double first, std::array<double, size>& values) {
    for (std::size_t n = 0; n < size; ++n) {
        values.at(n) = nthRate(first, n);
    }
}

template <class Limit>
bool readConnect(const boost::shared_ptr<Limit>& limit, ConnectRates& rates) {
    if (!limit) {
        return false;
    }
    readFields(*limit, records::connectRates<Limit>, rates.rates);
    rates.unit = limit->tradeMinUnit;
    return true;
}

}  // namespace

bool operator==(const StockRates& one, const StockRates& other) {
    return one.rates == other.rates && one.unit == other.unit;
}
bool operator==(const ConnectRates& one, const ConnectRates& other) {
    return one.rates == other.rates && one.unit == other.unit;
}
bool operator==(const FuturesRates& one, const FuturesRates& other) {
    return one.commission == other.commission && one.margins == other.margins;
}
bool operator==(const OptionRates& one, const OptionRates& other) {
    return one.baseRate == other.baseRate && one.items == other.items;
}
bool operator==(const FullRates& one, const FullRates& other) {
    return one.stock == other.stock && one.option == other.option;
}

bool read(const CInstrumentFee& fee, StockRates& rates) {
    if (!fee.stkRateLimit) {
        return false;
    }
    readFields(*fee.stkRateLimit, records::stockRates<CStkExchangeRateLimit>, rates.rates);
    rates.unit = fee.stkRateLimit->unitVolume;
    return true;
}

bool read(const CInstrumentFee& fee, ConnectRates& rates) {
    return fee.hgtRateLimit ? readConnect(fee.hgtRateLimit, rates) : readConnect(fee.sgtRateLimit, rates);
}

bool read(const CInstrumentFee& fee, FuturesRates& rates) {
    if (!fee.commissionDetail || fee.marginDetails.size() != rates.margins.size()) {
        return false;
    }
    readFields(*fee.commissionDetail, records::commissionRates<CCommissionRateDetail>, rates.commission);
    for (std::size_t i = 0; i < rates.margins.size(); ++i) {
        const auto& margin = fee.marginDetails[i];
        if (!margin || margin->hedgeFlag != kHedgeFlags.at(i)) {
            return false;
        }
        readFields(*margin, records::marginRates<CMarginRateDetail>, rates.margins.at(i));
    }
    return true;
}

bool read(const CInstrumentFee& fee, OptionRates& rates) {
    if (!fee.stkOptionFeeRate || fee.stkOptionFeeRate->items.size() != rates.items.size()) {
        return false;
    }
    rates.baseRate = fee.stkOptionFeeRate->baseRate;
    std::size_t i = 0;
    for (const auto& item : fee.stkOptionFeeRate->items) {
        if (!item.second) {
            return false;
        }
        readFields(*item.second, records::optionFees<CStockOptionFeeItem>, rates.items.at(i++));
    }
    return true;
}

bool read(const CInstrumentFee& fee, FullRates& rates) { return read(fee, rates.stock) && read(fee, rates.option); }

StockRates stockRates(double first) {
    StockRates rates;
    count(first, rates.rates);
    rates.unit = kUnit;
    return rates;
}

ConnectRates connectRates(double first) {
    ConnectRates rates;
    count(first, rates.rates);
    rates.unit = kUnit;
    return rates;
}

FuturesRates futuresRates(double first) {
    FuturesRates rates;
    count(first, rates.commission);
    for (std::size_t i = 0; i < rates.margins.size(); ++i) {
        count(first + 0.1 * static_cast<double>(i + 1), rates.margins.at(i));
    }
    return rates;
}

OptionRates optionRates(double first) {
    OptionRates rates;
    for (std::size_t i = 0; i < rates.items.size(); ++i) {
        count(first + 0.1 * static_cast<double>(i), rates.items.at(i));
    }
    return rates;
}

StockRates defaultStockRates() { return {{0.00015, 0, 0, 0, 0, 0.001}, 100}; }

ConnectRates defaultConnectRates() { return {{0, 0, 0.0013, 0.0013, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, 0}; }

OptionRates defaultOptionRates() {
    constexpr std::array<double, 5> kNone{0, 0, 0, 0, 0};
    constexpr std::array<double, 5> kFirst{1.3, 0.3, 0, 0, 0};
    constexpr std::array<double, 5> kSecond{3.0, 0.45, 0, 0, 0};
    // Under "000", "001", "010", "011", "0D", "100", "101", "110", "111", "1D".
    return {0.2,
            {kFirst, kNone, kFirst, kFirst, {0, 0, 0.6, 0, 0}, kSecond, kNone, kSecond, kSecond, {0, 0, 0.9, 0, 0}}};
}

}  // namespace bench
