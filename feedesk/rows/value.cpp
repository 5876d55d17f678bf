#include "feedesk/rows/value.h"

#include <fmt/format.h>

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
    std::string operator()(const Source& source) const { return source.place; }
};

}  // namespace

bool isNothing(const Value& value) { return std::holds_alternative<Nothing>(value); }

Value textOrNothing(const std::string& text) { return text.empty() ? Value(Nothing()) : Value(text); }

std::string plainText(const Value& value) { return std::visit(PlainText(), value); }

}  // namespace feedesk
