#include "feedesk/reconciling/fill_amounts.h"

#include <algorithm>

#include "cost/refused.h"
#include "feedesk/reconciling/changed_terms.h"

namespace feedesk {
namespace {

using cost::Decimal;
using cost::Per;
using cost::RoundingMode;

Decimal countOf(std::size_t fills) { return Decimal(static_cast<std::int64_t>(fills)); }

/// With both. A fill that reaches the minimum alone has nothing to round.
Span withMinimumAndRounding(const Part& part, std::size_t fills) {
    const Span rounded = part.term->rounding ? withEachFillRounded(part, fills) : Span(part.exact);
    const Decimal minimum = part.term->minimum.value_or(Decimal());
    const Decimal minima = countOf(fills) * minimum;
    if (part.exact <= minimum) {
        return Span(minima);
    }
    const Decimal most = minima - minimum + rounded.high;
    const Decimal least = std::max(minima, rounded.low);
    return {part.term->maximum ? std::min(least, *part.term->maximum) : least, most};
}

/// The terms of the order charge each fill.
std::optional<Amounts> ofKnownFills(const Disputed& disputed) {
    try {
        return amountsIfAny(disputed.order.trades,
                            withTerms(disputed.charged.tariff, disputed.order.date(), [](cost::Term& term) {
                                const bool isMeant = term.per == Per::kOrder && term.basis != cost::Basis::kOrder;
                                term.per = isMeant ? Per::kFill : term.per;
                            }));
    } catch (const cost::Refused&) {
        return std::nullopt;
    }
}

}  // namespace

Span withMinimumOfEachFill(const Part& part, std::size_t fills) {
    const Decimal& minimum = *part.term->minimum;
    const Decimal least = std::max(countOf(fills) * minimum, part.exact);
    const Decimal most = countOf(fills - 1) * minimum + std::max(minimum, part.exact);
    const auto& rounding = part.term->rounding;
    return rounding ? Span(rounding->rounded(least), rounding->rounded(most)) : Span(least, most);
}

Span withEachFillRounded(const Part& part, std::size_t fills) {
    static const Decimal half = *Decimal::parse("0.5");
    const cost::Rounding& rounding = *part.term->rounding;
    const Decimal steps = rounding.step * countOf(fills);
    const Decimal below = rounding.mode == RoundingMode::kUp     ? Decimal()
                          : rounding.mode == RoundingMode::kDown ? steps
                                                                 : half * steps;
    const Decimal low = part.exact - below;
    const Decimal high = low + steps;
    return {low.isNegative() ? Decimal() : low.quotient(rounding.step, RoundingMode::kUp) * rounding.step,
            high.quotient(rounding.step, RoundingMode::kDown) * rounding.step};
}

bool isOfOrder(const Part& part) { return part.term->per == Per::kOrder && part.term->basis != cost::Basis::kOrder; }

std::optional<Amounts> chargedFillByFill(const Disputed& disputed) {
    const Order& order = disputed.order;
    if (order.fills < 2) {
        return std::nullopt;
    }
    if (order.trades.size() > 1) {
        return ofKnownFills(disputed);
    }
    Amounts changed = disputed.charged;
    for (Part& part : changed.parts) {
        part.amount = isOfOrder(part) ? withMinimumAndRounding(part, order.fills) : part.amount;
    }
    return changed;
}

}  // namespace feedesk
