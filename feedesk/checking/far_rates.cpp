#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "feedesk/checking/far_values.h"
#include "feedesk/checking/line_faults.h"
#include "feedesk/checking/line_groups.h"
#include "feedesk/checking/topics.h"
#include "feedesk/text/numbers.h"

namespace feedesk::checking {
namespace {

// Rates of one column are a few times one another: the steps between neighbours that published and agreed rates
// have stay below these, and a slip of one place goes beyond them.
constexpr double kFarFraction = 4.99;
// Per lot, from contract to contract, and from one delivery month of a product to the other there is more between them.
constexpr double kFarOfContracts = 9.99;

constexpr std::size_t kFewestLines = 4;
constexpr std::size_t kMostOfLines = 4;

struct RateOfLine {
    RateCell cell;
    FolderLine line;
    const LineGroup* group;
};

/// Rates that are compared with one another.
using Crowd = std::vector<const RateOfLine*>;

bool isSized(const RateCell& cell) {
    const bool isReportedElsewhere =
        looksLikePercent(cell) || (cell.kind == RateKind::kMargin && (cell.value > 1 || cell.value < 0));
    return cell.kind != RateKind::kUnknown && !isReportedElsewhere;
}

bool isOf(standalone::RateRecords records, const RateOfLine& rate) {
    return rate.line.kept->line->family->records == records;
}

/// Of futures each product has rates of its own, whichever exchange lists it.
bool isComparedInItsMarket(const RateOfLine& rate) {
    return !isOf(standalone::RateRecords::kCommission, rate) && !isOf(standalone::RateRecords::kMargin, rate);
}

double factorOf(const RateOfLine& rate) { return rate.cell.kind == RateKind::kYuan ? kFarOfContracts : kFarFraction; }

double factorOfProduct(const RateOfLine& rate) {
    return isOf(standalone::RateRecords::kCommission, rate) ? kFarOfContracts : factorOf(rate);
}

/// Looks for far rates in one crowd of a column after another, and reports each of them once.
class FarRates {
public:
    explicit FarRates(LineFaults& lineFaults) : faults(lineFaults) {}

    /// `of`: what the rates of the crowd have in common, behind "its column".
    void findIn(Crowd crowd, const std::string& of, double factor) {
        std::stable_sort(crowd.begin(), crowd.end(), [](const RateOfLine* one, const RateOfLine* other) {
            return std::abs(one->cell.value) < std::abs(other->cell.value);
        });
        std::vector<double> values(crowd.size());
        std::transform(crowd.begin(), crowd.end(), values.begin(),
                       [](const RateOfLine* rate) { return rate->cell.value; });
        for (const FarValue& far : farValues(values, {factor, kFewestLines, kMostOfLines})) {
            const RateOfLine& rate = *crowd[far.place];
            if (done.insert(&rate).second) {
                faults.add(rate.line,
                           fmt::format("{} {} is far from all other rates of its column{}: {}", rate.cell.column,
                                       plainNumber(rate.cell.value), of, far.distance),
                           "look it up and correct it");
            }
        }
    }

    /// Those that are not compared with others of their market any more.
    void leaveOut(const Crowd& crowd) { done.insert(crowd.begin(), crowd.end()); }

private:
    LineFaults& faults;
    std::set<const RateOfLine*> done;
};

/// A rate that is none of those of its market may be one of another market's: it is held against the rates of its own
/// market and product too, or, where these are few, of its market.
void findFarIn(const std::vector<RateOfLine>& column, LineFaults& faults) {
    Crowd all;
    std::map<std::string, Crowd> markets;
    std::map<std::pair<std::string, std::string>, Crowd> products;
    all.reserve(column.size());
    for (const RateOfLine& rate : column) {
        all.push_back(&rate);
        const LineGroup& group = *rate.group;
        if (!group.market.empty() && isComparedInItsMarket(rate)) {
            markets[group.market].push_back(&rate);
        }
        if (!group.product.empty()) {
            products[{group.market, group.product}].push_back(&rate);
        }
    }
    FarRates far(faults);
    far.findIn(std::move(all), "", factorOf(column.front()));
    for (const auto& [group, crowd] : products) {
        if (crowd.size() >= kFewestLines) {
            far.findIn(crowd, fmt::format(" for {} of {}", group.second, group.first), factorOfProduct(*crowd.front()));
            far.leaveOut(crowd);
        }
    }
    for (const auto& [market, crowd] : markets) {
        far.findIn(crowd, " in " + market, factorOf(*crowd.front()));
    }
}

}  // namespace

void findFarRates(const FolderFacts& facts, Findings& findings) {
    LineGroups groups(facts);
    std::map<RateColumn, std::vector<RateOfLine>> columns;
    forEachLine(facts, [&](const FolderLine& line) {
        if (!isAhead(facts, line)) {
            return;  // rates of another time
        }
        for (const RateCell& cell : rateCells(facts, *line.kept)) {
            if (isSized(cell)) {
                columns[{line.kept->line->family, cell.field}].push_back({cell, line, &groups.of(line)});
            }
        }
    });
    LineFaults faults;
    for (const auto& [column, rates] : columns) {
        findFarIn(rates, faults);
    }
    faults.addTo(findings);
}

}  // namespace feedesk::checking
