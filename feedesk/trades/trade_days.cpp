#include "feedesk/trades/trade_days.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "cost/refused.h"
#include "feedesk/trades/trade_words.h"

namespace feedesk {
namespace {

using cost::Refused;

const std::string& filled(const TradeLine& line, TradeColumn column) {
    const std::string& cell = line.of(column);
    if (cell.empty()) {
        throw Refused(fmt::format("the {} is empty", kTradeColumns[static_cast<std::size_t>(column)]));
    }
    return cell;
}

/// The account of a line, which is the given one where the line names none.
const std::string& accountOf(const TradeLine& line, const std::string& given) {
    const std::string& named = line.of(TradeColumn::kAccount);
    if (given.empty()) {
        return filled(line, TradeColumn::kAccount);
    }
    if (!named.empty() && named != given) {
        throw Refused(
            fmt::format("the account is {}, but the command names {}; leave the argument out to charge each "
                        "trade to the account of its line",
                        named, given));
    }
    return given;
}

/// Some systems write 1 behind every trade. Another flag would choose a margin, which only futures have.
void refuseForeignHedge(const TradeLine& line, const cost::Trade& trade, const cost::Place& place) {
    if (!line.of(TradeColumn::kHedge).empty() && trade.hedgeFlag != qmservice::kSpeculation) {
        throw Refused(fmt::format("the hedge flag is {}, and {} is charged as {}, which has none; leave it empty",
                                  hedgeName(trade.hedgeFlag), place.instrument(), cost::wordFor(place.family)));
    }
}

}  // namespace

cost::Trade TradeDays::tradeFrom(const TradeLine& line, cost::Date date) const {
    cost::Trade trade;
    trade.date = date;
    trade.side = sideFrom(line.of(TradeColumn::kSide), line.of(TradeColumn::kOffset));
    const std::string& hedge = line.of(TradeColumn::kHedge);
    trade.hedgeFlag = hedgeFlagFrom(hedge.empty() ? givenHedge : hedge);
    trade.quantity = quantityFrom(filled(line, TradeColumn::kQuantity));
    if (trade.side != cost::Side::kExercise || !line.of(TradeColumn::kPrice).empty()) {
        trade.price = priceFrom(filled(line, TradeColumn::kPrice));
    }
    trade.order = line.of(TradeColumn::kOrder);
    return trade;
}

void TradeDays::add(const TradeLine& line) {
    if (!line.fault.empty()) {
        throw Refused(line.fault);
    }
    const cost::Date date = dateFrom(filled(line, TradeColumn::kDate));
    tariffs.requireCovered(date);
    if (day && date < day->date()) {
        throw Refused(fmt::format(
            "the date is {}, and a trade before it is of {}, but trades come by day; use --unsorted, which sorts them "
            "first",
            date.text(), day->date().text()));
    }
    const bool beginsDay = !day || date != day->date();
    if (beginsDay) {
        tariffs.forgetMany();
    }
    cost::Trade trade = tradeFrom(line, date);
    const cost::Tariff& tariff = tariffs.on(date, accountOf(line, givenAccount), filled(line, TradeColumn::kMarket),
                                            filled(line, TradeColumn::kCode));
    if (tariff.place().family != cost::Family::kFutures) {
        refuseForeignHedge(line, trade, tariff.place());
        trade.hedgeFlag = qmservice::kSpeculation;
    }
    if (beginsDay) {
        cost::Day next(date);
        next.add(trade, tariff);
        finish();
        day = std::move(next);
    } else {
        day->add(trade, tariff);
    }
    trades.push_back({line.number, trade});
}

void TradeDays::finish() {
    if (!day) {
        return;
    }
    const cost::Day finished = std::move(*day);
    day.reset();
    std::vector<NumberedTrade> ofDay = std::exchange(trades, {});
    std::vector<cost::Bill> bills;
    try {
        bills = finished.bills();
        std::transform(bills.begin(), bills.end(), bills.begin(),
                       [&](cost::Bill& bill) { return receiver.convert(std::move(bill)); });
    } catch (const Refused& refused) {
        receiver.refuse(finished.date(), ofDay.size(), refused.what());
        return;
    }
    receiver.take(std::move(ofDay), std::move(bills));
}

}  // namespace feedesk
