#ifndef FEEDESK_COMMANDS_COST_MARKS_H
#define FEEDESK_COMMANDS_COST_MARKS_H

#include <cstddef>
#include <string>

#include "feedesk/commands/cost_rows.h"

namespace feedesk {

/// Counts the trades of a file that are charged at rates which nobody agreed on, as marks.h has them for answers.
class MarkedTrades {
public:
    void add(const ChargedTrade& charged);

    /// "2 of 10 trades charged at the built-in default; 1 of 10 with a margin of 0"; empty when none is.
    [[nodiscard]] std::string sentence() const;

private:
    std::size_t trades = 0;
    std::size_t builtIn = 0;
    std::size_t zeroMargin = 0;
    std::size_t unknownMargin = 0;
};

}  // namespace feedesk

#endif  // FEEDESK_COMMANDS_COST_MARKS_H
