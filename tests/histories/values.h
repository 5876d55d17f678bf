#ifndef TESTS_HISTORIES_VALUES_H
#define TESTS_HISTORIES_VALUES_H

#include <array>
#include <type_traits>
#include <vector>

#include "histories/bytes.h"
#include "host/record_fields.h"

namespace histories {

/// Sets some of the rates, or all, or none: values near each other, so that records are often equal where the fee
/// center looks, and values at the ends of what a rate can be.
void chooseValues(Bytes& bytes, const std::vector<double*>& rates);

/// The same for every double of the record.
template <class Record>
void chooseRates(Bytes& bytes, Record& record) {
    std::vector<double*> rates;
    qmservice::records::forEachField<Record>([&](const auto& field) {
        if constexpr (std::is_same_v<std::decay_t<decltype(record.*field.member)>, double>) {
            rates.push_back(&(record.*field.member));
        }
    });
    chooseValues(bytes, rates);
}

/// Flags that have a slot, and some that have none; all rates; the margin mode.
template <class Margin>
void chooseMarginValues(Bytes& bytes, Margin& margin) {
    constexpr std::array<int, 12> kHedgeFlags{'1', '2', '3', '1', '2', '3', '1', '3', '0', '4', '/', 0};
    constexpr std::array<int, 6> kMarginModes{0, 0, 0, 1, 2, -1};
    margin.hedgeFlag = bytes.of(kHedgeFlags);
    chooseRates(bytes, margin);
    margin.marginMode = bytes.of(kMarginModes);
}

}  // namespace histories

#endif  // TESTS_HISTORIES_VALUES_H
