#ifndef FEEDESK_COMMANDS_COST_ARGUMENTS_H
#define FEEDESK_COMMANDS_COST_ARGUMENTS_H

#include <optional>
#include <string>
#include <utility>
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

/// Puts bills into yuan by the exchange rate that is given; without one they stay as they are.
class Exchange {
public:
    explicit Exchange(std::optional<cost::Decimal> exchangeRate) : rate(std::move(exchangeRate)) {}

    /// Throws cost::Refused for a bill in another foreign currency than one before it: the rate is of one.
    cost::Bill operator()(cost::Bill bill);

private:
    std::optional<cost::Decimal> rate;
    std::string foreign;  // the currency that is converted; empty: none yet
};

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_COST_ARGUMENTS_H
