#include "feedesk/commands/reconcile_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <unordered_map>
#include <utility>

#include "feedesk/text/numbers.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

using Outcome = ReconciledOrder::Outcome;

constexpr std::size_t kMostSentences = 100;
constexpr std::size_t kMostLinesOfSentence = 12;

const StatementLine& firstLine(const OrderRow& row) { return row.statement.lines[row.reconciled.order.lines.front()]; }

std::vector<std::string> lineNumbers(const ReconciledOrder& reconciled, const Statement& statement) {
    std::vector<std::string> numbers;
    for (const std::size_t index : reconciled.order.lines) {
        numbers.push_back(std::to_string(statement.lines[index].line));
    }
    return numbers;
}

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

Value resultOf(const OrderRow& row) {
    switch (row.reconciled.outcome) {
        case Outcome::kAgrees:
            return Label{"agrees", {"agrees"}};
        case Outcome::kNotCharged:
            return Label{"not_charged", {"not charged"}};
        case Outcome::kDiffers:
            break;
    }
    const std::string difference = differenceText(row.reconciled.statedCosts, Span(row.reconciled.costs));
    return Label{"differs", {difference == "0.00" ? "differs" : difference}};
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

Rate solvedNumber(const cost::Decimal& rate, const SolvedRate& solved) {
    return {rate.text(), solved.isFraction ? Unit::kFraction : Unit::kNumber};
}

Value causeOf(const OrderRow& row) {
    return row.reconciled.outcome == Outcome::kDiffers ? Value(std::string(cost::wordFor(row.reconciled.cause)))
                                                       : Value(Nothing());
}

std::string sentencesOf(const Explanations& explanations, const char* between) {
    std::vector<std::string> sentences;
    for (const Explanation& each : explanations) {
        sentences.push_back(each.sentence);
    }
    return fmt::format("{}", fmt::join(sentences, between));
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

std::string lineText(std::size_t lines) { return lines == 1 ? "the line" : fmt::format("all {} lines", lines); }

/// Which other trades the rate fits.
std::string reachOf(const SolvedRate& solved, const OrderRow& row) {
    if (!solved.from && solved.against) {
        const cost::Date date = solved.against->date;
        return fmt::format("fits this trade, and not line {} of {}", row.statement.lines[solved.against->line].line,
                           date == row.reconciled.order.date() ? "the same day" : date.text());
    }
    if (!solved.from) {
        return "fits this trade, and no rate fits it and all those after it";
    }
    return solved.otherLines == 0 ? fmt::format("fits {} from {} on", lineText(solved.lines), solved.from->text())
                                  : fmt::format("fits {} of {} lines from {} on (the others differ in other ways)",
                                                solved.lines, solved.lines + solved.otherLines, solved.from->text());
}

std::string rateSentence(const SolvedRate& solved, const OrderRow& row) {
    const std::string which = solved.range.low == solved.range.high || solved.rate.text() == solved.range.text()
                                  ? ""
                                  : fmt::format(" (any from {})", solved.range.text());
    const std::string line = solved.source.empty() ? "built in, by no line" : solved.source;
    return fmt::format("the {} {}{} {}; the folder has {}, {}", solved.sought.charge, solved.rate.text(), which,
                       reachOf(solved, row), solved.folderRate.text(), line);
}

std::string explanationOf(const OrderRow& row) {
    const ReconciledOrder& reconciled = row.reconciled;
    if (reconciled.outcome == Outcome::kNotCharged) {
        return reconciled.problem;
    }
    if (reconciled.solved) {
        return rateSentence(*reconciled.solved, row);
    }
    if (!reconciled.causes.empty()) {
        return sentencesOf(reconciled.causes, ", or ");
    }
    return "nothing that is known explains it" + (reconciled.remark.empty() ? "" : "; " + reconciled.remark);
}

/// What explains the very same amounts besides, in the order in which causes are tried.
Explanations alternativesOf(const OrderRow& row) {
    Explanations alternatives = row.reconciled.alsoFit;
    if (row.reconciled.solved) {
        for (const SolvedRate& other : row.reconciled.solved->orElse) {
            alternatives.push_back({Cause::kOtherRate, other.sought.charge, rateSentence(other, row)});
        }
    }
    return alternatives;
}

std::string alternativeSentences(const OrderRow& row) { return sentencesOf(alternativesOf(row), "; "); }

std::string sentenceOf(const OrderRow& row) {
    const std::string alternatives = alternativeSentences(row);
    return explanationOf(row) + (alternatives.empty() ? "" : "; also fits: " + alternatives);
}

/// Trades of one explanation, which are told in one sentence.
struct SentenceGroup {
    std::string sentence;
    std::string kind;  ///< of the cause, for those that are counted and not told
    std::size_t trades = 0;
    std::vector<std::string> lines;

    [[nodiscard]] std::string text() const {
        const std::size_t shown = std::min(lines.size(), kMostLinesOfSentence);
        const std::vector<std::string> first(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(shown));
        return fmt::format("{} {}{}: {}", lines.size() == 1 ? "Line" : "Lines", fmt::join(first, ", "),
                           shown < lines.size() ? fmt::format(" and {} more", lines.size() - shown) : "", sentence);
    }
};

class SentenceGroups {
public:
    void add(const ReconciledOrder& order, const Statement& statement) {
        const std::string sentence = sentenceOf({order, statement});
        const auto place = places.emplace(sentence, groups.size());
        if (place.second) {
            const bool hasAnswer = order.outcome == Outcome::kDiffers;
            groups.push_back({sentence, hasAnswer ? std::string(cost::wordFor(order.cause)) : "no answer", 0, {}});
        }
        SentenceGroup& group = groups[place.first->second];
        ++group.trades;
        const std::vector<std::string> numbers = lineNumbers(order, statement);
        std::copy(numbers.begin(), numbers.end(), std::back_inserter(group.lines));
    }

    /// The first of them, and how many trades the others are, by the kinds of their causes.
    [[nodiscard]] std::vector<std::string> sentences() const {
        std::vector<std::string> told;
        for (std::size_t i = 0; i < std::min(groups.size(), kMostSentences); ++i) {
            told.push_back(groups[i].text());
        }
        if (groups.size() > kMostSentences) {
            told.push_back(restText());
        }
        return told;
    }

private:
    [[nodiscard]] std::string restText() const {
        std::map<std::string, std::size_t> kinds;
        std::size_t trades = 0;
        for (std::size_t i = kMostSentences; i < groups.size(); ++i) {
            kinds[groups[i].kind] += groups[i].trades;
            trades += groups[i].trades;
        }
        std::vector<std::string> counts;
        for (const auto& [kind, count] : kinds) {
            counts.push_back(fmt::format("{} {}", grouped(count), kind));
        }
        return fmt::format("{} more by cause: {}; --json and --csv tell them all", counted(trades, "trade"),
                           fmt::join(counts, ", "));
    }

    std::vector<SentenceGroup> groups;
    std::unordered_map<std::string, std::size_t> places;  // by sentence
};

}  // namespace

FieldsOf<OrderRow> orderFields() {
    return {
        {forPrograms("row"), [](const OrderRow&) { return std::string("order"); }},
        {{"line", "Line", Unit::kCount}, [](const OrderRow& row) { return firstLine(row).line; }},
        {forPrograms("lines"), [](const OrderRow& row) { return lineNumbers(row.reconciled, row.statement); }},
        {{"date", "Date"}, [](const OrderRow& row) { return firstLine(row).trade.date.text(); }},
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
        {{"result", "Result", Unit::kNumber}, resultOf},
        {forPrograms("cause"), causeOf},
        {forPrograms("explanation"),
         [](const OrderRow& row) {
             return textOrNothing(row.reconciled.outcome == Outcome::kAgrees ? "" : explanationOf(row));
         }},
        {forPrograms("also_fits"), [](const OrderRow& row) { return causesIn(alternativesOf(row)); }},
        {forPrograms("alternatives"), [](const OrderRow& row) { return textOrNothing(alternativeSentences(row)); }},
        {forPrograms("charge"), ofSolved([](const SolvedRate& solved) { return solved.sought.charge; })},
        {forPrograms("rate"), ofSolved([](const SolvedRate& solved) { return solvedNumber(solved.rate, solved); })},
        {forPrograms("rate_low"),
         ofSolved([](const SolvedRate& solved) { return solvedNumber(solved.range.low, solved); })},
        {forPrograms("rate_high"),
         ofSolved([](const SolvedRate& solved) { return solvedNumber(solved.range.high, solved); })},
        {forPrograms("rate_from"),
         ofSolved([](const SolvedRate& solved) { return textOrNothing(solved.from ? solved.from->text() : ""); })},
        {forPrograms("folder_rate"),
         ofSolved([](const SolvedRate& solved) { return solvedNumber(solved.folderRate, solved); })},
        {forPrograms("source"), ofSolved([](const SolvedRate& solved) {
             return solved.source.empty() ? Value(Nothing()) : Value(Source{solved.source});
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

std::vector<std::string> causeSentences(const Reconciliation& found, const Statement& statement) {
    SentenceGroups groups;
    for (const ReconciledOrder& each : found.orders) {
        if (each.outcome != Outcome::kAgrees) {
            groups.add(each, statement);
        }
    }
    return groups.sentences();
}

}  // namespace feedesk
