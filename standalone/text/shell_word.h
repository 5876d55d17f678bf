#ifndef STANDALONE_TEXT_SHELL_WORD_H
#define STANDALONE_TEXT_SHELL_WORD_H

#include <string>

namespace standalone {

/// What a person copies into a command of the system's shell: in quotes where it is empty or holds more than letters,
/// digits and signs without a meaning there. Safe from any number of threads at once.
std::string shellWord(const std::string& text);

}  // namespace standalone

#endif  // STANDALONE_TEXT_SHELL_WORD_H
