#include "feedesk/reconciling/amounts.h"

#include <algorithm>

#include "cost/day.h"
#include "cost/refused.h"

namespace feedesk {
namespace {

Part& partFor(std::vector<Part>& parts, const cost::BillItem& item) {
    const auto known = std::find_if(parts.begin(), parts.end(), [&](const Part& part) {
        return part.charge == item.term->charge && part.item == item.term->item;
    });
    if (known != parts.end()) {
        return *known;
    }
    Part& part = parts.emplace_back();
    part.charge = item.term->charge;
    part.item = item.term->item;
    part.inside = item.inside == nullptr ? "" : item.inside->charge;
    part.term = item.term;
    part.rate = item.rate;
    return part;
}

}  // namespace

Span& Span::operator+=(const Span& other) {
    low += other.low;
    high += other.high;
    return *this;
}

Span Amounts::costs() const {
    Span sum;
    for (const Part& part : parts) {
        sum += part.isPaid() ? part.amount : Span();
    }
    return sum;
}

Span Amounts::net() const { return Span(cost::Decimal(sign) * turnover) - costs(); }

Span Amounts::own(const Part& part) const {
    Span own = part.amount;
    for (const Part& other : parts) {
        own = other.inside == part.charge ? own - other.amount : own;
    }
    return own;
}

Amounts amountsOf(const std::vector<cost::Trade>& fills, const cost::Tariff& tariff) {
    cost::Day day(fills.front().date);
    for (const cost::Trade& fill : fills) {
        day.add(fill, tariff);
    }
    Amounts amounts(tariff);
    for (const cost::Bill& bill : day.bills()) {
        for (const cost::BillItem& item : bill.items) {
            Part& part = partFor(amounts.parts, item);
            part.amount += Span(item.amount);
            part.exact += item.value * item.basis;
        }
        amounts.turnover += bill.turnover;
        amounts.currency = bill.currency;
    }
    amounts.sign = cost::turnoverSign(tariff.place().family, fills.front().side);
    return amounts;
}

std::optional<Amounts> amountsIfAny(const std::vector<cost::Trade>& fills, const cost::Tariff& tariff) {
    try {
        return amountsOf(fills, tariff);
    } catch (const cost::Refused&) {
        return std::nullopt;
    }
}

}  // namespace feedesk
