#ifndef FEEDESK_RECONCILING_COMPARISON_H
#define FEEDESK_RECONCILING_COMPARISON_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "feedesk/reconciling/amounts.h"
#include "feedesk/statements/layout.h"

namespace feedesk {

/// What a statement says of an order.
struct StatedAmounts {
    std::optional<cost::Decimal> net;
    std::vector<std::optional<cost::Decimal>> charges;  ///< as Layout::charges

    /// What was paid by the net, or, where the statement has none, by the columns of what is paid.
    [[nodiscard]] cost::Decimal costs(const Layout& layout, const Amounts& traded) const;
};

/// One figure of the statement and what the folder has for it.
struct Figure {
    std::string name;  ///< of a charge column, or "net" or "costs"
    cost::Decimal stated;
    Span expected;

    [[nodiscard]] bool agrees() const { return expected.contains(stated); }
};

/// Sums first, then the columns of charges.
using Figures = std::vector<Figure>;

/// Every figure that the statement has. What a commission contains may stand in its column or in columns of its own,
/// and what a broker calls a commission may contain fees that the folder charges besides it: of these ways to lay out
/// the same costs the one is taken in which most figures agree.
Figures figuresOf(const StatedAmounts& stated, const Amounts& expected, const Layout& layout);

/// How many of the figures do not agree.
std::size_t disagreeing(const Figures& figures);

bool agree(const Figures& figures);

/// Whether all figuresOf() these agree. Quicker where they do not, as sums are looked at first.
bool agree(const StatedAmounts& stated, const Amounts& expected, const Layout& layout);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_COMPARISON_H
