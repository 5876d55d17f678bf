#ifndef TESTS_COST_SUPPORT_TARIFFS_H
#define TESTS_COST_SUPPORT_TARIFFS_H

#include <string>
#include <vector>

#include "cost/support/builders.h"

// Tariffs that several tests charge by, all of 2024-01-02.

namespace cost_test {

cost::Tariff tariff(const std::vector<cost::Term>& terms, cost::Rates rates, const cost::Place& place = moutai(),
                    cost::Contract contract = {});

cost::Contract contractOf(const std::string& multiplier);

/// A stock's charge "levy" at a rate of its own.
cost::Term levy(const std::string& rate, const std::string& how, const std::string& minimum = "",
                const std::string& maximum = "");

/// A commission of 0.00025 and at least 5 per order, with the handling fee of 0.0000341 inside it, and stamp duty of
/// 0.0005 on sales; all to the fen.
cost::Tariff allIn();
/// That in lots.
cost::Tariff allInLots(const std::string& minimum, const std::string& increment);

/// Steel: 0.0001 of the value and 0.01 a lot to open, 0.0002 of the value to close, 3 a lot to close today; margin of
/// hedge flag 1 of 0.07 + 1 a lot (long) and 0.08 + 2 a lot (short).
cost::Tariff futures(cost::Contract contract = contractOf("10"));

/// An option: 1.3 a contract but when it is sold to open, 0.6 a contract to exercise it.
cost::Tariff options(cost::Contract contract = contractOf("10000"));

}  // namespace cost_test

#endif  // TESTS_COST_SUPPORT_TARIFFS_H
