#include "cost/backwards.h"

#include <stdexcept>
#include <utility>

#include "cost/billing.h"

namespace cost {
namespace {

constexpr int kMostSteps = 100000;

/// What the account must have for the trade.
Decimal cashFor(const Trade& trade, const Tariff& tariff) {
    const Bill bill = costOf(trade, tariff);
    return bill.margin ? bill.margin->amount + bill.costs : -bill.net;
}

void refuseSideWithoutLimit(const Trade& trade, const Tariff& tariff) {
    const Family family = tariff.place().family;
    const bool takesCash = family == Family::kFutures ? isOpening(trade.side)
                                                      : isOpening(trade.side) && turnoverSign(family, trade.side) < 0;
    if (!takesCash) {
        throw WrongTrade("cash limits a purchase or the opening of futures, and the side is " +
                         std::string(wordFor(trade.side)));
    }
}

/// The greatest count from 0 to `limit` for which `holds`, which fails for all counts above one for which it fails.
template <class Holds>
Decimal greatest(Decimal limit, const Holds& holds) {
    static const Decimal half = *Decimal::parse("0.5");
    Decimal low;  // holds
    while (low < limit) {
        const Decimal middle = ((low + limit) * half).quotient(Decimal(1), RoundingMode::kUp);
        if (holds(middle)) {
            low = middle;
        } else {
            limit = middle - Decimal(1);
        }
    }
    return low;
}

void refuseForeignClosing(const Trade& opening, Side closing) {
    const bool belongTogether = opening.side == Side::kBuy
                                    ? closing == Side::kSell
                                    : closing != Side::kSell && closing != Side::kExercise && !isOpening(closing) &&
                                          isShort(closing) == isShort(opening.side);
    if (!isOpening(opening.side) || !belongTogether) {
        throw WrongTrade(std::string(wordFor(closing)) + " does not close what " + std::string(wordFor(opening.side)) +
                         " opens");
    }
}

/// A margin rate of 0 is one that nobody has set: it would let any cash open any quantity.
void refuseWithoutMargin(const Trade& trade, const Tariff& tariff) {
    const auto margin = costOf(trade, tariff).margin;
    if (!margin || margin->amount.isZero()) {
        throw Refused("the answer has " + std::string(margin ? "a margin rate of 0" : "no margin rates") +
                      " of hedge flag " + trade.hedgeFlag + " for " + tariff.place().instrument() +
                      ", so cash does not tell how much can be opened");
    }
}

}  // namespace

Decimal affordable(const Decimal& cash, Trade trade, const Tariff& tariff) {
    return withinBounds([&] {
        refuseSideWithoutLimit(trade, tariff);
        const Contract& contract = tariff.contract();
        trade.order.clear();
        trade.quantity = contract.minimum;
        const Decimal leastCash = cashFor(trade, tariff);
        if (tariff.place().family == Family::kFutures) {
            refuseWithoutMargin(trade, tariff);
        }
        if (cash < leastCash) {
            return Decimal();
        }
        const auto isAffordable = [&](const Decimal& count) {
            trade.quantity = contract.minimum + count * contract.increment;
            return cashFor(trade, tariff) <= cash;
        };
        // Costs never fall when the quantity grows, so the first quantity that is too much bounds the search.
        Decimal limit(1);
        for (int doublings = 0; isAffordable(limit); ++doublings) {
            if (doublings == 60) {
                throw Refused("no quantity of " + tariff.place().instrument() + " is too much for the cash");
            }
            limit += limit;
        }
        return contract.minimum + greatest(limit, isAffordable) * contract.increment;
    });
}

namespace {

/// What closing costs at a price.
class ClosingCosts {
public:
    ClosingCosts(Trade opening, Side side, const Tariff& usedTariff) : trade(std::move(opening)), tariff(usedTariff) {
        trade.side = side;
    }

    Decimal at(const Decimal& price) {
        trade.price = price;
        return costOf(trade, tariff).costs;
    }

private:
    Trade trade;
    const Tariff& tariff;
};

/// The least price with price x volume >= outlay + costs(price). Whatever price does it is no lower than the one that
/// pays for the costs of a lower price, as costs never fall when the price grows. So rising from price to price for as
/// long as costs rise passes no solution, and stops at the lowest.
Decimal lowestPaying(const Decimal& outlay, const Decimal& stepValue, const Decimal& tick, ClosingCosts& costs) {
    Decimal price = outlay.quotient(stepValue, RoundingMode::kUp) * tick;
    for (int step = 0; step < kMostSteps; ++step) {
        const Decimal next = (outlay + costs.at(price)).quotient(stepValue, RoundingMode::kUp) * tick;
        if (next <= price) {
            return price;
        }
        price = next;
    }
    throw Refused("no price pays for both sides: the charges take all that a higher price brings");
}

/// The greatest price with price x volume + costs(price) <= proceeds.
Decimal highestPaying(const Decimal& proceeds, const Decimal& stepValue, const Decimal& tick, ClosingCosts& costs) {
    const Decimal ticks = proceeds.isNegative() ? Decimal() : proceeds.quotient(stepValue, RoundingMode::kDown);
    const Decimal count =
        greatest(ticks, [&](const Decimal& n) { return n * stepValue + costs.at(n * tick) <= proceeds; });
    if (count.isZero()) {
        throw Refused("no price above 0 pays for both sides");
    }
    return count * tick;
}

}  // namespace

Decimal breakEvenPrice(const Trade& opening, Side closing, const Decimal& tick, const Tariff& tariff) {
    return withinBounds([&] {
        refuseForeignClosing(opening, closing);
        if (!(tick > Decimal())) {
            throw WrongTrade("the tick is " + tick.text() + ", and one above 0 was expected");
        }
        const Bill opened = costOf(opening, tariff);
        ClosingCosts costs(opening, closing, tariff);
        const Decimal stepValue = opening.quantity * tariff.contract().multiplier * tick;
        return isShort(opening.side) ? highestPaying(opened.turnover - opened.costs, stepValue, tick, costs)
                                     : lowestPaying(opened.turnover + opened.costs, stepValue, tick, costs);
    });
}

}  // namespace cost
