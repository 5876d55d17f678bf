#ifndef FEEDESK_COMMANDS_COST_ROWS_H
#define FEEDESK_COMMANDS_COST_ROWS_H

#include <cstddef>
#include <string>
#include <vector>

#include "cost/bill.h"
#include "feedesk/rows/rows.h"
#include "standalone/market.h"

namespace feedesk {

/// A trade and what it costs. The texts are those of its rows, made once for all of them.
struct ChargedTrade {
    /// `numbersOfDay`: the numbers of the trades in Bill::sharedWith.
    ChargedTrade(std::size_t tradeNumber, cost::Trade chargedTrade, cost::Bill tradeBill,
                 const std::vector<std::size_t>& numbersOfDay);

    /// Whether it opens futures and the answer has no margin rates of its hedge flag.
    [[nodiscard]] bool lacksMargin() const;

    std::size_t number;  ///< from 1
    cost::Trade trade;
    cost::Bill bill;
    std::string date;
    std::string side;
    std::string hedge;  ///< of futures; else empty
    std::string quantity;
    std::string price;  ///< empty for an exercise that has none
    std::string turnover;
    std::string costs;
    std::string net;
    std::string chargedWith;  ///< "3", "1 3": numbers of the trades that show the charges which this one shares
};

/// An item of a trade; a trade without one has a row too, so that it is not overlooked.
struct ItemRow {
    const ChargedTrade& charged;
    const cost::BillItem* item;  ///< empty: nothing is charged on this trade
};

using ItemFields = FieldsOf<ItemRow>;

/// What a row says about an item: the same for one trade and for a file of them.
ItemFields itemFields();

/// The same with the titles of a table; `market` names the charges.
ItemFields titledItemFields(const standalone::Market& market);

/// The rows of the trade's items go into the section.
void giveItems(const ChargedTrade& charged, const ItemFields& fields, std::size_t section, RowSink& sink);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_COST_ROWS_H
