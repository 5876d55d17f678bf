#ifndef STANDALONE_LOADER_RULE_LINE_H
#define STANDALONE_LOADER_RULE_LINE_H

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "standalone/families.h"
#include "standalone/loader/table.h"

namespace standalone::loader {

/// More rates than any family has.
constexpr std::size_t kMostRates = 14;

/// What a line of the tables of rates and categories may hold; a table fills the fields that it has columns for. A text
/// that could not be read is empty, a number 0.
struct RuleLine {
    std::optional<std::size_t> account;  ///< to Market::accounts
    std::string market;
    std::string code;
    std::string product;
    std::string name;
    std::string item;
    int update = 0;
    int category = 0;
    int group = 0;
    int excluded = 0;
    int hedgeFlag = 0;
    int marginMode = 0;
    int unitVolume = 0;
    std::array<double, kMostRates> rates{};
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
std::vector<RuleColumn> feeKeyColumns(const Load& load, const std::string& file, const Family& family);
/// The rates of a family, under the names that market.toml gives or else their own.
std::vector<RuleColumn> rateColumns(const Load& load, const Family& family);

std::vector<RuleColumn> joined(std::vector<RuleColumn> columns, const std::vector<RuleColumn>& more);

/// Reads a table of a family's rates, if the folder has it: the columns `keys` and those of the rates. `apply` takes
/// each line.
template <class Apply>
void readRateTable(Load& load, const std::string& file, const Family& family, const std::vector<RuleColumn>& keys,
                   const Apply& apply) {
    if (!load.hasFile(file)) return;
    // While the names of the rates could not be read, none is unknown.
    const bool namesAreKnown = load.ratesComplete || !family.isNamed;
    readTable<RuleLine>(load, file, joined(keys, rateColumns(load, family)), apply, namesAreKnown);
}

/// The name of a market of the folder; it may be unknown without an error when the markets could not be read.
bool readMarketName(const Load& load, TableCell& cell, std::string& market);

/// The places in the catalogue of the instruments that a line means; an error is reported when there are none. Of a
/// line that is not whole, which gives no fees, one place is enough: a table of many wrong lines is to be told of soon.
std::vector<std::size_t> matchInstruments(Load& load, const std::string& file, const ReadRule& read,
                                          const Lists& lists);

/// The place in the catalogue of the one instrument that a line names, reported when there is none.
std::optional<std::size_t> findInstrument(Load& load, const std::string& file, const ReadRule& read);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_RULE_LINE_H
