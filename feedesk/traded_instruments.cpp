#include "feedesk/traded_instruments.h"

#include "standalone/families.h"

namespace feedesk {

std::vector<Question> tradedInstruments(int accountType, const standalone::Market& market) {
    const standalone::RateFamily* family = standalone::tradedFamily(accountType);
    std::vector<Question> traded;
    for (const standalone::ListedInstrument& listed : market.instruments) {
        if (family == nullptr || family->lists.hold(listed)) {
            traded.push_back({listed.record->market, listed.record->code});
        }
    }
    return traded;
}

}  // namespace feedesk
