#include "feedesk/comparing/trade_costs.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <utility>

#include "cost/refused.h"
#include "feedesk/failure.h"
#include "feedesk/terminal/messages.h"
#include "feedesk/terminal/terminal.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "feedesk/trades/tariffs.h"
#include "feedesk/trades/text_lines.h"
#include "feedesk/trades/trade_days.h"
#include "feedesk/trades/trade_reader.h"

namespace feedesk {
namespace {

/// The day in one of its two ways to be written, "20230828", which sorts as days do.
std::string compactDay(const TradeLine& line) {
    std::string day = line.of(TradeColumn::kDate);
    day.erase(std::remove(day.begin(), day.end(), '-'), day.end());
    return day;
}

/// The same trades as of one day.
void moveTo(cost::Date day, TradesOfFile& file) {
    for (TradeLine& line : file.trades) {
        std::string& order = line.of(TradeColumn::kOrder);
        order += order.empty() ? "" : " " + line.of(TradeColumn::kDate);
        line.of(TradeColumn::kDate) = day.text();
    }
}

class CostTable {
public:
    void add(const cost::Bill& bill, cost::Decimal AccountCosts::*side, bool countsTrades) {
        const std::string& account = bill.tariff.place().account;
        const auto place = places.emplace(std::make_pair(account, bill.currency), costs.size());
        if (place.second) {
            costs.push_back({account, bill.currency, 0, {}, {}});
        }
        AccountCosts& sum = costs[place.first->second];
        sum.trades += countsTrades ? 1 : 0;
        sum.*side += bill.costs;
    }

    std::vector<AccountCosts> costs;

private:
    std::map<std::pair<std::string, std::string>, std::size_t> places;
};

/// Adds up what the trades cost by one folder. `isFirst`: the trades have not been counted yet.
void charge(const TradesOfFile& file, const SessionOptions& options, cost::Decimal AccountCosts::*side, bool isFirst,
            CostTable& table) {
    const Progress progress("charging the trades of " + file.name + " by " + pathText(options.folder));
    Session session(options);
    Tariffs tariffs(session);
    std::size_t wrong = 0;
    const auto take = [&](const std::vector<NumberedTrade>& /*trades*/, const std::vector<cost::Bill>& bills) {
        for (const cost::Bill& bill : bills) {
            table.add(bill, side, isFirst);
        }
    };
    const auto refuseDay = [&](cost::Date day, std::size_t trades, const std::string& sentence) {
        wrong += trades;
        reportProblem(fmt::format("by {} of the trades of {} {}", pathText(options.folder), day.text(), sentence),
                      kBadInput);
    };
    TradeDays days(tariffs, "", "", {[](cost::Bill bill) { return bill; }, take, refuseDay});
    for (const TradeLine& line : file.trades) {
        try {
            days.add(line);
        } catch (const cost::Refused& refused) {
            if (++wrong <= kMostWrongLines) {
                reportProblem(InputLine{file.name, line.line},
                              fmt::format("by {} {}", pathText(options.folder), refused.what()), kBadInput);
            }
        }
    }
    days.finish();
    if (wrong > 0) {
        throw Failure(kBadInput, fmt::format("{} cannot be charged by {}; nothing was answered",
                                             counted(wrong, "trade"), pathText(options.folder)));
    }
}

}  // namespace

TradesOfFile readTrades(const std::string& file) {
    TextLines lines(file, false);
    TradesOfFile read{lines.name(), {}};
    TradeReader reader(lines, false);
    for (TradeLine line; reader.next(line);) {
        read.trades.push_back(line);
    }
    std::stable_sort(read.trades.begin(), read.trades.end(),
                     [](const TradeLine& one, const TradeLine& other) { return compactDay(one) < compactDay(other); });
    return read;
}

std::vector<AccountCosts> compareCosts(const SessionOptions& before, const SessionOptions& after, TradesOfFile trades) {
    if (before.date) {
        moveTo(*before.date, trades);
    }
    CostTable table;
    charge(trades, before, &AccountCosts::before, true, table);
    charge(trades, after, &AccountCosts::after, false, table);
    return std::move(table.costs);
}

}  // namespace feedesk
