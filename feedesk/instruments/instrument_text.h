#ifndef FEEDESK_INSTRUMENTS_INSTRUMENT_TEXT_H
#define FEEDESK_INSTRUMENTS_INSTRUMENT_TEXT_H

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "standalone/families.h"

namespace feedesk {

/// What a person may call an instrument by, ready to be compared with many texts.
struct InstrumentName {
    explicit InstrumentName(const standalone::ListedInstrument& listed);

    std::string market;
    std::string code;
    std::string name;
    std::string foldedCode;  ///< folding.h
    std::string foldedName;
    int quantityStep;         ///< by which purchases above the trade unit grow; 0: by the trade unit
    standalone::Lists lists;  ///< that it is in
};

using NamedInstrument = boost::shared_ptr<const InstrumentName>;
using NamedInstruments = std::vector<NamedInstrument>;

/// "SH:600519".
std::string instrumentText(const std::string& market, const std::string& code);
template <class Instrument>
std::string instrumentText(const Instrument& instrument) {
    return instrumentText(instrument.market, instrument.code);
}

/// A market and what is named in it, a code, a name or a pattern.
struct MarketAndName {
    std::string market;
    std::string name;
};

/// The ways in which a text may be read as that: "SH:600519", "600519.SH".
std::vector<MarketAndName> readings(const std::string& text);

/// A market under a name by which it is asked.
struct AskedMarket {
    std::string name;
    std::string market;

    /// Whether a person who writes `text` names it; small letters will do.
    [[nodiscard]] bool isCalled(const std::string& text) const;
};

using AskedMarkets = std::vector<AskedMarket>;

/// The markets of the instruments under their own names.
AskedMarkets askedMarketsOf(const NamedInstruments& instruments);

/// The market of the connect channels under their names.
AskedMarkets channels();

}  // namespace feedesk

#endif  // FEEDESK_INSTRUMENTS_INSTRUMENT_TEXT_H
