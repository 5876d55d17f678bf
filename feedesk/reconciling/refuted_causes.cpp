#include "feedesk/reconciling/refuted_causes.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>

#include "feedesk/reconciling/changed_terms.h"

namespace feedesk {
namespace {

using Outcome = ReconciledOrder::Outcome;

bool isAllIn(const Explanation& each) { return each.cause == Cause::kAllIn; }

/// What agreeing orders say of changes of the terms that charge them.
class Witnesses {
public:
    Witnesses(const OrdersByDay& ordersByDay, const Layout& statementLayout)
        : orders(ordersByDay), layout(statementLayout) {}

    /// The last day of an order that agrees, and would not with the change.
    std::optional<cost::Date> lastAgainst(const Explanation& change) {
        std::string name = change.key;
        for (const TermCell& each : change.cells) {
            name += ' ' + each.where;
        }
        const auto place = days.emplace(name, std::nullopt);
        if (place.second) {
            const auto last = std::find_if(orders.rbegin(), orders.rend(),
                                           [&](const ReconciledOrder* each) { return speaksAgainst(*each, change); });
            if (last != orders.rend()) {
                place.first->second = (*last)->order.date();
            }
        }
        return place.first->second;
    }

private:
    [[nodiscard]] bool speaksAgainst(const ReconciledOrder& charged, const Explanation& change) const {
        return charged.outcome == Outcome::kAgrees &&
               !agree(charged.order.stated, putInside(amountsOf(charged.order.trades, *charged.tariff), change.cells),
                      layout);
    }

    const OrdersByDay& orders;
    const Layout& layout;
    std::map<std::string, std::optional<cost::Date>> days;
};

/// Takes out of the orders' causes what is refuted.
template <class IsRefuted>
void removeFrom(const OrdersByDay& orders, const IsRefuted& isRefuted) {
    for (ReconciledOrder* order : orders) {
        Explanations& all = order->alsoFit;
        const auto removed = std::stable_partition(all.begin(), all.end(), [&](const Explanation& each) {
            return !isAllIn(each) || !isRefuted(*order, each);
        });
        all.erase(removed, all.end());
    }
}

/// How many orders each all-in commission explains.
std::map<std::string, std::size_t> explainedOf(const OrdersByDay& orders) {
    std::map<std::string, std::size_t> explained;
    for (const ReconciledOrder* order : orders) {
        for (const Explanation& each : order->alsoFit) {
            if (isAllIn(each)) {
                ++explained[each.key];
            }
        }
    }
    return explained;
}

}  // namespace

void removeRefuted(const OrdersByDay& orders, const Layout& layout) {
    Witnesses witnesses(orders, layout);
    auto explained = explainedOf(orders);
    removeFrom(orders, [&](ReconciledOrder& order, const Explanation& each) {
        const auto last = witnesses.lastAgainst(each);
        const bool isOfOne = explained[each.key] == 1;
        if (last && isOfOne) {
            order.lastCauses.push_back(each);
        }
        return isOfOne ? last.has_value() : last >= order.order.date();
    });
    explained = explainedOf(orders);
    // A broker does not go over to another commission with one order.
    removeFrom(orders, [&](const ReconciledOrder& /*order*/, const Explanation& each) {
        return explained[each.key] == 1 && witnesses.lastAgainst(each);
    });
}

void takeLastCauses(ReconciledOrder& charged) {
    if (charged.lastCauses.empty()) {
        return;
    }
    if (charged.isOpen()) {
        charged.cause = charged.lastCauses.front().cause;
        charged.causes = {charged.lastCauses.front()};
        charged.lastCauses.erase(charged.lastCauses.begin());
    }
    if (charged.cause != Cause::kNotExplained) {
        charged.alsoFit.insert(charged.alsoFit.end(), charged.lastCauses.begin(), charged.lastCauses.end());
    }
}

}  // namespace feedesk
