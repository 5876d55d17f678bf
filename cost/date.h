#ifndef COST_DATE_H
#define COST_DATE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cost {

/// A day of the Gregorian calendar from year 1 to 9999. A plain value.
class Date {
public:
    Date() = default;  ///< 0001-01-01

    /// Empty for a day that the calendar does not have.
    static std::optional<Date> of(int year, int month, int day);
    /// Reads "2023-08-28"; empty for any other text.
    static std::optional<Date> parse(std::string_view text);
    /// Reads "20230828", as statements write it; empty for any other text.
    static std::optional<Date> parseCompact(std::string_view text);
    /// 9999-12-31.
    static Date last() { return Date(99991231); }

    [[nodiscard]] int year() const { return number / 10000; }       ///< such as 2026
    [[nodiscard]] int month() const { return number / 100 % 100; }  ///< 1 to 12
    [[nodiscard]] int day() const { return number % 100; }          ///< 1 to 31
    [[nodiscard]] std::string text() const;                         ///< "2023-08-28"

    /// The day after; empty after the last day.
    [[nodiscard]] std::optional<Date> next() const;
    /// The day before; empty before the first day.
    [[nodiscard]] std::optional<Date> previous() const;

    /// @{
    /// The earlier day is the smaller one.
    friend bool operator==(Date a, Date b) { return a.number == b.number; }
    friend bool operator!=(Date a, Date b) { return a.number != b.number; }
    friend bool operator<(Date a, Date b) { return a.number < b.number; }
    friend bool operator<=(Date a, Date b) { return a.number <= b.number; }
    friend bool operator>(Date a, Date b) { return a.number > b.number; }
    friend bool operator>=(Date a, Date b) { return a.number >= b.number; }
    /// @}

private:
    explicit Date(std::int32_t digits) : number(digits) {}

    std::int32_t number = 10101;  // year, month and day as decimal digits, so that it sorts
};

/// Days from one to another, both included; an empty end is no bound.
struct DateRange {
    std::optional<Date> from;   ///< the first day; empty: from ever
    std::optional<Date> until;  ///< the last day, included; empty: for ever

    /// Whether the day is in the range.
    [[nodiscard]] bool contains(Date date) const { return !(from && date < *from) && !(until && date > *until); }
    /// Whether any day is in both.
    [[nodiscard]] bool overlaps(const DateRange& other) const;
    /// "from 2022-04-29 until 2023-08-27", "from 2023-08-28 on", "until 2022-04-28", "of every day".
    [[nodiscard]] std::string text() const;
};

}  // namespace cost

#endif  // COST_DATE_H
