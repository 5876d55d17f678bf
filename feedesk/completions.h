#ifndef FEEDESK_COMPLETIONS_H
#define FEEDESK_COMPLETIONS_H

#include <string>
#include <vector>

namespace CLI {
class App;
}  // namespace CLI

namespace feedesk {

/// Which words can stand in the place of the last of `words`, which is begun and may be empty. `words` are those of a
/// command line without the program's name. Accounts and instruments are those of the market folder that the words
/// name, else of `folder`; none where that cannot be loaded.
std::vector<std::string> completions(const CLI::App& app, const std::vector<std::string>& words,
                                     const std::string& folder);

}  // namespace feedesk

#endif  // FEEDESK_COMPLETIONS_H
