#include "feedesk/commands/reconcile_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <unordered_map>
#include <utility>

#include "feedesk/commands/cause_sentences.h"
#include "feedesk/text/numbers.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

using Outcome = ReconciledOrder::Outcome;

const StatementLine& firstLine(const OrderRow& row) { return row.statement.lines[row.reconciled.order.lines.front()]; }

std::string marketOf(const OrderRow& row) {
    return row.reconciled.tariff ? row.reconciled.tariff->place().market : firstLine(row).market;
}

/// With the zeros that the statement may have lost.
std::string codeOf(const OrderRow& row) {
    return row.reconciled.tariff ? row.reconciled.tariff->place().code : firstLine(row).code;
}

std::string tradedInstrument(const OrderRow& row) {
    const std::string market = marketOf(row);
    return market.empty() ? codeOf(row) : market + ':' + codeOf(row);
}

std::string quantityOf(const OrderRow& row) {
    cost::Decimal sum;
    for (const cost::Trade& trade : row.reconciled.order.trades) {
        sum += trade.quantity;
    }
    return sum.text();
}

Value money(const cost::Decimal& amount) { return Money{amount.text(kMoneyDecimals)}; }

/// With its sign, so that a reader sees who says more.
std::string differenceText(const cost::Decimal& stated, const Span& expected) {
    const cost::Decimal difference =
        expected.contains(stated) ? cost::Decimal() : stated - (stated < expected.low ? expected.low : expected.high);
    return (difference > cost::Decimal() ? "+" : "") + difference.text(kMoneyDecimals);
}

std::string plainDifference(const std::string& text) { return text.front() == '+' ? text.substr(1) : text; }

/// The result for programs, and its word for people where the difference has a column of its own.
Value resultOf(const OrderRow& row) {
    switch (row.reconciled.outcome) {
        case Outcome::kAgrees:
            return Label{"agrees", {"agrees"}};
        case Outcome::kNotCharged:
            return Label{"not_charged", {"not charged"}};
        case Outcome::kDiffers:
            break;
    }
    return Label{"differs", {"differs"}};
}

/// The result with the difference in it.
Value shownResultOf(const OrderRow& row) {
    const std::string difference = differenceText(row.reconciled.statedCosts, Span(row.reconciled.costs));
    const bool hasSum = row.reconciled.outcome == Outcome::kDiffers && difference != "0.00";
    return hasSum ? Value(difference) : resultOf(row);
}

/// The value of an order that has an answer.
template <class Find>
auto ofCharged(const Find& find) {
    return [find](const OrderRow& row) {
        return row.reconciled.outcome == Outcome::kNotCharged ? Value(Nothing()) : Value(find(row));
    };
}

/// The value of what is solved for.
template <class Find>
auto ofSolved(const Find& find) {
    return [find](const OrderRow& row) {
        return row.reconciled.solved ? Value(find(*row.reconciled.solved)) : Value(Nothing());
    };
}

/// The value of what the folder has in its place.
template <class Find>
auto ofSource(const Find& find) {
    return [find](const OrderRow& row) {
        return row.reconciled.solved ? find(replacedBySolved(row.reconciled), *row.reconciled.solved)
                                     : Value(Nothing());
    };
}

Rate solvedNumber(const cost::Decimal& rate, const SolvedRate& solved) {
    return {rate.text(), solved.isFraction ? Unit::kFraction : Unit::kNumber};
}

Value causeOf(const OrderRow& row) {
    return row.reconciled.outcome == Outcome::kDiffers ? Value(std::string(cost::wordFor(row.reconciled.cause)))
                                                       : Value(Nothing());
}

Names causesIn(const Explanations& explanations) {
    Names names;
    for (const Explanation& each : explanations) {
        const std::string name(cost::wordFor(each.cause));
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(name);
        }
    }
    return names;
}

}  // namespace

FieldsOf<OrderRow> orderFields() {
    return {
        {forPrograms("row"), [](const OrderRow&) { return std::string("order"); }},
        {{"line", "Line", Unit::kCount}, [](const OrderRow& row) { return firstLine(row).line; }},
        {forPrograms("lines"), [](const OrderRow& row) { return lineNumbers(row.reconciled, row.statement); }},
        {{"date", "Date"}, [](const OrderRow& row) { return firstLine(row).trade.date; }},
        {forPrograms("market"), [](const OrderRow& row) { return textOrNothing(marketOf(row)); }},
        {forPrograms("code"), codeOf},
        {forPeople("Instrument"), tradedInstrument},
        {forPrograms("name"), [](const OrderRow& row) { return textOrNothing(firstLine(row).name); }},
        {{"side", "Side"}, [](const OrderRow& row) { return std::string(cost::wordFor(firstLine(row).trade.side)); }},
        {{"quantity", "Quantity", Unit::kNumber}, [](const OrderRow& row) { return Money{quantityOf(row)}; }},
        {forPrograms("order"), [](const OrderRow& row) { return textOrNothing(firstLine(row).trade.order); }},
        {{"stated", "Statement", Unit::kNumber},
         ofCharged([](const OrderRow& row) { return money(row.reconciled.statedCosts); })},
        {{"charged", "Folder", Unit::kNumber},
         ofCharged([](const OrderRow& row) { return money(row.reconciled.costs); })},
        {forPrograms("difference"),
         ofCharged([](const OrderRow& row) { return money(row.reconciled.statedCosts - row.reconciled.costs); })},
        {forPrograms("currency"), [](const OrderRow& row) { return textOrNothing(row.reconciled.currency); }},
        {forPrograms("result"), resultOf},
        {Field{"", "Result", Unit::kNumber}, shownResultOf},
        {forPrograms("cause"), causeOf},
        {forPrograms("explanation"),
         [](const OrderRow& row) {
             return textOrNothing(row.reconciled.outcome == Outcome::kAgrees ? "" : explanationOf(row));
         }},
        {forPrograms("also_fits"), [](const OrderRow& row) { return causesIn(alternativesOf(row)); }},
        {forPrograms("alternatives"), [](const OrderRow& row) { return Sentences{alternativeSentences(row)}; }},
        {forPrograms("charge"), ofSolved([](const SolvedRate& solved) { return solved.sought.charge; })},
        {forPrograms("rate"), ofSolved([](const SolvedRate& solved) { return solvedNumber(solved.rate, solved); })},
        {forPrograms("rate_low"),
         ofSolved([](const SolvedRate& solved) { return solvedNumber(solved.range.low, solved); })},
        {forPrograms("rate_high"),
         ofSolved([](const SolvedRate& solved) { return solvedNumber(solved.range.high, solved); })},
        {forPrograms("rate_from"), ofSolved([](const SolvedRate& solved) { return dayOrNothing(solved.from); })},
        {forPrograms("rate_until"), ofSolved([](const SolvedRate& solved) { return dayOrNothing(solved.until); })},
        {forPrograms("folder_rate"), ofSource([](const RateSource& source, const SolvedRate& solved) {
             return Value(solvedNumber(source.rate, solved));
         })},
        {forPrograms("source"), ofSource([](const RateSource& source, const SolvedRate& /*solved*/) {
             return source.source.empty() ? Value(Nothing()) : Value(Source{source.source});
         })},
    };
}

FieldsOf<FigureRow> figureFields() {
    return {
        {forPrograms("row"), [](const FigureRow&) { return std::string("figure"); }},
        {{"line", "Line", Unit::kCount}, [](const FigureRow& row) { return firstLine(row.order).line; }},
        {{"figure", "Figure"}, [](const FigureRow& row) { return row.figure.name; }},
        {{"stated", "Statement", Unit::kNumber}, [](const FigureRow& row) { return money(row.figure.stated); }},
        {{"charged", "Folder", Unit::kNumber}, [](const FigureRow& row) { return money(row.figure.expected.low); }},
        {forPrograms("difference"),
         [](const FigureRow& row) {
             return Money{plainDifference(differenceText(row.figure.stated, row.figure.expected))};
         }},
        {Field{"", "Difference", Unit::kNumber},
         [](const FigureRow& row) { return differenceText(row.figure.stated, row.figure.expected); }},
    };
}

FieldsOf<Proposal> proposalFields() {
    return {
        {forPrograms("row"), [](const Proposal&) { return std::string("proposal"); }},
        {forPrograms("source"), [](const Proposal& proposal) { return Source{proposal.where}; }},
        {forPrograms("old"), [](const Proposal& proposal) { return proposal.before; }},
        {forPrograms("new"), [](const Proposal& proposal) { return proposal.after; }},
    };
}

}  // namespace feedesk
