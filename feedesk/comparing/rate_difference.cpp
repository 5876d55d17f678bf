#include "feedesk/comparing/rate_difference.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <utility>
#include "feedesk/comparing/connected.h"
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
            rate.instrumentLines.push_back(*line->origin.position);
        } else {
            rate.accountLines.push_back(static_cast<std::size_t>(found - lines.begin()));
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

/// What sets the lines of a rate apart.
std::vector<std::string> lineNames(const AnsweredRate& rate, const char* folder) {
    std::vector<std::string> names;
    for (const std::size_t line : rate.accountLines) {
        names.push_back(fmt::format("{} {}", folder, line));
    }
    for (const standalone::Position& line : rate.instrumentLines) {
        names.push_back(fmt::format("{} {}:{}", folder, line.file, line.line));
    }
    return names;
}

template <class Each>
void addMissing(std::vector<Each>& all, const std::vector<Each>& more) {
    for (const Each& each : more) {
        if (std::find(all.begin(), all.end(), each) == all.end()) {
            all.push_back(each);
        }
    }
}

void addLines(const AnsweredRate& from, AnsweredRate& to) {
    addMissing(to.accountLines, from.accountLines);
    addMissing(to.instrumentLines, from.instrumentLines);
}

/// The part; where configured limits give the rate, their table, which several parts may read.
std::string whoseOf(const RateDifference& difference) {
    std::string tables;
    for (const auto& [rate, folder] : {std::pair(&difference.before, "old"), std::pair(&difference.after, "new")}) {
        if (rate->level == Level::kConfiguredLimit) {
            tables += fmt::format("{} table {} ", folder, rate->instrumentLines.front().file);
        }
    }
    return tables.empty() ? difference.part : tables;
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

std::string changeOf(const RateDifference& difference) {
    const auto textOf = [](const AnsweredRate& rate) {
        return fmt::format("{} {}", rate.value ? plainNumber(*rate.value) : "-", static_cast<int>(rate.level));
    };
    return fmt::format("{}|{}|{}|{}|{}", whoseOf(difference), difference.item, difference.column,
                       textOf(difference.before), textOf(difference.after));
}

std::vector<RateDifference> joined(std::vector<RateDifference> differences) {
    Connected same(differences.size());
    for (std::size_t i = 0; i < differences.size(); ++i) {
        const std::string change = differences[i].part + '|' + changeOf(differences[i]);
        std::vector<std::string> lines = lineNames(differences[i].before, "old");
        const std::vector<std::string> linesAfter = lineNames(differences[i].after, "new");
        lines.insert(lines.end(), linesAfter.begin(), linesAfter.end());
        if (lines.empty()) {
            lines.emplace_back("none");
        }
        for (const std::string& line : lines) {
            same.share(i, fmt::format("{}|{}", change, line));
        }
    }
    std::vector<RateDifference> all;
    std::map<std::size_t, std::size_t> places;  // of the first of those that are one
    for (std::size_t i = 0; i < differences.size(); ++i) {
        const auto place = places.emplace(same.firstOf(i), all.size());
        if (place.second) {
            all.push_back(std::move(differences[i]));
        } else {
            RateDifference& one = all[place.first->second];
            one.instruments.insert(one.instruments.end(), differences[i].instruments.begin(),
                                   differences[i].instruments.end());
            addLines(differences[i].before, one.before);
            addLines(differences[i].after, one.after);
        }
    }
    for (RateDifference& difference : all) {
        std::sort(difference.instruments.begin(), difference.instruments.end());
    }
    return all;
}

}  // namespace feedesk
