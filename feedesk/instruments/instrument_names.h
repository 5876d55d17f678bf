#ifndef FEEDESK_INSTRUMENTS_INSTRUMENT_NAMES_H
#define FEEDESK_INSTRUMENTS_INSTRUMENT_NAMES_H

#include <boost/unordered_map.hpp>
#include <string>
#include <vector>

#include "feedesk/instruments/instrument_text.h"
#include "feedesk/instruments/question.h"
#include "standalone/families.h"
#include "standalone/market.h"

namespace feedesk {

/// The instruments of a market by the ways in which a person writes them. Immutable.
///
/// A text names one instrument
/// - as it is written: "600519" when one market alone has the code, "SH:600519" or "600519.SH" with the market in
///   capital or small letters;
/// - else folded (folding.h): its code or its name, alone or with the market in front or behind, as in "sh600519" or
///   "贵州茅台", when one instrument alone can be meant.
/// A text with '*' that names none is a pattern: "SHFE:rb*" names the instruments of the market whose code or name
/// is like "rb*", "S*:rb*" for those of all markets that are like "S*".
///
/// `connect`: the account trades through a connect channel, and "HGT:00700" and "SGT:00700" are the channels' names for
/// "HK:00700".
class InstrumentNames {
public:
    explicit InstrumentNames(const standalone::Market& market);

    /// What the text names: one instrument, or those that are like a pattern, by market and code. Empty when it
    /// names none, or may name several.
    [[nodiscard]] std::vector<Question> find(const std::string& text, bool connect) const;

    /// Everything that the text may mean or is like; where there is nothing, what has it inside its code or name.
    [[nodiscard]] std::vector<Question> search(const std::string& text) const;

    /// The markets that have instruments, by the names that a person may call them.
    [[nodiscard]] AskedMarkets marketsAsked(bool connect) const;

    /// Why find() finds nothing, and what may be meant, in one sentence. Compares the text with every instrument.
    [[nodiscard]] std::string problem(const std::string& text, bool connect) const;

    /// The instrument of this market and code that one of the lists has; empty when none has it.
    [[nodiscard]] NamedInstrument listed(const standalone::Lists& lists, const std::string& market,
                                         const std::string& code) const;

private:
    using Index = boost::unordered_map<std::string, NamedInstruments>;

    static const NamedInstruments& under(const Index& index, const std::string& key);

    [[nodiscard]] std::vector<Question> meant(const std::string& text, bool connect) const;
    [[nodiscard]] std::vector<Question> withCode(const std::string& code, const AskedMarkets& askedMarkets) const;
    [[nodiscard]] std::vector<Question> asWritten(const std::string& text, const AskedMarkets& askedMarkets) const;
    [[nodiscard]] std::vector<Question> asFolded(const std::string& text, const AskedMarkets& askedMarkets) const;

    NamedInstruments instruments;  // by market and code
    AskedMarkets markets;
    Index byFoldedCode;
    Index byFoldedName;
};

}  // namespace feedesk

#endif  // FEEDESK_INSTRUMENTS_INSTRUMENT_NAMES_H
