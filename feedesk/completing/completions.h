#ifndef FEEDESK_COMPLETING_COMPLETIONS_H
#define FEEDESK_COMPLETING_COMPLETIONS_H

#include <functional>
#include <string>
#include <vector>

#include "feedesk/completing/expected_word.h"
#include "standalone/market.h"

namespace feedesk {

/// Gives the market whose accounts and instruments complete the last of the words.
using MarketOf = std::function<standalone::Market(const std::vector<std::string>&)>;

/// Which words can stand in the place of the last of `words`, which is begun and may be empty. `words` are those of a
/// command line without the program's name. The market is asked for only where something of it is
/// expected.
std::vector<std::string> completions(const CLI::App& app, const Choices& choices, const std::vector<std::string>& words,
                                     const MarketOf& marketOf);

/// The market of the folder that the words name, else of `folder`; an empty one where that cannot be loaded.
standalone::Market namedMarket(const std::vector<std::string>& words, const std::string& folder);

}  // namespace feedesk

#endif  // FEEDESK_COMPLETING_COMPLETIONS_H
