#include "feedesk/reconciling/rate_change.h"

#include <algorithm>
#include <utility>

#include "feedesk/reconciling/held_order.h"

namespace feedesk {
namespace {

using Place = OrdersByDay::const_iterator;

/// How many orders are held against a rate that fits one order, so that a long statement takes no longer for each line.
constexpr std::ptrdiff_t kMostHeld = 200;

/// Goes from the last day of a line's orders back, as long as one rate fits.
class Sweep {
public:
    Sweep(const ChargedLine& chargedLine, const Layout& statementLayout, std::optional<RateRange> within,
          bool endsBefore)
        : line(chargedLine), layout(statementLayout), range(std::move(within)), hasEnd(endsBefore) {}

    /// Takes the orders of the day before; false when no rate fits them and those of the days behind it.
    bool take(Place first, Place last) {
        const std::size_t fittingBefore = fitting.size();
        for (auto each = first; each != last; ++each) {
            if ((*each)->isOpen() && narrow(**each)) {
                fitting.push_back(*each);
                fittingLines += (*each)->order.lines.size();
            } else {
                unchecked.push_back(*each);
            }
            if (range && range->isEmpty()) {
                return false;
            }
        }
        if (range && !checkAll()) {
            return false;
        }
        if (fitting.size() > fittingBefore) {
            note((*first)->order.date());
        }
        return true;
    }

    std::optional<RateChange> found;

private:
    [[nodiscard]] HeldOrder held(const ReconciledOrder& charged) const { return {charged, line.sought, layout}; }

    /// Leaves the rates that fit the order too; false, and all of them, where no rate fits it.
    bool narrow(const ReconciledOrder& charged) {
        const HeldOrder order = held(charged);
        const auto narrower = range ? order.rangeIn(*range) : order.range();
        range = narrower ? narrower : range;
        return narrower.has_value();
    }

    /// Holds what no rate had to explain against the rates.
    bool checkAll() {
        const bool allFit = std::all_of(unchecked.begin(), unchecked.end(), [&](const ReconciledOrder* each) {
            return isOtherwise(*each) || (narrow(*each) && countLines(*each) && !range->isEmpty());
        });
        unchecked.clear();
        return allFit;
    }

    bool countLines(const ReconciledOrder& charged) {
        fittingLines += charged.order.lines.size();
        return true;
    }

    /// Whether the order differs in another way, which says nothing of the rate: by what nothing explains, or by what
    /// the folder explains while the rate changes nothing. One that is nearer to the folder speaks against the rate.
    bool isOtherwise(const ReconciledOrder& charged) {
        if (charged.outcome == ReconciledOrder::Outcome::kAgrees) {
            return false;
        }
        const cost::Decimal rate = range->simplest();
        const bool isOther = isByFolder(charged) ? !held(charged).feels(rate)
                                                 : !charged.remark.empty() || !held(charged).isWorseWith(rate);
        otherLines += isOther ? charged.order.lines.size() : 0;
        return isOther;
    }

    void note(cost::Date from) {
        found = RateChange{held(*fitting.back()).solved(*range), fitting, &line};
        found->solved.from = from;
        if (hasEnd) {
            found->solved.until = fitting.front()->order.date();
        }
        found->solved.sources.front().days = {found->solved.from, found->solved.until};
        found->solved.instrument = line.instrument;
        found->solved.lines = fittingLines;
        found->solved.otherLines = otherLines;
    }

    const ChargedLine& line;
    const Layout& layout;
    std::optional<RateRange> range;
    bool hasEnd;            // orders behind it are left out
    OrdersByDay fitting;    // the open ones that it explains
    OrdersByDay unchecked;  // of the days before there is a range
    std::size_t fittingLines = 0;
    std::size_t otherLines = 0;
};

Place firstFrom(const OrdersByDay& orders, Place end, cost::Date day) {
    return std::lower_bound(orders.begin(), end, day, [](const ReconciledOrder* each, const cost::Date& first) {
        return each->order.date() < first;
    });
}

/// The first order from the day of this one on that pays another rate; nothing where the next ones do not show it.
std::optional<OtherLine> firstAgainst(const ChargedLine& line, const ReconciledOrder& charged, const RateRange& range,
                                      const Layout& layout) {
    const auto from = firstFrom(line.orders, line.orders.end(), charged.order.date());
    const auto end = from + std::min(line.orders.end() - from, kMostHeld);
    const auto other = std::find_if(from, end, [&](const ReconciledOrder* each) {
        const HeldOrder held(*each, line.sought, layout);
        if (held.fitsRate(range.low) || held.fitsRate(range.high)) {
            return false;
        }
        const auto own = isByFolder(*each) ? std::nullopt : held.range();
        return own ? (*own & range).isEmpty() : isByFolder(*each) && held.feels(range.low);
    });
    return other == end ? std::nullopt
                        : std::optional(OtherLine{(*other)->order.lines.front(), (*other)->order.date()});
}

}  // namespace

std::optional<RateChange> lastChangeOf(const ChargedLine& line, const Layout& layout,
                                       const std::optional<RateRange>& within, const std::optional<cost::Date>& until) {
    const OrdersByDay& orders = line.orders;
    const auto last = until && until->next() ? firstFrom(orders, orders.end(), *until->next()) : orders.end();
    const auto firstOpen =
        std::find_if(orders.begin(), orders.end(), [](const ReconciledOrder* each) { return each->isOpen(); });
    Sweep sweep(line, layout, within, until.has_value());
    for (auto end = last; end > firstOpen;) {
        const cost::Date day = (*std::prev(end))->order.date();
        const auto begin = firstFrom(orders, end, day);
        if (!sweep.take(begin, end)) {
            break;
        }
        end = begin;
    }
    return sweep.found;
}

std::optional<SolvedRate> rateOf(const ChargedLine& line, const ReconciledOrder& charged, const Layout& layout) {
    const HeldOrder order(charged, line.sought, layout);
    const auto range = order.range();
    if (!range) {
        return std::nullopt;
    }
    SolvedRate solved = order.solved(*range);
    solved.lines = charged.order.lines.size();
    solved.against = firstAgainst(line, charged, *range, layout);
    return solved;
}

}  // namespace feedesk
