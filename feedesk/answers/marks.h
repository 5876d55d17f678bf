#ifndef FEEDESK_ANSWERS_MARKS_H
#define FEEDESK_ANSWERS_MARKS_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "feedesk/answers/answer.h"

namespace feedesk {

/// Why a rate must not be taken for one that somebody agreed on.
enum class Mark {
    kBuiltInDefault,  ///< no input gave it
    kZeroMargin,      ///< a margin that is 0 for long or for short
    kNotSet           ///< there is no rate
};

/// The marks of one line: at most one of its level, then one of its margin.
std::vector<Mark> marksOf(const FeeLine& line);

/// "built_in_default", "zero_margin" or "not_set".
std::string markName(Mark mark);

/// What a table says about the level of a line: marks are in capitals, each in a piece of its own.
std::vector<std::string> levelPieces(const FeeLine& line);

/// Counts the answers that have marked lines. An answer without lines counts as not set.
class MarkCount {
public:
    void add(const std::vector<Answer>& answers);

    /// How many of them have which mark, one sentence; empty when none has. `noun` is what one answer is about.
    [[nodiscard]] std::string sentence(const std::string& noun) const;

private:
    std::size_t all = 0;
    std::map<Mark, std::size_t> marked;
};

/// The same of an account's answers.
std::string markedSentence(const std::vector<Answer>& answers);

}  // namespace feedesk

#endif  // FEEDESK_ANSWERS_MARKS_H
