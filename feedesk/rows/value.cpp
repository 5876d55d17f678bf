#include "feedesk/rows/value.h"

#include <fmt/format.h>

#include <cmath>
#include "feedesk/text/numbers.h"

namespace feedesk {
namespace {

struct PlainText {
    std::string operator()(const Nothing& /*nothing*/) const { return ""; }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(const Label& label) const { return label.name; }
    std::string operator()(const Names& names) const { return fmt::format("{}", fmt::join(names, " ")); }
    std::string operator()(double number) const { return plainNumber(number); }
    std::string operator()(std::size_t count) const { return fmt::format("{}", count); }
    std::string operator()(const Money& money) const { return money.decimal; }
    std::string operator()(const Rate& rate) const { return rate.decimal; }
    std::string operator()(const Sources& sources) const { return (*this)(Names(sources.places)); }
    std::string operator()(const Sentences& sentences) const {
        return fmt::format("{}", fmt::join(sentences.texts, "; "));
    }
    std::string operator()(const Source& source) const { return source.place; }
    std::string operator()(const cost::Date& day) const { return day.text(); }
};

}  // namespace

bool isNothing(const Value& value) { return std::holds_alternative<Nothing>(value); }

Value textOrNothing(const std::string& text) { return text.empty() ? Value(Nothing()) : Value(text); }

Value dayOrNothing(const std::optional<cost::Date>& day) { return day ? Value(*day) : Nothing(); }

Value asRate(double rate, Unit unit) { return std::isfinite(rate) ? Value(Rate{plainNumber(rate), unit}) : rate; }

std::string plainText(const Value& value) { return std::visit(PlainText(), value); }

}  // namespace feedesk
