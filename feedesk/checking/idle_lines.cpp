#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>

#include "feedesk/checking/margin_answers.h"
#include "feedesk/checking/topics.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/text/numbers.h"
#include "standalone/families.h"

// Lines that change no answer: what they say is not what anybody is charged.

namespace feedesk::checking {
namespace {

// --- lines of accounts

bool isCustom(const Input& input) { return input.feeLine == nullptr; }

/// Whether the rate of the answer is one that the line could have given.
bool isOfSameKind(const FeeLine& line, const Input& input) {
    if (line.part != input.kept->line->family->name) {
        return false;
    }
    return !isMarginLine(input) || line.item == std::string(1, flagOf(input));
}

/// The lines that answer for the instruments in the place of this one, those of most instruments first.
std::vector<Place> winnersOver(const Input& input, const InstrumentSet& reach, AccountFacts& facts) {
    std::map<const AlikeAnswer*, std::size_t> reached;
    for (const qmservice::CInstrument* instrument : reach) {
        if (const AlikeAnswer* alike = facts.answerFor(instrument)) {
            ++reached[alike];
        }
    }
    std::map<Place, std::size_t> counts;
    for (const auto& [alike, count] : reached) {
        for (const FeeLine& line : alike->answer.lines) {
            if (line.origin.position && isOfSameKind(line, input)) {
                counts[facts.folder().placeOf(*line.origin.position)] += count;
            }
        }
    }
    std::vector<Place> winners;
    winners.reserve(counts.size());
    for (const auto& [place, count] : counts) {
        winners.push_back(place);
    }
    std::stable_sort(winners.begin(), winners.end(),
                     [&](const Place& one, const Place& other) { return counts[one] > counts[other]; });
    return winners;
}

/// "fees/stock.csv:4 answers", "custom/stock.csv:6, custom/stock.csv:5 and 2 other lines answer".
std::string winnersText(const std::vector<Place>& winners) {
    constexpr std::size_t kShown = 2;
    std::vector<std::string> shown;
    for (std::size_t i = 0; i < std::min(winners.size(), kShown); ++i) {
        shown.push_back(winners[i].text());
    }
    const std::size_t others = winners.size() - shown.size();
    return fmt::format("{}{} {}", fmt::join(shown, others == 0 ? " and " : ", "),
                       others == 0 ? "" : fmt::format(" and {}", counted(others, "other line")),
                       winners.size() == 1 ? "answers" : "answer");
}

/// What other lines than this one answer for the instruments that it is meant for.
struct Shadow {
    std::size_t instruments;
    std::vector<Place> winners;

    /// Whether all of them are custom fees and configured limits, which go before fee records by design.
    [[nodiscard]] bool isByDesign(const Input& input) const {
        return !isCustom(input) && std::none_of(winners.begin(), winners.end(),
                                                [&](const Place& winner) { return winner.file == input.place.file; });
    }
};

/// Calls `visit` with each line of the account from which no answer comes, though others answer in its place.
template <class Visit>
void forEachShadow(AccountFacts& facts, const Visit& visit) {
    const MarginAnswers margins(facts);
    for (const Input& input : facts.inputs()) {
        if (facts.answersFrom(input)) {
            continue;
        }
        const InstrumentSet reach = facts.reachOf(input);
        if (isMarginLine(input) && !margins.lostBy(input, reach).empty()) {
            continue;  // another check says more
        }
        const Shadow shadow{reach.size(), winnersOver(input, reach, facts)};
        if (!shadow.winners.empty()) {
            visit(input, shadow);
        }
    }
}

// --- configured limits

/// The families whose accounts ask for the configured limits of this one: those that have its class of records.
bool isAskedFor(const standalone::RateFamily& family, const standalone::ListedInstrument& instrument) {
    const std::vector<standalone::RateFamily>& families = standalone::rateFamilies();
    return std::any_of(families.begin(), families.end(), [&](const standalone::RateFamily& each) {
        return each.records == family.records && each.lists.hold(instrument);
    });
}

}  // namespace

void findUnreachedCustomFees(AccountFacts& facts, Findings& findings) {
    for (const Input& input : facts.inputs()) {
        if (isCustom(input) && !facts.answersFrom(input) && facts.reachOf(input).empty()) {
            findings.add(
                {{facts.number()},
                 1,
                 {input.place},
                 fmt::format("the category {} holds no instrument of the account's list", input.kept->line->category),
                 "correct the category, or remove the line"});
        }
    }
}

void findShadowedLines(AccountFacts& facts, Findings& findings) {
    forEachShadow(facts, [&](const Input& input, const Shadow& shadow) {
        if (!shadow.isByDesign(input)) {
            findings.add({{facts.number()},
                          shadow.instruments,
                          {input.place},
                          fmt::format("no answer comes from this line: {} for its {}", winnersText(shadow.winners),
                                      counted(shadow.instruments, "instrument")),
                          isCustom(input) ? "remove the line, or give it a later update or an earlier place"
                                          : "remove the line, or move it behind the others"});
        }
    });
}

void findOverriddenRecords(AccountFacts& facts, Findings& findings) {
    forEachShadow(facts, [&](const Input& input, const Shadow& shadow) {
        if (shadow.isByDesign(input)) {
            findings.add(
                {{facts.number()},
                 shadow.instruments,
                 {input.place},
                 "no answer comes from this line: custom fees or configured limits go before it for all of its "
                 "instruments",
                 "see that this is meant"});
        }
    });
}

void findUnlistedLimits(const FolderFacts& facts, Findings& findings) {
    for (const standalone::loader::ConfiguredLine& kept : facts.folder.content().configuredLines) {
        const standalone::ListedInstrument& listed = facts.market.instruments[kept.place];
        if (!isAskedFor(*kept.line->family, listed)) {
            findings.add(
                {{},
                 1,
                 {facts.placeOf(kept.position)},
                 fmt::format("a {} limit is configured for {} {}, which is none of the list", kept.line->family->name,
                             instrumentText(listed.record->market, listed.record->code), listed.record->name),
                 "remove the line, or correct the instrument or its lists"});
        }
    }
}

}  // namespace feedesk::checking
