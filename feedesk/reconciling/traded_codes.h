#ifndef FEEDESK_RECONCILING_TRADED_CODES_H
#define FEEDESK_RECONCILING_TRADED_CODES_H

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "feedesk/answers/provenance.h"
#include "feedesk/statements/statement.h"
#include "standalone/market.h"

namespace feedesk {

/// Finds the instruments of a statement among those that accounts of a kind trade. Immutable.
class TradedCodes {
public:
    /// Codes of digits are looked for with zeros in front too, which spreadsheets take away, up to `mostDigits`: how
    /// many belong there is said by the market's own codes.
    TradedCodes(int accountType, const standalone::Market& market, std::size_t mostDigits);

    /// The line's instrument, by its market where the line has it: the one whose code is as it is written, or else
    /// with zeros. An instrument of a named market that accounts of the kind do not trade is handed back as it is
    /// written. Throws cost::Refused when there is none, or when it may be several.
    [[nodiscard]] Question instrumentOf(const StatementLine& line) const;

private:
    [[nodiscard]] std::vector<Question> known(const std::string& code, const std::string& market) const;
    [[nodiscard]] std::vector<Question> withZeros(const StatementLine& line) const;

    std::unordered_map<std::string, std::vector<std::string>> markets;  // by code
    std::size_t digits;
};

}  // namespace feedesk

#endif  // FEEDESK_RECONCILING_TRADED_CODES_H
