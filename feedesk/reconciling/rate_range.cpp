#include "feedesk/reconciling/rate_range.h"

#include <algorithm>
#include <cstdint>

#include "cost/refused.h"
#include "feedesk/reconciling/changed_terms.h"

namespace feedesk {
namespace {

using cost::Decimal;
using cost::RoundingMode;

constexpr std::size_t kDecimals = 12;
/// Of the grid on which rates are looked for: a million, which no rate comes near.
constexpr std::int64_t kMostSteps = 1'000'000'000'000'000'000;

Decimal stepOf(std::size_t decimals) {
    return decimals == 0 ? Decimal(1) : *Decimal::parse("0." + std::string(decimals - 1, '0') + '1');
}

Decimal rateAt(std::int64_t steps) {
    static const Decimal step = stepOf(kDecimals);
    return Decimal(steps) * step;
}

/// The order with another rate of the sought charge; nothing where that is refused.
std::optional<Amounts> withSought(const Disputed& disputed, const SoughtRate& sought, const Decimal& rate) {
    try {
        return amountsIfAny(disputed.order.trades,
                            withRate(disputed.charged.tariff, disputed.order.date(), sought.charge, sought.item, rate));
    } catch (const cost::Refused&) {
        return std::nullopt;
    }
}

const Part* partOf(const Amounts& amounts, const SoughtRate& sought) {
    const auto part =
        std::find_if(amounts.parts.begin(), amounts.parts.end(), [&](const Part& each) { return sought.isOf(each); });
    return part == amounts.parts.end() ? nullptr : &*part;
}

Decimal amountWith(const Disputed& disputed, const SoughtRate& sought, std::int64_t steps) {
    const auto amounts = withSought(disputed, sought, rateAt(steps));
    const Part* part = amounts ? partOf(*amounts, sought) : nullptr;
    return part == nullptr ? Decimal() : part->amount.low;
}

/// What the charge must be while everything else stays: of what is paid the rest of the costs, of what is inside
/// another one what the statement says of it.
std::optional<Decimal> wantedAmount(const Disputed& disputed, const Part& part, const Layout& layout) {
    const StatedAmounts& stated = disputed.order.stated;
    if (part.isPaid()) {
        const Decimal costs = stated.costs(layout, disputed.charged);
        return part.amount.low + (costs - disputed.charged.costs().low);
    }
    for (std::size_t i = 0; i < stated.charges.size(); ++i) {
        const ChargeColumn& column = layout.charges[i];
        if (stated.charges[i] && column.stated == Stated::kWhole &&
            column.charges == std::vector<std::string>{part.charge}) {
            return stated.charges[i];
        }
    }
    return std::nullopt;
}

/// Whether all figures agree when the part has this amount, from whatever rate. An amount of 0 is no charge at all, and
/// of no rate, but where the folder rounds to it as well.
bool mayBe(const Decimal& amount, const Part& part, const Disputed& disputed, const Layout& layout) {
    if (amount.isNegative() || (amount.isZero() && !part.amount.low.isZero())) {
        return false;
    }
    Amounts changed = disputed.charged;
    changed.parts[static_cast<std::size_t>(&part - disputed.charged.parts.data())].amount = Span(amount);
    return agree(disputed.order.stated, changed, layout);
}

/// The first step from which on `holds`, which stays true once it is; kMostSteps + 1 when it never is.
template <class Holds>
std::int64_t firstStep(const Holds& holds) {
    std::int64_t high = 1'000'000'000;  // a thousandth
    while (high < kMostSteps && !holds(high)) {
        high *= 10;
    }
    if (!holds(high)) {
        return kMostSteps + 1;
    }
    std::int64_t low = 0;
    while (low < high) {
        const std::int64_t middle = low + (high - low) / 2;
        holds(middle) ? high = middle : low = middle + 1;
    }
    return low;
}

}  // namespace

Decimal RateRange::simplest() const {
    for (std::size_t decimals = 0; decimals < kDecimals; ++decimals) {
        const Decimal step = stepOf(decimals);
        Decimal rate = std::max(low.quotient(step, RoundingMode::kUp), Decimal(1)) * step;
        if (rate <= high) {
            return rate;
        }
    }
    return low;
}

bool RateRange::isOpenBelow() const { return low <= rateAt(1); }

std::string RateRange::text() const {
    if (low == high) {
        return low.text();
    }
    return (isOpenBelow() ? "up to " : "from " + low.text() + " to ") + high.text();
}

RateRange operator&(const RateRange& one, const RateRange& other) {
    return {std::max(one.low, other.low), std::min(one.high, other.high)};
}

std::optional<Figures> figuresWith(const Decimal& rate, const Disputed& disputed, const SoughtRate& sought,
                                   const Layout& layout) {
    const auto amounts = withSought(disputed, sought, rate);
    return amounts ? std::optional(figuresOf(disputed.order.stated, *amounts, layout)) : std::nullopt;
}

bool fits(const Decimal& rate, const Disputed& disputed, const SoughtRate& sought, const Layout& layout) {
    const auto amounts = withSought(disputed, sought, rate);
    return amounts && agree(disputed.order.stated, *amounts, layout);
}

std::optional<RateRange> ratesThatFit(const Disputed& disputed, const SoughtRate& sought, const Layout& layout) {
    const Part* part = partOf(disputed.charged, sought);
    const auto wanted = part == nullptr ? std::nullopt : wantedAmount(disputed, *part, layout);
    if (!wanted || !mayBe(*wanted, *part, disputed, layout)) {
        return std::nullopt;
    }
    // The amount never falls when the rate rises.
    const auto amount = [&](std::int64_t steps) { return amountWith(disputed, sought, steps); };
    const std::int64_t low = firstStep([&](std::int64_t steps) { return amount(steps) >= *wanted; });
    const std::int64_t above = firstStep([&](std::int64_t steps) { return amount(steps) > *wanted; });
    if (low > kMostSteps || low >= above) {
        return std::nullopt;
    }
    const RateRange range{rateAt(std::max<std::int64_t>(low, 1)), rateAt(above - 1)};
    const bool bothFit = fits(range.low, disputed, sought, layout) && fits(range.high, disputed, sought, layout);
    return bothFit ? std::optional(range) : std::nullopt;
}

}  // namespace feedesk
