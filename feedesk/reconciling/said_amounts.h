#ifndef FEEDESK_RECONCILING_SAID_AMOUNTS_H
#define FEEDESK_RECONCILING_SAID_AMOUNTS_H

#include <vector>

#include "feedesk/reconciling/charged_lines.h"

namespace feedesk {

/// What an order and the statement say of one charge.
struct Said {
    ReconciledOrder* charged;
    cost::Decimal exact;     ///< before minimum, maximum and rounding
    cost::Decimal amount;    ///< by the folder
    cost::Decimal stated;    ///< what it is while everything else stays
    cost::Decimal turnover;  ///< of the order

    /// Whether the statement has the amount of this charge, by its sum or in a column.
    [[nodiscard]] bool has(const cost::Decimal& wanted) const { return stated == wanted || isInColumn(wanted); }
    [[nodiscard]] bool isInColumn(const cost::Decimal& wanted) const;
    /// Whether what the charge costs is shown by itself and not concluded from a sum.
    [[nodiscard]] bool isShown() const { return isInColumn(stated) || charged->statedCosts == stated; }
};

/// A charging term with what all its orders say, by day.
struct SaidOfTerm {
    cost::Term term;
    std::vector<Said> said;
};

/// What the orders say of the terms that charge something which is paid by itself.
std::vector<SaidOfTerm> saidOfTerms(const OrdersByDay& orders);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_SAID_AMOUNTS_H
