#ifndef FEEDESK_COMPARING_TRADE_COSTS_H
#define FEEDESK_COMPARING_TRADE_COSTS_H

#include <cstddef>
#include <string>
#include <vector>

#include "cost/decimal.h"
#include "feedesk/session/session.h"
#include "feedesk/trades/trade_line.h"

namespace feedesk {

/// What an account's trades cost by two folders. Amounts of different currencies are never added up.
struct AccountCosts {
    std::string account;
    std::string currency;
    std::size_t trades = 0;
    cost::Decimal before;
    cost::Decimal after;

    [[nodiscard]] cost::Decimal difference() const { return after - before; }
};

/// The trades of a file.
struct TradesOfFile {
    std::string name;
    std::vector<TradeLine> trades;  ///< by day
};

/// Reads a file ("-": standard input) whose trades name their accounts and may come in any order. Throws Failure when
/// it cannot be read.
TradesOfFile readTrades(const std::string& file);

/// Charges the trades by both folders: by account in the order of their first trades. Where the options name a day, all
/// are charged as of it, orders of different days apart. Throws Failure when one of them cannot be charged by
/// one of the folders, after all such lines have been reported. No session may be open: each folder has one in turn.
std::vector<AccountCosts> compareCosts(const SessionOptions& before, const SessionOptions& after, TradesOfFile trades);

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_TRADE_COSTS_H
