#include "feedesk/commands/cause_sentences.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <unordered_map>

#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

using Outcome = ReconciledOrder::Outcome;

constexpr std::size_t kMostSentences = 100;
constexpr std::size_t kMostLinesOfSentence = 12;

std::string sentencesOf(const Explanations& explanations, const char* between) {
    std::vector<std::string> sentences;
    for (const Explanation& each : explanations) {
        sentences.push_back(each.sentence);
    }
    return fmt::format("{}", fmt::join(sentences, between));
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

}  // namespace

std::vector<std::string> lineNumbers(const ReconciledOrder& reconciled, const Statement& statement) {
    std::vector<std::string> numbers;
    for (const std::size_t index : reconciled.order.lines) {
        numbers.push_back(std::to_string(statement.lines[index].line));
    }
    return numbers;
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

namespace {

std::string sentenceOf(const OrderRow& row) {
    const std::string alternatives = alternativeSentences(row);
    return explanationOf(row) + (alternatives.empty() ? "" : "; also fits: " + alternatives);
}

/// Trades of one explanation, which share one sentence.
struct SentenceGroup {
    std::string sentence;
    std::string kind;  ///< of the cause, for those that are only counted
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
