#ifndef FUZZ_FOLDER_TEXT_H
#define FUZZ_FOLDER_TEXT_H

#include <map>
#include <string>
#include <string_view>

namespace fuzz {

/// The files of a folder by their path in it, with their bytes.
using Files = std::map<std::string, std::string>;

/// The folder that a text describes. A line `=== PATH` begins a file, which goes up to the next such line; what comes
/// before the first is a comment. Any text is a folder: a path that is not UTF-8, cannot be made or lies on another's
/// way is passed over with its file, and of two files with the same path the first stays.
Files filesOf(std::string_view text);

}  // namespace fuzz

#endif  // FUZZ_FOLDER_TEXT_H
