#include "feedesk/reconciling/reconciliation.h"

#include <algorithm>

#include "feedesk/reconciling/charging.h"
#include "feedesk/reconciling/common_causes.h"
#include "feedesk/reconciling/other_limits.h"
#include "feedesk/reconciling/rate_causes.h"
#include "feedesk/reconciling/refuted_causes.h"
#include "feedesk/reconciling/remarks.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

using Outcome = ReconciledOrder::Outcome;

OrdersByDay chargedByDay(std::vector<ReconciledOrder>& orders) {
    OrdersByDay charged;
    for (ReconciledOrder& each : orders) {
        if (each.tariff) {
            charged.push_back(&each);
        }
    }
    std::stable_sort(charged.begin(), charged.end(), [](const ReconciledOrder* one, const ReconciledOrder* other) {
        return one->order.date() < other->order.date();
    });
    return charged;
}

/// What the orders show together, and then what would explain almost anything.
void addLastHypotheses(const Layout& layout, const OrdersByDay& orders) {
    addOtherLimits(orders, layout);
    for (ReconciledOrder* each : orders) {
        if (each->isOpen()) {
            const Amounts amounts = amountsOf(each->order.trades, *each->tariff);
            addGuesses({each->order, amounts}, layout, each->alsoFit);
        }
    }
}

}  // namespace

const RateSource& replacedBy(const SolvedRate& solved, const ReconciledOrder& reconciled) {
    for (const cost::ChargeLine& line :
         reconciled.tariff->planOf(reconciled.order.side(), reconciled.order.date()).lines) {
        const std::string& source = line.rate == nullptr ? line.term->where : line.rate->source;
        const auto found = std::find_if(solved.sources.begin(), solved.sources.end(),
                                        [&](const RateSource& each) { return each.source == source; });
        const bool isSought = line.term->charge == solved.sought.charge && line.term->item == solved.sought.item;
        if (isSought && found != solved.sources.end()) {
            return *found;
        }
    }
    return solved.sources.front();
}

std::size_t Reconciliation::count(ReconciledOrder::Outcome outcome) const {
    return static_cast<std::size_t>(std::count_if(
        orders.begin(), orders.end(), [&](const ReconciledOrder& each) { return each.outcome == outcome; }));
}

bool Reconciliation::agrees() const { return count(Outcome::kAgrees) == orders.size(); }

Reconciler::Reconciler(Session& openedSession, const std::string& accountOfStatements)
    : session(openedSession), account(accountOfStatements), others(openedSession, accountOfStatements) {}

/// Leaves what explains each differing order in its alsoFit, by cause; where nothing can, why not in its remark.
void Reconciler::tryHypotheses(const Statement& statement, std::vector<ReconciledOrder>& orders) {
    for (ReconciledOrder& charged : orders) {
        if (charged.outcome != Outcome::kDiffers) {
            continue;
        }
        charged.remark = amountRemark(charged, statement);
        if (charged.remark.empty()) {
            const Amounts amounts = amountsOf(charged.order.trades, *charged.tariff);
            charged.alsoFit = explanationsOf({charged.order, amounts}, statement.layout, others);
        }
    }
}

Reconciliation Reconciler::reconcile(const Statement& statement) {
    Reconciliation result;
    {
        const Progress progress("charging " + counted(statement.lines.size(), "line"));
        result.orders = chargedOrders(session, account, statement);
    }
    const Progress progress("looking for causes");
    tryHypotheses(statement, result.orders);
    findCauses(statement, result);
    return result;
}

/// What orders have in common goes before what explains each of them; what remains is explained order by order.
void Reconciler::findCauses(const Statement& statement, Reconciliation& result) {
    const Layout& layout = statement.layout;
    const OrdersByDay orders = chargedByDay(result.orders);
    removeRefuted(orders, layout);
    addLastHypotheses(layout, orders);
    const ChargedLines lines(orders);
    RateSearch search(lines, layout);
    RateCauses rates(orders, lines, layout, others);
    const RateChanges ofAll = search.changes();
    takeCausesOfTerms(orders);
    takeCauseOfAll(orders);
    rates.takeBefore(commonCausesOf(orders), search.changes());
    for (const CommonCause& each : commonCausesOf(orders)) {
        take(each);
    }
    rates.take(search.changes());
    const OrdersByDay alone = openOf(orders);
    for (ReconciledOrder* each : alone) {
        if (!each->alsoFit.empty()) {
            takeFirstCause(*each);
        }
    }
    rates.addBesidesCauses(ofAll);
    for (ReconciledOrder* each : alone) {
        rates.addBesidesLimit(*each);
        if (each->isOpen()) {
            rates.takeOfOrder(*each);
        }
        takeLastCauses(*each);
        if (each->isOpen()) {
            each->remark = ratioRemark(*each, statement);
        }
        if (each->isOpen()) {
            each->remark = columnsRemark(*each, layout);
        }
    }
    result.rates = rates.taken();
    result.ratesElsewhere = rates.takenElsewhere();
    result.terms = sharedTermsOf(orders);
}

}  // namespace feedesk
