#ifndef TESTS_HISTORIES_RUN_HISTORY_H
#define TESTS_HISTORIES_RUN_HISTORY_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "histories/bytes.h"
#include "histories/world.h"

namespace histories {

/// A new fee center and a new model go through the history; after each step every answer is compared. The first
/// difference in words, with the step after which it shows; nothing when there is none.
std::optional<std::string> runHistory(const std::vector<std::vector<std::uint8_t>>& history);

struct Outcome {
    std::optional<std::string> difference;
    std::uint64_t steps = 0;
    std::uint64_t answers = 0;  ///< compared
    Reached reached;
};

/// After which steps everything is compared.
enum class Compare { eachStep, theLastStep };

/// The same, with its figures.
Outcome runHistory(const History& history, Focus focus, Compare when = Compare::eachStep);

/// The steps in words, one a line.
std::string describe(const History& history, Focus focus);

// A history as one word of text.
std::string toText(const History& history);
/// Nothing when the text is not one that toText gives.
std::optional<History> fromText(const std::string& text);

}  // namespace histories

#endif  // TESTS_HISTORIES_RUN_HISTORY_H
