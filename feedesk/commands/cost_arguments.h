#ifndef FEEDESK_COMMANDS_COST_ARGUMENTS_H
#define FEEDESK_COMMANDS_COST_ARGUMENTS_H

#include <optional>
#include <string>
#include <vector>

#include "cost/bill.h"
#include "feedesk/program.h"

namespace feedesk {

/// What `cost` is asked for, as it is written.
struct CostArguments {
    std::string account;
    std::string instrument;
    std::vector<std::string> trades;  ///< SIDE QUANTITY@PRICE, one word each
    std::string hedge;
    std::optional<cost::Decimal> exchangeRate;
    std::optional<cost::Decimal> cash;
    bool breakEven = false;

    // Of a file of trades.
    std::string file;    ///< "-" is standard input; empty: the trades are arguments
    std::string totals;  ///< by what the trades are added up; empty: item by item
    bool keepGoing = false;
    bool unsorted = false;
};

/// What amounts are converted to.
inline constexpr const char* kYuan = "CNY";

/// Answers for the trades that are arguments.
ExitStatus costOfArguments(Program& program, const CostArguments& arguments);

/// Answers for the trades of a file.
ExitStatus costOfFile(Program& program, const CostArguments& arguments);

/// The bill in yuan when an exchange rate is given and it is in another currency.
cost::Bill exchanged(cost::Bill bill, const CostArguments& arguments);

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_COST_ARGUMENTS_H
