#include "feedesk/instrument_text.h"

#include <boost/algorithm/string/case_conv.hpp>
#include <locale>
#include <set>

#include "feedesk/folding.h"

namespace feedesk {

InstrumentName::InstrumentName(const standalone::ListedInstrument& listed)
    : market(listed.record->market),
      code(listed.record->code),
      name(listed.record->name),
      foldedCode(folded(code)),
      foldedName(folded(name)),
      lists{listed.kindMask, listed.types} {}

std::string instrumentText(const std::string& market, const std::string& code) { return market + ":" + code; }

std::vector<MarketAndName> readings(const std::string& text) {
    std::vector<MarketAndName> found;
    const std::size_t colon = text.find(':');
    if (colon != std::string::npos) {
        found.push_back({text.substr(0, colon), text.substr(colon + 1)});
    }
    const std::size_t point = text.rfind('.');
    if (point != std::string::npos) {
        found.push_back({text.substr(point + 1), text.substr(0, point)});
    }
    return found;
}

bool Place::isCalled(const std::string& text) const {
    return text == asked || boost::to_upper_copy(text, std::locale::classic()) == asked;
}

Places placesOf(const Instruments& instruments) {
    std::set<std::string> markets;
    for (const Instrument& instrument : instruments) {
        markets.insert(instrument->market);
    }
    Places places;
    for (const std::string& market : markets) {
        places.push_back({market, market});
    }
    return places;
}

Places channels() { return {{"HGT", "HK"}, {"SGT", "HK"}}; }

}  // namespace feedesk
