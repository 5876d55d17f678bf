#ifndef FEEDESK_SHELL_LINE_WORDS_H
#define FEEDESK_SHELL_LINE_WORDS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace feedesk {

/// A line cut into words as a shell does it: at blanks, but not inside '...' and "..."; behind a backslash, except
/// inside '...', the next character means itself; '#' at the beginning of a word begins a comment. Nothing else
/// has a meaning: '*' needs no quotes.
struct LineWords {
    std::vector<std::string> words;
    char openQuote = '\0';      ///< the quote that is not closed, or the backslash with nothing behind it
    std::size_t lastBegin = 0;  ///< where the last word begins
    bool endsBetween = true;    ///< whether the line ends behind a blank or is empty: the next word has not begun
};

LineWords lineWords(std::string_view line);

/// The word as it is written in a line, with quotes where it needs them.
std::string quotedWord(const std::string& word);

/// The beginning of a word: the same with its quote left open.
std::string quotedBeginning(const std::string& begun);

}  // namespace feedesk

#endif  // FEEDESK_SHELL_LINE_WORDS_H
