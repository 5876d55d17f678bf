#include "feedesk/explaining/explanation.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace feedesk {
namespace {

using standalone::InputKind;
using standalone::RateInput;

bool sameRate(const FeeLine& one, const FeeLine& other) { return one.part == other.part && one.item == other.item; }

bool sameOrigin(const Origin& one, const Origin& other) {
    return one.level == other.level && one.position == other.position;
}

Level levelOf(InputKind kind) {
    switch (kind) {
        case InputKind::kFeeLine:
            return Level::kOwnRecord;
        case InputKind::kCustomFee:
            return Level::kCustomFee;
        case InputKind::kConfiguredLimit:
            return Level::kConfiguredLimit;
        case InputKind::kExchangeFee:
            break;
    }
    return Level::kExchangeFee;
}

/// Whether the line is handed over before the other one of its kind.
bool comesBefore(const RateInput& one, const RateInput& other) {
    return one.update != other.update ? one.update < other.update : one.position.line < other.position.line;
}

/// How the line that answers goes before one that would answer without it.
Verdict verdictBetween(const RateInput& beaten, const RateInput& winner) {
    if (beaten.family != winner.family || beaten.kind != winner.kind) {
        return Verdict::kOutranked;
    }
    if (comesBefore(beaten, winner)) {
        return Verdict::kOverridden;
    }
    return beaten.update == winner.update && beaten.kind == InputKind::kCustomFee ? Verdict::kEarlierEntry
                                                                                  : Verdict::kOutranked;
}

class Explaining {
public:
    Explaining(const Trials& usedTrials, cost::Date askedDay)
        : trials(usedTrials), day(askedDay), named(trials.lines().size()) {}

    std::vector<Considered> all(const Answer& answer) {
        askTurnByTurn(answer);
        for (std::size_t line = 0; line < named.size(); ++line) {
            if (!named[line]) {
                considered.push_back(neverAnswering(line));
            }
        }
        sort();
        return std::move(considered);
    }

private:
    void askTurnByTurn(const Answer& answer) {
        Kept left(trials.lines().size());
        std::transform(trials.lines().begin(), trials.lines().end(), left.begin(),
                       [&](const RateInput& line) { return line.days.contains(day); });
        Kept before = left;
        std::vector<std::size_t> winners;
        Answer last;
        std::size_t turn = 1;
        for (Answer now = answer;; now = trials.with(left), ++turn) {
            takeTurn(now, last, turn, before, winners);
            last = now;
            winners = linesNamedBy(now);
            if (winners.empty()) {
                return;
            }
            before = left;
            for (const std::size_t line : winners) {
                left[line] = false;
                named[line] = true;
            }
        }
    }

    /// Takes what the answer has and the one before did not have. `winners` are the lines that were taken away from
    /// `before` in between.
    void takeTurn(const Answer& answer, const Answer& previous, std::size_t turn, const Kept& before,
                  const std::vector<std::size_t>& winners) {
        for (const FeeLine& line : answer.lines) {
            // An option's item may be there only where another line is not: it answers in none of the turns before.
            const bool wasThere = std::any_of(previous.lines.begin(), previous.lines.end(),
                                              [&](const FeeLine& each) { return sameRate(each, line); });
            const auto last = std::find_if(considered.rbegin(), considered.rend(),
                                           [&](const Considered& each) { return sameRate(each.line, line); });
            const bool isFirst = last == considered.rend();
            if (!isFirst && sameOrigin(last->line.origin, line.origin)) {
                continue;
            }
            Considered next{line, isFirst || !wasThere ? turn : last->turn + 1, Verdict::kAnswers, {}, {}, 0};
            if (winners.empty()) {
                describe(next);
            } else {
                describeBeaten(next, before, winners);
            }
            considered.push_back(std::move(next));
        }
    }

    void describe(Considered& input) const {
        if (const auto line = trials.lineOf(input.line.origin)) {
            input.days = trials.lines()[*line].days;
            input.category = trials.lines()[*line].category;
        }
    }

    void describeBeaten(Considered& input, const Kept& before, const std::vector<std::size_t>& winners) const {
        describe(input);
        const auto line = trials.lineOf(input.line.origin);
        if (!line) {
            input.verdict = Verdict::kLast;
            return;
        }
        input.verdict = Verdict::kOutranked;
        if (const auto winner = winnerOver(*line, before, winners)) {
            input.beatenBy = Origin{levelOf(trials.lines()[*winner].kind), trials.lines()[*winner].position};
            input.verdict = verdictBetween(trials.lines()[*line], trials.lines()[*winner]);
        }
    }

    /// The one line among those that were taken away whose absence lets `line` answer; where several do, the one whose
    /// absence lets most of the others answer still. None when it takes several.
    [[nodiscard]] std::optional<std::size_t> winnerOver(std::size_t line, const Kept& before,
                                                        const std::vector<std::size_t>& winners) const {
        if (winners.size() == 1) {
            return winners.front();
        }
        std::optional<std::size_t> best;
        std::size_t mostStay = 0;
        for (const std::size_t winner : winners) {
            Kept without = before;
            without[winner] = false;
            const Answer answer = trials.with(without);
            const std::size_t stay = linesNamedBy(answer).size();
            if (lineFrom(answer, trials, line) != nullptr && stay > mostStay) {
                best = winner;
                mostStay = stay;
            }
        }
        return best;
    }

    [[nodiscard]] std::vector<std::size_t> linesNamedBy(const Answer& answer) const {
        std::vector<std::size_t> lines;
        for (const FeeLine& line : answer.lines) {
            if (const auto number = trials.lineOf(line.origin)) {
                lines.push_back(*number);
            }
        }
        return lines;
    }

    /// A line that the fee center answers with in no turn.
    [[nodiscard]] Considered neverAnswering(std::size_t number) const {
        const RateInput& line = trials.lines()[number];
        Considered input;
        input.days = line.days;
        input.category = line.category;
        input.verdict = line.days.contains(day) ? Verdict::kNotTaken : Verdict::kNotInForce;
        input.line.part = line.family == nullptr ? kCommissionPart : line.family->name;
        input.line.origin = {levelOf(line.kind), line.position};
        if (takeRates(input, trials.withOnly(number), number)) {
            return input;
        }
        if (line.kind == InputKind::kCustomFee && takeRates(input, trials.withCategoryOfAll(number), number)) {
            input.verdict = Verdict::kOtherCategory;
        } else if (line.kind == InputKind::kExchangeFee && takeRates(input, trials.onSimulation(number), number)) {
            input.verdict = Verdict::kNoSimulation;
        } else {
            input.verdict = Verdict::kNotTaken;
        }
        return input;
    }

    /// Takes what the answer says of the line; false when it does not name it.
    bool takeRates(Considered& input, const Answer& answer, std::size_t number) const {
        const FeeLine* const line = lineFrom(answer, trials, number);
        if (line != nullptr) {
            input.line = *line;
        }
        return line != nullptr;
    }

    /// By rate in the order of the answer, then by turn, those without a turn last.
    void sort() {
        std::vector<FeeLine> rates;
        for (const Considered& input : considered) {
            if (std::none_of(rates.begin(), rates.end(),
                             [&](const auto& rate) { return sameRate(rate, input.line); })) {
                rates.push_back(input.line);
            }
        }
        const auto place = [&](const Considered& input) {
            const auto rate =
                std::find_if(rates.begin(), rates.end(), [&](const auto& each) { return sameRate(each, input.line); });
            return std::make_pair(rate - rates.begin(), input.turn - 1);  // wraps for 0, which comes last
        };
        std::stable_sort(considered.begin(), considered.end(),
                         [&](const auto& one, const auto& other) { return place(one) < place(other); });
    }

    const Trials& trials;
    cost::Date day;
    Kept named;
    std::vector<Considered> considered;
};

}  // namespace

std::vector<Considered> explain(const Trials& trials, cost::Date day, const Answer& answer) {
    return Explaining(trials, day).all(answer);
}

}  // namespace feedesk
