#include "feedesk/reconciling/common_causes.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace feedesk {
namespace {

/// The lines of the folder that an order is charged by.
std::string folderLinesOf(const ReconciledOrder& charged) {
    std::set<std::string> sources;
    for (const cost::ChargeLine& line : charged.tariff->planOf(charged.order.side(), charged.order.date()).lines) {
        sources.insert(line.rate == nullptr ? "" : line.rate->source + line.rate->level);
    }
    return fmt::format("{}", fmt::join(sources, " "));
}

/// The terms that an order is charged by.
std::set<std::string> termsOf(const ReconciledOrder& charged) {
    std::set<std::string> terms;
    for (const cost::ChargeLine& line : charged.tariff->planOf(charged.order.side(), charged.order.date()).lines) {
        terms.insert(line.term->where);
    }
    return terms;
}

/// Whether the change is one of a charging term.
bool isOfTerm(const Explanation& each) {
    switch (each.cause) {
        case Cause::kMinimumPer:
        case Cause::kRoundingPerFill:
        case Cause::kRoundingMode:
        case Cause::kOtherMinimum:
        case Cause::kOtherMaximum:
            return true;
        default:
            return false;
    }
}

bool isSame(const Explanation& one, const Explanation& other) {
    return one.cause == other.cause && one.key == other.key;
}

bool has(const Explanations& explanations, const Explanation& wanted) {
    return std::any_of(explanations.begin(), explanations.end(),
                       [&](const Explanation& each) { return isSame(each, wanted); });
}

/// Whether the change puts other rates and terms in place of the order's own, all at once.
bool isOfAll(const Explanation& each) {
    return each.cause == Cause::kOtherAccount || each.cause == Cause::kOtherSide || each.cause == Cause::kOtherCategory;
}

/// The first cause that explains every one of the orders and is not left out; nothing when none does.
template <class LeftOut>
std::optional<Explanation> commonOf(const OrdersByDay& orders, const LeftOut& leftOut) {
    for (const Explanation& each : orders.front()->alsoFit) {
        const bool isCommon =
            !leftOut(each) && std::all_of(orders.begin(), orders.end(),
                                          [&](const ReconciledOrder* order) { return has(order->alsoFit, each); });
        if (isCommon) {
            return each;
        }
    }
    return std::nullopt;
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

bool isNone(const Explanation& /*each*/) { return false; }

}  // namespace

/// A minimum, a maximum or a rounding is the term's, whichever lines give the rates of its orders. One that explains
/// several orders is a smaller change than everything of another account or kind. The largest terms go first.
void takeCausesOfTerms(const OrdersByDay& orders) {
    std::map<std::string, OrdersByDay> terms;
    for (ReconciledOrder* each : openOf(orders)) {
        for (const std::string& term : termsOf(*each)) {
            terms[term].push_back(each);
        }
    }
    std::vector<OrdersByDay> groups;
    std::transform(terms.begin(), terms.end(), std::back_inserter(groups),
                   [](const auto& each) { return each.second; });
    std::stable_sort(groups.begin(), groups.end(),
                     [](const OrdersByDay& one, const OrdersByDay& other) { return one.size() > other.size(); });
    for (const OrdersByDay& group : groups) {
        const OrdersByDay open = openOf(group);
        const std::optional<Explanation> common = open.size() > 1 ? commonOf(open, isOfAll) : std::nullopt;
        if (common && isOfTerm(*common)) {
            take({open, *common});
        }
    }
}

std::vector<CommonCause> commonCausesOf(const OrdersByDay& orders) {
    std::map<std::string, OrdersByDay> kinds;
    for (ReconciledOrder* each : openOf(orders)) {
        kinds[folderLinesOf(*each)].push_back(each);
    }
    std::vector<CommonCause> causes;
    for (const auto& [name, kind] : kinds) {
        const std::optional<Explanation> common = kind.size() > 1 ? commonOf(kind, isNone) : std::nullopt;
        if (common) {
            causes.push_back({kind, *common});
        }
    }
    return causes;
}

bool haveCauseInCommon(const OrdersByDay& orders) { return commonOf(orders, isNone).has_value(); }

void take(const CommonCause& common) {
    for (ReconciledOrder* each : common.orders) {
        choose(*each, common.cause);
    }
}

void takeFirstCause(ReconciledOrder& charged) {
    const Explanation first = charged.alsoFit.front();
    choose(charged, first);
}

}  // namespace feedesk
