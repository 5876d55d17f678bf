#ifndef COST_DAY_H
#define COST_DAY_H

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "cost/bill.h"
#include "cost/billing.h"

namespace cost {

/// The fills of one day: what they cost together. A charge per order or day is charged on the sum of its fills,
/// whatever their order, and is shown once: on the first of them as added, with the basis of all. Holds the day's
/// trades and no more. One thread at a time; distinct objects are independent.
class Day {
public:
    /// A day without fills.
    explicit Day(Date date) : day(date) {}

    /// Adds a fill. All fills of one account and instrument come with the same tariff or a copy of it. Throws Refused,
    /// and the day stays as it was: as costOf() does, for a trade of another day, and for one that cannot be of the
    /// order that it names because the order has another instrument, side or currency.
    void add(Trade trade, const Tariff& tariff);

    /// A bill for each fill in the order in which they were added. Throws Refused when sums grow too large.
    [[nodiscard]] std::vector<Bill> bills() const;

    [[nodiscard]] Date date() const { return day; }                  ///< the day that all fills are of
    [[nodiscard]] std::size_t size() const { return fills.size(); }  ///< how many fills were added

private:
    static constexpr std::size_t kNoGroup = static_cast<std::size_t>(-1);

    struct Fill {
        Trade trade;
        Tariff tariff;
        const Plan* plan;  // of the tariff
        Decimal turnover;
        std::size_t order;     // its group
        std::size_t position;  // its group, where something is charged per day
    };
    /// The fills of one order, or those of one account, instrument and side.
    struct Group {
        std::size_t firstFill = 0;
        Sum sum;
    };

    void refuseForeignFill(std::size_t order, const Fill& fill) const;
    [[nodiscard]] std::size_t find(const std::string& key) const;
    [[nodiscard]] Sum sumWith(std::size_t group, const Fill& fill) const;
    std::size_t join(std::size_t group, Sum sum, const std::string& key);
    [[nodiscard]] Bill billOf(std::size_t index) const;

    Date day;
    std::vector<Fill> fills;
    std::vector<Group> groups;
    std::unordered_map<std::string, std::size_t> groupsByKey;
    // Of the trade that is being added; kept for their memory.
    std::string orderKey;
    std::string positionKey;
};

}  // namespace cost

#endif  // COST_DAY_H
