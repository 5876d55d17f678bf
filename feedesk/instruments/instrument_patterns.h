#ifndef FEEDESK_INSTRUMENTS_INSTRUMENT_PATTERNS_H
#define FEEDESK_INSTRUMENTS_INSTRUMENT_PATTERNS_H

#include <string>
#include <vector>

#include "feedesk/instruments/instrument_text.h"
#include "feedesk/instruments/question.h"

namespace feedesk {

// Patterns of instruments: "rb*", "SHFE:rb*", "rb*.SHFE", "S*:rb*". `instruments` are sorted by market and code.

bool isPattern(const std::string& text);

/// The instruments whose code or name is like the pattern, by market and code. A market that is written out may be any
/// of the markets; one with '*' names markets under their own names.
std::vector<Question> questionsLike(const std::string& pattern, const NamedInstruments& instruments,
                                    const AskedMarkets& markets);

/// The same for instruments whose code or name holds the text, which is no pattern.
std::vector<Question> questionsWith(const std::string& text, const NamedInstruments& instruments,
                                    const AskedMarkets& markets);

/// Why questionsLike() finds nothing, in one sentence.
std::string patternProblem(const std::string& pattern, const NamedInstruments& instruments,
                           const AskedMarkets& markets);

/// The instruments whose code or name is like the pattern, which names no market.
NamedInstruments instrumentsLike(const std::string& pattern, const NamedInstruments& instruments);

}  // namespace feedesk

#endif  // FEEDESK_INSTRUMENTS_INSTRUMENT_PATTERNS_H
