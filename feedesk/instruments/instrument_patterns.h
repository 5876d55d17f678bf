#ifndef FEEDESK_INSTRUMENTS_INSTRUMENT_PATTERNS_H
#define FEEDESK_INSTRUMENTS_INSTRUMENT_PATTERNS_H

#include <string>
#include <vector>

#include "feedesk/instruments/instrument_text.h"
#include "feedesk/instruments/question.h"

namespace feedesk {

// Patterns of instruments: "rb*", "SHFE:rb*", "rb*.SHFE", "S*:rb*". `instruments` are sorted by market and code.

/// Whether the text holds a star, be it a wide one.
bool isPattern(const std::string& text);

/// The markets that a pattern names, and what it says of the instruments there.
struct PlacedPattern {
    AskedMarkets markets;
    std::string name;
    bool namesMarkets = false;  ///< otherwise they are all of them

    /// Whether it names a market that nobody knows. Folding would take the colon away: "X:6*" would find what is like
    /// "x6*".
    [[nodiscard]] bool namesUnknownMarket() const { return !namesMarkets && name.find(':') != std::string::npos; }
    [[nodiscard]] bool isIn(const std::string& market) const;
};

/// A text whose part before a colon or behind a point is no market is a pattern for all markets. A market that is
/// written out may be any of the markets; one with '*' names markets under their own names.
PlacedPattern placedPattern(const std::string& pattern, const AskedMarkets& markets);

/// The instruments whose code or name is like the pattern, by market and code.
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
