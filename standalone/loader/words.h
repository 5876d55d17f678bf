#ifndef STANDALONE_LOADER_WORDS_H
#define STANDALONE_LOADER_WORDS_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// The wording of messages. Safe from any number of threads at once.

namespace standalone::loader {

/// The text in quotes, for a message: escaped as by printable(), and shortened when it is long.
std::string inQuotes(std::string_view text);

/// The text as a terminal shows all of it, on one line and in valid UTF-8: "\n", "\t", and "\x9b" for each byte of
/// another character that a terminal obeys instead of showing it, and for each byte that is not UTF-8.
std::string printable(std::string_view text);

/// The text with a `replacement` of its own for each of those characters and bytes.
std::string replaceUnprintable(std::string_view text, const std::function<std::string(std::string_view)>& replacement);

/// "a", "a or b", "a, b or c"; past `most` words the rest is counted: "a, b and 7 more".
std::string oneOf(const std::vector<std::string>& words, std::size_t most = 20);

/// The candidate that `text` is most likely a misspelling of; empty when none is near, or when there are
/// too many to compare.
std::string nearest(std::string_view text, const std::vector<std::string>& candidates);

/// `; did you mean "..."?` for the nearest candidate; empty when none is near.
std::string suggestion(std::string_view text, const std::vector<std::string>& candidates);

/// The same, but `; write one of them` when none is near.
std::string mendByOneOf(std::string_view text, const std::vector<std::string>& candidates);

/// The small letter of a letter of ASCII, any other byte as it is.
char lowerCase(char byte);

/// How many characters the text has, which is UTF-8.
std::size_t characters(std::string_view text);
/// A cell or text of more characters is refused.
constexpr std::size_t kMostCharacters = 1000;

/// Whether the text holds a space or something that printable() escapes.
bool hasBlank(std::string_view text);

}  // namespace standalone::loader

#endif  // STANDALONE_LOADER_WORDS_H
