#ifndef FEEDESK_EXPLAINING_TRIALS_H
#define FEEDESK_EXPLAINING_TRIALS_H

#include <cstddef>
#include <optional>
#include <vector>

#include "feedesk/answers/answer.h"
#include "standalone/folder_excerpt.h"

namespace feedesk {

/// By place in FolderExcerpt::lines().
using Kept = std::vector<bool>;

/// Asks a new fee center for the one instrument of an excerpt with some of its lines taken away. Each question puts a
/// market of its own into the host's services and leaves it there. The engine must run. Used by one thread.
class Trials {
public:
    explicit Trials(standalone::FolderExcerpt smallFolder) : excerpt(std::move(smallFolder)) {}

    [[nodiscard]] const std::vector<standalone::RateInput>& lines() const { return excerpt.lines(); }

    /// The answer when no line but the kept ones is there; without lines where the fee center has no fee.
    [[nodiscard]] Answer with(const Kept& kept) const;
    /// When the line is the only one.
    [[nodiscard]] Answer withOnly(std::size_t line) const;
    /// When the line, a custom fee, is the only one and its category holds every instrument.
    [[nodiscard]] Answer withCategoryOfAll(std::size_t line) const;
    /// When the line is the only one and the account's platform is a simulation.
    [[nodiscard]] Answer onSimulation(std::size_t line) const;

    /// Which of lines() the rate comes from.
    [[nodiscard]] std::optional<std::size_t> lineOf(const Origin& origin) const;

private:
    [[nodiscard]] Kept only(std::size_t line) const;

    standalone::FolderExcerpt excerpt;
};

/// The line of the answer that comes from this one of the trials' lines; null when none does.
const FeeLine* lineFrom(const Answer& answer, const Trials& trials, std::size_t line);

}  // namespace feedesk

#endif  // FEEDESK_EXPLAINING_TRIALS_H
