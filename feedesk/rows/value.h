#ifndef FEEDESK_ROWS_VALUE_H
#define FEEDESK_ROWS_VALUE_H

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

namespace feedesk {

/// A text in pieces that may be put on lines of their own where room is short.
using Pieces = std::vector<std::string>;

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

/// Where in the market folder something is: "fees/stock.csv:12".
struct Source {
    std::string place;
};

/// A list of names.
using Names = std::vector<std::string>;

/// What a row has under one field. A double is a rate or another number, in the unit of its field; a size_t is how many
/// there are of something.
using Value = std::variant<Nothing, std::string, Label, Names, double, std::size_t, Money, Source>;

bool isNothing(const Value& value);

/// `text`, or nothing where it is empty.
Value textOrNothing(const std::string& text);

/// The value as a program reads it, without an escape or a quote: a number as plainNumber() shows it, names with a
/// space between two, the empty text for nothing.
std::string plainText(const Value& value);

}  // namespace feedesk

#endif  // FEEDESK_ROWS_VALUE_H
