#ifndef STANDALONE_LOADER_FIRST_LINES_H
#define STANDALONE_LOADER_FIRST_LINES_H

#include <map>
#include <optional>

#include "standalone/market.h"

namespace standalone::loader {

/// The lines of a table that spoke of something first, by what they speak of. For one thread.
template <class Subject>
class FirstLines {
public:
    /// The line that spoke of the subject before; empty for the first, which is kept.
    std::optional<Position> before(const Subject& subject, Position line) {
        const auto [first, isNew] = lines.emplace(subject, line);
        return isNew ? std::nullopt : std::optional<Position>(first->second);
    }

private:
    std::map<Subject, Position> lines;
};

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_FIRST_LINES_H
