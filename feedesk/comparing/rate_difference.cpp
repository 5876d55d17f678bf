#include "feedesk/comparing/rate_difference.h"

#include <algorithm>

#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

AnsweredRate answered(const FeeLine* line, std::optional<double> value, const AccountDayLines& lines) {
    AnsweredRate rate;
    rate.value = value;
    if (line == nullptr) {
        return rate;
    }
    rate.level = line->origin.level;
    if (line->origin.position) {
        const auto found = std::find_if(lines.begin(), lines.end(),
                                        [&](const auto& each) { return each.position == *line->origin.position; });
        if (found == lines.end()) {
            rate.instrumentLine = line->origin.position;
        } else {
            rate.accountLine = static_cast<std::size_t>(found - lines.begin());
        }
    }
    return rate;
}

/// A rate of two lines, either of which may not have it.
struct RatePair {
    const TitledRates* titled;
    const ShownRate* before;
    const ShownRate* after;

    [[nodiscard]] const ShownRate& either() const { return before == nullptr ? *after : *before; }
};

RatePair& pairOf(const ShownRate& rate, const TitledRates& titled, std::vector<RatePair>& pairs) {
    const auto found = std::find_if(pairs.begin(), pairs.end(),
                                    [&](const RatePair& pair) { return pair.either().column == rate.column; });
    return found == pairs.end() ? pairs.emplace_back(RatePair{&titled, nullptr, nullptr}) : *found;
}

/// The rates of both lines, each column once.
std::vector<RatePair> pairsOf(const FeeLine* before, const FeeLine* after) {
    std::vector<RatePair> pairs;
    const auto add = [&](const FeeLine* line, const ShownRate* RatePair::*ofLine) {
        if (line == nullptr) {
            return;
        }
        for (const TitledRates& titled : line->rates) {
            for (const ShownRate& rate : titled.rates) {
                pairOf(rate, titled, pairs).*ofLine = &rate;
            }
        }
    };
    add(before, &RatePair::before);
    add(after, &RatePair::after);
    return pairs;
}

std::optional<double> valueOf(const ShownRate* rate) {
    return rate == nullptr ? std::nullopt : std::optional(rate->value);
}

/// As people and programs are shown them: they differ in no more than 15 significant digits.
bool sameValue(const std::optional<double>& one, const std::optional<double>& other) {
    return one.has_value() == other.has_value() && (!one || *one == *other || plainNumber(*one) == plainNumber(*other));
}

bool sameRateAndSource(const AnsweredRate& one, const AnsweredRate& other) {
    return sameValue(one.value, other.value) && one.level == other.level && one.accountLine == other.accountLine &&
           one.instrumentLine == other.instrumentLine;
}

Level levelOf(const FeeLine* line) { return line == nullptr ? Level::kNotSet : line->origin.level; }

}  // namespace

std::vector<RateDifference> differencesOf(const LinePair& lines, const AccountDayLines& linesBefore,
                                          const AccountDayLines& linesAfter) {
    const FeeLine& either = lines.before == nullptr ? *lines.after : *lines.before;
    RateDifference line;
    line.part = either.part;
    line.item = either.item;
    line.label = either.label;
    line.before = answered(lines.before, {}, linesBefore);
    line.after = answered(lines.after, {}, linesAfter);
    std::vector<RateDifference> differences;
    for (const RatePair& pair : pairsOf(lines.before, lines.after)) {
        if (!sameValue(valueOf(pair.before), valueOf(pair.after))) {
            RateDifference& difference = differences.emplace_back(line);
            difference.column = pair.either().column;
            difference.title = pair.titled->title;
            difference.unit = pair.either().unit;
            difference.before.value = valueOf(pair.before);
            difference.after.value = valueOf(pair.after);
        }
    }
    if (differences.empty() && levelOf(lines.before) != levelOf(lines.after)) {
        differences.push_back(line);
    }
    return differences;
}

bool sameDifference(const RateDifference& one, const RateDifference& other) {
    return one.part == other.part && one.item == other.item && one.column == other.column &&
           sameRateAndSource(one.before, other.before) && sameRateAndSource(one.after, other.after);
}

}  // namespace feedesk
