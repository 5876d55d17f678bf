#ifndef BENCH_RATES_H
#define BENCH_RATES_H

#include <array>
#include <cstddef>

#include "host/records.h"

// What an answer says, as plain values: what the answers of every implementation are compared by, and what the plain
// alternatives store.

namespace bench {

struct StockRates {
    std::array<double, 6> rates{};
    int unit = 0;
};

struct ConnectRates {
    std::array<double, 14> rates{};
    int unit = 0;
};

struct FuturesRates {
    std::array<double, 8> commission{};
    std::array<std::array<double, 6>, 3> margins{};
};

struct OptionRates {
    double baseRate = 0;
    std::array<std::array<double, 5>, 10> items{};  ///< in the order of their keys
};

/// A prime-brokerage answer for a stock.
struct FullRates {
    StockRates stock;
    OptionRates option;
};

bool operator==(const StockRates& one, const StockRates& other);
bool operator==(const ConnectRates& one, const ConnectRates& other);
bool operator==(const FuturesRates& one, const FuturesRates& other);
bool operator==(const OptionRates& one, const OptionRates& other);
bool operator==(const FullRates& one, const FullRates& other);

/// Reads an answer; false where it is not whole. Of the two connect channels the one that it carries.
bool read(const qmservice::CInstrumentFee& fee, StockRates& rates);
bool read(const qmservice::CInstrumentFee& fee, ConnectRates& rates);
bool read(const qmservice::CInstrumentFee& fee, FuturesRates& rates);
bool read(const qmservice::CInstrumentFee& fee, OptionRates& rates);
bool read(const qmservice::CInstrumentFee& fee, FullRates& rates);

/// The n-th value of a record whose first is `first`: no two values of a record are the same.
constexpr double nthRate(double first, std::size_t n) { return first + 1e-5 * static_cast<double>(n); }

/// All values of an answer whose first is `first`.
StockRates stockRates(double first);
ConnectRates connectRates(double first);
FuturesRates futuresRates(double first);
OptionRates optionRates(double first);

/// What the fee center answers where nobody has set anything, by its documentation.
StockRates defaultStockRates();
ConnectRates defaultConnectRates();
OptionRates defaultOptionRates();

constexpr int kUnit = 100;  ///< the trade unit of every instrument

}  // namespace bench

#endif  // BENCH_RATES_H
