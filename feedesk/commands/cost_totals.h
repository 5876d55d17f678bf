#ifndef FEEDESK_COMMANDS_COST_TOTALS_H
#define FEEDESK_COMMANDS_COST_TOTALS_H

#include <bitset>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "feedesk/commands/cost_rows.h"

namespace feedesk {

/// What trades are added up by.
enum class TotalsBy { kAccount, kDay, kInstrument, kOrder };

/// One or several of them.
using TotalsKey = std::bitset<4>;

/// Reads "day" or "account,day"; an empty key for any other text.
TotalsKey totalsKeyFrom(const std::string& text);
/// "account", "day", "instrument", "order"
std::vector<std::string> totalsNames();
/// The same as one text.
std::string totalsWords();

/// Some trades added up. What they are not added up by is empty.
struct Total {
    std::string account;
    std::string date;
    std::string market;
    std::string code;
    std::string order;
    std::string currency;
    std::size_t trades = 0;
    cost::Decimal turnover;
    cost::Decimal costs;
    cost::Decimal net;
};

/// Adds trades up; amounts of different currencies never together. A trade without an order number is an order of its
/// own.
class Totals {
public:
    explicit Totals(TotalsKey totalsKey) : by(totalsKey) {}

    [[nodiscard]] FieldsOf<Total> fields() const;
    void add(const ChargedTrade& charged);
    /// Gives the totals that are complete: at the end of a day those by day or order, at the end of all trades the
    /// others, in the order of their first trades.
    void giveAfterDay(const FieldsOf<Total>& fields, RowSink& sink);
    void giveAtEnd(const FieldsOf<Total>& fields, RowSink& sink);

private:
    [[nodiscard]] bool has(TotalsBy part) const { return by.test(static_cast<std::size_t>(part)); }
    [[nodiscard]] Total emptyTotalOf(const ChargedTrade& charged) const;

    TotalsKey by;
    std::vector<Total> totals;
    std::unordered_map<std::string, std::size_t> places;
};

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_COST_TOTALS_H
