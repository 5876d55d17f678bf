#ifndef FEEDESK_STATEMENTS_STATEMENT_H
#define FEEDESK_STATEMENTS_STATEMENT_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "cost/trade.h"
#include "feedesk/statements/layout.h"

namespace feedesk {

/// One trade of a statement.
struct StatementLine {
    std::size_t line = 0;  ///< of the file, from 1
    std::string market;    ///< of the folder; empty where the statement has none
    std::string code;      ///< as it is written, perhaps without its leading zeros
    std::string name;
    std::string priceText;                ///< as it is written: its decimals show how exact an average price is
    cost::Trade trade;                    ///< its order is empty where the statement names none
    std::optional<cost::Decimal> amount;  ///< of money that was traded, above 0
    std::optional<cost::Decimal> net;     ///< what moved on the account
    /// As Layout::charges: what the columns say; empty where the statement has no such column.
    std::vector<std::optional<cost::Decimal>> charges;
    std::size_t fills = 1;
};

/// A line behind the header that is no trade.
struct PassedOver {
    std::size_t line = 0;
    std::string operation;  ///< the broker's word for it; empty for a sum or a remark
};

/// A trade's line that is another one's to the letter.
struct RepeatedLine {
    std::size_t line = 0;   ///< of the file, from 1
    std::size_t first = 0;  ///< the line that it repeats
};

/// A statement of one account. A plain value.
struct Statement {
    std::string file;  ///< for messages
    Layout layout;
    std::vector<StatementLine> lines;
    std::vector<PassedOver> passedOver;
    /// Trades that may be in it twice. Equal lines of one order that follow each other are its fills and not among
    /// them.
    std::vector<RepeatedLine> repeated;
    /// The column of what moved on the account has no signs: it was above 0 in every purchase, and is below 0 in
    /// `lines`.
    bool isNetUnsigned = false;
};

/// What is wrong with a line; `column` is its title, empty for the line as a whole.
struct WrongLine {
    std::size_t line = 0;
    std::string column;
    std::string sentence;
};

/// The trades below the header, which is the first line that has every column which a layout needs; what is above
/// it is passed over. `layouts` are those that may be meant: of several that fit the one that knows most columns is
/// taken. Wrong lines go to `wrong`. Throws Failure when no layout fits, or several do equally well.
Statement statementIn(const std::vector<std::string>& lines, const std::string& file,
                      const std::vector<Layout>& layouts, std::vector<WrongLine>& wrong);

}  // namespace feedesk

#endif  // FEEDESK_STATEMENTS_STATEMENT_H
