#include "feedesk/comparing/alike_instruments.h"

#include <map>
#include <utility>

#include "feedesk/alike/instrument_inputs.h"
#include "standalone/families.h"

namespace feedesk {

Alike groupAlike(ComparedFolder& before, ComparedFolder& after, cost::Date day, const AccountSides& account,
                 const std::vector<InstrumentPlaces>& instruments) {
    const std::vector<int> inputsBefore = instrumentInputs(before.contents(), day, account.linesBefore);
    const std::vector<int> inputsAfter = instrumentInputs(after.contents(), day, account.linesAfter);
    const auto* const traded = standalone::tradedFamily(before.accounts()[account.before].record->accountType);
    std::map<std::pair<int, int>, std::size_t> groups;
    Alike alike;
    for (std::size_t i = 0; i < instruments.size(); ++i) {
        const InstrumentPlaces& places = instruments[i];
        const standalone::ListedInstrument& listed = before.instruments()[places.before];
        const bool isTraded =
            traded == nullptr || traded->lists.hold(listed) || traded->lists.hold(after.instruments()[places.after]);
        if (!isTraded || !before.coversMarket(day, listed.record->market) ||
            !after.coversMarket(day, listed.record->market)) {
            continue;
        }
        const auto group =
            groups.emplace(std::make_pair(inputsBefore[places.before], inputsAfter[places.after]), alike.size());
        if (group.second) {
            alike.emplace_back();
        }
        alike[group.first->second].push_back(i);
    }
    return alike;
}

}  // namespace feedesk
