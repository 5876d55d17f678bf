#include "feedesk/instrument_patterns.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <boost/algorithm/string/case_conv.hpp>
#include <iterator>
#include <locale>

#include "cost/pattern.h"
#include "feedesk/folding.h"
#include "feedesk/patterns.h"
#include "feedesk/text.h"

namespace feedesk {
namespace {

bool isIn(const Place& place, const std::string& market) {
    const bool underItsOwnName = place.asked == place.market;
    const std::string capitals = boost::to_upper_copy(market, std::locale::classic());
    return place.isCalled(market) || (underItsOwnName && (cost::matchesPattern(place.asked, market) ||
                                                          cost::matchesPattern(place.asked, capitals)));
}

Places placesLike(const std::string& market, const Places& places) {
    Places found;
    std::copy_if(places.begin(), places.end(), std::back_inserter(found),
                 [&](const Place& place) { return isIn(place, market); });
    return found;
}

using Texts = std::array<std::string_view, 2>;

Texts textsOf(const Instrument& each) { return {each->code, each->name}; }
Texts foldedTextsOf(const Instrument& each) { return {each->foldedCode, each->foldedName}; }

/// The places that a pattern names, and what it says of the instruments there.
struct PlacedPattern {
    Places places;
    std::string name;
    bool namesPlaces = false;  ///< otherwise they are all of them

    /// Folding would take the colon away: "X:6*" would find what is like "x6*".
    [[nodiscard]] bool namesUnknownMarket() const { return !namesPlaces && name.find(':') != std::string::npos; }
};

/// A text whose part before a colon or behind a point is no market is a pattern for all markets.
PlacedPattern placed(const std::string& pattern, const Places& places) {
    const std::string text = narrowed(pattern);
    for (const MarketAndName& reading : readings(text)) {
        Places named = placesLike(reading.market, places);
        if (!named.empty()) {
            return {std::move(named), reading.name, true};
        }
    }
    return {placesLike("*", places), text, false};
}

Instruments instrumentsIn(const Places& places, const Instruments& instruments) {
    Instruments found;
    std::copy_if(instruments.begin(), instruments.end(), std::back_inserter(found), [&](const Instrument& instrument) {
        return std::any_of(places.begin(), places.end(),
                           [&](const Place& place) { return place.market == instrument->market; });
    });
    return found;
}

Instruments wantedBy(const PlacedPattern& pattern, const Instruments& instruments) {
    if (pattern.namesUnknownMarket()) {
        return itemsWrittenLike(instruments, pattern.name, textsOf);
    }
    if (!pattern.namesPlaces) {
        return instrumentsLike(pattern.name, instruments);
    }
    return instrumentsLike(pattern.name, instrumentsIn(pattern.places, instruments));
}

std::vector<std::string> namesOf(const Places& places) {
    std::vector<std::string> names;
    for (const Place& place : places) {
        names.push_back(place.asked);
    }
    return names;
}

/// How to find what the pattern is only a part of; empty when that finds nothing either.
std::string widerPattern(const std::string& pattern, const Instruments& instruments) {
    const std::string wide = widened(pattern);
    return instrumentsLike(wide, instruments).empty() ? "" : insideAdvice("'" + wide + "'");
}

}  // namespace

bool isPattern(const std::string& text) { return narrowed(text).find('*') != std::string::npos; }

Instruments instrumentsLike(const std::string& pattern, const Instruments& instruments) {
    return itemsLike(instruments, pattern, textsOf, foldedTextsOf);
}

std::vector<Question> questionsLike(const std::string& pattern, const Instruments& instruments, const Places& places) {
    const PlacedPattern wanted = placed(pattern, places);
    std::vector<Question> questions;
    for (const Instrument& instrument : wantedBy(wanted, instruments)) {
        for (const Place& place : wanted.places) {
            if (place.market == instrument->market) {
                questions.push_back({place.asked, instrument->code});
            }
        }
    }
    return questions;
}

std::string patternProblem(const std::string& pattern, const Instruments& instruments, const Places& places) {
    const PlacedPattern wanted = placed(pattern, places);
    if (wanted.namesUnknownMarket()) {
        return fmt::format("the market folder has no market {}; it has {}",
                           echoed(wanted.name.substr(0, wanted.name.find(':'))), fmt::join(namesOf(places), ", "));
    }
    return fmt::format("the market folder has no instrument like {}{}", echoed(pattern),
                       widerPattern(wanted.name, instrumentsIn(wanted.places, instruments)));
}

}  // namespace feedesk
