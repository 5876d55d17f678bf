#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "feedesk/checking/far_values.h"
#include "feedesk/checking/line_faults.h"
#include "feedesk/checking/topics.h"
#include "feedesk/text/numbers.h"

namespace feedesk::checking {
namespace {

// Rates of one column are a few times one another: the steps between neighbours that published and agreed rates
// have stay below these, and a slip of one place goes beyond them.
constexpr double kFarFraction = 4.99;
constexpr double kFarYuan = 9.99;  // per lot, from contract to contract, there is more between them

constexpr std::size_t kFewestLines = 4;
constexpr std::size_t kMostOfLines = 4;

struct RateOfLine {
    RateCell cell;
    FolderLine line;
};

bool isSized(const RateCell& cell) {
    const bool isReportedElsewhere =
        looksLikePercent(cell) || (cell.kind == RateKind::kMargin && (cell.value > 1 || cell.value < 0));
    return cell.kind != RateKind::kUnknown && !isReportedElsewhere;
}

/// All of one column.
void findFarIn(std::vector<RateOfLine>& rates, LineFaults& faults) {
    std::stable_sort(rates.begin(), rates.end(), [](const RateOfLine& one, const RateOfLine& other) {
        return std::abs(one.cell.value) < std::abs(other.cell.value);
    });
    std::vector<double> values(rates.size());
    std::transform(rates.begin(), rates.end(), values.begin(), [](const RateOfLine& rate) { return rate.cell.value; });
    const double factor = rates.front().cell.kind == RateKind::kYuan ? kFarYuan : kFarFraction;
    for (const FarValue& far : farValues(values, {factor, kFewestLines, kMostOfLines})) {
        const RateOfLine& rate = rates[far.place];
        faults.add(rate.line,
                   fmt::format("{} {} is far from all other rates of its column: {}", rate.cell.column,
                               plainNumber(rate.cell.value), far.distance),
                   "look it up and correct it");
    }
}

}  // namespace

void findFarRates(const FolderFacts& facts, Findings& findings) {
    std::map<RateColumn, std::vector<RateOfLine>> columns;
    forEachLine(facts, [&](const FolderLine& line) {
        if (!isAhead(facts, line)) {
            return;  // rates of another time
        }
        for (const RateCell& cell : rateCells(facts, *line.kept)) {
            if (isSized(cell)) {
                columns[{line.kept->line->family, cell.field}].push_back({cell, line});
            }
        }
    });
    LineFaults faults;
    for (auto& [column, rates] : columns) {
        findFarIn(rates, faults);
    }
    faults.addTo(findings);
}

}  // namespace feedesk::checking
