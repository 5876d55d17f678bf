#include "standalone/loader/day_columns.h"

#include <fmt/format.h>

namespace standalone::loader {

bool readDay(TableCell& cell, std::optional<cost::Date>& day) {
    const std::optional<cost::Date> read = cost::Date::parse(cell.text);
    if (!read) {
        return cell.refuseFound(ErrorKind::kWord, "a day of the calendar such as 2023-08-28", [&] {
            const std::optional<cost::Date> compact = cost::Date::parseCompact(cell.text);
            return compact ? "write " + compact->text() : "";
        });
    }
    day = read;
    return true;
}

bool daysAreInOrder(Load& load, const std::string& file, Position position, const cost::DateRange& days) {
    if (!days.from || !days.until || *days.from <= *days.until) {
        return true;
    }
    load.errors.add({file, position.line, "until"}, ErrorKind::kDays, [&] {
        return fmt::format(
            "column until holds {}, which is before the {} of column from, but a line is in force from one day until "
            "the same or a later one; correct one of them",
            days.until->text(), days.from->text());
    });
    return false;
}

}  // namespace standalone::loader
