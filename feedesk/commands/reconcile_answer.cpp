#include "feedesk/commands/reconcile_answer.h"

namespace feedesk {

Sections sectionsOf(const ReconcileAnswer& wanted, Format format) {
    const Section orders = sectionOf("", orderFields(), "Trades");
    const Section figures = sectionOf("What differs", figureFields());
    if (format != Format::kTable) {
        return {orders, figures, sectionOf("", proposalFields(), "Proposed lines")};
    }
    if (wanted.found.count(ReconciledOrder::Outcome::kDiffers) > 0) {
        return {orders, figures};
    }
    return wanted.onlyDiffering && wanted.found.agrees() ? Sections() : Sections{orders};
}

void giveRows(const ReconcileAnswer& wanted, const Sections& sections, RowSink& sink) {
    const auto orders = orderFields();
    const auto figures = figureFields();
    const auto proposals = proposalFields();
    for (const ReconciledOrder& each : wanted.found.orders) {
        if (each.outcome != ReconciledOrder::Outcome::kAgrees || !wanted.onlyDiffering) {
            Row row = rowOf(orders, OrderRow{each, wanted.statement});
            row.marked = each.outcome != ReconciledOrder::Outcome::kAgrees;
            sink.row(row);
        }
    }
    for (const ReconciledOrder& each : wanted.found.orders) {
        const OrderRow order{each, wanted.statement};
        for (const Figure& figure : each.figures) {
            if (!figure.agrees()) {
                Row row = rowOf(figures, FigureRow{order, figure});
                row.section = 1;
                sink.row(row);
            }
        }
    }
    for (const Proposal& proposal : sections.size() > 2 ? wanted.proposals : std::vector<Proposal>()) {
        Row row = rowOf(proposals, proposal);
        row.section = 2;
        sink.row(row);
    }
}

}  // namespace feedesk
