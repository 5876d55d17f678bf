#ifndef FEEDESK_ROWS_VALUE_H
#define FEEDESK_ROWS_VALUE_H

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "cost/date.h"

namespace feedesk {

/// What the number of a field or a rate counts.
enum class Unit {
    kText,
    kFraction,  ///< of turnover or value
    kYuan,      ///< per lot, contract or share
    kNumber,    ///< of an unknown unit
    kCount      ///< no rate: how many, a trade unit, a mode
};

/// A text in pieces that may be put on lines of their own where room is short.
using Pieces = std::vector<std::string>;

/// No value: in a table "-" in place of a number and else an empty cell, in CSV an empty cell, in JSON null.
struct Nothing {};

/// A name for programs, and what people read in its place.
struct Label {
    std::string name;
    Pieces shown;
};

/// An amount of money: an exact decimal with a point, as "-1234.5". No double ever holds it.
struct Money {
    std::string decimal;
};

/// A rate where the rows of a field have different units: an exact decimal as Money's, and its own unit.
struct Rate {
    std::string decimal;
    Unit unit;
};

/// Where in the market folder something is: "fees/stock.csv:12".
struct Source {
    std::string place;
};

/// Several of them.
struct Sources {
    std::vector<std::string> places;
};

/// Whole sentences, or parts of one.
struct Sentences {
    std::vector<std::string> texts;
};

/// A list of names.
using Names = std::vector<std::string>;

/// What a row has under one field. A double is a rate or another number, in the unit of its field; a size_t is how many
/// there are of something.
using Value = std::variant<Nothing, std::string, Label, Names, double, std::size_t, Money, Rate, Source, Sources,
                           Sentences, cost::Date>;

/// Whether it is Nothing; a text without characters is something.
bool isNothing(const Value& value);

/// `text`, or nothing where it is empty.
Value textOrNothing(const std::string& text);

/// The day, which is shown as "2024-01-02", or nothing where there is none.
Value dayOrNothing(const std::optional<cost::Date>& day);

/// A Rate; a double where it is no number, which every form has its own word for.
Value asRate(double rate, Unit unit);

/// The value as a program reads it, without an escape or a quote: a number as plainNumber() shows it, names with a
/// space between two, sentences with a semicolon, the empty text for nothing.
std::string plainText(const Value& value);

}  // namespace feedesk

#endif  // FEEDESK_ROWS_VALUE_H
