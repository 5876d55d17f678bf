#ifndef STANDALONE_TEXT_NEARNESS_H
#define STANDALONE_TEXT_NEARNESS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Which text a misspelt one was meant to be. Safe from any number of threads at once.

namespace standalone {

/// The text with small letters of ASCII for capital ones; every other byte stays.
std::string lowerCase(std::string_view text);

/// How many bytes must be inserted, removed or replaced to make one text the other. Where the answer is more than
/// `most` it may be any number that is; that costs little when the texts differ by more in length.
std::size_t editDistance(std::string_view from, std::string_view to, std::size_t most);

/// Names of `known` for which `text` may be a slip, nearest first, at most `most`; letter case does not count. Empty
/// for a text that is too long for a name.
std::vector<std::string> nearNames(std::string_view text, const std::vector<std::string>& known, std::size_t most = 3);

/// The candidate that `text` is most likely a misspelling of: the first of its nearNames(). Empty when
/// none is near, or when there are too many to compare.
std::string nearest(std::string_view text, const std::vector<std::string>& candidates);

}  // namespace standalone

#endif  // STANDALONE_TEXT_NEARNESS_H
