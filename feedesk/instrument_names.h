#ifndef FEEDESK_INSTRUMENT_NAMES_H
#define FEEDESK_INSTRUMENT_NAMES_H

#include <boost/unordered_map.hpp>
#include <optional>
#include <string>
#include <vector>

#include "feedesk/provenance.h"
#include "standalone/market.h"

namespace feedesk {

/// What an instrument that a person names is: the question to ask, or a sentence that tells why there is none.
struct NamedInstrument {
    std::optional<Question> question;
    std::string problem;
};

/// The instruments of a market by the ways in which a person writes them: "SH:600519", "600519.SH", and "600519" when
/// one market alone has the code. Immutable.
class InstrumentNames {
public:
    explicit InstrumentNames(const standalone::Market& market);

    /// `connect`: the account trades through a connect channel, and "HGT:00700" and "SGT:00700" are the channels' names
    /// for "HK:00700".
    [[nodiscard]] NamedInstrument find(const std::string& text, bool connect) const;

private:
    [[nodiscard]] std::string advice(const std::string& text) const;
    [[nodiscard]] std::vector<std::string> differentlyWritten(const std::string& text) const;
    [[nodiscard]] std::vector<std::string> nearInstruments(const std::string& text) const;
    [[nodiscard]] bool has(const std::string& market, const std::string& code) const;
    [[nodiscard]] std::optional<Question> inMarket(const std::string& market, const std::string& code,
                                                   bool connect) const;

    boost::unordered_map<std::string, std::vector<std::string>> marketsByCode;  // markets in the folder's order
};

/// "SH:600519".
std::string instrumentText(const std::string& market, const std::string& code);

}  // namespace feedesk

#endif  // FEEDESK_INSTRUMENT_NAMES_H
