#ifndef FEEDESK_COMPLETING_EXPECTED_WORD_H
#define FEEDESK_COMPLETING_EXPECTED_WORD_H

#include <string>
#include <vector>

namespace CLI {
class App;
}  // namespace CLI

namespace feedesk {

enum class WordKind {
    kFree,        ///< anything: a file, a number, a trade
    kListed,      ///< one of `words`
    kAccount,     ///< the number of an account
    kInstrument,  ///< an instrument
};

/// What may come next on a command line.
struct ExpectedWord {
    WordKind kind = WordKind::kFree;
    std::vector<std::string> words{};
};

/// What may come behind `before`, the complete words of a command line without the program's name. An option where
/// `begun`, what is written of the next word, begins with '-'. Whether the words are right is not looked at.
ExpectedWord expectedWord(const CLI::App& app, const std::vector<std::string>& before, const std::string& begun);

}  // namespace feedesk

#endif  // FEEDESK_COMPLETING_EXPECTED_WORD_H
