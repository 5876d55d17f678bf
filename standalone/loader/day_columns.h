#ifndef STANDALONE_LOADER_DAY_COLUMNS_H
#define STANDALONE_LOADER_DAY_COLUMNS_H

#include <string>
#include <vector>

#include "cost/date.h"
#include "standalone/loader/table.h"

namespace standalone::loader {

/// Reads a day such as 2023-08-28. False, with `day` untouched and the error reported, when the cell holds none.
bool readDay(TableCell& cell, std::optional<cost::Date>& day);

/// The columns `from` and `until`: the days on which a line is in force, of every table whose lines have days.
/// `days(line)` points to them.
template <class Line, class Days>
std::vector<TableColumn<Line>> dayColumns(Days days) {
    return {{"from", ColumnNeed::kOptional, [=](Line& line, TableCell& cell) { readDay(cell, days(line)->from); }},
            {"until", ColumnNeed::kOptional, [=](Line& line, TableCell& cell) { readDay(cell, days(line)->until); }}};
}

/// Whether the days of a line do not end before they begin; reported when they do.
bool daysAreInOrder(Load& load, const std::string& file, Position position, const cost::DateRange& days);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_DAY_COLUMNS_H
