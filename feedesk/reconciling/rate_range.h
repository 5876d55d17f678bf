#ifndef FEEDESK_RECONCILING_RATE_RANGE_H
#define FEEDESK_RECONCILING_RATE_RANGE_H

#include <optional>
#include <string>

#include "feedesk/reconciling/hypotheses.h"

namespace feedesk {

/// Rates from one to another, both included, to twelve decimals.
struct RateRange {
    cost::Decimal low;
    cost::Decimal high;

    [[nodiscard]] bool isEmpty() const { return high < low; }
    [[nodiscard]] bool contains(const cost::Decimal& rate) const { return low <= rate && rate <= high; }
    /// Whether every lower rate fits too, as where the charge's minimum is charged.
    [[nodiscard]] bool isOpenBelow() const;
    /// The rate above 0 with the fewest decimals; of several the lowest.
    [[nodiscard]] cost::Decimal simplest() const;
    /// "0.00022", "from 0.000219 to 0.000221" or "up to 0.000148".
    [[nodiscard]] std::string text() const;

    friend RateRange operator&(const RateRange& one, const RateRange& other);
};

/// One charge of orders, whose rate is looked for.
struct SoughtRate {
    std::string charge;
    std::string item;  ///< options: key of the fee item

    [[nodiscard]] bool isOf(const Part& part) const { return part.charge == charge && part.item == item; }
};

/// The rates above 0 with which every figure of the statement agrees while everything else stays; nothing when there is
/// none.
std::optional<RateRange> ratesThatFit(const Disputed& disputed, const SoughtRate& sought, const Layout& layout);

/// What the statement says of the order, against what it would be charged with this rate; nothing where that is
/// refused.
std::optional<Figures> figuresWith(const cost::Decimal& rate, const Disputed& disputed, const SoughtRate& sought,
                                   const Layout& layout);

/// Whether every figure of the statement agrees with this rate.
bool fits(const cost::Decimal& rate, const Disputed& disputed, const SoughtRate& sought, const Layout& layout);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_RATE_RANGE_H
