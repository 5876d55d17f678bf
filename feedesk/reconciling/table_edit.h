#ifndef FEEDESK_RECONCILING_TABLE_EDIT_H
#define FEEDESK_RECONCILING_TABLE_EDIT_H

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "cost/date.h"
#include "feedesk/reconciling/text_patch.h"

namespace feedesk {

/// A table of a market folder whose lines are given successors. Every line that is not changed stays as it is written.
class TableEdit {
public:
    /// `text` is that of the table.
    explicit TableEdit(const std::string& text);

    /// Ends the line, counted from 1, on the day before and lets it go on with another value in a column; a line that
    /// begins on that day or later is changed in its place. What is there before and behind the change, or nothing
    /// when the table has no such line or column, or the line is changed already.
    std::optional<std::pair<std::string, std::string>> succeed(std::size_t line, const std::string& column,
                                                               const std::string& value, cost::Date from);

    /// Adds a line behind this one that is like it, but for one instrument alone and with another value from the day
    /// on. The same result; nothing too where the table has no column of codes.
    std::optional<std::pair<std::string, std::string>> addFor(std::size_t line, const std::string& market,
                                                              const std::string& code, const std::string& column,
                                                              const std::string& value, cost::Date from);

    /// What is in the line's column; nothing when the table has no such line or column.
    [[nodiscard]] std::optional<std::string> cell(std::size_t line, const std::string& column) const;

    /// The table as it is with the changes.
    [[nodiscard]] std::string text() const;
    /// The changes as a patch of the file.
    [[nodiscard]] std::string patch(const std::string& file) const;

private:
    using Cells = std::vector<std::string>;

    [[nodiscard]] std::optional<std::size_t> columnNamed(const std::string& name) const;
    /// Sees to it that the table has the columns of days; false where it has one of them alone, and which comes next to
    /// it is its writer's to say.
    bool hasDays();
    /// Adds the columns of days to every line.
    void addDays();
    /// The line's cells before any change, as many as the header has; none where there is no such line.
    [[nodiscard]] Cells cellsOf(std::size_t line) const;

    TextOfLines table;
    Cells header;
    Replacements replacements;
    std::set<std::size_t> succeeded;  // lines that have a successor
    bool daysAreAdded = false;
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_TABLE_EDIT_H
