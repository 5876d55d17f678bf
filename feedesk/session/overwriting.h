#ifndef FEEDESK_SESSION_OVERWRITING_H
#define FEEDESK_SESSION_OVERWRITING_H

#include <string>

namespace feedesk {

/// Whether both name the same file, by whatever way. Empty names name none.
bool isSameFile(const std::string& one, const std::string& other);

/// Throws Failure where an answer would be written over a file that the command reads. `whatItIs`: "the statement".
/// Empty names name no file, and "-" of what is read is standard input.
void refuseToOverwrite(const std::string& target, const std::string& input, const char* whatItIs);

/// Throws Failure where an answer would be written into a market folder: what is in one is read, and what does not
/// belong there keeps it from being loaded.
void refuseToWriteInto(const std::string& folder, const std::string& target);

}  // namespace feedesk

#endif  // FEEDESK_SESSION_OVERWRITING_H
