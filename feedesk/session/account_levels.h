#ifndef FEEDESK_SESSION_ACCOUNT_LEVELS_H
#define FEEDESK_SESSION_ACCOUNT_LEVELS_H

#include <array>
#include <cstddef>

#include "feedesk/session/session.h"

namespace feedesk {

/// How many of the instruments that an account trades are answered on each level. An instrument counts once, on the
/// least certain level of its answer.
struct LevelCounts {
    std::size_t instruments = 0;
    std::array<std::size_t, kLevels.size()> answered{};  ///< in the order of kLevels

    [[nodiscard]] std::size_t of(Level level) const { return answered.at(static_cast<std::size_t>(level)); }
};

/// Asks for every instrument of the lists of the account's kind; for a kind that trades everything, of the folder. An
/// answer without lines, and none, count as not set.
LevelCounts countLevels(Session& session, const standalone::Account& account);

}  // namespace feedesk

#endif  // FEEDESK_SESSION_ACCOUNT_LEVELS_H
