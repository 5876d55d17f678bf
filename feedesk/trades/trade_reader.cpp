#include "feedesk/trades/trade_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "feedesk/failure.h"
#include "feedesk/text/numbers.h"
#include "feedesk/text/text.h"
#include "feedesk/trades/json_trade.h"
#include "standalone/text/csv_rows.h"
#include "standalone/text/encoding.h"
#include "standalone/text/utf8.h"
#include "standalone/text/wording.h"

namespace feedesk {
namespace {

using standalone::CsvRow;
using standalone::CsvRows;

CsvRow rowIn(const std::string& line) {
    CsvRow row;
    CsvRows(line).next(row);
    return row;
}

std::size_t firstFilled(const std::string& line) { return line.find_first_not_of(" \t"); }

std::vector<std::string> names() { return {kTradeColumns.begin(), kTradeColumns.end()}; }

}  // namespace

TradeReader::TradeReader(TextLines& inputLines, bool accountGiven) : lines(inputLines) {
    if (!nextFilledLine()) {
        throw Failure(kBadInput, lines.name() + " is empty; a header line with the columns of trades was expected");
    }
    const char first = lines.line()[firstFilled(lines.line())];
    isJson = isHeld = first == '{';
    if (first == '[') {
        refuseHeader("a JSON array begins here; write one object a line, without brackets and commas around them");
    }
    if (!isJson) {
        readHeader(accountGiven);
    }
}

bool TradeReader::nextFilledLine() {
    while (lines.next()) {
        if (firstFilled(lines.line()) != std::string::npos) {
            return true;
        }
    }
    return false;
}

void TradeReader::refuseHeader(const std::string& why) const {
    throw Failure(kBadInput, fmt::format("{}:{}: {}", lines.name(), lines.number(), why));
}

void TradeReader::refuseEncoding(const std::string& name, const std::string& iconvName) const {
    refuseHeader(fmt::format("the file looks like {}, but UTF-8 was expected; convert it: iconv -f {} -t UTF-8 FILE",
                             name, iconvName));
}

void TradeReader::readHeader(bool accountGiven) {
    if (standalone::beginsAsUtf16(lines.line())) {
        refuseEncoding("UTF-16", "UTF-16");
    }
    if (!standalone::isUtf8(lines.line()) && standalone::looksLikeGb18030(lines.line())) {
        refuseEncoding("GB18030 (GBK)", "GB18030");
    }
    const CsvRow header = rowIn(lines.line());
    if (!header.fault.empty()) {
        refuseHeader(header.fault);
    }
    for (const auto& cell : header.cells) {
        const auto column = tradeColumn(cell.text);
        if (!column) {
            refuseHeader(fmt::format("the column {} is unknown; known are {}{}", echoed(cell.text), tradeColumnNames(),
                                     standalone::suggestion(cell.text, names())));
        }
        if (std::find(columns.begin(), columns.end(), *column) != columns.end()) {
            refuseHeader(fmt::format("the column {} is twice in the header; keep one of them", cell.text));
        }
        columns.push_back(*column);
    }
    const auto has = [&](TradeColumn column) {
        return std::find(columns.begin(), columns.end(), column) != columns.end();
    };
    const auto need = [&](bool isThere, const std::string& name) {
        if (!isThere) {
            refuseHeader(
                fmt::format("the header has no column {}; it needs date, market, code, side or offset, "
                            "quantity, price and, unless the command names one, account",
                            name));
        }
    };
    need(accountGiven || has(TradeColumn::kAccount), "account");
    need(has(TradeColumn::kDate), "date");
    need(has(TradeColumn::kMarket), "market");
    need(has(TradeColumn::kCode), "code");
    need(has(TradeColumn::kSide) || has(TradeColumn::kOffset), "side or offset");
    need(has(TradeColumn::kQuantity), "quantity");
    need(has(TradeColumn::kPrice), "price");
}

void TradeReader::readCells(TradeLine& trade) const {
    CsvRow row = rowIn(lines.line());
    if (!row.fault.empty()) {
        trade.fault = row.fault;
        return;
    }
    if (row.cells.size() != columns.size()) {
        trade.fault = fmt::format("the line has {}, and the header has {}", counted(row.cells.size(), "cell"),
                                  counted(columns.size(), "column"));
        return;
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        trade.of(columns[i]) = std::move(row.cells[i].text);
    }
}

bool TradeReader::next(TradeLine& trade) {
    if (!isHeld && !nextFilledLine()) {
        return false;
    }
    isHeld = false;
    for (std::string& cell : trade.cells) {
        cell.clear();
    }
    trade.fault.clear();
    trade.line = lines.number();
    trade.number = ++count;
    if (isJson) {
        readJsonTrade(lines.line(), trade);
    } else {
        readCells(trade);
    }
    return true;
}

}  // namespace feedesk
