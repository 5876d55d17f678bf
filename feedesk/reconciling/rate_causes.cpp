#include "feedesk/reconciling/rate_causes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "feedesk/reconciling/fill_amounts.h"
#include "feedesk/reconciling/known_rates.h"
#include "feedesk/reconciling/other_limits.h"

namespace feedesk {
namespace {

std::optional<Amounts> amountsByFill(const ReconciledOrder& charged) {
    const Amounts amounts = amountsOf(charged.order.trades, *charged.tariff);
    return chargedFillByFill({charged.order, amounts});
}

/// Whether its fills may be charged one by one, which is two changes, of the minimum and of the rounding, and leaves no
/// rate to be concluded from the order.
bool mayBeItsFills(const ReconciledOrder& charged, const Layout& layout) {
    const auto byFill = amountsByFill(charged);
    return byFill && agree(charged.order.stated, *byFill, layout);
}

/// Whether only another rate explains the order.
bool needsRate(const ReconciledOrder& charged, const Layout& layout) {
    return charged.isOpen() && charged.alsoFit.empty() && !mayBeItsFills(charged, layout);
}

/// How many trades at least a rate explains beyond what one cause does, to go before that: a single one may be
/// another fault, which the rate fits by chance.
constexpr std::size_t kFewestBeyondACause = 2;

/// Orders that the same lines of the folder charge.
struct OrdersOfKind {
    OrdersByDay orders;
    std::size_t byOneCause;  ///< how many of them the kind of change explains that explains most
};

std::vector<OrdersOfKind> chargedTogether(const OrdersByDay& orders) {
    std::vector<OrdersByDay> together = byFolderLines(orders);
    std::vector<OrdersOfKind> all;
    all.reserve(together.size());
    for (OrdersByDay& each : together) {
        const std::size_t most = mostOfOneCause(each);
        all.push_back({std::move(each), most});
    }
    return all;
}

/// How many orders the change explains more than the best single cause of each line of the folder does; 0 where such a
/// cause explains more.
std::size_t beyondCauses(const RateChange& change, const std::vector<OrdersOfKind>& kinds) {
    const std::set<const ReconciledOrder*> explained(change.explained.begin(), change.explained.end());
    std::size_t beyond = 0;
    for (const OrdersOfKind& kind : kinds) {
        const auto count = static_cast<std::size_t>(std::count_if(
            kind.orders.begin(), kind.orders.end(),
            [&](const ReconciledOrder* each) { return !each->alsoFit.empty() && explained.count(each) != 0; }));
        if (count != 0 && count < kind.byOneCause) {
            return 0;
        }
        beyond += count == 0 ? 0 : count - kind.byOneCause;
    }
    return beyond;
}

/// Takes the changes out that explain the most orders, all the same ones.
RateChanges takeLargest(RateChanges& changes) {
    const auto largest = std::max_element(
        changes.begin(), changes.end(),
        [](const RateChange& one, const RateChange& other) { return one.explained.size() < other.explained.size(); });
    const OrdersByDay explained = largest->explained;
    const auto others = std::stable_partition(changes.begin(), changes.end(),
                                              [&](const RateChange& each) { return each.explained != explained; });
    RateChanges taken(std::make_move_iterator(others), std::make_move_iterator(changes.end()));
    changes.erase(others, changes.end());
    return taken;
}

/// Whether the cause is that rates were charged which the folder has in another place. A charge that is left out or
/// doubled, or a schedule of other days, is no rate that anybody agreed on.
bool isOfElsewhere(Cause cause) {
    return cause == Cause::kOtherLevel || cause == Cause::kOtherAccount || cause == Cause::kOtherCategory;
}

/// Whether it is a rate that the folder has in another place, and not on other days alone.
bool isOfFolder(const SolvedRate& solved) {
    return solved.isKnown && solved.knownFrom.empty() && !solved.range.isOpenBelow();
}

std::string wouldFit(const std::vector<SolvedRate>& rates) {
    std::vector<std::string> each;
    std::transform(rates.begin(), rates.end(), std::back_inserter(each), [](const SolvedRate& rate) {
        return fmt::format("the {} {}", rate.sought.charge, rate.rate.text());
    });
    return fmt::format("{} would fit, and the statement does not say which", fmt::join(each, " or "));
}

/// Of fills whose number alone is known, which leave no rate to be named.
Explanation fillByFill(const ReconciledOrder& charged) {
    const Span costs = amountsByFill(charged)->costs();
    const std::string range = costs.isExact()
                                  ? fmt::format("its {} fills cost {}", charged.order.fills, costs.low.text(2))
                                  : fmt::format("a range: its {} fills cost from {} to {}", charged.order.fills,
                                                costs.low.text(2), costs.high.text(2));
    return {Cause::kFillByFill, "each fill by its number",
            fmt::format("each fill charged as an order of its own, with its minimum and rounding, {}", range)};
}

}  // namespace

void RateCauses::removeNeedless(RateChanges& changes) const {
    const auto needless = std::stable_partition(changes.begin(), changes.end(), [&](const RateChange& change) {
        return std::any_of(change.explained.begin(), change.explained.end(),
                           [&](const ReconciledOrder* each) { return needsRate(*each, layout); });
    });
    const bool mayGoBefore = std::any_of(needless, changes.end(), [](const RateChange& change) {
        return change.explained.size() > kFewestBeyondACause && !haveCauseInCommon(change.explained);
    });
    const std::vector<OrdersOfKind> kinds = mayGoBefore ? chargedTogether(orders) : std::vector<OrdersOfKind>();
    changes.erase(
        std::remove_if(needless, changes.end(),
                       [&](const RateChange& change) { return beyondCauses(change, kinds) < kFewestBeyondACause; }),
        changes.end());
}

std::vector<SolvedRate> RateCauses::ratesOf(const ReconciledOrder& charged) {
    std::vector<SolvedRate> found;
    for (const ChargedLine* line : lines.of(charged)) {
        if (auto solved = rateOf(*line, charged, layout)) {
            preferKnown(*solved, charged, others, rates);
            found.push_back(std::move(*solved));
        }
    }
    return found;
}

/// The first of the rates, with the others next to it.
std::shared_ptr<const SolvedRate> RateCauses::oneOf(const RateChanges& changes) {
    SolvedRates all;
    for (const RateChange& each : changes) {
        auto solved = std::make_shared<SolvedRate>(each.solved);
        solved->trades = each.explained.size();
        preferKnown(*solved, *each.explained.back(), others, rates);
        all.push_back(std::move(solved));
    }
    auto first = std::make_shared<SolvedRate>(*all.front());
    std::transform(std::next(all.begin()), all.end(), std::back_inserter(first->orElse),
                   [](const auto& each) { return *each; });
    return first;
}

void RateCauses::takeBefore(const std::vector<CommonCause>& commonCauses, RateChanges changes) {
    const auto goesBehind = [&](const RateChange& change) {
        const std::set<const ReconciledOrder*> explained(change.explained.begin(), change.explained.end());
        const auto isExplained = [&](const ReconciledOrder* each) { return explained.count(each) != 0; };
        const auto isMetInPart = [&](const CommonCause& common) {
            const auto& met = common.orders;
            return std::any_of(met.begin(), met.end(), isExplained) &&
                   !std::all_of(met.begin(), met.end(), isExplained);
        };
        return explained.size() < 2 || haveCauseInCommon(change.explained) ||
               std::any_of(commonCauses.begin(), commonCauses.end(), isMetInPart);
    };
    changes.erase(std::remove_if(changes.begin(), changes.end(), goesBehind), changes.end());
    take(std::move(changes));
}

void RateCauses::take(RateChanges changes) {
    removeNeedless(changes);
    while (!changes.empty()) {
        const RateChanges largest = takeLargest(changes);
        const OrdersByDay& explained = largest.front().explained;
        const bool isTaken = std::any_of(explained.begin(), explained.end(),
                                         [](const ReconciledOrder* each) { return !each->isOpen(); });
        if (isTaken || (explained.size() == 1 && ratesOf(*explained.front()).size() > 1)) {
            continue;
        }
        rates.push_back(oneOf(largest));
        for (ReconciledOrder* each : explained) {
            each->cause = Cause::kOtherRate;
            each->solved = rates.back();
        }
    }
}

void RateCauses::takeOfOrder(ReconciledOrder& charged) {
    if (mayBeItsFills(charged, layout)) {
        charged.cause = Cause::kFillByFill;
        charged.causes = {fillByFill(charged)};
        return;
    }
    std::vector<SolvedRate> fitting = ratesOf(charged);
    if (fitting.size() > 1) {
        charged.remark = wouldFit(fitting);
    } else if (!fitting.empty()) {
        if (fitting.front().against) {
            addLimitsOfOne(charged, layout);
        }
        charged.cause = Cause::kOtherRate;
        charged.solved = std::make_shared<const SolvedRate>(std::move(fitting.front()));
    }
}

void RateCauses::addBesidesLimit(ReconciledOrder& charged) {
    if (charged.cause != Cause::kOtherMinimum && charged.cause != Cause::kOtherMaximum) {
        return;
    }
    for (const SolvedRate& rate : ratesOf(charged)) {
        const bool isKnown = std::any_of(charged.ratesToo.begin(), charged.ratesToo.end(), [&](const auto& each) {
            return each->sought.charge == rate.sought.charge && each->sought.item == rate.sought.item;
        });
        if (!isKnown) {
            charged.alsoFit.push_back({Cause::kOtherRate, rate.sought.charge,
                                       fmt::format("the {} {}", rate.sought.charge, rate.rate.text())});
        }
    }
}

void RateCauses::addBesidesCauses(const RateChanges& changes) {
    std::map<const ReconciledOrder*, std::size_t> explained;  // by how many changes
    for (const RateChange& change : changes) {
        for (const ReconciledOrder* each : change.explained) {
            ++explained[each];
        }
    }
    for (const RateChange& change : changes) {
        if (change.explained.size() < 2) {
            continue;
        }
        std::shared_ptr<const SolvedRate> solved;
        for (ReconciledOrder* each : change.explained) {
            if (each->cause != Cause::kOtherRate && each->cause != Cause::kNotExplained) {
                solved = solved ? solved : oneOf({change});
                each->ratesToo.push_back(solved);
            }
        }
        const bool isElsewhere = std::all_of(
            change.explained.begin(), change.explained.end(),
            [&](const ReconciledOrder* each) { return isOfElsewhere(each->cause) && explained.at(each) == 1; });
        if (isElsewhere && isOfFolder(*solved)) {
            ratesElsewhere.push_back(std::move(solved));
        }
    }
}

}  // namespace feedesk
