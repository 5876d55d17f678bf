#ifndef FEEDESK_RECONCILING_TABLE_EDIT_H
#define FEEDESK_RECONCILING_TABLE_EDIT_H

#include <cstddef>
#include <map>
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

    /// Values by their columns.
    using Values = std::vector<std::pair<std::string, std::string>>;
    /// What is there before and behind a change.
    using Change = std::pair<std::string, std::string>;

    /// Ends the line, counted from 1, on the day before these days, lets it go on with other values while they last,
    /// and with its own behind them; a line that begins on the first of these days or later is changed in its place.
    /// A line may be changed on several days, and what is behind the change has all of them. The days have a first one.
    /// Nothing when the table has no such line or column, the line is changed on one of these days already, or a line
    /// is added behind it.
    std::optional<Change> succeed(std::size_t line, const Values& values, const cost::DateRange& days);

    /// Adds a line behind this one that is like it but for these values, on these days. The days have a first one.
    /// Nothing when the table has no such line or column.
    std::optional<Change> addLike(std::size_t line, const Values& values, const cost::DateRange& days);

    /// What is in the line's column; nothing when the table has no such line or column.
    [[nodiscard]] std::optional<std::string> cell(std::size_t line, const std::string& column) const;

    /// The table as it is with the changes.
    [[nodiscard]] std::string text() const;
    /// The changes as a patch of the file.
    [[nodiscard]] std::string patch(const std::string& file) const;

private:
    using Cells = std::vector<std::string>;
    /// Other values on some days of a line.
    struct Stretch {
        Values values;
        cost::DateRange days;
    };

    [[nodiscard]] std::optional<std::size_t> columnNamed(const std::string& name) const;
    /// Sees to it that the table has the columns of days; false where it has one of them alone, and which comes next to
    /// it is its writer's to say.
    bool hasDays();
    /// The line with its days as far as they are among these; nothing where none is.
    [[nodiscard]] std::optional<Cells> onDays(Cells cells, const cost::DateRange& days) const;
    /// The line in pieces, each with the values of its days.
    [[nodiscard]] std::vector<std::string> pieces(std::size_t line) const;
    /// The cells with these values; none where a column is missing.
    [[nodiscard]] Cells withValues(Cells cells, const Values& values) const;
    /// Adds the columns of days to every line.
    void addDays();
    /// The line's cells before any change, as many as the header has; none where there is no such line.
    [[nodiscard]] Cells cellsOf(std::size_t line) const;

    TextOfLines table;
    Cells header;
    Replacements replacements;
    std::map<std::size_t, std::vector<Stretch>> changed;  // of each line, by day
    std::set<std::size_t> extended;                       // lines behind which others are added
    bool daysAreAdded = false;
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_TABLE_EDIT_H
