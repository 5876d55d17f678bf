#ifndef FEEDESK_COMPLETING_EXPECTED_WORD_H
#define FEEDESK_COMPLETING_EXPECTED_WORD_H

#include <map>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace feedesk {

/// What a word of a command line is.
enum class WordKind {
    kFree,        ///< anything: a file, a number, a trade
    kListed,      ///< one of `words`
    kAccount,     ///< the number of an account
    kInstrument,  ///< an instrument
    kMarket,      ///< a market
    kLayout       ///< a layout of statements
};

/// What may come next on a command line.
struct ExpectedWord {
    WordKind kind = WordKind::kFree;
    std::vector<std::string> words{};
    std::string written{};  ///< what of the begun word stays in front of them, such as "--only="
};

/// The words that an option or argument takes.
struct Choice {
    std::vector<std::string> words;
    bool isList = false;  ///< several of them, with commas between
};

/// Of the options and arguments that have a list of words.
using Choices = std::map<const CLI::Option*, Choice>;

/// What may come behind `before`, the complete words of a command line without the program's name. An option where
/// `begun`, what is written of the next word, begins with '-'. Whether the words are right is not looked at.
ExpectedWord expectedWord(const CLI::App& app, const Choices& choices, const std::vector<std::string>& before,
                          const std::string& begun);

}  // namespace feedesk

#endif  // FEEDESK_COMPLETING_EXPECTED_WORD_H
