#include "feedesk/commands/cause_sentences.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <unordered_map>

#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

using Outcome = ReconciledOrder::Outcome;

constexpr std::size_t kMostSentences = 100;
constexpr std::size_t kMostLinesOfSentence = 12;
constexpr std::size_t kMostAlternatives = 3;

std::vector<std::string> sentencesOf(const Explanations& explanations) {
    std::vector<std::string> sentences;
    sentences.reserve(explanations.size());
    for (const Explanation& each : explanations) {
        sentences.push_back(each.sentence);
    }
    return sentences;
}

std::string lineText(const SolvedRate& solved) {
    const std::string lines = solved.lines == 1 ? "the line" : fmt::format("all {} lines", solved.lines);
    return lines + (solved.instrument.empty() ? "" : " of " + solved.instrument);
}

/// "from 2024-03-04 on" or "from 2024-03-04 until 2024-03-07".
std::string daysOf(const SolvedRate& solved) { return cost::DateRange{solved.from, solved.until}.text(); }

/// Which other trades the rate fits.
std::string reachOf(const SolvedRate& solved, const OrderRow& row, std::size_t trades) {
    const char* const which = trades == 1 ? "this trade" : "each of these trades";
    if (!solved.from && solved.against) {
        const cost::Date date = solved.against->date;
        return fmt::format("fits {}, and not line {} of {}", which, row.statement.lines[solved.against->line].line,
                           date == row.reconciled.order.date() ? "the same day" : date.text());
    }
    if (!solved.from) {
        const char* const them = trades == 1 ? "it" : "them";
        return fmt::format("fits {}, and no rate fits {} and all those after {}", which, them, them);
    }
    const char* const basis = solved.trades == 1 ? ", which rests on a single trade" : "";
    return solved.otherLines == 0
               ? fmt::format("fits {} {}{}", lineText(solved), daysOf(solved), basis)
               : fmt::format("fits {} of {} lines{} {} (the others differ in other ways){}", solved.lines,
                             solved.lines + solved.otherLines,
                             solved.instrument.empty() ? "" : " of " + solved.instrument, daysOf(solved), basis);
}

/// "0.00025, custom/stock.csv:18", and the lines of one rate together.
std::string folderText(const std::vector<RateSource>& sources) {
    std::string text;
    const cost::Decimal* rate = nullptr;
    for (const RateSource& each : sources) {
        const bool isNew = rate == nullptr || *rate != each.rate;
        text += isNew ? (rate == nullptr ? "" : "; and ") + each.rate.text() : "";
        text += ", " + (each.source.empty() ? "built in, by no line" : each.source);
        rate = &each.rate;
    }
    return text;
}

std::string rateSentence(const SolvedRate& solved, const OrderRow& row, std::size_t trades = 1) {
    const std::string which = solved.range.low == solved.range.high || solved.rate.text() == solved.range.text()
                                  ? ""
                                  : fmt::format(" (any {})", solved.range.text());
    const std::string known = !solved.knownFrom.empty() ? fmt::format(", as by {},", solved.knownFrom)
                              : solved.isUnlikely()     ? ", which nobody is known to have,"
                                                        : "";
    return fmt::format("the {} {}{}{} {}; the folder has {}", solved.sought.charge, solved.rate.text(), which, known,
                       reachOf(solved, row, trades), folderText(solved.sources));
}

}  // namespace

std::vector<std::string> lineNumbers(const ReconciledOrder& reconciled, const Statement& statement) {
    std::vector<std::string> numbers;
    for (const std::size_t index : reconciled.order.lines) {
        numbers.push_back(std::to_string(statement.lines[index].line));
    }
    return numbers;
}

std::string explanationOf(const OrderRow& row, std::size_t trades) {
    const ReconciledOrder& reconciled = row.reconciled;
    if (reconciled.outcome == Outcome::kNotCharged) {
        return reconciled.whyNotCharged;
    }
    if (reconciled.solved) {
        return rateSentence(*reconciled.solved, row, trades);
    }
    if (!reconciled.causes.empty()) {
        return fmt::format("{}", fmt::join(sentencesOf(reconciled.causes), ", or "));
    }
    return "nothing that is known explains it" + (reconciled.remark.empty() ? "" : "; " + reconciled.remark);
}

Explanations alternativesOf(const OrderRow& row) {
    Explanations alternatives = row.reconciled.alsoFit;
    for (const auto& rate : row.reconciled.ratesToo) {
        alternatives.push_back({Cause::kOtherRate, rate->sought.charge, rateSentence(*rate, row)});
    }
    if (row.reconciled.solved) {
        for (const SolvedRate& other : row.reconciled.solved->orElse) {
            alternatives.push_back({Cause::kOtherRate, other.sought.charge, rateSentence(other, row)});
        }
    }
    return alternatives;
}

std::vector<std::string> alternativeSentences(const OrderRow& row) { return sentencesOf(alternativesOf(row)); }

namespace {

/// "3, 9 and 4 more".
std::string statementLines(const std::vector<std::string>& lines) {
    const std::size_t shown = std::min(lines.size(), kMostLinesOfSentence);
    const std::vector<std::string> first(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(shown));
    return fmt::format("{}{}", fmt::join(first, ", "),
                       shown < lines.size() ? fmt::format(" and {} more", lines.size() - shown) : "");
}

/// What explains some of the lines of one explanation as well.
struct Alternative {
    std::string sentence;
    std::vector<std::string> lines;
};

/// Trades of one explanation, which share one sentence.
struct SentenceGroup {
    OrderRow first;
    std::string kind;  ///< of the cause, for those that are only counted
    std::size_t trades = 0;
    std::vector<std::string> lines;
    std::vector<Alternative> alternatives;

    void add(const std::vector<std::string>& numbers, const std::string& alternative) {
        ++trades;
        lines.insert(lines.end(), numbers.begin(), numbers.end());
        if (alternative.empty()) {
            return;
        }
        auto known = std::find_if(alternatives.begin(), alternatives.end(),
                                  [&](const Alternative& each) { return each.sentence == alternative; });
        if (known == alternatives.end()) {
            known = alternatives.insert(alternatives.end(), {alternative, {}});
        }
        known->lines.insert(known->lines.end(), numbers.begin(), numbers.end());
    }

    [[nodiscard]] std::string text() const {
        std::string text =
            fmt::format("{} {}: {}", nounFor(lines), statementLines(lines), explanationOf(first, trades));
        for (std::size_t i = 0; i < std::min(alternatives.size(), kMostAlternatives); ++i) {
            const Alternative& each = alternatives[i];
            text += each.lines.size() == lines.size()
                        ? "; also fits: "
                        : fmt::format("; also fits {} {}: ", each.lines.size() == 1 ? "line" : "lines",
                                      statementLines(each.lines));
            text += each.sentence;
        }
        return text + (alternatives.size() > kMostAlternatives ? "; and more, which --json and --csv have" : "");
    }

private:
    static const char* nounFor(const std::vector<std::string>& lines) { return lines.size() == 1 ? "Line" : "Lines"; }
};

class SentenceGroups {
public:
    void add(const ReconciledOrder& order, const Statement& statement) {
        const OrderRow row{order, statement};
        const std::string sentence = explanationOf(row);
        const auto place = places.emplace(sentence, groups.size());
        if (place.second) {
            const bool hasAnswer = order.outcome == Outcome::kDiffers;
            groups.push_back({row, hasAnswer ? std::string(cost::wordFor(order.cause)) : "no answer", 0, {}, {}});
        }
        groups[place.first->second].add(lineNumbers(order, statement),
                                        fmt::format("{}", fmt::join(alternativeSentences(row), "; ")));
    }

    /// The first of them, and how many trades the others are, by the kinds of their causes.
    [[nodiscard]] std::vector<std::string> sentences() const {
        std::vector<std::string> all;
        for (std::size_t i = 0; i < std::min(groups.size(), kMostSentences); ++i) {
            all.push_back(groups[i].text());
        }
        if (groups.size() > kMostSentences) {
            all.push_back(restText());
        }
        return all;
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
        counts.reserve(kinds.size());
        for (const auto& [kind, count] : kinds) {
            counts.push_back(fmt::format("{} {}", grouped(count), kind));
        }
        return fmt::format("{} more by cause: {}; --json and --csv have them all", counted(trades, "trade"),
                           fmt::join(counts, ", "));
    }

    std::vector<SentenceGroup> groups;
    std::unordered_map<std::string, std::size_t> places;  // by sentence
};

}  // namespace

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
