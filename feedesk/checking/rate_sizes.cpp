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
#include "standalone/text/numbers.h"

namespace feedesk::checking {
namespace {

// No charge on these markets takes 1 % of a turnover; the highest, the old stamp duty on stocks, took 0.3 %.
constexpr double kLooksLikePercent = 0.01;

// How a rate of a hundred-thousandth comes to be written too large: in percent, per mille, per ten thousand.
struct Notation {
    double divisor;
    const char* name;
};
constexpr std::array<Notation, 3> kNotations = {
    {{100, "in percent"}, {1000, "per mille"}, {10000, "per ten thousand"}}};

bool looksLikePercent(const RateCell& cell) {
    return cell.kind == RateKind::kFraction && std::abs(cell.value) >= kLooksLikePercent;
}

/// A column of a family in all of its tables.
using Column = std::pair<const standalone::RateFamily*, std::size_t>;

/// What the rates of a column are like that can be fractions: the middle one of those on the days of a line. Others
/// were right when another duty was.
class UsualRates {
public:
    explicit UsualRates(const FolderFacts& facts) {
        forEachLine(facts, [&](const FolderLine& line) {
            for (const RateCell& cell : rateCells(facts, *line.kept)) {
                if (cell.kind == RateKind::kFraction && !looksLikePercent(cell)) {
                    rates[{line.kept->family, cell.field}].push_back({std::abs(cell.value), line.kept->line.days});
                }
            }
        });
    }

    /// Nothing where there is no other rate.
    std::optional<double> of(const Column& column, const cost::DateRange& days) {
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

    [[nodiscard]] std::optional<double> middle(const Column& column, const cost::DateRange& days) const {
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

    std::map<Column, std::vector<DatedRate>> rates;
    // Lines have few different days.
    std::map<std::tuple<Column, std::optional<cost::Date>, std::optional<cost::Date>>, std::optional<double>> known;
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

// --- rates far from all others

// Rates of one column are a few times one another: the steps between neighbours that published and agreed rates
// have stay below these, and a slip of one place goes beyond them.
constexpr double kFarFraction = 4.99;
constexpr double kFarYuan = 9.99;  // per lot, from contract to contract, there is more between them

// Of fewer lines nobody can say which one is the exception.
constexpr std::size_t kFewestLines = 4;
constexpr std::size_t kMostOfLines = 4;  // so many-th part of a column's lines are exceptions at most

struct SizedRate {
    double size;
    double value;
    std::string column;
    FolderLine line;
};

bool isSized(const RateCell& cell) {
    const bool isReportedElsewhere =
        looksLikePercent(cell) || (cell.kind == RateKind::kMargin && (cell.value > 1 || cell.value < 0));
    return cell.kind != RateKind::kUnknown && !isReportedElsewhere;
}

double farFactor(RateKind kind) { return kind == RateKind::kYuan ? kFarYuan : kFarFraction; }

using Sized = std::vector<SizedRate>;

/// Where each run of rates begins that is far from the one before; the rates are in order of their size.
std::vector<std::size_t> runsOf(const Sized& rates, double factor) {
    std::vector<std::size_t> begins = {0};
    for (std::size_t i = 1; i < rates.size(); ++i) {
        if (rates[i].size / rates[i - 1].size >= factor) {
            begins.push_back(i);
        }
    }
    begins.push_back(rates.size());
    return begins;
}

std::string times(double factor) { return plainNumber(std::round(factor * 10) / 10); }

/// How the rate compares with the nearest one outside of its run.
std::string distanceText(const SizedRate& rate, const Sized& rates, std::size_t begin, std::size_t end) {
    const bool hasLower = begin != 0;
    const bool hasHigher = end != rates.size();
    const double lower = hasLower ? rate.size / rates[begin - 1].size : 0;
    const double higher = hasHigher ? rates[end].size / rate.size : 0;
    return hasLower && (!hasHigher || lower <= higher)
               ? fmt::format("{} times the next lower one, {}", times(lower), plainNumber(rates[begin - 1].value))
               : fmt::format("a {}th of the next higher one, {}", times(higher), plainNumber(rates[end].value));
}

void findFarIn(const Sized& rates, double factor, LineFaults& faults) {
    const std::vector<std::size_t> begins = runsOf(rates, factor);
    for (std::size_t run = 0; run + 1 < begins.size(); ++run) {
        const std::size_t begin = begins[run];
        const std::size_t end = begins[run + 1];
        if ((end - begin) * kMostOfLines > rates.size()) {
            continue;
        }
        for (std::size_t i = begin; i < end; ++i) {
            const SizedRate& rate = rates[i];
            faults.add(rate.line,
                       fmt::format("{} {} is far from all other rates of its column: {}", rate.column,
                                   plainNumber(rate.value), distanceText(rate, rates, begin, end)),
                       "look it up and correct it");
        }
    }
}

}  // namespace

void findPercents(const FolderFacts& facts, Findings& findings) {
    UsualRates usual(facts);
    LineFaults faults;
    forEachLine(facts, [&](const FolderLine& line) {
        for (const RateCell& cell : rateCells(facts, *line.kept)) {
            if (looksLikePercent(cell)) {
                faults.add(line,
                           fmt::format("{} {} is {} of the turnover", cell.column, plainNumber(cell.value),
                                       percent(cell.value)),
                           percentMend({*line.kept->family, cell.column, cell.value, line.kept->line.days},
                                       usual.of({line.kept->family, cell.field}, line.kept->line.days), facts.day));
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
            const bool isMargin = line.kept->family->records == standalone::RateRecords::kMargin;
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

void findFarRates(const FolderFacts& facts, Findings& findings) {
    std::map<Column, Sized> columns;
    std::map<Column, double> factors;
    forEachLine(facts, [&](const FolderLine& line) {
        for (const RateCell& cell : rateCells(facts, *line.kept)) {
            if (isSized(cell)) {
                const Column column{line.kept->family, cell.field};
                columns[column].push_back({std::abs(cell.value), cell.value, cell.column, line});
                factors[column] = farFactor(cell.kind);
            }
        }
    });
    LineFaults faults;
    for (auto& [column, rates] : columns) {
        std::stable_sort(rates.begin(), rates.end(),
                         [](const SizedRate& one, const SizedRate& other) { return one.size < other.size; });
        if (rates.size() >= kFewestLines) {
            findFarIn(rates, factors[column], faults);
        }
    }
    faults.addTo(findings);
}

}  // namespace feedesk::checking
