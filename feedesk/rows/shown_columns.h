#ifndef FEEDESK_ROWS_SHOWN_COLUMNS_H
#define FEEDESK_ROWS_SHOWN_COLUMNS_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "feedesk/rows/layout.h"
#include "feedesk/rows/rows.h"

namespace feedesk {

/// One column of a table: a field, and those behind it that are added to it.
struct ShownColumn {
    std::vector<Field> fields;
    std::size_t number;     ///< of the first field in its section
    bool isSource = false;  ///< its values are sources

    [[nodiscard]] TextColumn title() const;
    [[nodiscard]] Pieces cell(const Row& row) const;
};

/// Which columns the table of a section has for these rows.
class ShownColumns {
public:
    ShownColumns(const std::vector<Field>& fields, const std::vector<Row>& rows);

    /// Empty where the section has no heading.
    [[nodiscard]] std::string headingOf(const Row& row) const;

    std::vector<ShownColumn> shown;
    std::vector<std::string> namedZeros;  ///< titles of what is left out because it is 0

private:
    void add(const std::vector<Field>& fields);

    std::optional<std::size_t> heading;  // the number of its field
};

}  // namespace feedesk

#endif  // FEEDESK_ROWS_SHOWN_COLUMNS_H
