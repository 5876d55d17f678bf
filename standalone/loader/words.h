#ifndef STANDALONE_LOADER_WORDS_H
#define STANDALONE_LOADER_WORDS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The wording of messages. Safe from any number of threads at once.

namespace standalone::loader {

/// The text in quotes, for a message: control characters escaped, and shortened when it is long. `text` is UTF-8.
std::string inQuotes(std::string_view text);

/// The text with control characters escaped, so that it stays one line and a terminal shows all of it. `text` is UTF-8.
std::string printable(std::string_view text);

/// "a", "a or b", "a, b or c"; past `most` words the rest is counted: "a, b and 7 more".
std::string oneOf(const std::vector<std::string>& words, std::size_t most = 20);

/// The candidate that `text` is most likely a misspelling of; empty when none is near, or when there are
/// too many to compare.
std::string nearest(std::string_view text, const std::vector<std::string>& candidates);

/// `; did you mean "..."?` for the nearest candidate; empty when none is near.
std::string suggestion(std::string_view text, const std::vector<std::string>& candidates);

/// The same, but `; write one of them` when none is near.
std::string mendByOneOf(std::string_view text, const std::vector<std::string>& candidates);

/// How many characters the text has, which is UTF-8.
std::size_t characters(std::string_view text);
/// A cell or text of more characters is refused.
constexpr std::size_t kMostCharacters = 1000;

/// How many bytes the character at the beginning of the text has when it is one that a terminal obeys instead of
/// showing it: a control character, or one that changes the direction of writing. 0 for any other. `text` is UTF-8.
std::size_t unprintable(std::string_view text);

/// Whether the text holds a space or another character that does not print. `text` is UTF-8; bytes past ASCII print.
bool hasBlank(std::string_view text);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_WORDS_H
