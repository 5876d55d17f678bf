#ifndef FEEDESK_COMMANDS_RECONCILE_ROWS_H
#define FEEDESK_COMMANDS_RECONCILE_ROWS_H

#include <string>
#include <vector>

#include "feedesk/reconciling/proposal.h"
#include "feedesk/reconciling/reconciliation.h"
#include "feedesk/rows/rows.h"

namespace feedesk {

/// An order with the statement that it is in.
struct OrderRow {
    const ReconciledOrder& reconciled;
    const Statement& statement;
};

/// A figure of an order that differs.
struct FigureRow {
    const OrderRow& order;
    const Figure& figure;
};

FieldsOf<OrderRow> orderFields();
FieldsOf<FigureRow> figureFields();
FieldsOf<Proposal> proposalFields();

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_RECONCILE_ROWS_H
