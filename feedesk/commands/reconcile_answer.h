#ifndef FEEDESK_COMMANDS_RECONCILE_ANSWER_H
#define FEEDESK_COMMANDS_RECONCILE_ANSWER_H

#include <vector>

#include "feedesk/commands/reconcile_rows.h"
#include "feedesk/program.h"
#include "feedesk/rows/sinks.h"

namespace feedesk {

/// What the rows of one answer are made of.
struct ReconcileAnswer {
    const Reconciliation& found;
    const Statement& statement;
    const std::vector<Proposal>& proposals;
    bool onlyDiffering = false;
};

/// Its sections: trades, figures that differ, proposed lines. A table has no section that would be empty, and says
/// below what it proposes.
Sections sectionsOf(const ReconcileAnswer& wanted, Format format);

/// Gives the rows of these sections.
void giveRows(const ReconcileAnswer& wanted, const Sections& sections, RowSink& sink);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_RECONCILE_ANSWER_H
