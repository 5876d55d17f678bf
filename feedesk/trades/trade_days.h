#ifndef FEEDESK_TRADES_TRADE_DAYS_H
#define FEEDESK_TRADES_TRADE_DAYS_H

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cost/day.h"
#include "feedesk/trades/tariffs.h"
#include "feedesk/trades/trade_line.h"

namespace feedesk {

/// A trade of a file with its number there.
struct NumberedTrade {
    std::size_t number = 0;
    cost::Trade trade;
};

/// Charges the trades of a file day by day: holds those of one day and no more. One thread.
class TradeDays {
public:
    /// Takes the trades of a day, in the order in which they came, with a bill for each.
    using TakeDay = std::function<void(std::vector<NumberedTrade>, std::vector<cost::Bill>)>;

    /// `account` and `hedge` are those of lines that name none.
    TradeDays(Tariffs& usedTariffs, std::string account, std::string hedge, TakeDay takeFinishedDay)
        : tariffs(usedTariffs),
          givenAccount(std::move(account)),
          givenHedge(std::move(hedge)),
          takeDay(std::move(takeFinishedDay)) {}

    /// Adds a trade; the first one of a later day finishes the day before. Throws cost::Refused, in a sentence without
    /// the line's place, for a line that is no trade that can be charged; it is passed over then.
    void add(const TradeLine& line);

    /// Finishes the last day.
    void finish();

private:
    [[nodiscard]] cost::Trade tradeFrom(const TradeLine& line, cost::Date date) const;

    Tariffs& tariffs;
    std::string givenAccount;
    std::string givenHedge;
    TakeDay takeDay;
    std::optional<cost::Day> day;
    std::vector<NumberedTrade> trades;
};

}  // namespace feedesk

#endif  // FEEDESK_TRADES_TRADE_DAYS_H
