#include "feedesk/instruments/instrument_text.h"

#include <boost/algorithm/string/case_conv.hpp>
#include <locale>
#include <set>

#include "feedesk/text/folding.h"
#include "standalone/channels.h"

namespace feedesk {

InstrumentName::InstrumentName(const standalone::ListedInstrument& listed)
    : market(listed.record->market),
      code(listed.record->code),
      name(listed.record->name),
      foldedCode(folded(code)),
      foldedName(folded(name)),
      quantityStep(listed.quantityStep),
      lists{listed.listMask, listed.types} {}

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

bool AskedMarket::isCalled(const std::string& text) const {
    return text == name || boost::to_upper_copy(text, std::locale::classic()) == name;
}

AskedMarkets askedMarketsOf(const NamedInstruments& instruments) {
    std::set<std::string> markets;
    for (const NamedInstrument& instrument : instruments) {
        markets.insert(instrument->market);
    }
    AskedMarkets asked;
    for (const std::string& market : markets) {
        asked.push_back({market, market});
    }
    return asked;
}

AskedMarkets channels() {
    AskedMarkets asked;
    for (const char* channel : standalone::kChannels) {
        asked.push_back({channel, standalone::kChannelMarket});
    }
    return asked;
}

}  // namespace feedesk
