#include "cost/bill.h"

#include <algorithm>
#include <stdexcept>

#include "cost/billing.h"

namespace cost {
namespace {

const Decimal& basisOf(const Term& term, const Sum& sum) {
    static const Decimal one(1);
    switch (term.basis) {
        case Basis::kTurnover:
            return sum.turnover;
        case Basis::kQuantity:
            return sum.quantity;
        default:
            return one;
    }
}

Decimal amountOf(const Term& term, const Decimal& exact) {
    Decimal amount = exact;
    if (term.minimum && amount < *term.minimum) {
        amount = *term.minimum;
    }
    if (term.maximum && amount > *term.maximum) {
        amount = *term.maximum;
    }
    return term.rounding ? term.rounding->rounded(amount) : amount;
}

std::optional<Margin> marginOf(const Trade& trade, const Decimal& turnover, const Tariff& tariff) {
    if (tariff.place().family != Family::kFutures || !isOpening(trade.side)) {
        return std::nullopt;
    }
    const std::vector<MarginRate>& rates = tariff.rates().margins;
    const auto rate = std::find_if(rates.begin(), rates.end(),
                                   [&](const MarginRate& known) { return known.hedgeFlag == trade.hedgeFlag; });
    if (rate == rates.end()) {
        return std::nullopt;
    }
    Margin margin;
    margin.byMoney = isShort(trade.side) ? rate->shortByMoney : rate->longByMoney;
    margin.byVolume = isShort(trade.side) ? rate->shortByVolume : rate->longByVolume;
    margin.amount = turnover * margin.byMoney + trade.quantity * margin.byVolume;
    margin.rate = &*rate;
    return margin;
}

}  // namespace

void Sum::add(const Decimal& moreTurnover, const Trade& trade) {
    turnover += moreTurnover;
    quantity += trade.quantity;
    ++trades;
}

void refuseMissingPrice(const Plan& plan, const Trade& trade) {
    if (!trade.price.isZero()) {
        return;
    }
    for (const ChargeLine& line : plan.lines) {
        if (line.term->basis == Basis::kTurnover) {
            throw WrongTrade(line.term->where + " charges " + line.term->charge +
                             " on turnover, and the exercise has no price");
        }
    }
}

Bill emptyBill(const Trade& trade, const Decimal& turnover, const Tariff& tariff, const Plan& plan) {
    Bill bill(tariff);
    bill.turnover = turnover;
    bill.currency = plan.currency;
    bill.margin = marginOf(trade, turnover, tariff);
    bill.items.reserve(plan.lines.size());
    return bill;
}

BillItem itemOf(const ChargeLine& line, const Sum& sum) {
    BillItem item;
    item.term = line.term;
    item.rate = line.rate;
    item.inside = line.inside;
    item.basis = basisOf(*line.term, sum);
    item.value = line.value;
    item.amount = amountOf(*line.term, item.basis * line.value);
    item.trades = sum.trades;
    return item;
}

void total(Bill& bill, Side side) {
    for (const BillItem& item : bill.items) {
        if (item.inside == nullptr) {
            bill.costs += item.amount;
        }
    }
    bill.net = Decimal(turnoverSign(bill.tariff.place().family, side)) * bill.turnover - bill.costs;
}

Bill costOf(const Trade& trade, const Tariff& tariff) {
    return withinBounds([&] {
        const Plan& plan = tariff.planOf(trade.side, trade.date);
        Sum sum;
        sum.add(turnoverOf(trade, tariff), trade);
        refuseMissingPrice(plan, trade);
        Bill bill = emptyBill(trade, sum.turnover, tariff, plan);
        for (const ChargeLine& line : plan.lines) {
            bill.items.push_back(itemOf(line, sum));
        }
        total(bill, trade.side);
        return bill;
    });
}

Decimal ownAmount(const Bill& bill, const BillItem& item) {
    Decimal own = item.amount;
    for (const BillItem& other : bill.items) {
        if (other.inside == item.term) {
            own -= other.amount;
        }
    }
    return own;
}

Bill converted(Bill bill, const Decimal& exchangeRate, const std::string& currency) {
    return withinBounds([&] {
        for (BillItem& item : bill.items) {
            item.amount *= exchangeRate;
        }
        bill.turnover *= exchangeRate;
        bill.costs *= exchangeRate;
        bill.net *= exchangeRate;
        if (bill.margin) {
            bill.margin->amount *= exchangeRate;
        }
        bill.currency = currency;
        return std::move(bill);
    });
}

}  // namespace cost
