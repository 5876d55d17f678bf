#include "feedesk/rows/shown_text.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "feedesk/text/numbers.h"
#include "standalone/text/escape.h"
#include "standalone/text/numbers.h"

namespace feedesk {
namespace {

Pieces printablePieces(const Pieces& pieces) {
    Pieces shown;
    std::transform(pieces.begin(), pieces.end(), std::back_inserter(shown), standalone::printable);
    return shown;
}

std::string numberText(Unit unit, double number) {
    if (number == 0) {
        return "0";
    }
    return unit == Unit::kFraction ? percent(number) : plainNumber(number) + (unit == Unit::kYuan ? " yuan" : "");
}

struct ShownText {
    Unit unit;

    Pieces operator()(const Nothing& /*nothing*/) const { return unit == Unit::kText ? Pieces() : Pieces{"-"}; }
    Pieces operator()(const std::string& text) const { return {standalone::printable(text)}; }
    Pieces operator()(const Label& label) const { return printablePieces(label.shown); }
    Pieces operator()(const Names& names) const { return printablePieces(names); }
    Pieces operator()(double number) const { return {numberText(unit, number)}; }
    Pieces operator()(std::size_t count) const { return {grouped(count)}; }
    Pieces operator()(const Money& money) const { return {money.decimal}; }
    Pieces operator()(const Rate& rate) const {
        const std::optional<double> number = standalone::numberIn<double>(rate.decimal);
        return {number ? numberText(rate.unit, *number) : rate.decimal};
    }
    Pieces operator()(const Sources& sources) const { return printablePieces(sources.places); }
    Pieces operator()(const Sentences& sentences) const { return {standalone::printable(plainText(sentences))}; }
    Pieces operator()(const Source& source) const { return {standalone::printable(source.place)}; }
    Pieces operator()(const cost::Date& day) const { return {day.text()}; }
};

}  // namespace

Pieces shownText(const Field& field, const Value& value) { return std::visit(ShownText{field.unit}, value); }

bool isZero(const Value& value) {
    const auto* number = std::get_if<double>(&value);
    const auto* count = std::get_if<std::size_t>(&value);
    return (number != nullptr && *number == 0) || (count != nullptr && *count == 0);
}

}  // namespace feedesk
