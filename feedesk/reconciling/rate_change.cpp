#include "feedesk/reconciling/rate_change.h"

#include <fmt/format.h>

#include <algorithm>

namespace feedesk {
namespace {

using Outcome = ReconciledOrder::Outcome;
using Place = OrdersByDay::const_iterator;

/// How many orders are held against a rate that fits one order, so that a long statement takes no longer for each line.
constexpr std::ptrdiff_t kMostHeld = 200;

std::string keyOf(const cost::ChargeLine& line) {
    return fmt::format("{}\n{}\n{}", line.term->charge, line.term->item,
                       line.rate == nullptr ? line.term->where : line.rate->source + '\n' + line.rate->level);
}

/// Whether the folder's own rates explain the order.
bool isByFolder(const ReconciledOrder& charged) {
    const bool hasRate = charged.cause == Cause::kOtherRate;
    return charged.outcome == Outcome::kAgrees ||
           (!hasRate && (charged.cause != Cause::kNotExplained || !charged.alsoFit.empty()));
}

const std::vector<cost::ChargeLine>& planLines(const ReconciledOrder& charged) {
    return charged.tariff->planOf(charged.order.side(), charged.order.date()).lines;
}

/// One order of a line with what the folder charges for it, to be held against rates.
class Held {
public:
    Held(const ReconciledOrder& heldOrder, const SoughtRate& soughtRate, const Layout& statementLayout)
        : charged(heldOrder),
          amounts(amountsOf(heldOrder.order.trades, *heldOrder.tariff)),
          sought(soughtRate),
          layout(statementLayout) {}

    [[nodiscard]] std::optional<RateRange> range() const { return ratesThatFit(disputed(), sought, layout); }

    /// Those of the range that fit, which may be none; nothing when no rate at all does.
    [[nodiscard]] std::optional<RateRange> rangeIn(const RateRange& wide) const {
        if (fitsRate(wide.low) && fitsRate(wide.high)) {
            return wide;
        }
        const auto own = range();
        return own ? std::optional(wide & *own) : std::nullopt;
    }

    [[nodiscard]] bool fitsRate(const cost::Decimal& rate) const { return fits(rate, disputed(), sought, layout); }

    /// Whether the order would cost something else with this rate.
    [[nodiscard]] bool feels(const cost::Decimal& rate) const {
        const auto figures = figuresWith(rate, disputed(), sought, layout);
        const Figures own = figuresOf(charged.order.stated, amounts, layout);
        return !figures || !std::equal(figures->begin(), figures->end(), own.begin(), own.end(),
                                       [](const Figure& one, const Figure& other) {
                                           return one.expected.low == other.expected.low;
                                       });
    }

    /// Whether more figures differ with this rate than with the folder's.
    [[nodiscard]] bool isWorseWith(const cost::Decimal& rate) const {
        const auto figures = figuresWith(rate, disputed(), sought, layout);
        return !figures || disagreeing(*figures) > disagreeing(figuresOf(charged.order.stated, amounts, layout));
    }

    [[nodiscard]] SolvedRate solved(const RateRange& fitting) const {
        const auto part = std::find_if(amounts.parts.begin(), amounts.parts.end(),
                                       [&](const Part& each) { return sought.isOf(each); });
        SolvedRate rate;
        rate.sought = sought;
        rate.range = fitting;
        rate.rate = fitting.simplest();
        rate.isFraction = part->term->basis == cost::Basis::kTurnover;
        rate.isTermsOwn = part->rate == nullptr;
        rate.folderRate = rate.isTermsOwn ? *part->term->rate : part->rate->value;
        rate.source = rate.isTermsOwn ? part->term->where : part->rate->source;
        return rate;
    }

private:
    [[nodiscard]] Disputed disputed() const { return {charged.order, amounts}; }

    const ReconciledOrder& charged;
    Amounts amounts;
    const SoughtRate& sought;
    const Layout& layout;
};

/// Goes from the last day of a line's orders back, as long as one rate fits.
class Sweep {
public:
    Sweep(const ChargedLine& chargedLine, const Layout& statementLayout) : line(chargedLine), layout(statementLayout) {}

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
    [[nodiscard]] Held held(const ReconciledOrder& charged) const { return {charged, line.sought, layout}; }

    /// Leaves the rates that fit the order too; false, and all of them, where no rate fits it.
    bool narrow(const ReconciledOrder& charged) {
        const Held order = held(charged);
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
        if (charged.outcome == Outcome::kAgrees) {
            return false;
        }
        const cost::Decimal rate = range->simplest();
        const bool isOther = isByFolder(charged) ? !held(charged).feels(rate)
                                                 : !charged.remark.empty() || !held(charged).isWorseWith(rate);
        otherLines += isOther ? charged.order.lines.size() : 0;
        return isOther;
    }

    void note(cost::Date from) {
        found = RateChange{held(*fitting.back()).solved(*range), fitting};
        found->solved.from = from;
        found->solved.lines = fittingLines;
        found->solved.otherLines = otherLines;
    }

    const ChargedLine& line;
    const Layout& layout;
    std::optional<RateRange> range;
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
        const Held held(*each, line.sought, layout);
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

ChargedLines::ChargedLines(const OrdersByDay& orders) {
    for (ReconciledOrder* each : orders) {
        for (const cost::ChargeLine& charge : planLines(*each)) {
            const auto place = places.emplace(keyOf(charge), lines.size());
            if (place.second) {
                lines.push_back({{charge.term->charge, charge.term->item}, {}});
            }
            lines[place.first->second].orders.push_back(each);
        }
    }
}

std::vector<const ChargedLine*> ChargedLines::of(const ReconciledOrder& charged) const {
    std::vector<const ChargedLine*> found;
    for (const cost::ChargeLine& charge : planLines(charged)) {
        found.push_back(&lines[places.at(keyOf(charge))]);
    }
    return found;
}

std::optional<RateChange> lastChangeOf(const ChargedLine& line, const Layout& layout) {
    const OrdersByDay& orders = line.orders;
    const auto firstOpen =
        std::find_if(orders.begin(), orders.end(), [](const ReconciledOrder* each) { return each->isOpen(); });
    Sweep sweep(line, layout);
    for (auto end = orders.end(); end > firstOpen;) {
        const cost::Date day = (*std::prev(end))->order.date();
        const auto begin = std::lower_bound(
            orders.begin(), end, day,
            [](const ReconciledOrder* each, const cost::Date& first) { return each->order.date() < first; });
        if (!sweep.take(begin, end)) {
            break;
        }
        end = begin;
    }
    return sweep.found;
}

std::optional<SolvedRate> rateOf(const ChargedLine& line, const ReconciledOrder& charged, const Layout& layout) {
    const Held order(charged, line.sought, layout);
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
