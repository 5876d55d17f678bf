#ifndef FEEDESK_TEXT_TEXT_H
#define FEEDESK_TEXT_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace feedesk {

/// What marked() puts before and behind a text. No printable text holds them.
constexpr std::string_view kMarks = "\x0E\x0F";

/// `text` so that writeText() colours it. The marks take no room.
std::string marked(const std::string& text);

/// Columns that a UTF-8 text takes on a terminal; Chinese characters take two.
std::size_t displayWidth(std::string_view text);

/// `text` if it takes no more than `width` columns, otherwise its beginning and an ellipsis, together at most `width`.
std::string shortened(std::string_view text, std::size_t width);

/// Each line of `text` as standalone::printable() shows it: the line ends stay.
std::string printableLines(std::string_view text);

/// What a person wrote, for a sentence: as it is, or, where it is empty, long or holds something that does not print,
/// in quotes, shortened and escaped.
std::string echoed(const std::string& text);

/// A file or folder, for a sentence: whole, so that it can be copied; in quotes where a shell needs them, escaped where
/// it holds something that does not print.
std::string pathText(const std::string& path);

/// The parts of `text` between spaces.
std::vector<std::string> words(std::string_view text);

/// A name of programs as people write a title: "old_sources" is "Old sources".
std::string asTitle(const std::string& name);

/// The text on lines of at most `width` columns, broken between its words; a word that is longer is shortened, but a
/// path stays whole. Each line has its end.
std::string filledText(const std::string& text, std::size_t width);

/// Fills lines of at most `width` columns with `pieces`, a space between two; a piece that is wider has its own line.
std::vector<std::string> fillLines(const std::vector<std::string>& pieces, std::size_t width);

}  // namespace feedesk

#endif  // FEEDESK_TEXT_TEXT_H
