#ifndef TESTS_HISTORIES_GIVEN_H
#define TESTS_HISTORIES_GIVEN_H

#include <cstdint>
#include <optional>
#include <string>

#include "histories/bytes.h"
#include "histories/world.h"

// What the environment says about random histories. A value that is not understood throws std::invalid_argument, which
// says what was expected.

namespace histories {

/// A history as a failure prints it, in place of random ones.
struct GivenHistory {
    Focus focus;
    History history;
};

/// "Futures:00ab." is a history of the focus that nameOf calls so.
GivenHistory parseHistory(const std::string& text);

/// A whole number of at most 18 digits; nothing when the text is not one.
std::optional<std::uint64_t> wholeNumber(const std::string& text);

/// A whole number.
std::uint64_t parseSeed(const std::string& text);

/// FEECENTER_HISTORY; nothing when it is not set.
std::optional<GivenHistory> givenHistory();

/// FEECENTER_SEED. The same from run to run when it is not set, so that a build that passed passes again.
std::uint64_t firstSeed();

/// The seeds of one focus from the first on. Those of different focuses do not meet.
class Seeds {
public:
    explicit Seeds(Focus focus) : next(firstSeed() * kFocuses.size() + static_cast<std::uint64_t>(focus)) {}

    std::uint64_t take() {
        const std::uint64_t seed = next;
        next += kFocuses.size();
        return seed;
    }

private:
    std::uint64_t next;
};

}  // namespace histories

#endif  // TESTS_HISTORIES_GIVEN_H
