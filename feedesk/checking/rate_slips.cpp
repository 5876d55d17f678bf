#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <string>
#include <tuple>

#include "feedesk/checking/duty_cuts.h"
#include "feedesk/checking/line_faults.h"
#include "feedesk/checking/topics.h"
#include "feedesk/text/numbers.h"

namespace feedesk::checking {
namespace {

// How a rate of a hundred-thousandth comes to be written too large: in percent, per mille, per ten thousand.
struct Notation {
    double divisor;
    const char* name;
};
constexpr std::array<Notation, 3> kNotations = {
    {{100, "in percent"}, {1000, "per mille"}, {10000, "per ten thousand"}}};

/// What the rates of a column are like that can be fractions: the middle one of those on the days of a line. Others
/// were right when another duty was.
class UsualRates {
public:
    explicit UsualRates(const FolderFacts& facts) {
        forEachLine(facts, [&](const FolderLine& line) {
            for (const RateCell& cell : rateCells(facts, *line.kept)) {
                if (cell.kind == RateKind::kFraction && !looksLikePercent(cell)) {
                    rates[{line.kept->line->family, cell.field}].push_back(
                        {std::abs(cell.value), line.kept->line->days});
                }
            }
        });
    }

    /// Nothing where there is no other rate.
    std::optional<double> of(const RateColumn& column, const cost::DateRange& days) {
        const auto [entry, isNew] = known.try_emplace({column, days.from, days.until});
        if (isNew) {
            entry->second = middle(column, days);
        }
        return entry->second;
    }

private:
    struct DatedRate {
        double value;
        cost::DateRange days;
    };

    [[nodiscard]] std::optional<double> middle(const RateColumn& column, const cost::DateRange& days) const {
        std::vector<double> values;
        const auto found = rates.find(column);
        for (const DatedRate& rate : found == rates.end() ? std::vector<DatedRate>() : found->second) {
            if (rate.days.overlaps(days)) {
                values.push_back(rate.value);
            }
        }
        std::sort(values.begin(), values.end());
        return values.empty() ? std::nullopt : std::optional<double>(values[values.size() / 2]);
    }

    std::map<RateColumn, std::vector<DatedRate>> rates;
    // Lines have few different days.
    std::map<std::tuple<RateColumn, std::optional<cost::Date>, std::optional<cost::Date>>, std::optional<double>> known;
};

/// How the number is most likely written: so that it comes nearest to what is usual.
const Notation& likelyNotation(double value, double usual) {
    const auto distance = [&](const Notation& notation) {
        return std::abs(std::log(std::abs(value) / notation.divisor / usual));
    };
    return *std::min_element(kNotations.begin(), kNotations.end(), [&](const Notation& one, const Notation& other) {
        return distance(one) < distance(other);
    });
}

/// A rate that looks like percent, and what it is a rate of.
struct PercentRate {
    const standalone::RateFamily& family;
    const std::string& column;
    double value;
    const cost::DateRange& days;

    /// The number as it would be in that notation. Nobody shall write a duty that was cut in its place.
    [[nodiscard]] std::string in(const Notation& notation, cost::Date asked) const {
        const double rate = value / notation.divisor;
        const DutyCut* cut = dutyCutOf(family, column, rate);
        return plainNumber(rate) +
               (cut != nullptr && cut->isOutlivedBy(days, asked) ? fmt::format(" ({})", cut->text()) : "");
    }
};

std::string percentMend(const PercentRate& rate, const std::optional<double>& usual, cost::Date asked) {
    if (!usual) {
        return fmt::format("write a plain fraction: {} where it is in percent, {} where it is per mille",
                           rate.in(kNotations[0], asked), rate.in(kNotations[1], asked));
    }
    const Notation& notation = likelyNotation(rate.value, *usual);
    return fmt::format("write a plain fraction: {} if {} is {}; the column usually has {}", rate.in(notation, asked),
                       plainNumber(rate.value), notation.name, plainNumber(*usual));
}

}  // namespace

void findPercents(const FolderFacts& facts, Findings& findings) {
    UsualRates usual(facts);
    LineFaults faults;
    forEachLine(facts, [&](const FolderLine& line) {
        for (const RateCell& cell : rateCells(facts, *line.kept)) {
            if (looksLikePercent(cell)) {
                faults.add(
                    line,
                    fmt::format("{} {} is {} of the turnover", cell.column, plainNumber(cell.value),
                                percent(cell.value)),
                    percentMend({*line.kept->line->family, cell.column, cell.value, line.kept->line->days},
                                usual.of({line.kept->line->family, cell.field}, line.kept->line->days), facts.day));
            }
        }
    });
    for (const cost::Term& term : facts.folder.schedule().terms()) {
        const double rate = ownRate(term);
        if (rate >= kLooksLikePercent) {
            faults.add(Place::of(term.where), accountsOf(term),
                       fmt::format("{} {} is {} of the turnover", term.charge, plainNumber(rate), percent(rate)),
                       percentMend({standalone::rateFamilyOf(term.family), term.charge, rate, term.dates}, std::nullopt,
                                   facts.day));
        }
    }
    faults.addTo(findings);
}

void findNegativeRates(const FolderFacts& facts, Findings& findings) {
    LineFaults faults;
    forEachLine(facts, [&](const FolderLine& line) {
        for (const RateCell& cell : rateCells(facts, *line.kept)) {
            const bool isMargin = line.kept->line->family->records == standalone::RateRecords::kMargin;
            if (cell.value < 0 && !isMargin) {  // a margin of less than 0 is one of 0 or less
                faults.add(
                    line,
                    fmt::format("{} {} pays the account instead of charging it", cell.column, plainNumber(cell.value)),
                    fmt::format("write {} if the sign is a slip", plainNumber(-cell.value)));
            }
        }
    });
    faults.addTo(findings);
}

}  // namespace feedesk::checking
