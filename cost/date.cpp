#include "cost/date.h"

#include <array>

namespace cost {
namespace {

constexpr int kLastYear = 9999;

bool isLeap(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int daysOf(int year, int month) {
    constexpr std::array<int, 12> days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeap(year) ? 29 : days.at(static_cast<std::size_t>(month - 1));
}

/// The number that all of the text writes in digits; -1 for any other text.
int digits(std::string_view text) {
    int number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return -1;
        }
        number = number * 10 + (c - '0');
    }
    return number;
}

}  // namespace

std::optional<Date> Date::of(int year, int month, int day) {
    if (year < 1 || year > kLastYear || month < 1 || month > 12 || day < 1 || day > daysOf(year, month)) {
        return std::nullopt;
    }
    return Date(year * 10000 + month * 100 + day);
}

std::optional<Date> Date::parse(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') {
        return std::nullopt;
    }
    return of(digits(text.substr(0, 4)), digits(text.substr(5, 2)), digits(text.substr(8)));
}

std::optional<Date> Date::parseCompact(std::string_view text) {
    if (text.size() != 8) {
        return std::nullopt;
    }
    return of(digits(text.substr(0, 4)), digits(text.substr(4, 2)), digits(text.substr(6)));
}

std::string Date::text() const {
    std::string text = std::to_string(number);
    text.insert(0, 8 - text.size(), '0');
    return text.substr(0, 4) + '-' + text.substr(4, 2) + '-' + text.substr(6);
}

std::optional<Date> Date::next() const {
    if (day() < daysOf(year(), month())) {
        return Date(number + 1);
    }
    return month() < 12 ? of(year(), month() + 1, 1) : of(year() + 1, 1, 1);
}

std::optional<Date> Date::previous() const {
    if (day() > 1) {
        return Date(number - 1);
    }
    return month() > 1 ? of(year(), month() - 1, daysOf(year(), month() - 1)) : of(year() - 1, 12, 31);
}

bool DateRange::overlaps(const DateRange& other) const {
    return !(until && other.from && *until < *other.from) && !(other.until && from && *other.until < *from);
}

std::string DateRange::text() const {
    if (from && until) {
        return "from " + from->text() + " until " + until->text();
    }
    if (from) {
        return "from " + from->text() + " on";
    }
    return until ? "until " + until->text() : "of every day";
}

}  // namespace cost
