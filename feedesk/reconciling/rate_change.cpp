#include "feedesk/reconciling/rate_change.h"

#include <algorithm>
#include <unordered_set>

namespace feedesk {
namespace {

using Outcome = ReconciledOrder::Outcome;

Amounts amountsBy(const ReconciledOrder& charged) { return amountsOf(charged.order.trades, *charged.tariff); }

/// Those of the range with which the order agrees; an empty range when there are none.
RateRange narrowed(const RateRange& range, const ReconciledOrder& charged, const SoughtRate& sought,
                   const Layout& layout) {
    static const RateRange nothing{cost::Decimal(1), cost::Decimal()};
    const Amounts amounts = amountsBy(charged);
    const Disputed disputed{charged.order, amounts};
    if (fits(range.low, disputed, sought, layout) && fits(range.high, disputed, sought, layout)) {
        return range;
    }
    const auto own = ratesThatFit(disputed, sought, layout);
    return own ? range & *own : nothing;
}

SolvedRate solvedFrom(const Part& part, const RateRange& range) {
    SolvedRate solved;
    solved.sought = {part.charge, part.item};
    solved.range = range;
    solved.rate = range.simplest();
    solved.isFraction = part.term->basis == cost::Basis::kTurnover;
    solved.isTermsOwn = part.rate == nullptr;
    solved.folderRate = part.rate == nullptr ? *part.term->rate : part.rate->value;
    solved.source = part.rate == nullptr ? part.term->where : part.rate->source;
    return solved;
}

using Chosen = std::unordered_set<const ReconciledOrder*>;

/// The charge's rate for the kind; nothing when no rate fits.
std::shared_ptr<const SolvedRate> solvedFor(const Kind& kind, const Kind& explained, const Part& part,
                                            const Layout& layout) {
    const SoughtRate sought{part.charge, part.item};
    const cost::Date from = explained.front()->order.date();
    const Amounts first = amountsBy(*explained.front());
    auto range = ratesThatFit({explained.front()->order, first}, sought, layout);
    const Chosen chosen(explained.begin(), explained.end());
    std::size_t lines = 0;
    for (ReconciledOrder* each : kind) {
        const bool isAsked = each->outcome == Outcome::kAgrees || chosen.count(each) != 0;
        if (!range || range->isEmpty()) {
            return nullptr;
        }
        if (isAsked && each->order.date() >= from) {
            range = narrowed(*range, *each, sought, layout);
            lines += each->order.lines.size();
        }
    }
    if (range->isEmpty()) {
        return nullptr;
    }
    auto solved = std::make_shared<SolvedRate>(solvedFrom(part, *range));
    solved->from = from;
    solved->lines = lines;
    return solved;
}

}  // namespace

std::shared_ptr<const SolvedRate> rateFor(const Kind& kind, const Kind& explained, const Layout& layout) {
    const Amounts first = amountsBy(*explained.front());
    for (const Part& part : first.parts) {
        if (auto solved = solvedFor(kind, explained, part, layout)) {
            return solved;
        }
    }
    return nullptr;
}

std::shared_ptr<const SolvedRate> rateFor(const ReconciledOrder& charged, const Layout& layout) {
    const Amounts amounts = amountsBy(charged);
    for (const Part& part : amounts.parts) {
        if (const auto range = ratesThatFit({charged.order, amounts}, {part.charge, part.item}, layout)) {
            auto solved = std::make_shared<SolvedRate>(solvedFrom(part, *range));
            solved->lines = charged.order.lines.size();
            return solved;
        }
    }
    return nullptr;
}

bool explains(const SolvedRate& solved, const ReconciledOrder& charged, const Layout& layout) {
    const Amounts amounts = amountsBy(charged);
    return (!solved.from || charged.order.date() >= *solved.from) &&
           fits(solved.rate, {charged.order, amounts}, solved.sought, layout);
}

}  // namespace feedesk
