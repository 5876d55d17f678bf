#ifndef FEEDESK_COMPLETING_COMPLETIONS_H
#define FEEDESK_COMPLETING_COMPLETIONS_H

#include <functional>
#include <string>
#include <vector>

#include "feedesk/completing/expected_word.h"
#include "standalone/market.h"

namespace feedesk {

/// What of a market folder completes the last of the words. Each is asked for only where it is expected.
struct FolderWords {
    std::function<standalone::Market(const std::vector<std::string>&)> market;
    std::function<std::vector<std::string>(const std::vector<std::string>&)> layouts;  ///< their names
};

/// Which words can stand in the place of the last of `words`, which is begun and may be empty. `words` are those of a
/// command line without the program's name.
std::vector<std::string> completions(const CLI::App& app, const Choices& choices, const std::vector<std::string>& words,
                                     const FolderWords& folderWords);

/// Those of the folder that the words name, else of `folder`; none where that cannot be loaded.
FolderWords namedFolderWords(const std::string& folder);

}  // namespace feedesk

#endif  // FEEDESK_COMPLETING_COMPLETIONS_H
