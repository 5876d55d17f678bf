#ifndef FEEDESK_TRADES_TRADE_READER_H
#define FEEDESK_TRADES_TRADE_READER_H

#include <cstddef>
#include <optional>
#include <vector>

#include "feedesk/trades/text_lines.h"
#include "feedesk/trades/trade_line.h"

namespace feedesk {

/// Reads trades from lines: comma-separated values under a header or, when the first line that is not blank begins with
/// '{', one JSON object a line. Blank lines are passed over. One thread.
class TradeReader {
public:
    /// Reads the header. `accountGiven`: all trades are of one account, which the file does not name. Throws Failure,
    /// with the line, for a header that has an unknown column, one twice, or not all that are needed.
    TradeReader(TextLines& inputLines, bool accountGiven);

    /// Replaces `trade` by the next one; false at the end. A line that cannot be split into cells or members has a
    /// fault.
    bool next(TradeLine& trade);

private:
    [[nodiscard]] bool nextFilledLine();
    [[noreturn]] void refuseHeader(const std::string& why) const;
    [[noreturn]] void refuseEncoding(const std::string& name, const std::string& iconvName) const;
    void readHeader(bool accountGiven);
    void readCells(TradeLine& trade) const;

    TextLines& lines;
    bool isJson = false;
    bool isHeld = false;  // the first line of JSON, which is a trade
    std::vector<TradeColumn> columns;
    std::size_t count = 0;
};

}  // namespace feedesk

#endif  // FEEDESK_TRADES_TRADE_READER_H
