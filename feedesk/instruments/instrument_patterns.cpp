#include "feedesk/instruments/instrument_patterns.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <boost/algorithm/string/case_conv.hpp>
#include <iterator>
#include <locale>

#include "cost/pattern.h"
#include "feedesk/text/folding.h"
#include "feedesk/text/patterns.h"
#include "feedesk/text/text.h"

namespace feedesk {
namespace {

bool isIn(const AskedMarket& asked, const std::string& market) {
    const bool underItsOwnName = asked.name == asked.market;
    const std::string capitals = boost::to_upper_copy(market, std::locale::classic());
    return asked.isCalled(market) || (underItsOwnName && (cost::matchesPattern(asked.name, market) ||
                                                          cost::matchesPattern(asked.name, capitals)));
}

AskedMarkets marketsLike(const std::string& market, const AskedMarkets& markets) {
    AskedMarkets found;
    std::copy_if(markets.begin(), markets.end(), std::back_inserter(found),
                 [&](const AskedMarket& asked) { return isIn(asked, market); });
    return found;
}

using Texts = std::array<std::string_view, 2>;

Texts textsOf(const NamedInstrument& each) { return {each->code, each->name}; }
Texts foldedTextsOf(const NamedInstrument& each) { return {each->foldedCode, each->foldedName}; }

NamedInstruments instrumentsIn(const PlacedPattern& pattern, const NamedInstruments& instruments) {
    NamedInstruments found;
    std::copy_if(instruments.begin(), instruments.end(), std::back_inserter(found),
                 [&](const NamedInstrument& instrument) { return pattern.isIn(instrument->market); });
    return found;
}

NamedInstruments wantedBy(const PlacedPattern& pattern, const NamedInstruments& instruments) {
    if (pattern.namesUnknownMarket()) {
        return itemsWrittenLike(instruments, pattern.name, textsOf);
    }
    if (!pattern.namesMarkets) {
        return instrumentsLike(pattern.name, instruments);
    }
    return instrumentsLike(pattern.name, instrumentsIn(pattern, instruments));
}

std::vector<Question> questionsFor(const PlacedPattern& wanted, const NamedInstruments& instruments) {
    std::vector<Question> questions;
    for (const NamedInstrument& instrument : wantedBy(wanted, instruments)) {
        for (const AskedMarket& asked : wanted.markets) {
            if (asked.market == instrument->market) {
                questions.push_back({asked.name, instrument->code});
            }
        }
    }
    return questions;
}

std::vector<std::string> namesOf(const AskedMarkets& markets) {
    std::vector<std::string> names;
    for (const AskedMarket& asked : markets) {
        names.push_back(asked.name);
    }
    return names;
}

/// How to find what the pattern is only a part of; empty when that finds nothing either.
std::string widerPattern(const std::string& pattern, const NamedInstruments& instruments) {
    const std::string wide = widened(pattern);
    return instrumentsLike(wide, instruments).empty() ? "" : insideAdvice("'" + wide + "'");
}

}  // namespace

bool PlacedPattern::isIn(const std::string& market) const {
    return std::any_of(markets.begin(), markets.end(),
                       [&](const AskedMarket& asked) { return asked.market == market; });
}

PlacedPattern placedPattern(const std::string& pattern, const AskedMarkets& markets) {
    const std::string text = narrowed(pattern);
    for (const MarketAndName& reading : readings(text)) {
        AskedMarkets named = marketsLike(reading.market, markets);
        if (!named.empty()) {
            return {std::move(named), reading.name, true};
        }
    }
    return {marketsLike("*", markets), text, false};
}

bool isPattern(const std::string& text) { return narrowed(text).find('*') != std::string::npos; }

NamedInstruments instrumentsLike(const std::string& pattern, const NamedInstruments& instruments) {
    return itemsLike(instruments, pattern, textsOf, foldedTextsOf);
}

std::vector<Question> questionsLike(const std::string& pattern, const NamedInstruments& instruments,
                                    const AskedMarkets& markets) {
    return questionsFor(placedPattern(pattern, markets), instruments);
}

std::vector<Question> questionsWith(const std::string& text, const NamedInstruments& instruments,
                                    const AskedMarkets& markets) {
    PlacedPattern wanted = placedPattern(text, markets);
    wanted.name = widened(wanted.name);
    return questionsFor(wanted, instruments);
}

std::string patternProblem(const std::string& pattern, const NamedInstruments& instruments,
                           const AskedMarkets& markets) {
    const PlacedPattern wanted = placedPattern(pattern, markets);
    if (wanted.namesUnknownMarket()) {
        return fmt::format("the market folder has no market {}; it has {}",
                           echoed(wanted.name.substr(0, wanted.name.find(':'))), fmt::join(namesOf(markets), ", "));
    }
    return fmt::format("the market folder has no instrument like {}{}", echoed(pattern),
                       widerPattern(wanted.name, instrumentsIn(wanted, instruments)));
}

}  // namespace feedesk
