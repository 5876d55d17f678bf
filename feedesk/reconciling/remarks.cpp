#include "feedesk/reconciling/remarks.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace feedesk {
namespace {

using cost::Decimal;
using cost::RoundingMode;

/// By how much a charge may miss a multiple of the folder's: both were rounded to a fen.
const Decimal& slackOfCharge() {
    static const Decimal slack = *Decimal::parse("0.01");
    return slack;
}

Decimal ratioOf(const Decimal& one, const Decimal& other, RoundingMode mode) {
    static const Decimal grain = *Decimal::parse("0.000001");
    return one.quotient(other * grain, mode) * grain;
}

/// The simplest number that the statement's costs are of the folder's; nothing where they are alike or too small.
std::optional<Decimal> ratioOfCosts(const Decimal& stated, const Amounts& amounts) {
    const Decimal costs = amounts.costs().low;
    const Decimal slack = slackOfCharge() * Decimal(static_cast<std::int64_t>(amounts.parts.size()));
    if (stated <= slack || costs <= slack) {
        return std::nullopt;
    }
    const RateRange range{ratioOf(stated - slack, costs + slack, RoundingMode::kUp),
                          ratioOf(stated + slack, costs - slack, RoundingMode::kDown)};
    return range.contains(Decimal(1)) ? std::nullopt : std::optional(range.simplest());
}

Span times(const Span& span, const Decimal& ratio) {
    return {span.low * ratio - slackOfCharge(), span.high * ratio + slackOfCharge()};
}

/// Every charge so many times, and the amount as the statement has it.
Amounts scaled(Amounts amounts, const Decimal& ratio, const Decimal& turnover) {
    for (Part& part : amounts.parts) {
        part.amount = times(part.amount, ratio);
    }
    amounts.turnover = turnover;
    return amounts;
}

/// How many charges the statement shows; its costs alone show a ratio whatever they are.
std::size_t chargesIn(const StatedAmounts& stated) {
    return static_cast<std::size_t>(std::count_if(stated.charges.begin(), stated.charges.end(),
                                                  [](const auto& each) { return each && !each->isZero(); }));
}

/// Whether the amounts of the statement are so many times quantity x price.
bool isRatioOfAmounts(const ReconciledOrder& charged, const Statement& statement, const Decimal& ratio) {
    return std::all_of(charged.order.lines.begin(), charged.order.lines.end(), [&](std::size_t index) {
        const StatementLine& line = statement.lines[index];
        return line.amount &&
               times(turnoverSpan(line, charged.tariff->contract().multiplier), ratio).contains(*line.amount);
    });
}

/// How many times what quantity x price says the amount and all charges are; nothing where that is no one number.
std::optional<Decimal> ratioOfAll(const ReconciledOrder& charged, const Statement& statement) {
    std::vector<cost::Trade> trades = charged.order.trades;
    Decimal turnover;
    for (cost::Trade& each : trades) {
        turnover += each.turnover.value_or(Decimal());
        each.turnover.reset();
    }
    const auto amounts = amountsIfAny(trades, *charged.tariff);
    const auto ratio = amounts ? ratioOfCosts(charged.statedCosts, *amounts) : std::nullopt;
    const bool fits = ratio && isRatioOfAmounts(charged, statement, *ratio) &&
                      agree(charged.order.stated, scaled(*amounts, *ratio, turnover), statement.layout);
    return fits ? ratio : std::nullopt;
}

}  // namespace

std::string amountRemark(const ReconciledOrder& charged, const Statement& statement) {
    const auto figure = std::find_if(charged.figures.begin(), charged.figures.end(),
                                     [](const Figure& each) { return each.name == kAmountFigure && !each.agrees(); });
    if (figure == charged.figures.end()) {
        return "";
    }
    if (const auto ratio = ratioOfAll(charged, statement)) {
        return fmt::format(
            "its amount and its charges are {} times those of quantity x price, which the folder has in {}: it looks "
            "like a statement in another currency",
            ratio->text(), charged.currency);
    }
    return fmt::format("the amount {} is not quantity x price, which is {} to {}", figure->stated.text(2),
                       figure->expected.low.text(2), figure->expected.high.text(2));
}

std::string ratioRemark(const ReconciledOrder& charged, const Statement& statement) {
    const Amounts amounts = amountsOf(charged.order.trades, *charged.tariff);
    const auto ratio = ratioOfCosts(charged.statedCosts, amounts);
    const bool fits = ratio && chargesIn(charged.order.stated) > 1 &&
                      agree(charged.order.stated, scaled(amounts, *ratio, amounts.turnover), statement.layout);
    if (!fits) {
        return "";
    }
    const std::string sentence = fmt::format("to a fen each of its charges is {} times the folder's", ratio->text());
    return charged.currency == "CNY"
               ? sentence
               : fmt::format("{}, in {}: they look like charges in another currency", sentence, charged.currency);
}

std::string columnsRemark(const ReconciledOrder& charged, const Layout& layout) {
    StatedAmounts columns = charged.order.stated;
    columns.net.reset();
    const Decimal sum = columns.costs(layout, Amounts(*charged.tariff));
    const bool hasSum = !sum.isZero() && charged.order.stated.net.has_value();
    return !hasSum || sum == charged.statedCosts ? ""
                                                 : fmt::format("its columns add up to {}, and by its net it cost {}",
                                                               sum.text(2), charged.statedCosts.text(2));
}

}  // namespace feedesk
