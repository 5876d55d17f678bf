#ifndef FEEDESK_TRADES_TRADE_LINE_H
#define FEEDESK_TRADES_TRADE_LINE_H

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace feedesk {

/// The columns of a file of trades, and the members of a trade in JSON.
enum class TradeColumn { kAccount, kDate, kMarket, kCode, kSide, kOffset, kHedge, kQuantity, kPrice, kOrder };

/// Their names, in the order of the enumeration.
constexpr std::array<std::string_view, 10> kTradeColumns = {"account", "date",  "market",   "code",  "side",
                                                            "offset",  "hedge", "quantity", "price", "order"};

/// The column of that name; empty when there is none.
std::optional<TradeColumn> tradeColumn(std::string_view name);
/// "account, date, market" and so on.
std::string tradeColumnNames();

/// One trade of a file as it is written.
struct TradeLine {
    std::size_t line = 0;    ///< of the file, from 1
    std::size_t number = 0;  ///< of the trade, from 1; wrong ones count
    std::array<std::string, kTradeColumns.size()> cells;
    std::string fault;  ///< not empty: why the line is no trade at all

    [[nodiscard]] const std::string& of(TradeColumn column) const { return cells[static_cast<std::size_t>(column)]; }
    std::string& of(TradeColumn column) { return cells[static_cast<std::size_t>(column)]; }
};

}  // namespace feedesk

#endif  // FEEDESK_TRADES_TRADE_LINE_H
