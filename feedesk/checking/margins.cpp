#include <fmt/format.h>

#include <array>

#include "feedesk/checking/line_faults.h"
#include "feedesk/checking/topics.h"
#include "feedesk/text/numbers.h"

// Margins as their lines have them.

namespace feedesk::checking {
namespace {

struct MarginSide {
    const char* name;
    std::size_t byMoney;  ///< places in the family's rates
    std::size_t byVolume;
};

constexpr std::array<MarginSide, 2> kMarginSides = {{{"long", 0, 1}, {"short", 2, 3}}};

template <class Visit>
void forEachMarginLine(const FolderFacts& facts, const Visit& visit) {
    forEachLine(facts, [&](const FolderLine& line) {
        if (line.kept->line->family->records == standalone::RateRecords::kMargin) {
            visit(line);
        }
    });
}

}  // namespace

void findZeroMargins(const FolderFacts& facts, Findings& findings) {
    LineFaults faults;
    forEachMarginLine(facts, [&](const FolderLine& line) {
        for (const MarginSide& side : kMarginSides) {
            const double byMoney = line.kept->rates().at(side.byMoney);
            const double byVolume = line.kept->rates().at(side.byVolume);
            if (byMoney + byVolume <= 0 || byMoney < 0 || byVolume < 0) {
                faults.add(line,
                           fmt::format("the {} margin is {} by money and {} by volume", side.name, plainNumber(byMoney),
                                       plainNumber(byVolume)),
                           fmt::format("write it in {0}_by_money or {0}_by_volume", side.name));
            }
        }
    });
    faults.addTo(findings);
}

void findMarginsAboveOne(const FolderFacts& facts, Findings& findings) {
    LineFaults faults;
    forEachMarginLine(facts, [&](const FolderLine& line) {
        for (const RateCell& cell : rateCells(facts, *line.kept)) {
            if (cell.kind == RateKind::kMargin && cell.value > 1) {
                faults.add(
                    line,
                    fmt::format("{} {} is {} of the value", cell.column, plainNumber(cell.value), percent(cell.value)),
                    fmt::format("write a plain fraction: {} if {} is in percent", plainNumber(cell.value / 100),
                                plainNumber(cell.value)));
            }
        }
    });
    faults.addTo(findings);
}

}  // namespace feedesk::checking
