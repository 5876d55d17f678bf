#ifndef STANDALONE_LOADER_KEPT_LINES_H
#define STANDALONE_LOADER_KEPT_LINES_H

#include <array>
#include <bitset>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "cost/date.h"
#include "standalone/families.h"
#include "standalone/market.h"

// What stays of a line of rates once it has been checked, until a day is asked for: the numbers, and what the line
// means. Records are made of it for one day at a time.

namespace standalone::loader {

/// More rates than any family has.
constexpr std::size_t kMostRates = 14;

/// Rates of a line, in field order; 0 behind those that its family has.
using LineRates = std::array<double, kMostRates>;

/// The cells of a line that its records are made of, rates aside; a table fills those that it has columns for.
struct LineCells {
    const RateFamily* family = nullptr;
    int update = 0;
    int category = 0;
    int hedgeFlag = 0;
    int marginMode = 0;
    int unitVolume = 0;
    cost::DateRange days;
    std::string item;
    std::bitset<kMostRates> givenRates;  ///< those that are not 0
};

/// A line as it is read.
struct RateLine : LineCells {
    LineRates rates{};
};

/// Places in the catalogue, in its order. Lines of one pattern share theirs.
using Places = std::shared_ptr<const std::vector<std::size_t>>;

/// Nearly all lines of a table have the same cells but for their rates, and most of a family's rates are 0: the cells
/// are shared, and of the rates only those that are given take memory.
struct KeptLine {
    std::shared_ptr<const LineCells> line;  ///< lines with the same cells share theirs
    const double* given = nullptr;          ///< the line's givenRates; the folder's, and lines with the same share them
    Position position;

    [[nodiscard]] LineRates rates() const {
        LineRates all{};
        const double* next = given;
        for (std::size_t field = 0; field < kMostRates; ++field) {
            all[field] = line->givenRates[field] ? *next++ : 0;
        }
        return all;
    }
};

/// A line of fees/*.csv, with the instruments that it matches.
struct KeptFeeLine : KeptLine {
    Places places;
};

/// A line of configured/*.csv, with the place of its instrument in the catalogue.
struct ConfiguredLine : KeptLine {
    std::size_t place = 0;
};

/// The lines of one account, by family and then in the order of the file.
struct AccountLines {
    std::vector<KeptFeeLine> fees;
    std::vector<KeptLine> customFees;
};

/// Calls `apply` with the lines that are in force on the day, in their order.
template <class Line, class Apply>
void forEachInForce(const std::vector<Line>& lines, cost::Date day, const Apply& apply) {
    for (const Line& line : lines) {
        if (line.line->days.contains(day)) {
            apply(line);
        }
    }
}

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_KEPT_LINES_H
