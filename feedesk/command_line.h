#ifndef FEEDESK_COMMAND_LINE_H
#define FEEDESK_COMMAND_LINE_H

#include <string>
#include <vector>

#include "feedesk/completing/completions.h"
#include "feedesk/failure.h"
#include "feedesk/program.h"

namespace feedesk {

/// Runs the command that the words name, those of a command line without the program's name: answers and reports what
/// went wrong. `program` holds what is not said by a word.
ExitStatus runCommand(const std::vector<std::string>& words, Program& program);

/// Which words can stand in the place of the last of `words` for this program.
std::vector<std::string> completionsFor(const std::vector<std::string>& words, Program& program,
                                        const FolderWords& folderWords);

}  // namespace feedesk

#endif  // FEEDESK_COMMAND_LINE_H
