#ifndef FEEDESK_CHECKING_FOLDER_FACTS_H
#define FEEDESK_CHECKING_FOLDER_FACTS_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "cost/date.h"
#include "feedesk/checking/finding.h"
#include "standalone/loader/checked_folder.h"
#include "standalone/market_folder.h"

namespace feedesk::checking {

/// What checks look at that ask the fee center nothing. It refers to a session's folder and market, which outlive it.
struct FolderFacts {
    const standalone::MarketFolder& folder;
    const standalone::Market& market;  ///< of the day
    cost::Date day;
    cost::Date oldestCheck;  ///< schedules that were looked at before it have not been for too long
    cost::Date newestCheck;  ///< no schedule can have been looked at behind it

    [[nodiscard]] Place placeOf(standalone::Position position) const;
};

/// A line of a table of rates, whatever its days.
struct FolderLine {
    const standalone::loader::KeptLine* kept;
    const qmservice::CAccountInfo* account;  ///< null: a configured limit, which is every account's
    Place place;
    const standalone::loader::KeptFeeLine* fee = nullptr;       ///< the line, where it is one of fees/
    const standalone::loader::ConfiguredLine* limit = nullptr;  ///< the line, where it is one of configured/

    /// The account's number, or nothing.
    [[nodiscard]] std::vector<std::string> accounts() const;
};

/// Whether the line is in force on the day of the facts or behind it.
bool isAhead(const FolderFacts& facts, const FolderLine& line);

/// Calls `visit` with every line of fees/, custom/ and configured/.
void forEachLine(const FolderFacts& facts, const std::function<void(const FolderLine& line)>& visit);

/// What a rate is measured by.
enum class RateKind {
    kFraction,  ///< of turnover
    kYuan,      ///< per lot or contract
    kMargin,    ///< of value
    kUnknown
};

/// One rate of a line.
struct RateCell {
    std::size_t field;   ///< its place in the family's rates
    std::string column;  ///< of the tables
    RateKind kind;
    double value;
};

/// A column of a family in all of its tables.
using RateColumn = std::pair<const standalone::RateFamily*, std::size_t>;

// No charge on these markets takes 1 % of a turnover; the highest, the old stamp duty on stocks, took 0.3 %.
inline constexpr double kLooksLikePercent = 0.01;

/// Whether a fraction of turnover is so large that it was meant in percent, per mille or per ten thousand.
bool looksLikePercent(const RateCell& cell);

/// The rates of a line that are not 0.
std::vector<RateCell> rateCells(const FolderFacts& facts, const standalone::loader::KeptLine& kept);

/// The rate of turnover that a charging term has of its own; 0 where it has none.
double ownRate(const cost::Term& term);

/// The account that a charging term names, or nothing where it may be of several.
std::vector<std::string> accountsOf(const cost::Term& term);

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_FOLDER_FACTS_H
