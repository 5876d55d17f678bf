#include "feedesk/reconciling/held_order.h"

#include <algorithm>

namespace feedesk {

bool isByFolder(const ReconciledOrder& charged) {
    const bool hasRate = charged.cause == Cause::kOtherRate;
    return charged.outcome == ReconciledOrder::Outcome::kAgrees ||
           (!hasRate && (charged.cause != Cause::kNotExplained || !charged.alsoFit.empty()));
}

HeldOrder::HeldOrder(const ReconciledOrder& heldOrder, const SoughtRate& soughtRate, const Layout& statementLayout)
    : charged(heldOrder),
      amounts(amountsOf(heldOrder.order.trades, *heldOrder.tariff)),
      sought(soughtRate),
      layout(statementLayout) {}

std::optional<RateRange> HeldOrder::range() const { return ratesThatFit(disputed(), sought, layout); }

std::optional<RateRange> HeldOrder::rangeIn(const RateRange& wide) const {
    if (fitsRate(wide.low) && fitsRate(wide.high)) {
        return wide;
    }
    const auto own = range();
    return own ? std::optional(wide & *own) : std::nullopt;
}

bool HeldOrder::fitsRate(const cost::Decimal& rate) const { return fits(rate, disputed(), sought, layout); }

bool HeldOrder::feels(const cost::Decimal& rate) const {
    const auto figures = figuresWith(rate, disputed(), sought, layout);
    const Figures own = figuresOf(charged.order.stated, amounts, layout);
    return !figures ||
           !std::equal(figures->begin(), figures->end(), own.begin(), own.end(),
                       [](const Figure& one, const Figure& other) { return one.expected.low == other.expected.low; });
}

bool HeldOrder::isWorseWith(const cost::Decimal& rate) const {
    const auto figures = figuresWith(rate, disputed(), sought, layout);
    return !figures || disagreeing(*figures) > disagreeing(figuresOf(charged.order.stated, amounts, layout));
}

SolvedRate HeldOrder::solved(const RateRange& fitting) const {
    const auto part =
        std::find_if(amounts.parts.begin(), amounts.parts.end(), [&](const Part& each) { return sought.isOf(each); });
    SolvedRate rate;
    rate.sought = sought;
    rate.range = fitting;
    rate.rate = fitting.simplest();
    rate.isFraction = part->term->basis == cost::Basis::kTurnover;
    RateSource source;
    source.isTermsOwn = part->rate == nullptr;
    source.rate = source.isTermsOwn ? *part->term->rate : part->rate->value;
    source.source = source.isTermsOwn ? part->term->where : part->rate->source;
    rate.sources.push_back(source);
    return rate;
}

}  // namespace feedesk
