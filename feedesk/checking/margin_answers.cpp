#include "feedesk/checking/margin_answers.h"

#include <algorithm>

namespace feedesk::checking {
namespace {

bool hasMargins(const Answer& answer) {
    return std::any_of(answer.lines.begin(), answer.lines.end(),
                       [](const FeeLine& line) { return line.part == kMarginPart; });
}

bool isLost(const Input& input, const std::map<char, Level>& answered) {
    const auto margin = answered.find(flagOf(input));
    return margin == answered.end() || (input.feeLine == nullptr && margin->second == Level::kOwnRecord);
}

}  // namespace

bool isMarginLine(const Input& input) { return input.kept->line->family->records == standalone::RateRecords::kMargin; }

char flagOf(const Input& input) { return static_cast<char>(input.kept->line->hedgeFlag); }

std::map<char, Level> answeredMargins(const Answer& answer) {
    std::map<char, Level> margins;
    for (const FeeLine& line : answer.lines) {
        if (line.part == kMarginPart && line.origin.position && !line.item.empty()) {
            margins.emplace(line.item.front(), line.origin.level);
        }
    }
    return margins;
}

MarginAnswers::MarginAnswers(AccountFacts& accountFacts) : facts(accountFacts) {
    for (const AlikeAnswer& alike : facts.answers()) {
        if (hasMargins(alike.answer)) {
            margins.emplace(&alike, answeredMargins(alike.answer));
        }
    }
}

InstrumentSet MarginAnswers::lostBy(const Input& input, const InstrumentSet& reach) const {
    InstrumentSet lost;
    for (const qmservice::CInstrument* instrument : reach) {
        const auto answered = margins.find(facts.answerFor(instrument));
        if (answered != margins.end() && isLost(input, answered->second)) {
            lost.insert(instrument);
        }
    }
    return lost;
}

}  // namespace feedesk::checking
