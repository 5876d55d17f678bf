#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>

#include "feedesk/checking/margin_answers.h"
#include "feedesk/checking/topics.h"
#include "feedesk/instruments/instrument_text.h"
#include "feedesk/text/numbers.h"
#include "feedesk/trades/trade_words.h"

// Hedge flags as the fee center answers them. It keeps the margins of a fee record one behind the other and puts a
// custom margin at the place of its flag, whatever is there (rules "Loaded margins have no slots" and "One margin
// detail at most"), so that a line may take the place of another flag or find none.

namespace feedesk::checking {
namespace {

using Flags = std::set<char>;

template <class Visit>
void forEachLostMargin(AccountFacts& facts, const Visit& visit) {
    const MarginAnswers answers(facts);
    for (const Input& input : facts.inputs()) {
        if (!isMarginLine(input)) {
            continue;
        }
        const InstrumentSet lost = answers.lostBy(input, facts.reachOf(input));
        if (!lost.empty()) {
            visit(input, lost);
        }
    }
}

std::string flagNames(const Flags& flags) {
    std::vector<std::string> names;
    std::transform(flags.begin(), flags.end(), std::back_inserter(names), hedgeName);
    return fmt::format("{}", fmt::join(names, " and "));
}

Flags flagsBeside(const Flags& flags) {
    Flags others;
    for (const qmservice::HedgeFlag flag : qmservice::kHedgeFlags) {
        if (flags.count(static_cast<char>(flag)) == 0) {
            others.insert(static_cast<char>(flag));
        }
    }
    return others;
}

/// How many of the instruments are not in the set.
std::size_t countOfOthers(const InstrumentList& instruments, const InstrumentSet& set) {
    return static_cast<std::size_t>(
        std::count_if(instruments.begin(), instruments.end(), [&](const auto* each) { return set.count(each) == 0; }));
}

/// The line that gave the answer its first margin.
Place firstMargin(const AccountFacts& facts, const Answer& answer) {
    for (const FeeLine& line : answer.lines) {
        if (line.part == kMarginPart && line.origin.position) {
            return facts.folder().placeOf(*line.origin.position);
        }
    }
    return facts.place();
}

}  // namespace

void findLostMargins(AccountFacts& facts, Findings& findings) {
    forEachLostMargin(facts, [&](const Input& input, const InstrumentSet& lost) {
        const qmservice::CInstrument& one = **lost.begin();
        const std::string remedy = input.feeLine == nullptr
                                       ? "give all three hedge flags in fees/margin.csv, or each flag a custom fee "
                                         "with an update of its own"
                                       : "give all three hedge flags in fees/margin.csv, so that a custom margin finds "
                                         "the place of its flag";
        findings.add(
            {{facts.number()},
             lost.size(),
             {input.place},
             fmt::format("the {} margin is not the one that answers for {}, such as {}: the margins of a record and "
                         "of an update take each other's places",
                         hedgeName(flagOf(input)), counted(lost.size(), "instrument"),
                         instrumentText(one.market, one.code)),
             remedy});
    });
}

void findMissingHedgeFlags(AccountFacts& facts, Findings& findings) {
    InstrumentSet losers;  // of which another check says more
    forEachLostMargin(
        facts, [&](const Input& /*input*/, const InstrumentSet& lost) { losers.insert(lost.begin(), lost.end()); });
    struct Group {
        std::size_t count = 0;
        std::set<Place> places;
    };
    std::map<Flags, Group> groups;  // by the flags that are there
    for (const AlikeAnswer& alike : facts.answers()) {
        Flags flags;
        for (const auto& [flag, level] : answeredMargins(alike.answer)) {
            flags.insert(flag);
        }
        const std::size_t count = countOfOthers(*alike.instruments, losers);
        if (!flags.empty() && !flagsBeside(flags).empty() && count != 0) {
            Group& group = groups[flags];
            group.count += count;
            group.places.insert(firstMargin(facts, alike.answer));
        }
    }
    for (const auto& [flags, group] : groups) {
        findings.add({{facts.number()},
                      group.count,
                      {group.places.begin(), group.places.end()},
                      fmt::format("{} with a margin for {} and none for {}", counted(group.count, "instrument"),
                                  flagNames(flags), flagNames(flagsBeside(flags))),
                      "give every hedge flag its margin"});
    }
}

}  // namespace feedesk::checking
