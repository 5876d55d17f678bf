#include "feedesk/comparing/account_comparison.h"

#include <algorithm>
#include <utility>

#include "feedesk/alike/excerpt_answers.h"

namespace feedesk {
namespace {

/// The answers for the first of each group, in the groups' order.
std::vector<Answer> answersOf(const ComparedFolder& folder, cost::Date day, std::size_t account, const Alike& alike,
                              const std::vector<InstrumentPlaces>& instruments,
                              std::size_t InstrumentPlaces::*ofFolder) {
    std::vector<std::pair<std::size_t, std::size_t>> asked;  // place and group
    for (std::size_t group = 0; group < alike.size(); ++group) {
        asked.emplace_back(instruments[alike[group].front()].*ofFolder, group);
    }
    std::sort(asked.begin(), asked.end());
    std::vector<std::size_t> places(asked.size());
    std::transform(asked.begin(), asked.end(), places.begin(), [](const auto& each) { return each.first; });
    std::vector<std::optional<Answer>> inOrder = excerptAnswers(folder.folder(), day, account, places);
    std::vector<Answer> answers(alike.size());
    for (std::size_t i = 0; i < asked.size(); ++i) {
        answers[asked[i].second] = std::move(inOrder[i]).value_or(Answer());
    }
    return answers;
}

const FeeLine* lineLike(const Answer& answer, const FeeLine& wanted) {
    const auto found = std::find_if(answer.lines.begin(), answer.lines.end(), [&](const FeeLine& line) {
        return line.part == wanted.part && line.item == wanted.item;
    });
    return found == answer.lines.end() ? nullptr : &*found;
}

/// The lines of two answers: those of the first, then those that the other one has alone.
std::vector<LinePair> pairsOf(const Answer& before, const Answer& after) {
    std::vector<LinePair> pairs;
    for (const FeeLine& line : before.lines) {
        pairs.push_back({&line, lineLike(after, line)});
    }
    for (const FeeLine& line : after.lines) {
        if (lineLike(before, line) == nullptr) {
            pairs.push_back({nullptr, &line});
        }
    }
    return pairs;
}

}  // namespace

std::vector<RateDifference> compareAccount(ComparedFolder& before, ComparedFolder& after, cost::Date day,
                                           const AccountSides& account,
                                           const std::vector<InstrumentPlaces>& instruments) {
    const Alike alike = groupAlike(before, after, day, account, instruments);
    if (alike.empty()) {
        return {};
    }
    const auto answersBefore = answersOf(before, day, account.before, alike, instruments, &InstrumentPlaces::before);
    const auto answersAfter = answersOf(after, day, account.after, alike, instruments, &InstrumentPlaces::after);
    std::vector<RateDifference> differences;
    for (std::size_t group = 0; group < alike.size(); ++group) {
        for (const LinePair& lines : pairsOf(answersBefore[group], answersAfter[group])) {
            const std::string& part = (lines.before == nullptr ? lines.after : lines.before)->part;
            if (!before.covers(day, part) || !after.covers(day, part)) {
                continue;
            }
            for (RateDifference& difference : differencesOf(lines, account.linesBefore, account.linesAfter)) {
                difference.instruments = alike[group];
                differences.push_back(std::move(difference));
            }
        }
    }
    return joined(std::move(differences));
}

}  // namespace feedesk
