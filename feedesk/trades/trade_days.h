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
    /// What becomes of the days.
    struct Receiver {
        /// Puts a bill into the currency that is asked for; may throw cost::Refused.
        std::function<cost::Bill(cost::Bill)> convert;
        /// Takes the trades of a day, in the order in which they came, with a converted bill for each.
        std::function<void(std::vector<NumberedTrade>, std::vector<cost::Bill>)> take;
        /// Takes what is wrong with a day as a whole, and how many trades are not answered for it.
        std::function<void(cost::Date, std::size_t trades, const std::string& sentence)> refuse;
    };

    /// `account` and `hedge` are those of lines that name none.
    TradeDays(Tariffs& usedTariffs, std::string account, std::string hedge, Receiver receiverOfDays)
        : tariffs(usedTariffs),
          givenAccount(std::move(account)),
          givenHedge(std::move(hedge)),
          receiver(std::move(receiverOfDays)) {}

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
    Receiver receiver;
    std::optional<cost::Day> day;
    std::vector<NumberedTrade> trades;
};

}  // namespace feedesk

#endif  // FEEDESK_TRADES_TRADE_DAYS_H
