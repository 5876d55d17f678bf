#include "feedesk/reconciling/common_causes.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

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
        case Cause::kFillByFill:
        case Cause::kRoundingMode:
        case Cause::kAllIn:
        case Cause::kOtherMinimum:
        case Cause::kOtherMaximum:
            return true;
        default:
            return false;
    }
}

bool isSame(const Explanation& one, const Explanation& other) {
    const bool isSameAsWidely = !one.wider.empty() && one.wider == other.wider;
    return one.cause == other.cause && (one.key == other.key || isSameAsWidely);
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

/// Makes the cause the order's, with every change of it that belongs to it; what fits besides stays in alsoFit.
template <class Belongs>
void choose(ReconciledOrder& charged, const Explanation& chosen, const Belongs& belongs) {
    const auto move = [&](const auto& isMoved) {
        const auto others = std::stable_partition(charged.alsoFit.begin(), charged.alsoFit.end(),
                                                  [&](const Explanation& each) { return !isMoved(each); });
        std::move(others, charged.alsoFit.end(), std::back_inserter(charged.causes));
        charged.alsoFit.erase(others, charged.alsoFit.end());
    };
    charged.cause = chosen.cause;
    charged.causes.clear();
    move([&](const Explanation& each) { return isSame(each, chosen); });
    move([&](const Explanation& each) { return each.cause == chosen.cause && belongs(each); });
}

void addMissing(TermCells& cells, const TermCells& more) {
    std::copy_if(more.begin(), more.end(), std::back_inserter(cells),
                 [&](const TermCell& each) { return std::find(cells.begin(), cells.end(), each) == cells.end(); });
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
        std::optional<Explanation> common = open.size() > 1 ? commonOf(open, isOfAll) : std::nullopt;
        if (common && common->cause == Cause::kAllIn) {
            common = commonOf(open, isNone);  // it is tried behind these
        }
        if (common && isOfTerm(*common)) {
            take({open, *common});
        }
    }
}

std::vector<OrdersByDay> byFolderLines(const OrdersByDay& orders) {
    std::map<std::string, OrdersByDay> kinds;
    for (ReconciledOrder* each : openOf(orders)) {
        kinds[folderLinesOf(*each)].push_back(each);
    }
    std::vector<OrdersByDay> all;
    all.reserve(kinds.size());
    std::transform(kinds.begin(), kinds.end(), std::back_inserter(all), [](const auto& each) { return each.second; });
    return all;
}

std::vector<CommonCause> commonCausesOf(const OrdersByDay& orders) {
    std::vector<CommonCause> causes;
    for (OrdersByDay& kind : byFolderLines(orders)) {
        const std::optional<Explanation> common = kind.size() > 1 ? commonOf(kind, isNone) : std::nullopt;
        if (common) {
            causes.push_back({std::move(kind), *common});
        }
    }
    return causes;
}

/// Of changes that differ by their line alone, such as a fee left out in two markets, each is the same for a broker.
std::size_t mostOfOneCause(const OrdersByDay& orders) {
    std::map<Cause, std::size_t> explained;
    std::size_t most = 0;
    for (const ReconciledOrder* order : orders) {
        std::set<Cause> causes;
        std::transform(order->alsoFit.begin(), order->alsoFit.end(), std::inserter(causes, causes.end()),
                       [](const Explanation& each) { return each.cause; });
        for (const Cause each : causes) {
            most = std::max(most, ++explained[each]);
        }
    }
    return most;
}

bool haveCauseInCommon(const OrdersByDay& orders) { return commonOf(orders, isNone).has_value(); }

/// Of several changes of the cause those are named that explain all orders; one that explains some of them fits
/// besides.
void take(const CommonCause& common) {
    Explanations ofAll;
    const Explanations& first = common.orders.front()->alsoFit;
    std::copy_if(first.begin(), first.end(), std::back_inserter(ofAll), [&](const Explanation& each) {
        return std::all_of(common.orders.begin(), common.orders.end(),
                           [&](const ReconciledOrder* order) { return has(order->alsoFit, each); });
    });
    for (ReconciledOrder* each : common.orders) {
        choose(*each, common.cause, [&](const Explanation& one) { return has(ofAll, one); });
    }
}

void takeCauseOfAll(const OrdersByDay& orders) {
    const OrdersByDay open = openOf(orders);
    const std::optional<Explanation> common = open.size() > 1 ? commonOf(open, isNone) : std::nullopt;
    if (common) {
        take({open, *common});
    }
}

SharedTermsList sharedTermsOf(const OrdersByDay& orders) {
    std::vector<OrdersByDay> groups;
    for (ReconciledOrder* each : orders) {
        if (each->causes.empty() || each->causes.front().cells.empty()) {
            continue;
        }
        const auto group = std::find_if(groups.begin(), groups.end(), [&](const OrdersByDay& one) {
            return isSame(one.front()->causes.front(), each->causes.front());
        });
        (group == groups.end() ? groups.emplace_back() : *group).push_back(each);
    }
    SharedTermsList all;
    for (const OrdersByDay& group : groups) {
        if (group.size() < 2) {
            continue;
        }
        SharedTerms shared{group.front()->causes.front(), {group.front()->order.date(), group.back()->order.date()}};
        for (const ReconciledOrder* each : group) {
            addMissing(shared.explanation.cells, each->causes.front().cells);
        }
        all.push_back(std::make_shared<const SharedTerms>(std::move(shared)));
        for (ReconciledOrder* each : group) {
            each->terms = all.back();
        }
    }
    return all;
}

void takeFirstCause(ReconciledOrder& charged) {
    const Explanation first = charged.alsoFit.front();
    choose(charged, first, [](const Explanation& /*each*/) { return true; });
}

}  // namespace feedesk
