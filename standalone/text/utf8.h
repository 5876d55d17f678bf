#ifndef STANDALONE_TEXT_UTF8_H
#define STANDALONE_TEXT_UTF8_H

#include <cstddef>
#include <string_view>

// Safe from any number of threads at once.

namespace standalone {

/// The byte order mark by which some programs know UTF-8.
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// Bytes of the mark that the text begins with; 0 where it has none.
constexpr std::size_t utf8MarkLength(std::string_view text) {
    return text.substr(0, kUtf8Mark.size()) == kUtf8Mark ? kUtf8Mark.size() : 0;
}

/// Whether the text is valid UTF-8; a zero byte counts as a character.
bool isUtf8(std::string_view text);

/// Bytes of the UTF-8 character that the text, which is not empty, begins with; 0 when it begins with none.
std::size_t characterLength(std::string_view text);

/// Whether the byte is inside a UTF-8 character and does not begin one.
constexpr bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// What the text, which may be any bytes, begins with: one byte and those behind it that are inside a character. Empty
/// when the text is.
std::string_view firstCharacter(std::string_view text);

/// How many characters the text has, which is UTF-8.
std::size_t characters(std::string_view text);

}  // namespace standalone

#endif  // STANDALONE_TEXT_UTF8_H
