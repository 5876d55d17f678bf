#ifndef STANDALONE_LOADER_RULE_LINE_H
#define STANDALONE_LOADER_RULE_LINE_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/families.h"
#include "standalone/loader/day_columns.h"
#include "standalone/loader/table.h"

namespace standalone::loader {

/// What a line of the tables of rates and categories may hold; a table fills the fields that it has columns for. A text
/// that could not be read is empty, a number 0.
struct RuleLine : RateLine {
    std::optional<std::size_t> account;  ///< to Market::accounts
    std::string market;
    std::string code;
    std::string product;
    std::string name;
    int group = 0;
    int excluded = 0;
};

using RuleColumn = TableColumn<RuleLine>;
using ReadRule = ReadLine<RuleLine>;

// The columns that several tables share. They refer to the load, which outlives them.

/// An account of one of the kinds, for the named table.
RuleColumn accountColumn(const Load& load, const std::string& file, const std::vector<int>& kinds);
RuleColumn marketColumn(const Load& load, ColumnNeed need);
RuleColumn codeColumn(ColumnNeed need);
RuleColumn productColumn();
RuleColumn hedgeFlagColumn();
RuleColumn marginModeColumn();
/// A whole number from 1.
RuleColumn numberColumn(const std::string& name, int RuleLine::*field, ColumnNeed need = ColumnNeed::kFilled);
/// The columns of a table of fee records that name its instruments: account, market, code and product.
std::vector<RuleColumn> feeKeyColumns(const Load& load, const std::string& file, const RateFamily& family);
/// The rates of a family, under the names that market.toml gives or else their own.
std::vector<RuleColumn> rateColumns(const Load& load, const RateFamily& family);

std::vector<RuleColumn> joined(std::vector<RuleColumn> columns, const std::vector<RuleColumn>& more);

/// Reads a table of a family's rates, if the folder has it: the columns `keys`, those of the rates and those of the
/// days. `apply` takes each line.
template <class Apply>
void readRateTable(Load& load, const std::string& file, const RateFamily& family, const std::vector<RuleColumn>& keys,
                   const Apply& apply) {
    if (!load.hasFile(file)) {
        return;
    }
    // While the names of the rates could not be read, none is unknown.
    const bool namesAreKnown = load.ratesComplete || !family.isNamed;
    const std::vector<RuleColumn> columns = joined(joined(keys, rateColumns(load, family)),
                                                   dayColumns<RuleLine>([](RuleLine& line) { return &line.days; }));
    const auto applyInOrder = [&](ReadRule& read) {
        read.whole = daysAreInOrder(load, file, read.position, read.line.days) && read.whole;
        apply(read);
    };
    readTable<RuleLine>(load, file, columns, applyInOrder, namesAreKnown);
}

/// Whether the text means any number of codes, accounts or markets.
inline bool isPattern(std::string_view text) { return text.find('*') != std::string_view::npos; }

/// Refuses a cell that names no account of the folder; without a word when the accounts could not be read.
void refuseUnknownAccount(const Load& load, TableCell& cell);

/// The name of a market of the folder; it may be unknown without an error when the markets could not be read.
bool readMarketName(const Load& load, TableCell& cell, std::string& market);

/// The places in the catalogue of the instruments that a line means; an error is reported when there are none, and the
/// answer is empty. A line that is not whole gives no fees, so that it is only found out whether there are any: a table
/// of many wrong lines is to be reported soon.
Places matchInstruments(Load& load, const std::string& file, const ReadRule& read, const Lists& lists);

/// The place in the catalogue of the one instrument that a line names, reported when there is none.
std::optional<std::size_t> findInstrument(Load& load, const std::string& file, const ReadRule& read);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_RULE_LINE_H
