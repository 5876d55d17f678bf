#ifndef STANDALONE_TEXT_WORDING_H
#define STANDALONE_TEXT_WORDING_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Parts of messages. Safe from any number of threads at once.

namespace standalone {

/// "a", "a or b", "a, b or c"; past `most` words the rest is counted: "a, b and 7 more".
std::string oneOf(const std::vector<std::string>& words, std::size_t most = 20);

/// `; did you mean "..."?` for the nearest candidate; empty when none is near.
std::string suggestion(std::string_view text, const std::vector<std::string>& candidates);

/// The same, but `; write one of them` when none is near.
std::string adviseOneOf(std::string_view text, const std::vector<std::string>& candidates);

}  // namespace standalone

#endif  // STANDALONE_TEXT_WORDING_H
