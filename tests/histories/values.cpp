#include "histories/values.h"

#include <array>
#include <cstddef>
#include <limits>

namespace histories {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Some differ by less than the fee center looks at, some are at the edge of what it can count: 1.5e-8 counts as 1.
constexpr std::array<double, 32> kRates{0.00015,
                                        0.0013,
                                        0.5,
                                        1,
                                        -0.5,
                                        0.0002,
                                        0.00015 + 1e-10,
                                        0.0013 + 4e-9,
                                        0.0013 - 4e-9,
                                        -0.5 - 3e-9,
                                        0.3,
                                        0.45,
                                        12.34,
                                        123456.78,
                                        -1,
                                        -0.0,
                                        1e-9,
                                        -1e-9,
                                        1.5e-8,
                                        -1.5e-8,
                                        10.5e-8,
                                        1e10,
                                        92233720368.547759,
                                        92233720368.54777,
                                        -92233720368.547759,
                                        -92233720368.54777,
                                        1e300,
                                        -1e300,
                                        kInfinity,
                                        -kInfinity,
                                        std::numeric_limits<double>::quiet_NaN(),
                                        std::numeric_limits<double>::denorm_min()};

/// Two neighbours whose digits join to one text: 1 and 23, 12 and 3.
void joinDigits(Bytes& bytes, const std::vector<double*>& rates) {
    const std::size_t at = bytes.pick(rates.size() - 1);
    const bool early = bytes.oneIn(2);
    *rates[at] = early ? 1.5e-8 : 12.5e-8;
    *rates[at + 1] = early ? 23.5e-8 : 3.5e-8;
}

void numberAll(Bytes& bytes, const std::vector<double*>& rates) {
    double value = 1 + static_cast<double>(bytes.pick(3));
    for (double* rate : rates) {
        *rate = value++;
    }
}

}  // namespace

void chooseValues(Bytes& bytes, const std::vector<double*>& rates) {
    switch (bytes.pick(8)) {
        case 6:
            return numberAll(bytes, rates);
        case 7:
            return joinDigits(bytes, rates);
        default:
            break;
    }
    for (std::size_t chosen = bytes.pick(4); chosen > 0; --chosen) {
        double* rate = rates[bytes.pick(rates.size())];
        *rate = bytes.of(kRates);
    }
}

}  // namespace histories
