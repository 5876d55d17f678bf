#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "cost/backwards.h"
#include "cost/day.h"
#include "cost/support/naive.h"
#include "cost/support/tariffs.h"

// Random trades under random terms, and a model that shares no code with the library.

namespace {

using namespace cost;       // NOLINT(google-build-using-namespace): what is tested
using namespace cost_test;  // NOLINT(google-build-using-namespace): what it is tested with

const char* const kModes[] = {"half_up", "half_even", "up", "down"};

bool oneIn(int n) { return *rc::gen::inRange(0, n) == 0; }

/// A charge of some kind; every other is like the published ones.
naive::Charge randomCharge() {
    naive::Charge charge;
    charge.sum = *rc::gen::element(naive::Sum::kFill, naive::Sum::kOrder, naive::Sum::kDay);
    charge.onTurnover = !oneIn(3);
    charge.onQuantity = !charge.onTurnover && (charge.sum == naive::Sum::kFill || oneIn(2));
    const long most = charge.onTurnover ? 3000000 : 5000000000;
    charge.rate = oneIn(8) ? 0 : *rc::gen::inRange(1L, most);
    if (oneIn(2)) {
        charge.minimumFen = *rc::gen::inRange(0L, 1000L);
    }
    if (oneIn(3)) {
        charge.maximumFen = std::max(0L, charge.minimumFen) + *rc::gen::inRange(0L, 100000L);
    }
    if (!oneIn(3)) {
        charge.stepFen = *rc::gen::element(1L, 1L, 5L, 7L, 100L);
        charge.mode = *rc::gen::elementOf(std::vector<std::string>(std::begin(kModes), std::end(kModes)));
    }
    if (oneIn(3)) {
        charge.purchases = oneIn(2);
        charge.sales = !charge.purchases;
    }
    return charge;
}

/// The first is charged on both sides, so that there is always one that others can be inside of.
std::vector<naive::Charge> randomCharges() {
    std::vector<naive::Charge> charges(1);
    charges[0].rate = *rc::gen::inRange(1L, 3000000L);
    charges[0].sum = *rc::gen::element(naive::Sum::kFill, naive::Sum::kOrder, naive::Sum::kDay);
    charges[0].stepFen = 1;
    charges[0].mode = "half_up";
    const int more = *rc::gen::inRange(0, 5);
    for (int i = 0; i < more; ++i) {
        charges.push_back(randomCharge());
        charges.back().inside = oneIn(2) ? 0 : -1;
    }
    return charges;
}

std::vector<naive::Fill> randomFills() {
    std::vector<naive::Fill> fills(static_cast<std::size_t>(*rc::gen::inRange(1, 12)));
    for (naive::Fill& fill : fills) {
        fill.order = *rc::gen::inRange(0, 4);
        fill.purchase = fill.order == 0 ? oneIn(2) : fill.order % 2 == 0;
        fill.quantity = *rc::gen::inRange(1L, 100000L);
        fill.priceMilli = *rc::gen::inRange(1L, 2000000L);
    }
    return fills;
}

/// A whole number of such units in yuan.
Decimal units(long count, std::string_view unit) { return Decimal(count) * number(unit); }

Term termOf(const naive::Charge& charge, std::size_t index) {
    static const char* const pers[] = {"fill", "order", "day"};
    const std::string per = pers[static_cast<int>(charge.sum)];
    const std::string basis = charge.onTurnover ? "turnover" : charge.onQuantity ? "quantity" : per;
    Term made = term("stock", "charge" + std::to_string(index),
                     charge.purchases && charge.sales ? "both"
                     : charge.purchases               ? "buy"
                                                      : "sell",
                     basis + ' ' + per);
    if (charge.minimumFen >= 0) {
        made.minimum = units(charge.minimumFen, "0.01");
    }
    if (charge.maximumFen >= 0) {
        made.maximum = units(charge.maximumFen, "0.01");
    }
    if (charge.stepFen > 0) {
        made.rounding = Rounding{units(charge.stepFen, "0.01"), *fromWord<RoundingMode>(charge.mode)};
    }
    if (charge.inside >= 0) {
        made.inside = "charge" + std::to_string(charge.inside);
    }
    return made;
}

Tariff tariffOf(const std::vector<naive::Charge>& charges) {
    std::vector<Term> terms;
    Rates answered;
    for (std::size_t i = 0; i < charges.size(); ++i) {
        terms.push_back(termOf(charges[i], i));
        answered.charges.push_back({terms.back().charge, "", units(charges[i].rate, "0.000000001"), "", ""});
    }
    return tariff(terms, answered);
}

Trade tradeOf(const naive::Fill& fill) {
    Trade made;
    made.side = fill.purchase ? Side::kBuy : Side::kSell;
    made.quantity = Decimal(fill.quantity);
    made.price = units(fill.priceMilli, "0.001");
    made.date = date("2024-01-02");
    made.order = fill.order == 0 ? "" : std::to_string(fill.order);
    return made;
}

struct DayAmounts {
    std::vector<Decimal> charges;
    Decimal costs;
};

DayAmounts amountsOf(const std::vector<naive::Charge>& charges, const std::vector<naive::Fill>& fills) {
    const Tariff tariff = tariffOf(charges);
    Day day(date("2024-01-02"));
    for (const naive::Fill& fill : fills) {
        day.add(tradeOf(fill), tariff);
    }
    DayAmounts sums{std::vector<Decimal>(charges.size()), {}};
    for (const Bill& bill : day.bills()) {
        sums.costs += bill.costs;
        for (const BillItem& item : bill.items) {
            sums.charges[std::stoul(item.term->charge.substr(6))] += item.amount;
        }
    }
    return sums;
}

RC_GTEST_PROP(RandomDays, CostWhatTheModelSays, ()) {
    const auto charges = randomCharges();
    const auto fills = randomFills();
    const DayAmounts sums = amountsOf(charges, fills);
    const auto expected = naive::amounts(charges, fills);
    for (std::size_t i = 0; i < charges.size(); ++i) {
        RC_ASSERT(sums.charges[i].text(12) == naive::yuan(expected[i]));
    }
    RC_ASSERT(sums.costs.text(12) == naive::yuan(naive::costs(charges, expected)));
}

RC_GTEST_PROP(RandomDays, CostTheSameInAnyOrder, ()) {
    const auto charges = randomCharges();
    auto fills = randomFills();
    const DayAmounts sums = amountsOf(charges, fills);
    for (std::size_t i = fills.size() - 1; i > 0; --i) {
        std::swap(fills[i], fills[static_cast<std::size_t>(*rc::gen::inRange(0, static_cast<int>(i) + 1))]);
    }
    const DayAmounts shuffled = amountsOf(charges, fills);
    RC_ASSERT(shuffled.charges == sums.charges);
    RC_ASSERT(shuffled.costs == sums.costs);
}

RC_GTEST_PROP(RandomDays, CostTheSumsOfWhatIsNotInsideOthers, ()) {
    const auto charges = randomCharges();
    const Tariff tariff = tariffOf(charges);
    const Trade trade = tradeOf(randomFills().front());
    const Bill bill = costOf(trade, tariff);
    Decimal paid;
    for (const BillItem& item : bill.items) {
        paid += charges[std::stoul(item.term->charge.substr(6))].inside < 0 ? item.amount : Decimal();
    }
    RC_ASSERT(bill.costs == paid);
    RC_ASSERT(bill.net == (trade.side == Side::kBuy ? -bill.turnover : bill.turnover) - paid);
}

RC_GTEST_PROP(RandomOrders, AreChargedTheSameInFills, ()) {
    auto charges = randomCharges();
    for (naive::Charge& charge : charges) {
        charge.sum = naive::Sum::kOrder;
    }
    naive::Fill whole = randomFills().front();
    whole.order = 1;
    std::vector<naive::Fill> fills;
    for (long left = whole.quantity; left > 0;) {
        fills.push_back(whole);
        fills.back().quantity = fills.size() == 8 ? left : *rc::gen::inRange(1L, left + 1);
        left -= fills.back().quantity;
    }
    RC_ASSERT(amountsOf(charges, fills).charges == amountsOf(charges, {whole}).charges);
}

RC_GTEST_PROP(RandomTrades, NeverCostLessForTwiceTheQuantity, ()) {
    const Tariff tariff = tariffOf(randomCharges());
    Trade trade = tradeOf(randomFills().front());
    const Decimal costs = costOf(trade, tariff).costs;
    trade.quantity += trade.quantity;
    RC_ASSERT(costOf(trade, tariff).costs >= costs);
}

RC_GTEST_PROP(RandomCash, BuysWhatItPaysForAndNotOneUnitMore, ()) {
    const Tariff made = tariffOf(randomCharges());
    Contract lots;
    lots.minimum = Decimal(*rc::gen::inRange(1, 300));
    lots.increment = Decimal(*rc::gen::inRange(1, 200));
    const Tariff tariff(made.place(), lots, made.rates(), made.terms());
    Trade trade = tradeOf(randomFills().front());
    trade.side = Side::kBuy;
    trade.order.clear();
    const Decimal cash = units(*rc::gen::inRange(0L, 10000000000L), "0.01");
    trade.quantity = affordable(cash, trade, tariff);
    if (trade.quantity.isZero()) {
        trade.quantity = lots.minimum;
    } else {
        RC_ASSERT(-costOf(trade, tariff).net <= cash);
        trade.quantity += lots.increment;
    }
    RC_ASSERT(-costOf(trade, tariff).net > cash);
}

RC_GTEST_PROP(RandomPurchases, BreakEvenAtTheLowestPriceThatPays, ()) {
    const Tariff tariff = tariffOf(randomCharges());
    Trade trade = tradeOf(randomFills().front());
    trade.side = Side::kBuy;
    trade.order.clear();
    const Decimal tick = number(*rc::gen::element("0.001", "0.01", "0.05"));
    const Decimal taken = -costOf(trade, tariff).net;
    const Decimal price = breakEvenPrice(trade, Side::kSell, tick, tariff);
    trade.side = Side::kSell;
    trade.price = price;
    RC_ASSERT(costOf(trade, tariff).net >= taken);
    RC_ASSERT(price.quotient(tick, RoundingMode::kDown) * tick == price);
    for (int lower = 0; lower < 50; ++lower) {
        trade.price -= tick;
        if (trade.price > Decimal()) {
            RC_ASSERT(costOf(trade, tariff).net < taken);
        }
    }
}

}  // namespace
