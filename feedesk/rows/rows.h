#ifndef FEEDESK_ROWS_ROWS_H
#define FEEDESK_ROWS_ROWS_H

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "feedesk/rows/value.h"

namespace feedesk {

// A command answers with rows; table, CSV and JSON are ways to write them. A command knows no form, a form no command.

/// Where a table has a field.
enum class ShownAt {
    kInOrder,
    kLast,    ///< behind all that are in order
    kHeading  ///< on a line of its own above the rows that have the same
};

/// What a table does with a field that is 0, or nothing, in every row.
enum class WhenZero {
    kShown,
    kLeftOut,
    kNamed  ///< left out; where it is 0, named below the table
};

/// One field of a section's rows.
struct Field {
    std::string name;   ///< in JSON and CSV; empty: programs do not get the field
    std::string title;  ///< in a table; empty: people do not
    Unit unit = Unit::kText;
    std::string group{};  ///< the JSON object inside the row's that holds the field and its neighbours of that group
    ShownAt place = ShownAt::kInOrder;
    WhenZero whenZero = WhenZero::kShown;
    bool added = false;        ///< charged together with the field before it: a table shows the sum of both
    std::size_t shortest = 0;  ///< how narrow a table may make the text by shortening it; 0: it stays whole

    [[nodiscard]] Field in(const std::string& newGroup) const { return with(&Field::group, newGroup); }
    [[nodiscard]] Field at(ShownAt newPlace) const { return with(&Field::place, newPlace); }
    [[nodiscard]] Field when(WhenZero newWhenZero) const { return with(&Field::whenZero, newWhenZero); }
    [[nodiscard]] Field shortenedTo(std::size_t width) const { return with(&Field::shortest, width); }

    template <class Member>
    [[nodiscard]] Field with(Member Field::*member, const Member& value) const {
        Field changed = *this;
        changed.*member = value;
        return changed;
    }
};

/// A field that programs get and people do not.
inline Field forPrograms(const std::string& name) { return {name, ""}; }

/// A field that people get and programs do not.
inline Field forPeople(const std::string& title) { return {"", title}; }

/// A field without a name and a title, which only opens its group: where no field of the group follows, JSON has an
/// empty object in this place.
inline Field beginOf(const std::string& group) { return Field{"", ""}.in(group); }

/// Rows with the same fields, which have a table of their own.
struct Section {
    std::string title;  ///< above its table; empty: nothing is said
    std::vector<Field> fields;
    std::string sheet{};  ///< what a spreadsheet calls it; empty: as its title
};

using Sections = std::vector<Section>;

/// One row of an answer.
struct Row {
    std::size_t section = 0;    ///< which of the sections
    std::vector<Value> values;  ///< in the order of the section's fields, and as many
    bool marked = false;        ///< people must not overlook it
};

/// Takes an answer's rows, one after another, in the order in which programs get them: begin, any number of rows, end.
/// Where something is thrown in between, breakOff() takes the place of end().
class RowSink {
public:
    RowSink() = default;
    RowSink(const RowSink&) = delete;
    RowSink& operator=(const RowSink&) = delete;
    virtual ~RowSink() = default;

    virtual void begin(const Sections& sections) = 0;
    virtual void row(const Row& row) = 0;
    virtual void end() = 0;
    /// Ends what was written, so that it is whole; a form of which nothing was written yet drops it instead.
    virtual void breakOff() { end(); }
};

/// A field, and how an item's value of it is found: a command's list of these is the only place that names its fields.
template <class Item>
struct FieldOf {
    Field field;
    std::function<Value(const Item&)> value;
};

/// All fields of an item, in the order of its section.
template <class Item>
using FieldsOf = std::vector<FieldOf<Item>>;

/// The section of these fields; `title` and `sheet` as in Section.
template <class Item>
Section sectionOf(std::string title, const FieldsOf<Item>& fields, std::string sheet = "") {
    Section section{std::move(title), {}, std::move(sheet)};
    for (const FieldOf<Item>& each : fields) {
        section.fields.push_back(each.field);
    }
    return section;
}

/// The row of an item in the first section, unmarked.
template <class Item>
Row rowOf(const FieldsOf<Item>& fields, const Item& item) {
    Row row;
    row.values.reserve(fields.size());
    for (const FieldOf<Item>& each : fields) {
        row.values.push_back(each.value(item));
    }
    return row;
}

}  // namespace feedesk

#endif  // FEEDESK_ROWS_ROWS_H
