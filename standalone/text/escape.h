#ifndef STANDALONE_TEXT_ESCAPE_H
#define STANDALONE_TEXT_ESCAPE_H

#include <functional>
#include <string>
#include <string_view>

// Texts of any bytes as a person reads them. Safe from any number of threads at once.

namespace standalone {

/// The text as a terminal shows all of it, on one line and in valid UTF-8: "\n", "\t", and "\x9b" for each byte of
/// another character that a terminal obeys instead of showing it, and for each byte that is not UTF-8.
std::string printable(std::string_view text);

/// The text with a `replacement` of its own for each of those characters and bytes.
std::string replaceUnprintable(std::string_view text, const std::function<std::string(std::string_view)>& replacement);

/// The text in quotes, for a message: escaped as by printable(), with its unseen characters, but for a wide space, and
/// shortened when it is long.
std::string inQuotes(std::string_view text);

/// Whether the text holds a space or something that printable() escapes.
bool hasBlank(std::string_view text);

/// The text as one line from which it can be had back: backslash and double quote behind a backslash, control
/// characters as "\xNN". In a text that is not UTF-8 every byte above 0x7f too. Different texts stay different.
std::string escaped(std::string_view text);

}  // namespace standalone

#endif  // STANDALONE_TEXT_ESCAPE_H
