#ifndef TESTS_FEEDESK_SUPPORT_NAIVE_STATEMENT_H
#define TESTS_FEEDESK_SUPPORT_NAIVE_STATEMENT_H

#include <random>
#include <string>
#include <vector>

// The real statement as a broker would compute it, right or with one fault: whole numbers alone, and no code of the
// product.

namespace feedesk::test::naive {

enum class Mode { kHalfUp, kHalfEven, kUp, kDown };

/// In ten-millionths of the turnover.
struct Rates {
    long commission = 0;
    long transfer = 0;
    long handling = 0;
    long regulatory = 0;
    long stamp = 0;  ///< of sales
};

/// How one line is charged.
struct Charging {
    Rates rates;
    long minimumFen = 0;
    bool transferInside = false;
    bool feesInside = true;  ///< handling and regulatory fee
    bool asSale = false;
    Mode mode = Mode::kHalfUp;
};

/// Amounts in fen; those inside the commission are in it.
struct Amounts {
    long commission = 0;
    long transfer = 0;
    long handling = 0;
    long regulatory = 0;
    long stamp = 0;
    long paidTwice = 0;  ///< what is inside and on top too
};

/// A line of the real statement.
struct Line {
    std::string beginning;  ///< its cells as far as the amount
    std::string market;
    std::string code;
    long turnover = 0;  ///< in thousandths of a yuan
    bool isSale = false;
    bool isFund = false;
    long fills = 1;
};

std::vector<Line> realLines();

/// How the account is charged: as the statement shows it.
Charging usualCharging(const Line& line);

long rounded(long turnover, long rate, Mode mode);
Amounts charged(const Line& line, const Charging& charging);
/// Each of the fills is rounded by itself; turnovers in thousandths.
Amounts chargedByFill(const std::vector<long>& fills, const Charging& charging);

/// The line as the statement writes it.
std::string written(const Line& line, const Charging& charging, const Amounts& amounts);
std::string header();

}  // namespace feedesk::test::naive

#endif  // TESTS_FEEDESK_SUPPORT_NAIVE_STATEMENT_H
