#include "feedesk/reconciling/rate_causes.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "feedesk/reconciling/fill_amounts.h"

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
    return byFill && agree(figuresOf(charged.order.stated, *byFill, layout));
}

/// Whether only another rate explains the order.
bool needsRate(const ReconciledOrder& charged, const Layout& layout) {
    return charged.isOpen() && charged.alsoFit.empty() && !mayBeItsFills(charged, layout);
}

std::vector<SolvedRate> ratesOf(const ReconciledOrder& charged, const ChargedLines& lines, const Layout& layout) {
    std::vector<SolvedRate> rates;
    for (const ChargedLine* line : lines.of(charged)) {
        if (auto solved = rateOf(*line, charged, layout)) {
            rates.push_back(std::move(*solved));
        }
    }
    return rates;
}

using Changes = std::vector<RateChange>;

Changes changesIn(const ChargedLines& lines, const Layout& layout) {
    Changes changes;
    for (const ChargedLine& line : lines.all()) {
        auto change = lastChangeOf(line, layout);
        if (change && std::any_of(change->explained.begin(), change->explained.end(),
                                  [&](const ReconciledOrder* each) { return needsRate(*each, layout); })) {
            changes.push_back(std::move(*change));
        }
    }
    return changes;
}

/// Takes the changes out that explain the most orders, all the same ones.
Changes takeLargest(Changes& changes) {
    const auto largest = std::max_element(
        changes.begin(), changes.end(),
        [](const RateChange& one, const RateChange& other) { return one.explained.size() < other.explained.size(); });
    const OrdersByDay explained = largest->explained;
    const auto others = std::stable_partition(changes.begin(), changes.end(),
                                              [&](const RateChange& each) { return each.explained != explained; });
    Changes taken(std::make_move_iterator(others), std::make_move_iterator(changes.end()));
    changes.erase(others, changes.end());
    return taken;
}

/// The first of the rates, with the others next to it.
std::shared_ptr<const SolvedRate> oneOf(const Changes& changes) {
    auto solved = std::make_shared<SolvedRate>(changes.front().solved);
    std::transform(std::next(changes.begin()), changes.end(), std::back_inserter(solved->orElse),
                   [](const RateChange& each) { return each.solved; });
    return solved;
}

std::string wouldFit(const std::vector<SolvedRate>& rates) {
    std::vector<std::string> each;
    std::transform(rates.begin(), rates.end(), std::back_inserter(each), [](const SolvedRate& rate) {
        return fmt::format("the {} {}", rate.sought.charge, rate.rate.text());
    });
    return fmt::format("{} would fit, and the statement does not say which", fmt::join(each, " or "));
}

std::string byFillRemark(const ReconciledOrder& charged) {
    const Span costs = amountsByFill(charged)->costs();
    return fmt::format(
        "its {} fills, each charged by itself with its minimum and its rounding, cost {}, so that no rate follows from "
        "it",
        charged.order.fills,
        costs.isExact() ? costs.low.text(2) : fmt::format("from {} to {}", costs.low.text(2), costs.high.text(2)));
}

}  // namespace

std::vector<std::shared_ptr<const SolvedRate>> takeRatesFromDays(const ChargedLines& lines, const Layout& layout) {
    std::vector<std::shared_ptr<const SolvedRate>> rates;
    Changes changes = changesIn(lines, layout);
    while (!changes.empty()) {
        const Changes largest = takeLargest(changes);
        const OrdersByDay& explained = largest.front().explained;
        const bool isTaken = std::any_of(explained.begin(), explained.end(),
                                         [](const ReconciledOrder* each) { return !each->isOpen(); });
        if (isTaken || (explained.size() == 1 && ratesOf(*explained.front(), lines, layout).size() > 1)) {
            continue;
        }
        rates.push_back(oneOf(largest));
        for (ReconciledOrder* each : explained) {
            each->cause = Cause::kOtherRate;
            each->solved = rates.back();
        }
    }
    return rates;
}

void takeRateOfOrder(ReconciledOrder& charged, const ChargedLines& lines, const Layout& layout) {
    if (mayBeItsFills(charged, layout)) {
        charged.remark = byFillRemark(charged);
        return;
    }
    std::vector<SolvedRate> rates = ratesOf(charged, lines, layout);
    if (rates.size() > 1) {
        charged.remark = wouldFit(rates);
    } else if (!rates.empty()) {
        charged.cause = Cause::kOtherRate;
        charged.solved = std::make_shared<const SolvedRate>(std::move(rates.front()));
    }
}

void addRatesBesidesLimit(ReconciledOrder& charged, const ChargedLines& lines, const Layout& layout) {
    if (charged.cause != Cause::kOtherMinimum && charged.cause != Cause::kOtherMaximum) {
        return;
    }
    for (const SolvedRate& rate : ratesOf(charged, lines, layout)) {
        charged.alsoFit.push_back(
            {Cause::kOtherRate, rate.sought.charge, fmt::format("the {} {}", rate.sought.charge, rate.rate.text())});
    }
}

}  // namespace feedesk
