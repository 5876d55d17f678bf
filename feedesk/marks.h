#ifndef FEEDESK_MARKS_H
#define FEEDESK_MARKS_H

#include <string>
#include <vector>

#include "feedesk/answer.h"

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

/// How many of the answers have marked lines, one sentence; empty when none has. An answer without lines counts as not
/// set.
std::string markedSentence(const std::vector<Answer>& answers);

}  // namespace feedesk

#endif  // FEEDESK_MARKS_H
