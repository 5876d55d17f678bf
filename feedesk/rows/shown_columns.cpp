#include "feedesk/rows/shown_columns.h"

#include <algorithm>
#include <variant>

#include "feedesk/rows/shown_text.h"
#include "feedesk/text/text.h"
#include "standalone/text/escape.h"

namespace feedesk {
namespace {

using Columns = std::vector<ShownColumn>;
using Rows = std::vector<Row>;

bool isSomething(const Value& value) { return !isNothing(value); }
bool isNotZero(const Value& value) { return !isNothing(value) && !isZero(value); }
bool isSource(const Value& value) { return std::holds_alternative<Source>(value); }

/// Whether a row has such a value in the column.
bool any(const ShownColumn& column, const Rows& rows, bool (*is)(const Value&)) {
    return std::any_of(rows.begin(), rows.end(), [&](const Row& row) {
        const auto first = row.values.begin() + static_cast<std::ptrdiff_t>(column.number);
        return std::any_of(first, first + static_cast<std::ptrdiff_t>(column.fields.size()), is);
    });
}

WhenZero whenZero(const ShownColumn& column) { return column.fields.front().whenZero; }
bool mayBeLeftOut(const ShownColumn& column) { return whenZero(column) != WhenZero::kShown; }
bool isNamed(const ShownColumn& column) { return whenZero(column) == WhenZero::kNamed; }

bool isRate(const ShownColumn& column) {
    const Unit unit = column.fields.front().unit;
    return mayBeLeftOut(column) && unit != Unit::kText && unit != Unit::kCount;
}

/// Takes the columns out for which `goes` holds.
template <class Test>
Columns take(Columns& columns, const Test& goes) {
    const auto first =
        std::stable_partition(columns.begin(), columns.end(), [&](const ShownColumn& column) { return !goes(column); });
    Columns taken(first, columns.end());
    columns.erase(first, columns.end());
    return taken;
}

/// Takes out what is 0 and may be left out then. Where no rate would be left, those with a name stay; where none has a
/// name, all rates.
Columns takeZeros(Columns& columns, const Rows& rows) {
    const auto isCharged = [&](const ShownColumn& column) { return isRate(column) && any(column, rows, isNotZero); };
    const bool noneCharged = std::none_of(columns.begin(), columns.end(), isCharged);
    const auto stays = std::any_of(columns.begin(), columns.end(), isNamed) ? isNamed : isRate;
    return take(columns, [&](const ShownColumn& column) {
        return mayBeLeftOut(column) && !any(column, rows, isNotZero) && !(noneCharged && stays(column));
    });
}

}  // namespace

TextColumn ShownColumn::title() const {
    const Field& field = fields.front();
    return {words(standalone::printable(field.title)), field.unit == Unit::kText ? Align::kLeft : Align::kRight,
            field.shortest};
}

/// "0.01%", "+ 3 yuan": of a sum what is 0 is left out, all but one 0.
Pieces ShownColumn::cell(const Row& row) const {
    Pieces sum;
    for (std::size_t i = 0; fields.size() > 1 && i < fields.size(); ++i) {
        if (isNotZero(row.values[number + i])) {
            sum.push_back((sum.empty() ? "" : "+ ") + shownText(fields[i], row.values[number + i]).front());
        }
    }
    return sum.empty() ? shownText(fields.front(), row.values[number]) : sum;
}

ShownColumns::ShownColumns(const std::vector<Field>& fields, const std::vector<Row>& rows) {
    add(fields);
    for (ShownColumn& column : shown) {
        column.isSource = any(column, rows, isSource);
    }
    take(shown, [&](const ShownColumn& column) { return mayBeLeftOut(column) && !any(column, rows, isSomething); });
    for (const ShownColumn& zero : takeZeros(shown, rows)) {
        if (isNamed(zero)) {
            namedZeros.push_back(standalone::printable(zero.fields.front().title));
        }
    }
}

void ShownColumns::add(const std::vector<Field>& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const Field& field = fields[i];
        if (field.title.empty()) {
            continue;
        }
        if (field.place == ShownAt::kHeading) {
            heading = i;
        } else if (field.added) {
            shown.back().fields.push_back(field);
        } else {
            shown.push_back({{field}, i});
        }
    }
    std::stable_partition(shown.begin(), shown.end(),
                          [](const ShownColumn& column) { return column.fields.front().place != ShownAt::kLast; });
}

std::string ShownColumns::headingOf(const Row& row) const {
    return heading ? standalone::printable(plainText(row.values[*heading])) : "";
}

}  // namespace feedesk
