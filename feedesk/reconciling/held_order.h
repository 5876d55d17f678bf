#ifndef FEEDESK_RECONCILING_HELD_ORDER_H
#define FEEDESK_RECONCILING_HELD_ORDER_H

#include <optional>

#include "feedesk/reconciling/reconciliation.h"

namespace feedesk {

/// Whether the folder's own rates explain the order.
bool isByFolder(const ReconciledOrder& charged);

/// One order with what the folder charges for it, held against other rates of one charge that it pays.
class HeldOrder {
public:
    /// All three must outlive it.
    HeldOrder(const ReconciledOrder& heldOrder, const SoughtRate& soughtRate, const Layout& statementLayout);

    /// The rates that fit; nothing when none does.
    [[nodiscard]] std::optional<RateRange> range() const;
    /// Those of the range that fit, which may be none; nothing when no rate at all does.
    [[nodiscard]] std::optional<RateRange> rangeIn(const RateRange& wide) const;
    [[nodiscard]] bool fitsRate(const cost::Decimal& rate) const;
    /// Whether the order would cost something else with this rate.
    [[nodiscard]] bool feels(const cost::Decimal& rate) const;
    /// Whether more figures differ with this rate than with the folder's.
    [[nodiscard]] bool isWorseWith(const cost::Decimal& rate) const;

    /// One of the rates that fit in place of the folder's, without how far it reaches.
    [[nodiscard]] SolvedRate solved(const RateRange& fitting) const;

private:
    [[nodiscard]] Disputed disputed() const { return {charged.order, amounts}; }

    const ReconciledOrder& charged;
    Amounts amounts;
    const SoughtRate& sought;
    const Layout& layout;
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_HELD_ORDER_H
