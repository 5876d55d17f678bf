#include "feedesk/instruments/traded_instruments.h"

#include "standalone/families.h"

namespace feedesk {

std::vector<const standalone::ListedInstrument*> tradedListings(int accountType, const standalone::Market& market) {
    const standalone::RateFamily* family = standalone::tradedFamily(accountType);
    std::vector<const standalone::ListedInstrument*> traded;
    for (const standalone::ListedInstrument& listed : market.instruments) {
        if (family == nullptr || family->lists.hold(listed)) {
            traded.push_back(&listed);
        }
    }
    return traded;
}

std::vector<Question> tradedInstruments(int accountType, const standalone::Market& market) {
    std::vector<Question> traded;
    for (const standalone::ListedInstrument* listed : tradedListings(accountType, market)) {
        traded.push_back({listed->record->market, listed->record->code});
    }
    return traded;
}

}  // namespace feedesk
