#ifndef COST_PATTERN_H
#define COST_PATTERN_H

#include <string_view>

namespace cost {

/// Whether the whole of `code` matches `pattern`, in which '*' means any run of bytes, the empty one included, and
/// every other byte means itself. Safe from any thread, free of the locale, and takes at most time proportional to the
/// product of both lengths.
bool matchesPattern(std::string_view code, std::string_view pattern) noexcept;

}  // namespace cost

#endif  // COST_PATTERN_H
