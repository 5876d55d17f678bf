#include "feedesk/trades/trade_line.h"

#include <fmt/format.h>

#include <algorithm>

namespace feedesk {

std::optional<TradeColumn> tradeColumn(std::string_view name) {
    const auto* const found = std::find(kTradeColumns.begin(), kTradeColumns.end(), name);
    return found == kTradeColumns.end() ? std::nullopt
                                        : std::optional(static_cast<TradeColumn>(found - kTradeColumns.begin()));
}

std::string tradeColumnNames() { return fmt::format("{}", fmt::join(kTradeColumns, ", ")); }

}  // namespace feedesk
