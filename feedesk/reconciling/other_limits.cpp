#include "feedesk/reconciling/other_limits.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "feedesk/reconciling/other_limit.h"
#include "feedesk/reconciling/said_amounts.h"

namespace feedesk {
namespace {

using cost::Decimal;

using Claims = std::vector<const Said*>;

Decimal roundingStepOf(const cost::Term& term) { return term.rounding ? term.rounding->step : Decimal(); }

bool isBoundByMinimum(const Said& said, const cost::Term& term) { return term.minimum && said.exact <= *term.minimum; }

/// The limit that the stated amount would be.
std::optional<OtherLimit> limitOf(const Said& said, const cost::Term& term) {
    const bool isOpen = said.charged->isOpen() && said.stated != said.amount && Decimal() < said.stated;
    // The folder's minimum is no sum of others: another one in whole money may be concluded from a sum.
    if (!isOpen || !(said.isShown() || (isBoundByMinimum(said, term) && said.stated.isWhole()))) {
        return std::nullopt;
    }
    const bool isBoundByMaximum = term.maximum && said.exact >= *term.maximum;
    if (said.stated > said.exact && (said.stated > said.amount || isBoundByMinimum(said, term))) {
        return OtherLimit{Limit::kLeast, said.stated};
    }
    // The folder's own minimum is what a lower rate costs.
    const bool isOwnMinimum = term.minimum && said.stated == *term.minimum;
    if (said.stated < said.exact && !isOwnMinimum && (said.stated < said.amount || isBoundByMaximum)) {
        return OtherLimit{Limit::kMost, said.stated};
    }
    return std::nullopt;
}

/// Whether a rate to a hundred thousandth, as brokers have them, is as good for the order.
bool isOfUsualRate(const Said& said, const Decimal& amount, const Decimal& step) {
    static const Decimal grid = *Decimal::parse("0.00001");
    const Decimal unit = said.turnover * grid;
    if (unit.isZero()) {
        return false;
    }
    const Decimal near = amount.quotient(unit, cost::RoundingMode::kHalfUp) * unit;
    return near - amount < step && amount - near < step;
}

/// Whether the orders are of so different sizes that no rate charges them the same.
bool areOfSeveralSizes(const Claims& claims, const Decimal& amount, const Decimal& step) {
    const auto [small, large] = std::minmax_element(
        claims.begin(), claims.end(), [](const Said* one, const Said* other) { return one->exact < other->exact; });
    return (amount + step) * (*small)->exact < (amount - step) * (*large)->exact;
}

/// Whether the amount is the folder's minimum for each fill.
bool isMinimumOfFills(const Said& said, const Decimal& amount, const cost::Term& term) {
    const std::size_t fills = said.charged->order.fills;
    return fills > 1 && term.minimum && amount == Decimal(static_cast<std::int64_t>(fills)) * *term.minimum;
}

/// Whether orders of several sizes, some above the amount, show that it is neither a minimum nor a maximum alone.
bool isShownAsBoth(const Claims& claims, const Decimal& amount, const cost::Term& term) {
    const Decimal step = roundingStepOf(term);
    const bool isAbove =
        std::any_of(claims.begin(), claims.end(), [&](const Said* each) { return each->exact > amount + step; });
    const bool isBelow =
        std::any_of(claims.begin(), claims.end(), [&](const Said* each) { return each->exact < amount - step; });
    return isAbove && (isBelow || (term.minimum && *term.minimum > amount)) && areOfSeveralSizes(claims, amount, step);
}

bool isShownBy(Claims claims, const OtherLimit& other, const cost::Term& term) {
    claims.erase(std::remove_if(claims.begin(), claims.end(),
                                [&](const Said* each) {
                                    return each->stated != other.amount || isMinimumOfFills(*each, other.amount, term);
                                }),
                 claims.end());
    if (other.limit == Limit::kBoth) {
        return !claims.empty() && isShownAsBoth(claims, other.amount, term);
    }
    const Decimal step = roundingStepOf(term);
    if (claims.empty() || areOfSeveralSizes(claims, other.amount, step)) {
        return !claims.empty();
    }
    const Said& said = *claims.front();
    const bool isBound = other.limit == Limit::kLeast && isBoundByMinimum(said, term) && other.amount.isWhole();
    // Of one order it is a guess, which goes behind whatever explains it.
    if (!isBound && (!isUsual(other) || !said.charged->alsoFit.empty())) {
        return false;
    }
    // Where several orders of one size cost the same, a usual rate says so more plainly.
    return claims.size() == 1 || (isBound && other.amount <= *term.minimum) || !isOfUsualRate(said, other.amount, step);
}

/// The orders that show the limit, of the days from which on no order of the term speaks against it.
Claims claimsOf(const OtherLimit& other, const SaidOfTerm& all) {
    const cost::Term changed = withLimit(all.term, other);
    Claims claims;
    Claims ofDay;
    for (auto each = all.said.rbegin(); each != all.said.rend(); ++each) {
        if (!ofDay.empty() && ofDay.front()->charged->order.date() != each->charged->order.date()) {
            claims.insert(claims.end(), ofDay.begin(), ofDay.end());
            ofDay.clear();
        }
        const Decimal amount = amountOf(changed, each->exact);
        if (amount != each->amount && !each->has(amount)) {
            return claims;
        }
        if (each->charged->isOpen() && each->stated == amount && amount != each->amount) {
            ofDay.push_back(&*each);
        }
    }
    claims.insert(claims.end(), ofDay.begin(), ofDay.end());
    return claims;
}

void note(ReconciledOrder& charged, const OtherLimit& other, const cost::Term& term, const Layout& layout) {
    const Amounts amounts = amountsOf(charged.order.trades, *charged.tariff);
    Trial trial({charged.order, amounts}, layout);
    trial.found = std::move(charged.alsoFit);
    noteLimit(trial, other, term);
    charged.alsoFit = std::move(trial.found);
}

}  // namespace

void addOtherLimits(const OrdersByDay& orders, const Layout& layout) {
    if (std::none_of(orders.begin(), orders.end(), [](const ReconciledOrder* each) { return each->isOpen(); })) {
        return;
    }
    for (const SaidOfTerm& all : saidOfTerms(orders)) {
        std::set<OtherLimit> limits;
        for (const Said& each : all.said) {
            if (const auto limit = limitOf(each, all.term)) {
                limits.insert(*limit);
                limits.insert({Limit::kBoth, limit->amount});
            }
        }
        for (const OtherLimit& each : limits) {
            const Claims claims = claimsOf(each, all);
            if (isShownBy(claims, each, all.term)) {
                for (const Said* claim : claims) {
                    note(*claim->charged, each, all.term, layout);
                }
            }
        }
    }
}

void addLimitsOfOne(ReconciledOrder& charged, const Layout& layout) {
    for (const SaidOfTerm& all : saidOfTerms({&charged})) {
        const Said& said = all.said.front();
        const auto limit = limitOf(said, all.term);
        if (!limit) {
            continue;
        }
        const bool isInPlaceOfOwn =
            limit->limit == Limit::kLeast && isBoundByMinimum(said, all.term) && limit->amount.isWhole();
        if (isInPlaceOfOwn || isUsual(*limit)) {
            note(charged, *limit, all.term, layout);
        }
    }
}

}  // namespace feedesk
