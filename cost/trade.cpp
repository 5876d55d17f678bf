#include "cost/trade.h"

#include "cost/refused.h"

namespace cost {
namespace {

void refuseQuantity(const Decimal& quantity) {
    if (!(quantity > Decimal())) {
        throw WrongTrade("the quantity is " + quantity.text() + ", and a trade has one above 0");
    }
    if (!quantity.isWhole()) {
        throw WrongTrade("the quantity is " + quantity.text() + ", and a whole number was expected");
    }
}

void refuseOddLot(const Decimal& quantity, const Tariff& tariff) {
    const Contract& contract = tariff.contract();
    const Decimal beyond = quantity - contract.minimum;
    if (beyond.isNegative()) {
        throw WrongTrade("the quantity is " + quantity.text() + ", and the least that " + tariff.place().instrument() +
                         " is bought or opened in is " + contract.minimum.text());
    }
    if (beyond.quotient(contract.increment, RoundingMode::kDown) * contract.increment != beyond) {
        const bool isPlainUnit = contract.minimum == contract.increment;
        throw WrongTrade(
            "the quantity is " + quantity.text() + ", and " + tariff.place().instrument() + " is bought or opened in " +
            (isPlainUnit ? "multiples of " + contract.increment.text()
                         : contract.minimum.text() + " and steps of " + contract.increment.text() + " above that"));
    }
}

}  // namespace

Decimal turnoverOf(const Trade& trade, const Tariff& tariff) {
    refuseQuantity(trade.quantity);
    if (isOpening(trade.side) && trade.order.empty()) {
        refuseOddLot(trade.quantity, tariff);
    }
    if (!qmservice::hedgeSlot(trade.hedgeFlag)) {
        throw WrongTrade(std::string("the hedge flag is \"") + trade.hedgeFlag +
                         "\", and 1 (speculation), 2 (arbitrage) or 3 (hedging) was expected");
    }
    const bool needsNoPrice = trade.side == Side::kExercise && trade.price.isZero();
    if (needsNoPrice) {
        return Decimal();
    }
    if (!(trade.price > Decimal())) {
        throw WrongTrade("the price is " + trade.price.text() + ", and a trade has one above 0");
    }
    if (trade.turnover) {
        return *trade.turnover;
    }
    if (tariff.contract().multiplier.isZero()) {
        throw Refused("the multiplier of " + tariff.place().instrument() +
                      " is not known, so its turnover cannot be calculated");
    }
    return trade.quantity * trade.price * tariff.contract().multiplier;
}

}  // namespace cost
