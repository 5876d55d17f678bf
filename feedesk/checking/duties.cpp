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

/// What changed on a day: a line that began before it was right until then.
std::string mendFrom(cost::Date change, const cost::DateRange& days, const std::string& now,
                     const std::string& where = "") {
    if (days.from && *days.from >= change) {
        return fmt::format("write {}{}", now, where);
    }
    const std::string last = change.previous().value_or(change).text();
    return fmt::format("end the line with until {} and add one with {}{} from {}", last, now, where, change.text());
}

std::string dutyMend(const cost::DateRange& days, const DutyCut& cut) {
    return mendFrom(cut.from, days, plainNumber(cut.after));
}

/// On the mainland sales alone have paid stamp duty since.
cost::Date salesAlone() { return dayOf(2008, 9, 19); }

bool isOfMainland(cost::Family family) {
    return standalone::rateFamilyOf(family).records == standalone::RateRecords::kStock;
}

bool chargesNothing(const cost::Term& term) { return term.rate && ownRate(term) == 0; }

}  // namespace

std::string DutyCut::text() const {
    return fmt::format("a stamp duty of {}, which is out of date: {} since {}", percent(before), percent(after),
                       from.text());
}

bool DutyCut::isOutlivedBy(const cost::DateRange& days, cost::Date asked) const {
    return days.overlaps({std::max(asked, from), std::nullopt});
}

bool isDuty(std::string_view column) {
    constexpr std::string_view kDuty = "stamp_duty";
    return column.substr(0, kDuty.size()) == kDuty;
}

const DutyCut* dutyCutOf(const standalone::RateFamily& family, std::string_view column, double rate) {
    if (!isDuty(column)) {
        return nullptr;
    }
    const auto found = std::find_if(dutyCuts().begin(), dutyCuts().end(), [&](const DutyCut& cut) {
        return cut.records == family.records && std::abs(rate - cut.before) < kSameRate;
    });
    return found == dutyCuts().end() ? nullptr : &*found;
}

void findOldDuties(const FolderFacts& facts, Findings& findings) {
    LineFaults faults;
    const auto look = [&](const standalone::RateFamily& family, const std::string& column, double rate,
                          const cost::DateRange& days, const Place& place, const std::vector<std::string>& accounts) {
        const DutyCut* cut = dutyCutOf(family, column, rate);
        if (cut != nullptr && cut->isOutlivedBy(days, facts.day)) {
            faults.add(place, accounts, fmt::format("{} {} is {}", column, plainNumber(rate), cut->text()),
                       dutyMend(days, *cut));
        }
    };
    forEachLine(facts, [&](const FolderLine& line) {
        for (const RateCell& cell : rateCells(facts, *line.kept)) {
            look(*line.kept->line->family, cell.column, cell.value, line.kept->line->days, line.place, line.accounts());
        }
    });
    for (const cost::Term& term : facts.folder.schedule().terms()) {
        if (const double rate = ownRate(term); rate != 0) {
            look(standalone::rateFamilyOf(term.family), term.charge, rate, term.dates, Place::of(term.where),
                 accountsOf(term));
        }
    }
    faults.addTo(findings);
}

void findDutiesOnPurchases(const FolderFacts& facts, Findings& findings) {
    LineFaults faults;
    for (const cost::Term& term : facts.folder.schedule().terms()) {
        const bool isLate = term.dates.overlaps({std::max(facts.day, salesAlone()), std::nullopt});
        if (isDuty(term.charge) && isOfMainland(term.family) && isLate && cost::covers(term.side, cost::Side::kBuy) &&
            !chargesNothing(term)) {
            faults.add(Place::of(term.where), accountsOf(term),
                       fmt::format("{} is charged on {}, and since {} sales alone pay it", term.charge,
                                   term.side == cost::TermSide::kBuy ? "purchases" : "both sides", salesAlone().text()),
                       mendFrom(salesAlone(), term.dates, "sell", " in side"));
        }
    }
    faults.addTo(findings);
}

}  // namespace feedesk::checking
