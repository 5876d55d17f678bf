#ifndef FEEDESK_RECONCILING_AMOUNTS_H
#define FEEDESK_RECONCILING_AMOUNTS_H

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cost/bill.h"

namespace feedesk {

/// An amount, or the range that it lies in when its fills are not known one by one; both ends belong to it.
struct Span {
    cost::Decimal low;
    cost::Decimal high;

    Span() = default;
    explicit Span(const cost::Decimal& exact) : low(exact), high(exact) {}
    Span(cost::Decimal lowest, cost::Decimal highest) : low(std::move(lowest)), high(std::move(highest)) {}

    [[nodiscard]] bool isExact() const { return low == high; }
    [[nodiscard]] bool contains(const cost::Decimal& amount) const { return low <= amount && amount <= high; }
    Span& operator+=(const Span& other);
    friend Span operator+(Span a, const Span& b) { return a += b; }
    /// Ends meet as far apart as they can.
    friend Span operator-(const Span& a, const Span& b) { return {a.low - b.high, a.high - b.low}; }
};

/// One charge of an order: its items on all fills together.
struct Part {
    std::string charge;
    std::string item;    ///< options: key of the fee item
    std::string inside;  ///< the charge that contains it; empty: it is paid by itself
    Span amount;
    cost::Decimal exact;  ///< rate x basis, before minimum, maximum and rounding
    const cost::Term* term = nullptr;
    const cost::Rate* rate = nullptr;  ///< empty: the term's own
    bool again = false;                ///< charged on top of another part of the same charge

    [[nodiscard]] bool isPaid() const { return inside.empty(); }
};

/// What an order costs. The pointers of its parts live as long as the tariff that it keeps.
struct Amounts {
    explicit Amounts(cost::Tariff usedTariff) : tariff(std::move(usedTariff)) {}

    cost::Tariff tariff;
    std::vector<Part> parts;
    cost::Decimal turnover;
    int sign = 0;  ///< of the turnover on the account
    std::string currency;

    [[nodiscard]] Span costs() const;
    [[nodiscard]] Span net() const;
    /// The part without those directly inside it.
    [[nodiscard]] Span own(const Part& part) const;
};

/// What the fills of one order, all of one day, cost together. Throws cost::Refused as cost::Day does.
Amounts amountsOf(const std::vector<cost::Trade>& fills, const cost::Tariff& tariff);

/// The same; nothing where it is refused.
std::optional<Amounts> amountsIfAny(const std::vector<cost::Trade>& fills, const cost::Tariff& tariff);

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_AMOUNTS_H
