#include "feedesk/reconciling/reconciliation.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <unordered_set>
#include <utility>

#include "feedesk/reconciling/charging.h"
#include "feedesk/reconciling/rate_change.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

using Outcome = ReconciledOrder::Outcome;

/// The lines of the folder that an order is charged by.
std::string kindOf(const ReconciledOrder& charged) {
    std::set<std::string> sources;
    for (const cost::ChargeLine& line : charged.tariff->planOf(charged.order.side(), charged.order.date()).lines) {
        sources.insert(line.rate == nullptr ? "" : line.rate->source + line.rate->level);
    }
    return fmt::format("{}", fmt::join(sources, " "));
}

bool isSame(const Explanation& one, const Explanation& other) {
    return one.cause == other.cause && one.key == other.key;
}

bool has(const Explanations& explanations, const Explanation& wanted) {
    return std::any_of(explanations.begin(), explanations.end(),
                       [&](const Explanation& each) { return isSame(each, wanted); });
}

/// The first cause that explains every one of the orders; null when none does.
const Explanation* commonOf(const Kind& orders) {
    for (const Explanation& each : orders.front()->alsoFit) {
        const bool isCommon = std::all_of(orders.begin(), orders.end(),
                                          [&](const ReconciledOrder* order) { return has(order->alsoFit, each); });
        if (isCommon) {
            return &each;
        }
    }
    return nullptr;
}

/// Makes the cause the order's, with every change of it that fits; what fits besides stays in alsoFit.
void choose(ReconciledOrder& charged, const Explanation& chosen) {
    const auto others = std::stable_partition(charged.alsoFit.begin(), charged.alsoFit.end(),
                                              [&](const Explanation& each) { return isSame(each, chosen); });
    charged.cause = chosen.cause;
    charged.causes.assign(charged.alsoFit.begin(), others);
    charged.alsoFit.erase(charged.alsoFit.begin(), others);
    const auto sameCause = [&](const Explanation& each) { return each.cause == charged.cause; };
    std::copy_if(charged.alsoFit.begin(), charged.alsoFit.end(), std::back_inserter(charged.causes), sameCause);
    charged.alsoFit.erase(std::remove_if(charged.alsoFit.begin(), charged.alsoFit.end(), sameCause),
                          charged.alsoFit.end());
}

/// What a statement says of the amount where that is not quantity x price: then no change of the folder explains it.
std::string amountRemark(const ReconciledOrder& charged) {
    for (const Figure& figure : charged.figures) {
        if (figure.name == kAmountFigure && !figure.agrees()) {
            return fmt::format("the amount {} is not quantity x price, which is {} to {}", figure.stated.text(2),
                               figure.expected.low.text(2), figure.expected.high.text(2));
        }
    }
    return "";
}

/// Where the columns of what was paid do not add up to what moved.
std::string columnsRemark(const ReconciledOrder& charged, const Layout& layout) {
    StatedAmounts columns = charged.order.stated;
    columns.net.reset();
    const cost::Decimal sum = columns.costs(layout, Amounts(*charged.tariff));
    const bool hasSum = !sum.isZero() && charged.order.stated.net.has_value();
    return !hasSum || sum == charged.statedCosts ? ""
                                                 : fmt::format("its columns add up to {}, and by its net it cost {}",
                                                               sum.text(2), charged.statedCosts.text(2));
}

/// Finds the causes of the differing orders of one kind.
class KindCauses {
public:
    KindCauses(Kind ordersOfKind, const Layout& statementLayout, Reconciliation& whole)
        : kind(std::move(ordersOfKind)), layout(statementLayout), result(whole) {
        std::copy_if(kind.begin(), kind.end(), std::back_inserter(open), [](const ReconciledOrder* each) {
            return each->outcome == Outcome::kDiffers && each->remark.empty();
        });
    }

    void find() {
        if (open.size() > 1 && (tookCommon() || tookRate(open))) {
            return;
        }
        for (const auto& [charge, orders] : solvedByCharge()) {
            tookRate(withOneRateAtLast(orders));
        }
        for (ReconciledOrder* each : open) {
            takeOwn(*each);
        }
    }

private:
    /// What no cause explains, each solved by itself, by the charge whose rate does it.
    std::map<std::string, Kind> solvedByCharge() {
        std::map<std::string, Kind> solved;
        for (ReconciledOrder* each : open) {
            each->solved = each->alsoFit.empty() ? rateFor(*each, layout) : nullptr;
            if (each->solved) {
                solved[each->solved->sought.charge + ' ' + each->solved->sought.item].push_back(each);
            }
        }
        return solved;
    }

    /// The last of the orders that have a rate in common; those before them had others.
    static Kind withOneRateAtLast(const Kind& orders) {
        auto first = std::prev(orders.end());
        RateRange range = (*first)->solved->range;
        while (first != orders.begin() && !(range & (*std::prev(first))->solved->range).isEmpty()) {
            --first;
            range = range & (*first)->solved->range;
        }
        return {first, orders.end()};
    }

    bool tookCommon() {
        const Explanation* common = commonOf(open);
        if (common == nullptr) {
            return false;
        }
        const Explanation chosen = *common;
        for (ReconciledOrder* each : open) {
            choose(*each, chosen);
        }
        return true;
    }

    /// A rate that fits all of these, and the kind's other lines from their first day on.
    bool tookRate(const Kind& wanted) {
        const auto solved = rateFor(kind, wanted, layout);
        if (!solved) {
            return false;
        }
        auto counted = std::make_shared<SolvedRate>(*solved);
        const std::unordered_set<const ReconciledOrder*> chosen(wanted.begin(), wanted.end());
        for (ReconciledOrder* each : open) {
            const bool isWanted = chosen.count(each) != 0;
            if (isWanted || explains(*solved, *each, layout)) {
                counted->lines += isWanted ? 0 : each->order.lines.size();
                each->cause = Cause::kOtherRate;
                each->solved = counted;
            }
        }
        result.rates.push_back(counted);
        return true;
    }

    void takeOwn(ReconciledOrder& charged) const {
        if (charged.cause != Cause::kNotExplained) {
            return;
        }
        if (!charged.alsoFit.empty()) {
            const Explanation first = charged.alsoFit.front();
            choose(charged, first);
            return;
        }
        charged.cause = charged.solved ? Cause::kOtherRate : Cause::kNotExplained;
        charged.remark = charged.solved ? "" : columnsRemark(charged, layout);
    }

    Kind kind;  // by day
    Kind open;  // those that differ
    const Layout& layout;
    Reconciliation& result;
};

std::map<std::string, Kind> kindsOf(std::vector<ReconciledOrder>& orders) {
    std::map<std::string, Kind> kinds;
    for (ReconciledOrder& charged : orders) {
        if (charged.tariff) {
            kinds[kindOf(charged)].push_back(&charged);
        }
    }
    for (auto& [name, kind] : kinds) {
        std::stable_sort(kind.begin(), kind.end(), [](const ReconciledOrder* one, const ReconciledOrder* other) {
            return one->order.date() < other->order.date();
        });
    }
    return kinds;
}

}  // namespace

std::size_t Reconciliation::count(ReconciledOrder::Outcome outcome) const {
    return static_cast<std::size_t>(std::count_if(
        orders.begin(), orders.end(), [&](const ReconciledOrder& each) { return each.outcome == outcome; }));
}

bool Reconciliation::agrees() const { return count(Outcome::kAgrees) == orders.size(); }

Reconciler::Reconciler(Session& openedSession, const std::string& accountOfStatements)
    : session(openedSession), account(accountOfStatements), others(openedSession, accountOfStatements) {}

/// Leaves what explains each differing order in its alsoFit, by cause; where nothing can, why not in its remark.
void Reconciler::tryHypotheses(const Layout& layout, std::vector<ReconciledOrder>& orders) {
    for (ReconciledOrder& charged : orders) {
        if (charged.outcome != Outcome::kDiffers) {
            continue;
        }
        charged.remark = amountRemark(charged);
        if (charged.remark.empty()) {
            const Amounts amounts = amountsOf(charged.order.trades, *charged.tariff);
            charged.alsoFit = explanationsOf({charged.order, amounts}, layout, others);
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
    tryHypotheses(statement.layout, result.orders);
    for (auto& [name, kind] : kindsOf(result.orders)) {
        KindCauses(kind, statement.layout, result).find();
    }
    return result;
}

}  // namespace feedesk
