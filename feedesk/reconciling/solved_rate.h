#ifndef FEEDESK_RECONCILING_SOLVED_RATE_H
#define FEEDESK_RECONCILING_SOLVED_RATE_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "feedesk/reconciling/rate_range.h"

namespace feedesk {

/// An order that a rate does not fit, by its first line.
struct OtherLine {
    std::size_t line = 0;  ///< index into Statement::lines
    cost::Date date;
};

/// What gives the rate in the folder that another one would take the place of.
struct RateSource {
    cost::Decimal rate;       ///< what the folder has
    std::string source;       ///< its line; empty where no line gives it
    bool isTermsOwn = false;  ///< the rate is the term's and not the fee center's
    cost::DateRange days{};   ///< on which the other rate fits the orders of this line

    friend bool operator<(const RateSource& one, const RateSource& other) {
        return one.rate == other.rate ? one.source < other.source : one.rate < other.rate;
    }
};

/// The most that agreed rates have, as a commission of 0.00025 with fees of 0.0000541 in it.
constexpr std::size_t kMostDigitsOfRates = 4;

/// A rate that is solved for, and how far it reaches.
struct SolvedRate {
    SoughtRate sought;
    RateRange range;
    cost::Decimal rate;               ///< of them the one that the folder knows, or else the simplest
    std::string knownFrom;            ///< the schedule that has it, "the schedule until 2023-08-27"; empty: none has
    bool isKnown = false;             ///< the folder has it somewhere for this charge, or another line of the statement
    std::vector<RateSource> sources;  ///< of the lines that it fits, by rate and line
    std::string instrument;           ///< "SH:510310" where it is for this one alone
    bool isFraction = false;          ///< it is charged on turnover
    std::size_t lines = 0;            ///< how many lines of the statement it fits
    std::size_t trades = 0;           ///< where it holds from a day on: how many differing trades show it
    /// From this day on it fits every line that is charged by the same lines of the folder; empty: it fits one order.
    std::optional<cost::Date> from;
    std::optional<cost::Date> until;   ///< until this day alone: those behind it pay another one
    std::size_t otherLines = 0;        ///< from that day on: lines that differ in other ways, and are not among `lines`
    std::optional<OtherLine> against;  ///< where it fits one order: the first from its day on that it does not fit
    /// Rates of other charges that explain the same orders: the statement does not say which one it is.
    std::vector<SolvedRate> orElse;

    /// Whether it is one that nobody can be expected to have agreed on: of more digits than rates have, and not known.
    [[nodiscard]] bool isUnlikely() const;
};

using SolvedRates = std::vector<std::shared_ptr<const SolvedRate>>;

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_SOLVED_RATE_H
