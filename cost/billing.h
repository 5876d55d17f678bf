#ifndef COST_BILLING_H
#define COST_BILLING_H

#include <cstddef>

#include "cost/bill.h"

// How a bill is put together: shared by the bills of single trades and of days. It is installed because day.h includes
// it; programs call costOf() and Day.

namespace cost {

/// The fills that a basis is of.
struct Sum {
    Decimal turnover;        ///< in the trades' currency
    Decimal quantity;        ///< shares, contracts or lots
    std::size_t trades = 0;  ///< how many were added

    /// Adds one fill. Throws std::overflow_error where more than 256 bits are needed.
    void add(const Decimal& moreTurnover, const Trade& trade);
};

/// Throws Refused for a trade that the plan cannot charge: an exercise without a price where turnover is charged.
void refuseMissingPrice(const Plan& plan, const Trade& trade);

/// The bill without items: turnover, currency and margin.
Bill emptyBill(const Trade& trade, const Decimal& turnover, const Tariff& tariff, const Plan& plan);
/// What one charge of a plan comes to for the fills of `sum`.
BillItem itemOf(const ChargeLine& line, const Sum& sum);
/// Adds up costs and net when the items are there.
void total(Bill& bill, Side side);

/// What `calculate` gives; throws Refused instead of an overflow.
template <class Calculate>
auto withinBounds(const Calculate& calculate) {
    try {
        return calculate();
    } catch (const std::overflow_error&) {
        throw Refused("the numbers of the trade are too large to calculate with");
    }
}

}  // namespace cost

#endif  // COST_BILLING_H
