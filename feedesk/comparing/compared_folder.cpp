#include "feedesk/comparing/compared_folder.h"

#include <utility>

#include "feedesk/instruments/instrument_text.h"
#include "standalone/families.h"

namespace feedesk {
namespace {

std::optional<std::size_t> placeIn(const std::unordered_map<std::string, std::size_t>& places, const std::string& key) {
    const auto found = places.find(key);
    return found == places.end() ? std::nullopt : std::make_optional(found->second);
}

}  // namespace

ComparedFolder::ComparedFolder(standalone::MarketFolder loaded, standalone::ContentNumbers& numbers)
    : days(std::move(loaded)), numbered(days, numbers) {
    for (const standalone::Account& account : accounts()) {
        accountPlaces.emplace(account.record->accountId, accountPlaces.size());
    }
    for (const standalone::ListedInstrument& listed : instruments()) {
        instrumentPlaces.emplace(instrumentText(*listed.record), instrumentPlaces.size());
    }
}

std::optional<std::size_t> ComparedFolder::account(const std::string& accountId) const {
    return placeIn(accountPlaces, accountId);
}

std::optional<std::size_t> ComparedFolder::instrument(const qmservice::CInstrument& instrument) const {
    return placeIn(instrumentPlaces, instrumentText(instrument));
}

bool ComparedFolder::covers(cost::Date day, const std::string& part) const {
    return days.coverage().of(chargedFamily(part)).contains(day);
}

bool ComparedFolder::coversMarket(cost::Date day, const std::string& market) const {
    const auto& known = days.coverage().marketDays;
    const auto ofMarket = known.find(market);
    return ofMarket == known.end() || ofMarket->second.contains(day);
}

cost::Family chargedFamily(const std::string& part) { return standalone::rateFamily(part).charged; }

}  // namespace feedesk
