#include "feedesk/commands/cost_backwards.h"

#include <fmt/format.h>

#include <algorithm>

#include "cost/backwards.h"
#include "cost/refused.h"

namespace feedesk {
namespace {

constexpr std::size_t kUsualDecimals = 2;

/// The most of another currency, to eight decimals, that so much yuan buys.
cost::Decimal inOtherCurrency(const cost::Decimal& yuan, const cost::Decimal& rate) {
    static const cost::Decimal step = *cost::Decimal::parse("0.00000001");
    return yuan.quotient(rate * step, cost::RoundingMode::kDown) * step;
}

cost::Side closingSide(cost::Side opening) {
    switch (opening) {
        case cost::Side::kBuy:
            return cost::Side::kSell;
        case cost::Side::kOpenLong:
            return cost::Side::kCloseLong;
        case cost::Side::kOpenShort:
            return cost::Side::kCloseShort;
        default:
            throw cost::WrongTrade(fmt::format("--break-even is asked of what opens a position, and the side is {}",
                                               cost::wordFor(opening)));
    }
}

/// 0.001 for 3.
cost::Decimal lastDecimal(std::size_t decimals) {
    return *cost::Decimal::parse("0." + std::string(decimals - 1, '0') + "1");
}

}  // namespace

void takeAffordable(cost::Trade& trade, const cost::Tariff& tariff, const CostArguments& arguments) {
    if (!trade.quantity.isZero()) {
        throw Failure(kBadInput, "--cash asks for the quantity; leave it out, as in buy @1488.50");
    }
    const std::string& currency = tariff.planOf(trade.side, trade.date).currency;
    const bool converts = arguments.exchangeRate && currency != kYuan;
    const cost::Decimal cash = converts ? inOtherCurrency(*arguments.cash, *arguments.exchangeRate) : *arguments.cash;
    trade.quantity = cost::affordable(cash, trade, tariff);
    if (trade.quantity.isZero()) {
        throw Failure(
            kNoAnswer,
            fmt::format("{} {} do not pay for {} of {} at {} with all costs, the least that is bought or opened",
                        arguments.cash->text(), converts ? kYuan : currency, tariff.contract().minimum.text(),
                        tariff.place().instrument(), trade.price.text()));
    }
}

Tick tickOf(const qmservice::CInstrument& instrument, const std::string& writtenPrice) {
    const auto own = cost::Decimal::fromRate(instrument.priceTick);
    if (own && *own > cost::Decimal()) {
        return {*own, "the instrument's tick"};
    }
    const std::size_t point = std::min(writtenPrice.find('.'), writtenPrice.size() - 1);
    const std::size_t decimals = writtenPrice.size() - 1 - point;
    return decimals > kUsualDecimals ? Tick{lastDecimal(decimals), "by the price's decimals"}
                                     : Tick{lastDecimal(kUsualDecimals), "assumed"};
}

cost::Trade breakEven(const cost::Trade& opening, const cost::Tariff& tariff, const Tick& tick) {
    cost::Trade closing = opening;
    closing.side = closingSide(opening.side);
    closing.price = cost::breakEvenPrice(opening, closing.side, tick.step, tariff);
    return closing;
}

}  // namespace feedesk
