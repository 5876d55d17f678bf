#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "feedesk/checking/duty_cuts.h"
#include "feedesk/checking/line_faults.h"
#include "feedesk/checking/topics.h"
#include "feedesk/text/numbers.h"

namespace feedesk::checking {
namespace {

// Rates are sent as doubles; published ones have five significant digits at most.
constexpr double kSameRate = 1e-9;

cost::Date dayOf(int year, int month, int day) { return cost::Date::of(year, month, day).value_or(cost::Date()); }

/// The published cuts: on sales on the mainland, and on both sides in Hong Kong.
const std::vector<DutyCut>& dutyCuts() {
    static const std::vector<DutyCut> all{
        {standalone::RateRecords::kStock, 0.001, 0.0005, dayOf(2023, 8, 28)},
        {standalone::RateRecords::kHgt, 0.0013, 0.001, dayOf(2023, 11, 17)},
        {standalone::RateRecords::kSgt, 0.0013, 0.001, dayOf(2023, 11, 17)},
    };
    return all;
}

/// Whether the line is in force on a day on which both the question and the new duty are.
bool outlives(const cost::DateRange& days, cost::Date asked, cost::Date cut) {
    return days.overlaps({std::max(asked, cut), std::nullopt});
}

/// A line that began before the cut was right until then.
std::string dutyMend(const cost::DateRange& days, const DutyCut& cut) {
    const std::string now = plainNumber(cut.after);
    if (days.from && *days.from >= cut.from) {
        return "write " + now;
    }
    const std::string last = cut.from.previous().value_or(cut.from).text();
    return fmt::format("end the line with until {} and add one with {} from {}", last, now, cut.from.text());
}

}  // namespace

std::string DutyCut::text() const {
    return fmt::format("a stamp duty of {}, which is out of date: {} since {}", percent(before), percent(after),
                       from.text());
}

const DutyCut* dutyCutOf(const standalone::RateFamily& family, std::string_view column, double rate) {
    constexpr std::string_view kDuty = "stamp_duty";
    if (column.substr(0, kDuty.size()) != kDuty) {
        return nullptr;
    }
    const auto found = std::find_if(dutyCuts().begin(), dutyCuts().end(), [&](const DutyCut& cut) {
        return cut.records == family.records && std::abs(rate - cut.before) < kSameRate;
    });
    return found == dutyCuts().end() ? nullptr : &*found;
}

void findOldDuties(const FolderFacts& facts, Findings& findings) {
    LineFaults faults;
    forEachLine(facts, [&](const FolderLine& line) {
        for (const RateCell& cell : rateCells(facts, *line.kept)) {
            const DutyCut* cut = dutyCutOf(*line.kept->family, cell.column, cell.value);
            if (cut != nullptr && outlives(line.kept->line.days, facts.day, cut->from)) {
                faults.add(line, fmt::format("{} {} is {}", cell.column, plainNumber(cell.value), cut->text()),
                           dutyMend(line.kept->line.days, *cut));
            }
        }
    });
    faults.addTo(findings);
}

}  // namespace feedesk::checking
