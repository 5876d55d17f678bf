#ifndef COST_BILL_H
#define COST_BILL_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "cost/tariff.h"
#include "cost/trade.h"

namespace cost {

/// One charge of a trade with its amount. The pointers live as long as a copy of the tariff, which the bill has.
struct BillItem {
    const Term* term = nullptr;    ///< how it is charged; its `where` is the line that says so
    const Rate* rate = nullptr;    ///< the fee center's, with level and source; empty: the term's own
    const Term* inside = nullptr;  ///< the charge that already contains it; empty: it is paid by itself
    Decimal basis;                 ///< turnover, quantity, or 1 for an order or a day
    Decimal value;                 ///< the rate
    Decimal amount;                ///< what is charged: value x basis, within minimum and maximum, rounded
    std::size_t trades = 1;        ///< how many fills the basis is of
};

/// What is to be written next to every Margin that is shown.
constexpr const char* kMarginLabel = "rate of this contract, not the account's requirement";

/// What opening a futures position asks for by the rates of the contract: see kMarginLabel.
struct Margin {
    Decimal amount;                    ///< value x by money + quantity x by volume
    Decimal byMoney;                   ///< fraction of the value, of the trade's side
    Decimal byVolume;                  ///< money per lot, likewise
    const MarginRate* rate = nullptr;  ///< the answer's, with level and source; lives as long as the bill's tariff
};

/// What one trade costs. A plain value.
struct Bill {
    /// A bill without items.
    explicit Bill(Tariff usedTariff) : tariff(std::move(usedTariff)) {}

    Tariff tariff;                ///< what it was charged by
    std::vector<BillItem> items;  ///< in the order of the plan's lines
    Decimal turnover;             ///< of options: the premium
    Decimal costs;                ///< the items that are not inside others
    /// What moves on the account, below 0 when it pays. Shares and premiums move with their turnover; futures and an
    /// exercise with the costs alone.
    Decimal net;
    std::string currency;          ///< of all its amounts, such as "CNY"
    std::optional<Margin> margin;  ///< opening of futures, where the answer has margin rates of the hedge flag
    /// Of a day's bills, each once and ascending: the indices of those that show charges of an order or the day which
    /// this trade shares. Empty where it shares none, or shows them itself.
    std::vector<std::size_t> sharedWith;
};

/// What the trade costs as an order of its own: its `order` is not looked at but for what turnoverOf() says. Throws
/// Refused as Tariff::planOf() and turnoverOf() do, for an exercise without a price that is charged on turnover, and
/// when numbers grow too large.
Bill costOf(const Trade& trade, const Tariff& tariff);

/// The item's amount without what is directly inside it, such as a broker's own part of an all-in commission.
Decimal ownAmount(const Bill& bill, const BillItem& item);

/// The bill in another currency: every amount, turnover, costs, net and margin times `exchangeRate`, exactly. Basis and
/// rate of the items stay in the currency in which they are charged.
Bill converted(Bill bill, const Decimal& exchangeRate, const std::string& currency);

}  // namespace cost

#endif  // COST_BILL_H
